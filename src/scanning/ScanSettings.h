#pragma once

#include "platform/PrivateProfile.h"

#include <QString>

namespace mervak {

// How the sheet is scanned for a pupil who presses switches instead of the tablet.
struct ScanSettings {
    enum class Mode { Off, Items, Rows };
    // What a long press of a switch does.
    enum class LongPress { None, PreviousLevel, InitialLevel };

    Mode mode = Mode::Off;
    // 1: the highlight moves by itself and the one switch (`select`) chooses;
    // 2: `advance` moves it and `select` chooses.
    int switches = 1;
    // A key as X names it ("F5", "space"), "boto1".."boto3" for a mouse button,
    // or an evdev button name ("BTN_TRIGGER").
    QString advance = QStringLiteral("F5");
    QString select = QStringLiteral("F6");
    int intervalMs = 1500;   // how long each row or item stays highlighted
    int firstExtraMs = 1000; // added on the first row or item of a round
    int loops = 3;           // rounds without a choice before the highlight rests; 0 never
    int acceptanceMs = 100;  // a switch counts once held this long
    int pauseMs = 1000;      // after a choice, presses are ignored this long
    int longPressMs = 0;     // a press held this long is a long press; 0: none
    LongPress longPress = LongPress::PreviousLevel;
    bool speak = false; // auditory scanning: each highlighted item is read aloud

    bool isOn() const { return mode != Mode::Off; }
    friend bool operator==(const ScanSettings&, const ScanSettings&) = default;
};

// Section "Exploracio" of MERVAK.INI: each missing or unreadable key keeps its default.
ScanSettings readScanSettings(const PrivateProfile& file);
bool writeScanSettings(const PrivateProfile& file, const ScanSettings& settings,
                       QString* error = nullptr);

// A Template's own scanning, one line of "Key=value" pairs separated by ";", the
// keys of MERVAK.INI. The switches (how many, which) belong to the pupil, not
// to the sheet, so a Template never names them.
QString templateScanText(const ScanSettings& settings);
// `user` with what the Template's text sets; an empty text changes nothing.
ScanSettings withTemplateScan(ScanSettings user, const QString& text);

} // namespace mervak
