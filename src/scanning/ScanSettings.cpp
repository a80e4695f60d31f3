#include "scanning/ScanSettings.h"

#include <QStringList>
#include <algorithm>
#include <array>

namespace mervak {

namespace {

const QString kSection = QStringLiteral("Exploracio");
constexpr int kBufferSize = 40;
constexpr int kLongestMs = 60000;

struct Named {
    const char* name;
    int value;
};

constexpr std::array kModes = {Named{"cap", int(ScanSettings::Mode::Off)},
                               Named{"elements", int(ScanSettings::Mode::Items)},
                               Named{"files", int(ScanSettings::Mode::Rows)}};
constexpr std::array kLongPresses = {Named{"cap", int(ScanSettings::LongPress::None)},
                                     Named{"anterior", int(ScanSettings::LongPress::PreviousLevel)},
                                     Named{"inicial", int(ScanSettings::LongPress::InitialLevel)}};

template <std::size_t N> QString nameOf(const std::array<Named, N>& names, int value) {
    for (const Named& named : names)
        if (named.value == value)
            return QString::fromLatin1(named.name);
    return QString::fromLatin1(names.front().name);
}

template <std::size_t N>
void takeName(const std::array<Named, N>& names, const QString& text, auto& target) {
    for (const Named& named : names)
        if (text.compare(QLatin1String(named.name), Qt::CaseInsensitive) == 0)
            target = static_cast<std::remove_reference_t<decltype(target)>>(named.value);
}

// A whole number within `least`..60000 (milliseconds, or rounds); anything else keeps `target`.
void takeNumber(const QString& text, int& target, int least = 0) {
    bool ok = false;
    const int value = text.toInt(&ok);
    if (ok && value >= least && value <= kLongestMs)
        target = value;
}

// Keys that a Template may set, then the pupil's own.
const QStringList kSheetKeys = {
    QStringLiteral("Mode"),          QStringLiteral("Interval"),    QStringLiteral("PrimerElement"),
    QStringLiteral("Voltes"),        QStringLiteral("Acceptacio"),  QStringLiteral("Pausa"),
    QStringLiteral("PremudaLlarga"), QStringLiteral("AccioLlarga"), QStringLiteral("Veu")};
const QStringList kSwitchKeys = {QStringLiteral("Commutadors"), QStringLiteral("Avancar"),
                                 QStringLiteral("Seleccionar")};

QString valueOf(const ScanSettings& s, const QString& key) {
    if (key == u"Mode")
        return nameOf(kModes, int(s.mode));
    if (key == u"Commutadors")
        return QString::number(s.switches);
    if (key == u"Avancar")
        return s.advance;
    if (key == u"Seleccionar")
        return s.select;
    if (key == u"Interval")
        return QString::number(s.intervalMs);
    if (key == u"PrimerElement")
        return QString::number(s.firstExtraMs);
    if (key == u"Voltes")
        return QString::number(s.loops);
    if (key == u"Acceptacio")
        return QString::number(s.acceptanceMs);
    if (key == u"Pausa")
        return QString::number(s.pauseMs);
    if (key == u"PremudaLlarga")
        return QString::number(s.longPressMs);
    if (key == u"AccioLlarga")
        return nameOf(kLongPresses, int(s.longPress));
    return s.speak ? QStringLiteral("1") : QStringLiteral("0");
}

void apply(ScanSettings& s, const QString& key, const QString& raw) {
    const QString text = raw.trimmed();
    if (key.compare(u"Mode", Qt::CaseInsensitive) == 0)
        takeName(kModes, text, s.mode);
    else if (key.compare(u"Commutadors", Qt::CaseInsensitive) == 0 &&
             (text == u"1" || text == u"2"))
        s.switches = text.toInt();
    else if (key.compare(u"Avancar", Qt::CaseInsensitive) == 0 && !text.isEmpty())
        s.advance = text;
    else if (key.compare(u"Seleccionar", Qt::CaseInsensitive) == 0 && !text.isEmpty())
        s.select = text;
    else if (key.compare(u"Interval", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.intervalMs, 200);
    else if (key.compare(u"PrimerElement", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.firstExtraMs);
    else if (key.compare(u"Voltes", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.loops);
    else if (key.compare(u"Acceptacio", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.acceptanceMs);
    else if (key.compare(u"Pausa", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.pauseMs);
    else if (key.compare(u"PremudaLlarga", Qt::CaseInsensitive) == 0)
        takeNumber(text, s.longPressMs);
    else if (key.compare(u"AccioLlarga", Qt::CaseInsensitive) == 0)
        takeName(kLongPresses, text, s.longPress);
    else if (key.compare(u"Veu", Qt::CaseInsensitive) == 0 && (text == u"0" || text == u"1"))
        s.speak = text == u"1";
}

} // namespace

ScanSettings readScanSettings(const PrivateProfile& file) {
    ScanSettings settings;
    for (const QStringList& keys : {kSheetKeys, kSwitchKeys})
        for (const QString& key : keys)
            apply(settings, key,
                  file.readString(kSection, key, valueOf(settings, key), kBufferSize));
    return settings;
}

bool writeScanSettings(const PrivateProfile& file, const ScanSettings& settings, QString* error) {
    QList<PrivateProfile::KeyValue> entries;
    for (const QStringList& keys : {kSheetKeys, kSwitchKeys})
        for (const QString& key : keys)
            entries.append({key, valueOf(settings, key)});
    return file.writeStrings(kSection, entries, error);
}

QString templateScanText(const ScanSettings& settings) {
    QStringList pairs;
    for (const QString& key : kSheetKeys)
        pairs.append(key + u'=' + valueOf(settings, key));
    return pairs.join(u';');
}

ScanSettings withTemplateScan(ScanSettings user, const QString& text) {
    for (const QString& pair : text.split(u';', Qt::SkipEmptyParts)) {
        const qsizetype equals = pair.indexOf(u'=');
        const QString key = pair.left(equals).trimmed();
        if (equals > 0 && !kSwitchKeys.contains(key, Qt::CaseInsensitive))
            apply(user, key, pair.mid(equals + 1));
    }
    return user;
}

} // namespace mervak
