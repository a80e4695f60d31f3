#pragma once

#include <QPlainTextEdit>

namespace mervak {

// The ActionText field TxText. An ActionText is one line in the Template file,
// so it never takes a line break: the Enter key, and every line break of pasted
// text, becomes "{ENTER}", the key it stands for.
class ActionTextEdit : public QPlainTextEdit {
    Q_OBJECT
public:
    explicit ActionTextEdit(QWidget* parent = nullptr);

    QString text() const { return toPlainText(); }
    // Shows `text` without reporting an edit.
    void setText(const QString& text);

    // Inserts `command` at the cursor (in place of the selection) and selects
    // the first `placeholder` inside it, for typing over; the cursor goes after
    // the command when there is none.
    void insertCommand(const QString& command, const QString& placeholder = {});

    QSize sizeHint() const override;

    // Underlines `length` characters from `position` as wrong; a negative
    // position clears the mark.
    void markError(qsizetype position, qsizetype length = 1);

signals:
    // The user changed the text.
    void textEdited(const QString& text);

protected:
    void keyPressEvent(QKeyEvent* event) override;
    void insertFromMimeData(const QMimeData* source) override;

private:
    bool quiet_ = false;
};

} // namespace mervak
