#pragma once

#include <QString>
#include <optional>

namespace mervak {

// Which backend types, clicks and finds windows.
enum class PlatformKind {
    Automatic, // chosen from the session
    X11,       // Xlib and XTest
    Wayland,   // wlroots compositors' virtual keyboard and pointer (sway, labwc, ...)
    Portal,    // the desktop's remote desktop portal (GNOME, KDE)
};

// "auto", "x11", "wayland" or "portal", in any case, as `--platform` and
// MERVAK.INI's "Plataforma" take them; nothing for another name.
std::optional<PlatformKind> platformKindFromName(const QString& name);

// The backend to start with: the command line's choice, else MERVAK.INI's, else
// the session's: Wayland when WAYLAND_DISPLAY names a display or XDG_SESSION_TYPE
// is "wayland", else X11. (A Wayland compositor without a virtual keyboard is
// served by the portal: the backends find that out when they connect.)
PlatformKind choosePlatform(PlatformKind option, PlatformKind setting,
                            const QString& waylandDisplay, const QString& sessionType);

} // namespace mervak
