#pragma once

#include <QString>
#include <QStringList>
#include <functional>

namespace mervak {

// Switches that are keys or mouse buttons of the display. While grabbed they
// come to the program alone, whichever window has the focus, and never reach
// the pupil's program.
class SwitchGrab {
public:
    // The switch's place in the names grabbed, and whether it went down or up.
    using Handler = std::function<void(int index, bool down)>;

    virtual ~SwitchGrab() = default;
    // Takes the named switches, each a key as X names it ("F5", "space") or a
    // mouse button "boto1".."boto3", in place of any taken before. Returns the
    // names it could not take (no such key, or another program holds it).
    virtual QStringList grab(const QStringList& names, Handler handler) = 0;
    virtual void release() = 0;
};

// "boto1".."boto3": the mouse button's number; 0 for any other name.
inline int mouseButtonOf(const QString& switchName) {
    const QString name = switchName.trimmed().toLower();
    if (name.size() != 5 || !name.startsWith(QStringLiteral("boto")))
        return 0;
    const int button = name.back().digitValue();
    return button >= 1 && button <= 3 ? button : 0;
}

} // namespace mervak
