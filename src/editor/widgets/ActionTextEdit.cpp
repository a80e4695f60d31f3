#include "editor/widgets/ActionTextEdit.h"

#include <QKeyEvent>
#include <QMimeData>
#include <QRegularExpression>

namespace mervak {

namespace {

const QString kEnter = QStringLiteral("{ENTER}");
constexpr int kVisibleLines = 3;

} // namespace

ActionTextEdit::ActionTextEdit(QWidget* parent) : QPlainTextEdit(parent) {
    setTabChangesFocus(true);
    setLineWrapMode(QPlainTextEdit::WidgetWidth);
    setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    connect(this, &QPlainTextEdit::textChanged, this, [this] {
        if (!quiet_)
            emit textEdited(toPlainText());
    });
}

void ActionTextEdit::setText(const QString& text) {
    if (text == toPlainText())
        return;
    quiet_ = true;
    setPlainText(text);
    quiet_ = false;
}

void ActionTextEdit::insertCommand(const QString& command, const QString& placeholder) {
    QTextCursor cursor = textCursor();
    const int start = cursor.selectionStart();
    cursor.insertText(command);
    const qsizetype at = placeholder.isEmpty() ? -1 : command.indexOf(placeholder);
    if (at >= 0) {
        cursor.setPosition(start + static_cast<int>(at));
        cursor.setPosition(start + static_cast<int>(at + placeholder.size()),
                           QTextCursor::KeepAnchor);
    }
    setTextCursor(cursor);
    setFocus(Qt::OtherFocusReason);
}

QSize ActionTextEdit::sizeHint() const {
    const int lines = fontMetrics().lineSpacing() * kVisibleLines;
    return {QPlainTextEdit::sizeHint().width(), lines + 2 * frameWidth() + 8};
}

void ActionTextEdit::markError(qsizetype position, qsizetype length) {
    QList<QTextEdit::ExtraSelection> marks;
    if (position >= 0) {
        QTextEdit::ExtraSelection mark;
        mark.cursor = QTextCursor(document());
        mark.cursor.setPosition(static_cast<int>(position));
        mark.cursor.setPosition(static_cast<int>(position + length), QTextCursor::KeepAnchor);
        mark.format.setUnderlineStyle(QTextCharFormat::WaveUnderline);
        mark.format.setUnderlineColor(Qt::red);
        mark.format.setBackground(QColor(255, 220, 220));
        marks.append(mark);
    }
    setExtraSelections(marks);
}

void ActionTextEdit::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter) {
        insertPlainText(kEnter);
        return;
    }
    QPlainTextEdit::keyPressEvent(event);
}

void ActionTextEdit::insertFromMimeData(const QMimeData* source) {
    if (!source->hasText())
        return;
    static const QRegularExpression lineBreak(QStringLiteral("\r\n|\r|\n"));
    insertPlainText(source->text().replace(lineBreak, kEnter));
}

} // namespace mervak
