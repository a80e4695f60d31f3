#pragma once

#include <QApplication>
#include <QDialog>
#include <QElapsedTimer>
#include <QFileDialog>
#include <QLineEdit>
#include <QPointer>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace mervak::test {

using ModalAnswer = std::function<void(QWidget* modal)>;

// Runs `open`, which shows modal dialogs, and answers each with the next of
// `answers`, in order. A test must never wait on a dialog nobody answers: a
// dialog beyond the answers, or one still open a while after its answer, is a
// failure and is closed at once; fewer dialogs than answers is a failure too.
inline void answerModals(const QList<ModalAnswer>& answers, const std::function<void()>& open) {
    constexpr int kPollMs = 10;
    constexpr int kStillOpenMs = 3000;
    const auto close = [](QWidget* modal) {
        if (auto* dialog = qobject_cast<QDialog*>(modal))
            dialog->done(QDialog::Rejected);
        else
            modal->close();
    };
    const auto describe = [](QWidget* modal) { return modal->windowTitle().toStdString(); };
    qsizetype answered = 0;
    QPointer<QWidget> last;
    QElapsedTimer since;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (!modal || !modal->isVisible())
            return;
        if (modal == last) {
            if (since.elapsed() < kStillOpenMs)
                return;
            ADD_FAILURE() << "still open after its answer: " << describe(modal);
            last = nullptr;
            close(modal);
            return;
        }
        if (answered == answers.size()) {
            ADD_FAILURE() << "a dialog nobody expected: " << describe(modal);
            close(modal);
            return;
        }
        last = modal;
        since.restart();
        answers[answered++](modal);
    });
    poll.start(kPollMs);
    open();
    poll.stop();
    EXPECT_EQ(answered, answers.size()) << "fewer dialogs showed than were expected";
}

// Picks `file` in a file dialog as a person would, typing its whole name:
// selectFile() races the dialog's listing of its start folder.
inline void chooseInFileDialog(QFileDialog* dialog, const QString& file) {
    dialog->findChild<QLineEdit*>(QStringLiteral("fileNameEdit"))->setText(file);
    QMetaObject::invokeMethod(dialog, "accept");
}

} // namespace mervak::test
