#include "EditorFixture.h"

#include <QMouseEvent>

namespace mervak::test {

EditorFixture::EditorFixture()
    : assembly(session, window,
               {[this] { ++beeps; },
                [this](const QString& text) { ran.append(text); },
                [this](const QString& text) { status = text; },
                {}}) {
    window.resize(940, 720);
    window.show();
    assembly.refresh();
    QApplication::processEvents();
}

void EditorFixture::switchLanguage(Language to) {
    language = to;
    assembly.translate(to);
}

QPointF EditorFixture::widgetPoint(QPointF units) const {
    const QRectF sheet = window.sheet()->sheetRect();
    return {sheet.left() + units.x() * sheet.width() / kSheetUnits,
            sheet.bottom() - units.y() * sheet.height() / kSheetUnits};
}

namespace {

void send(QWidget* target, QEvent::Type type, QPointF at, Qt::MouseButtons buttons) {
    const QPointF global = target->mapToGlobal(at);
    QMouseEvent event(type, at, global, type == QEvent::MouseMove ? Qt::NoButton : Qt::LeftButton,
                      buttons, Qt::NoModifier);
    QApplication::sendEvent(target, &event);
}

} // namespace

void EditorFixture::dragOnSheet(QPointF from, QPointF to) {
    SheetView* sheet = window.sheet();
    send(sheet, QEvent::MouseButtonPress, widgetPoint(from), Qt::LeftButton);
    const QPointF middle = (from + to) / 2;
    send(sheet, QEvent::MouseMove, widgetPoint(middle), Qt::LeftButton);
    send(sheet, QEvent::MouseMove, widgetPoint(to), Qt::LeftButton);
    send(sheet, QEvent::MouseButtonRelease, widgetPoint(to), Qt::NoButton);
}

void EditorFixture::clickOnSheet(QPointF at) {
    SheetView* sheet = window.sheet();
    send(sheet, QEvent::MouseButtonPress, widgetPoint(at), Qt::LeftButton);
    send(sheet, QEvent::MouseButtonRelease, widgetPoint(at), Qt::NoButton);
}

void EditorFixture::whenModal(const ModalAnswer& answer, const std::function<void()>& open) {
    answerModals({answer}, open);
}

} // namespace mervak::test
