#pragma once

#include <QByteArray>
#include <QString>

namespace mervak {

// The answers the user asked Mervak to remember about Templates, by the SHA-256
// of the file's bytes, so that a file changed since is a new file. One line per
// answer ("p HASH" allowed, "n HASH" not allowed) in a text file of the home
// folder, read anew on every question and written atomically.
class TrustStore {
public:
    enum class Answer { None, Allow, Deny };

    static inline const QString kFileName = QStringLiteral("PLANTILLES-CONFIANCA.TXT");

    // `path` empty: nothing is remembered across runs.
    explicit TrustStore(QString path = {}) : path_(std::move(path)) {}

    static QByteArray hashOf(const QByteArray& content);

    Answer answer(const QByteArray& hash) const;

    // Replaces any earlier answer for `hash`; false with `error` set when the
    // file cannot be written (the old one stays as it was).
    bool remember(const QByteArray& hash, Answer answer, QString* error = nullptr) const;

private:
    QString path_;
};

} // namespace mervak
