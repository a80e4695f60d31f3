#include "EditorFixture.h"

#include "action/KeysPreview.h"

#include <QMouseEvent>

namespace mervak::test {

EditorFixture::EditorFixture()
    : editor(EditorController::Context{
                 session, [this] { ++beeps; }, [this](const QString& text) { ran.append(text); },
                 [](const QString& text) { return KeysPreview::of(text).text; },
                 [this](const QString& text) { status = text; }},
             EditorController::Views{window, *window.sheetPane(), *window.panel(),
                                     *window.pageFrame()}),
      document(DocumentController::Context{session,
                                           [this](bool another) { editor.refresh(another); },
                                           [this](const QString& text) { status = text; }},
               window) {
    editor.bindActions(window.editorActions());
    window.resize(940, 720);
    window.show();
    editor.refresh();
    document.refreshTitle();
    QApplication::processEvents();
}

void EditorFixture::switchLanguage(Language to) {
    language = to;
    window.translate(to);
    translateAllWindows(to);
    editor.retranslate();
    document.refreshTitle();
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

void EditorFixture::whenModal(const std::function<void(QWidget*)>& answer,
                              const std::function<void()>& open) {
    auto* poll = new QTimer;
    poll->setInterval(10);
    bool answered = false;
    QObject::connect(poll, &QTimer::timeout, [poll, answer, &answered] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            poll->stop();
            answered = true;
            answer(modal);
        }
    });
    poll->start();
    open();
    poll->stop();
    delete poll;
    EXPECT_TRUE(answered) << "no dialog showed";
}

} // namespace mervak::test
