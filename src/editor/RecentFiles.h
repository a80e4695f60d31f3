#pragma once

#include "platform/PrivateProfile.h"
#include "session/Session.h"

#include <QStringList>

namespace mervak {

// The Templates opened or saved last, newest first, kept in MERVAK.INI under
// section "Recents" as keys "Fitxer1".."Fitxer8". The file is read anew on
// every call, so two copies of the program do not overwrite each other's list
// with a stale one.
class RecentFiles {
public:
    static constexpr int kMaxFiles = 8;

    explicit RecentFiles(PrivateProfile profile);

    // The stored paths, without blanks or repeats, at most kMaxFiles.
    QStringList files() const;

    // Puts `path` first (dropping an older entry for it). False with `error` set
    // when the file could not be written.
    bool add(const QString& path, QString* error = nullptr) const;

    // Drops `path`, after it failed to open.
    bool remove(const QString& path, QString* error = nullptr) const;

private:
    bool store(const QStringList& files, QString* error) const;

    PrivateProfile profile_;
};

// How the menu names each of `paths`: its file name, and after it the name of
// its folder when another entry has the same file name (the whole folder when
// that is shared too), so that two Templates of the same name tell apart.
QStringList recentFileLabels(const QStringList& paths);

// Where the file dialogs start: the open Template's folder. For an untitled
// Template, the working folder unless that is still the home folder (MERVAK.INI
// and the undo snapshot are no place for a teacher's files) or the root, then the folder of
// the newest of `recentFiles` that still exists, else the user's documents.
QString startFolder(const Session& session, const QStringList& recentFiles);

} // namespace mervak
