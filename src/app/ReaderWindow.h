#pragma once

#include "platform/SpeechEngine.h"

#include <QTimer>
#include <QWidget>

class QPlainTextEdit;

namespace mervak {

// The text a LLEGEIX block reads aloud, with Pause, Continue and Stop. It never
// takes the focus from the pupil's program, and goes away when the reading ends.
class ReaderWindow : public QWidget {
    Q_OBJECT
public:
    explicit ReaderWindow(SpeechEngine& engine, QWidget* parent = nullptr);

    void showText(const QString& text);

private:
    SpeechEngine& engine_;
    QPlainTextEdit* text_;
    QTimer watch_;
};

} // namespace mervak
