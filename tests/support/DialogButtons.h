#pragma once

#include <QPushButton>
#include <QString>
#include <QWidget>

namespace mervak::test {

// The push button of a dialog whose text is `text`, or nullptr.
inline QPushButton* buttonNamed(QWidget* dialog, const QString& text) {
    for (QPushButton* button : dialog->findChildren<QPushButton*>())
        if (button->text() == text)
            return button;
    return nullptr;
}

} // namespace mervak::test
