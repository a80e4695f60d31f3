#pragma once

#include "platform/Language.h"
#include "platform/PlatformChoice.h"
#include "platform/PrivateProfile.h"

#include <QRect>
#include <QString>
#include <QStringList>
#include <cstdint>

namespace mervak {

// Port indexes as the configuration and the status captions number them.
namespace PortIndex {
constexpr int16_t AutoDetect = 0;
constexpr int16_t Lpt1 = 1;
constexpr int16_t Lpt2 = 2;
constexpr int16_t Com1 = 3;
constexpr int16_t Com4 = 6;
constexpr int16_t Usb = 7;
} // namespace PortIndex

// The program's settings, section "Mervak" of MERVAK.INI, after the reading rules.
struct Settings {
    Language language = Language::Catalan;
    QString model = QStringLiteral("DIL"); // trimmed and upper-cased
    int16_t portIndex = PortIndex::AutoDetect;
    QString portDevice; // a "Port" given as an absolute device path, kept as it stands
    int32_t retardPort = 0;
    int16_t interval = 50; // every non-zero value reads as 50 (kept on purpose)
    bool soundSetting = true;
    // What the teacher types to close a locked session ("ParaulaTancar").
    QString closeWord = QStringLiteral("mervak");
    // Where the user last left the virtual tablet, in screen pixels; null until then.
    QRect virtualTabletPlace;
    // "CarpetesDeConfianca" of section "Seguretat", as written: folders whose
    // Templates may start programs and read files, separated by ";".
    QString trustedFolders;
    // The teacher's own picture folders, searched with the symbol library
    // ("CarpetesDibuixos", folders separated by ";").
    QStringList pictureFolders;
    // Started without a file, the program opens the Template used last
    // ("ObrirDarrera"; only "No" turns it off).
    bool reopenLastTemplate = true;
    // "Plataforma": the backend that types ("auto", "x11", "wayland", "portal").
    PlatformKind platform = PlatformKind::Automatic;
    // "PermisEscriptori": the remote desktop portal's token for the teacher's
    // consent, so the desktop asks once, not at every start.
    QString portalRestoreToken;
};

QString settingsFilePath(const QString& homeFolder);

Settings readSettings(const PrivateProfile& file);

// The folders of Settings::trustedFolders, a leading "~" standing for `userHome`;
// blanks around each are dropped, empty ones left out.
QStringList splitTrustedFolders(const QString& text, const QString& userHome);

// The language menu's choice, stored as key "Idioma".
bool writeLanguage(const PrivateProfile& file, Language language, QString* error = nullptr);

// The virtual tablet's place, stored as key "TeclatAuxiliar": "left top width height".
bool writeVirtualTabletPlace(const PrivateProfile& file, const QRect& place,
                             QString* error = nullptr);

// The teacher's picture folders, stored as key "CarpetesDibuixos".
bool writePictureFolders(const PrivateProfile& file, const QStringList& folders,
                         QString* error = nullptr);
// The "ObrirDarrera" choice: "Si" or "No".
bool writeReopenLastTemplate(const PrivateProfile& file, bool reopen, QString* error = nullptr);
// The remote desktop portal's restore token, stored as key "PermisEscriptori";
// an empty token removes the consent.
bool writePortalRestoreToken(const PrivateProfile& file, const QString& token,
                             QString* error = nullptr);

// Takes a "Port" value as MERVAK.INI's reading does.
void setPort(Settings& settings, const QString& port);

// The "Port" value that reads back as these settings: the device path as it
// stands, else the port's name, "AUTODETECT" for any other index.
QString portSetting(const Settings& settings);

// What the tablet's test and calibration keep: "Port", "RetardPort", "Interval"
// and "So" ("Si" or "No"). "Model" and "IDIOMA" are the teacher's to write.
bool writeDeviceSettings(const PrivateProfile& file, const Settings& settings,
                         QString* error = nullptr);

// The serial device a port index or path names: COM1..COM4 are /dev/ttyS0..3;
// empty for auto-detect and the parallel ports.
QString serialDevicePath(const Settings& settings);

// The port as the status captions show it: "LPT1".."COM4", "USB", else "????".
QString portCaption(int16_t portIndex);

} // namespace mervak
