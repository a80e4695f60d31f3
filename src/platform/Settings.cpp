#include "platform/Settings.h"

#include <QDir>
#include <array>

namespace mervak {

namespace {

const QString kSection = QStringLiteral("Mervak");
constexpr int kBufferSize = 40;
// Device paths under /dev/serial/by-id are long; they are read whole.
constexpr int kPathBufferSize = 4096;
const std::array<QString, 6> kPortNames = {QStringLiteral("LPT1"), QStringLiteral("LPT2"),
                                           QStringLiteral("COM1"), QStringLiteral("COM2"),
                                           QStringLiteral("COM3"), QStringLiteral("COM4")};

QString readText(const PrivateProfile& file, const QString& key, const QString& fallback) {
    return file.readString(kSection, key, fallback, kBufferSize);
}

const QString kVirtualTabletKey = QStringLiteral("TeclatAuxiliar");
const QString kPictureFoldersKey = QStringLiteral("CarpetesDibuixos");
const QString kReopenLastKey = QStringLiteral("ObrirDarrera");
const QString kPortalTokenKey = QStringLiteral("PermisEscriptori");

// Four integers, or a null rectangle when the value is not that.
QRect placeFromText(const QString& text) {
    const QStringList parts = text.split(u' ', Qt::SkipEmptyParts);
    if (parts.size() != 4)
        return {};
    int numbers[4] = {};
    for (int i = 0; i < 4; ++i) {
        bool ok = false;
        numbers[i] = parts[i].toInt(&ok);
        if (!ok)
            return {};
    }
    return {numbers[0], numbers[1], numbers[2], numbers[3]};
}

} // namespace

void setPort(Settings& settings, const QString& port) {
    settings.portIndex = PortIndex::AutoDetect;
    settings.portDevice.clear();
    if (port.startsWith(u'/')) {
        settings.portDevice = port;
        return;
    }
    const QString name = port.left(kBufferSize - 1).toUpper();
    for (std::size_t i = 0; i < kPortNames.size(); ++i)
        if (name == kPortNames[i])
            settings.portIndex = static_cast<int16_t>(i + 1);
}

QString settingsFilePath(const QString& homeFolder) {
    return QDir(homeFolder).filePath(QStringLiteral("MERVAK.INI"));
}

Settings readSettings(const PrivateProfile& file) {
    Settings settings;
    settings.language =
        languageFromSetting(readText(file, QStringLiteral("IDIOMA"), QStringLiteral("CATALA")));
    settings.model =
        readText(file, QStringLiteral("Model"), QStringLiteral("DIL")).trimmed().toUpper();
    setPort(settings, file.readString(kSection, QStringLiteral("Port"),
                                      QStringLiteral("AUTODETECT"), kPathBufferSize));
    settings.retardPort =
        static_cast<int32_t>(file.readInteger(kSection, QStringLiteral("RetardPort"), 0));
    const long long interval = file.readInteger(kSection, QStringLiteral("Interval"), 100);
    settings.interval = interval == 0 ? 0 : 50;
    settings.soundSetting = readText(file, QStringLiteral("So"), QStringLiteral("Si")).toUpper() ==
                            QStringLiteral("SI");
    // An empty word would let any press of Enter close a pupil's session.
    const QString closeWord = readText(file, QStringLiteral("ParaulaTancar"), QString()).trimmed();
    if (!closeWord.isEmpty())
        settings.closeWord = closeWord;
    settings.virtualTabletPlace = placeFromText(readText(file, kVirtualTabletKey, QString()));
    settings.trustedFolders =
        file.readString(QStringLiteral("Seguretat"), QStringLiteral("CarpetesDeConfianca"),
                        QString(), kPathBufferSize);
    settings.pictureFolders =
        file.readString(kSection, kPictureFoldersKey, QString(), 4 * kPathBufferSize)
            .split(u';', Qt::SkipEmptyParts);
    settings.reopenLastTemplate =
        readText(file, kReopenLastKey, QStringLiteral("Si")).toUpper() != QStringLiteral("NO");
    settings.platform =
        platformKindFromName(readText(file, QStringLiteral("Plataforma"), QStringLiteral("auto")))
            .value_or(PlatformKind::Automatic);
    settings.portalRestoreToken =
        file.readString(kSection, kPortalTokenKey, QString(), kPathBufferSize).trimmed();
    return settings;
}

QStringList splitTrustedFolders(const QString& text, const QString& userHome) {
    QStringList folders;
    for (const QString& part : text.split(u';')) {
        QString folder = part.trimmed();
        if (folder == u"~" || folder.startsWith(QLatin1String("~/")))
            folder = userHome + folder.mid(1);
        if (!folder.isEmpty())
            folders.append(folder);
    }
    return folders;
}

bool writeLanguage(const PrivateProfile& file, Language language, QString* error) {
    return file.writeString(kSection, QStringLiteral("Idioma"), languageSettingValue(language),
                            error);
}

bool writeVirtualTabletPlace(const PrivateProfile& file, const QRect& place, QString* error) {
    const QString text = QStringLiteral("%1 %2 %3 %4")
                             .arg(place.left())
                             .arg(place.top())
                             .arg(place.width())
                             .arg(place.height());
    return file.writeString(kSection, kVirtualTabletKey, text, error);
}

bool writePictureFolders(const PrivateProfile& file, const QStringList& folders, QString* error) {
    return file.writeString(kSection, kPictureFoldersKey, folders.join(u';'), error);
}

bool writeReopenLastTemplate(const PrivateProfile& file, bool reopen, QString* error) {
    return file.writeString(kSection, kReopenLastKey,
                            reopen ? QStringLiteral("Si") : QStringLiteral("No"), error);
}

bool writePortalRestoreToken(const PrivateProfile& file, const QString& token, QString* error) {
    return file.writeString(kSection, kPortalTokenKey, token, error);
}

QString portSetting(const Settings& settings) {
    if (!settings.portDevice.isEmpty())
        return settings.portDevice;
    if (settings.portIndex >= PortIndex::Lpt1 && settings.portIndex <= PortIndex::Com4)
        return kPortNames[settings.portIndex - 1];
    return QStringLiteral("AUTODETECT");
}

bool writeDeviceSettings(const PrivateProfile& file, const Settings& settings, QString* error) {
    QList<PrivateProfile::KeyValue> entries = {
        {QStringLiteral("Port"), portSetting(settings)},
        {QStringLiteral("RetardPort"), QString::number(settings.retardPort)},
        {QStringLiteral("Interval"), QString::number(settings.interval)},
        {QStringLiteral("So"),
         settings.soundSetting ? QStringLiteral("Si") : QStringLiteral("No")}};
    return file.writeStrings(kSection, entries, error);
}

QString serialDevicePath(const Settings& settings) {
    if (!settings.portDevice.isEmpty())
        return settings.portDevice;
    if (settings.portIndex >= PortIndex::Com1 && settings.portIndex <= PortIndex::Com4)
        return QStringLiteral("/dev/ttyS%1").arg(settings.portIndex - PortIndex::Com1);
    return {};
}

QString portCaption(int16_t portIndex) {
    if (portIndex >= PortIndex::Lpt1 && portIndex <= PortIndex::Com4)
        return kPortNames[portIndex - 1];
    return portIndex == PortIndex::Usb ? QStringLiteral("USB") : QStringLiteral("????");
}

} // namespace mervak
