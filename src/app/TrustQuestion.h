#pragma once

#include "platform/Language.h"
#include "session/TemplateAudit.h"

#include <QWidget>

class QCheckBox;
class QLabel;
class QPushButton;

namespace mervak {

// Asks once, when an untrusted Template with guarded commands opens, whether it
// may do them. It never takes the focus from the pupil's program and never
// blocks presses: until it is answered the guarded commands are skipped.
class TrustQuestion : public QWidget {
    Q_OBJECT
public:
    explicit TrustQuestion(QWidget* parent = nullptr);

    // Shows what the Template in `file` would do, grouped by what and where.
    void ask(const QString& file, const QList<AuditEntry>& entries, Language language);

    // One line per effect: "engegar el programa "touch x" (àrees 1, 3)".
    static QStringList describe(const QList<AuditEntry>& entries, Language language);

signals:
    void answered(bool allow, bool remember);

private:
    void answer(bool allow);

    QLabel* text_;
    QCheckBox* remember_;
    QList<QPushButton*> buttons_;
    Language language_ = Language::Catalan;
};

} // namespace mervak
