#include "action/dryrun/DryRunKeyboard.h"

#include "action/SendKeysParser.h"

#include <QCoreApplication>

namespace mervak {

bool DryRunKeyboard::type(const KeyStrokes& strokes, QString*) {
    QStringList events;
    for (const KeyStroke& stroke : strokes)
        events.append(SendKeysParser::notation(stroke));
    log_.write(DryRunLine("keys").add("text", events.join(QString())).add("events", events));
    return true;
}

void DryRunKeyboard::flush(std::function<void()> done) {
    log_.write(DryRunLine("flush"));
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(done), Qt::QueuedConnection);
}

} // namespace mervak
