#include "action/dryrun/DryRunKeyboard.h"

#include "action/SendKeysParser.h"

#include <QCoreApplication>

namespace mervak {

std::optional<TypingError> DryRunKeyboard::type(const KeyStrokes& strokes) {
    QStringList events;
    for (const KeyStroke& stroke : strokes)
        events.append(SendKeysParser::notation(stroke));
    log_.write(DryRunLine("keys").add("text", events.join(QString())).add("events", events));
    return std::nullopt;
}

void DryRunKeyboard::flush(std::function<void()> done) {
    log_.write(DryRunLine("flush"));
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(done), Qt::QueuedConnection);
}

} // namespace mervak
