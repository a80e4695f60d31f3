#include "platform/PlatformChoice.h"

namespace mervak {

std::optional<PlatformKind> platformKindFromName(const QString& name) {
    struct Named {
        const char* name;
        PlatformKind kind;
    };
    constexpr Named kNames[] = {{"auto", PlatformKind::Automatic},
                                {"x11", PlatformKind::X11},
                                {"wayland", PlatformKind::Wayland},
                                {"portal", PlatformKind::Portal}};
    const QString wanted = name.trimmed().toLower();
    for (const Named& named : kNames)
        if (wanted == QLatin1String(named.name))
            return named.kind;
    return std::nullopt;
}

PlatformKind choosePlatform(PlatformKind option, PlatformKind setting,
                            const QString& waylandDisplay, const QString& sessionType) {
    if (option != PlatformKind::Automatic)
        return option;
    if (setting != PlatformKind::Automatic)
        return setting;
    const bool wayland = !waylandDisplay.isEmpty() || sessionType.toLower() == u"wayland";
    return wayland ? PlatformKind::Wayland : PlatformKind::X11;
}

} // namespace mervak
