#include "app/ReaderWindow.h"

#include "editor/widgets/Captions.h"

#include <QHBoxLayout>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kWatchMs = 250;

} // namespace

ReaderWindow::ReaderWindow(SpeechEngine& engine, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::WindowDoesNotAcceptFocus | Qt::WindowStaysOnTopHint),
      engine_(engine), text_(new QPlainTextEdit) {
    setAttribute(Qt::WA_ShowWithoutActivating);
    setFocusPolicy(Qt::NoFocus);
    setWindowCaption(this, QStringLiteral("Lectura"));
    text_->setReadOnly(true);
    text_->setFocusPolicy(Qt::NoFocus);
    auto* buttons = new QHBoxLayout;
    const auto addButton = [this, buttons](const char* caption, auto action) {
        auto* button = new QPushButton;
        button->setFocusPolicy(Qt::NoFocus);
        setCaption(button, QString::fromUtf8(caption));
        connect(button, &QPushButton::clicked, this, action);
        buttons->addWidget(button);
    };
    addButton("Pausa", [this] { engine_.pause(); });
    addButton("Continuar", [this] { engine_.resume(); });
    addButton("Aturar", [this] {
        engine_.stop();
        watch_.stop();
        hide();
    });
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(text_);
    layout->addLayout(buttons);
    resize(420, 240);
    watch_.setInterval(kWatchMs);
    connect(&watch_, &QTimer::timeout, this, [this] {
        if (engine_.speaking())
            return;
        watch_.stop();
        hide();
    });
}

void ReaderWindow::showText(const QString& text) {
    text_->setPlainText(text);
    show();
    watch_.start();
}

} // namespace mervak
