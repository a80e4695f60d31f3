#include "platform/WindowTitleMatch.h"

namespace mervak {

WindowId findWindowByTitle(const QList<WindowInfo>& windows, const QString& title) {
    if (title.isEmpty()) {
        return kNoWindow;
    }
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        if (window->title.compare(title, Qt::CaseInsensitive) == 0) {
            return window->id;
        }
    }
    for (auto window = windows.rbegin(); window != windows.rend(); ++window) {
        if (window->title.startsWith(title, Qt::CaseInsensitive)) {
            return window->id;
        }
    }
    return kNoWindow;
}

} // namespace mervak
