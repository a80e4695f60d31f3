#include "tracker/TrackerSettings.h"

#include "platform/NumericText.h"

#include <algorithm>

namespace mervak {

namespace {

const QString kSection = QStringLiteral("WEBCAM");
const QString kCamera = QStringLiteral("Camera");
const QString kColour = QStringLiteral("color_marca");
const QString kArea = QStringLiteral("area_minima");
const QString kDwell = QStringLiteral("temps_repos");
constexpr int kBufferSize = 512;
constexpr double kLongestDwellMs = 10000;

QString readText(const PrivateProfile& ini, const QString& key) {
    return ini.readString(kSection, key, QString(), kBufferSize);
}

// "R,G,B", each 0..255; anything else keeps the default red.
MarkerColour parseColour(const QString& text, MarkerColour fallback) {
    const QStringList parts = text.split(u',');
    if (parts.size() != 3)
        return fallback;
    int channels[3];
    for (int i = 0; i < 3; ++i) {
        bool ok = false;
        channels[i] = parts[i].trimmed().toInt(&ok);
        if (!ok || channels[i] < 0 || channels[i] > 255)
            return fallback;
    }
    return {uint8_t(channels[0]), uint8_t(channels[1]), uint8_t(channels[2])};
}

} // namespace

TrackerSettings readTrackerSettings(const PrivateProfile& ini) {
    TrackerSettings settings;
    settings.camera = readText(ini, kCamera);
    settings.colour = parseColour(readText(ini, kColour), settings.colour);
    const QString area = readText(ini, kArea);
    if (!area.isEmpty())
        settings.minimumArea = int(std::clamp(Val(area), 1.0, 640.0 * 480.0));
    settings.dwellMs = int(std::clamp(Val(readText(ini, kDwell)), 0.0, kLongestDwellMs));
    return settings;
}

bool writeMarkerColour(const PrivateProfile& ini, MarkerColour colour, QString* error) {
    return ini.writeString(kSection, kColour,
                           QStringLiteral("%1,%2,%3").arg(colour.r).arg(colour.g).arg(colour.b),
                           error);
}

bool writeDwellMs(const PrivateProfile& ini, int dwellMs, QString* error) {
    return ini.writeString(kSection, kDwell, QString::number(dwellMs), error);
}

} // namespace mervak
