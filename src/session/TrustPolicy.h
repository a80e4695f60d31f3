#pragma once

#include "action/GuardedCommand.h"
#include "session/TrustStore.h"

#include <QByteArray>
#include <QHash>
#include <QString>
#include <QStringList>

namespace mervak {

// Decides what the open Template may do beyond keys, pages, mouse, memory and
// speech. A Template is trusted when it lies in the program's data folder or a
// folder the user's MERVAK.INI trusts, when it was saved from the editor, or
// when the user allowed it; its guarded commands otherwise wait for an answer
// and are skipped until then. Files are compared after resolving ".." and
// symbolic links; answers are kept by the file's content.
class TrustPolicy : public CommandGuard {
public:
    enum class Standing {
        Own,           // untitled, or saved from the editor
        SystemData,    // an example installed with the program
        TrustedFolder, // in a folder of "CarpetesDeConfianca"
        Allowed,       // the user said yes
        Denied,        // the user said no
        Unknown,       // nobody has decided yet
    };

    static bool isTrusted(Standing standing) {
        return standing != Standing::Denied && standing != Standing::Unknown;
    }

    // Until configured nothing is trusted but untitled Templates and answers are
    // kept for this run only.
    void configure(const QString& systemDataFolder, const QStringList& trustedFolders,
                   TrustStore store);

    // How a Template file stands with this user, from its path and its bytes.
    Standing standingOf(const QString& file, const QByteArray& content) const;

    // The Template just opened from `file` becomes the one whose commands are judged.
    Standing opened(const QString& file);
    // An untitled Template.
    void untitled();
    // The open Template was saved to `file` from the editor: trusted by its bytes.
    // False with `error` set when that cannot be remembered across runs.
    bool saved(const QString& file, QString* error = nullptr);
    // The user's answer for the open Template, kept for this run and, with
    // `remember`, in the store.
    bool answer(bool allow, bool remember, QString* error = nullptr);

    Standing standing() const { return standing_; }
    const QString& openFile() const { return file_; }

    // Whether a Template in `templateFolder` needs consent for `command`: always
    // for programs and settings, only outside that folder and the program's data
    // for files.
    bool isGuarded(const GuardedCommand& command, const QString& templateFolder) const;

    bool permits(const GuardedCommand& command) const override;

private:
    QByteArray hashOfFile(const QString& file) const;

    QString systemData_;
    QStringList trustedFolders_;
    TrustStore store_;
    QHash<QByteArray, bool> answersThisRun_; // by hash: allowed or not
    QString file_;
    QString folder_;
    QByteArray hash_;
    Standing standing_ = Standing::Own;
};

// The path with "..", "." and symbolic links resolved as far as it exists; the
// part that does not exist is appended as written.
QString resolvedPath(const QString& path);

// Whether `path` lies inside `folder` (itself excluded) once both are resolved.
bool liesIn(const QString& path, const QString& folder);

} // namespace mervak
