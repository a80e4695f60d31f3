#include "platform/qt/QtClipboard.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QImage>

namespace mervak {

namespace {

QClipboard* systemClipboard() {
    return qobject_cast<QGuiApplication*>(QCoreApplication::instance()) != nullptr
               ? QGuiApplication::clipboard()
               : nullptr;
}

} // namespace

void QtClipboard::clear() {
    if (QClipboard* clipboard = systemClipboard()) {
        clipboard->clear();
    }
}

void QtClipboard::setText(const QString& text) {
    if (QClipboard* clipboard = systemClipboard()) {
        clipboard->setText(text);
    }
}

bool QtClipboard::setPictureFromFile(const QString& path) {
    QClipboard* clipboard = systemClipboard();
    const QImage picture(path);
    if (clipboard == nullptr || picture.isNull()) {
        return false;
    }
    clipboard->setImage(picture);
    return true;
}

QString QtClipboard::text() {
    QClipboard* clipboard = systemClipboard();
    return clipboard != nullptr ? clipboard->text() : QString();
}

} // namespace mervak
