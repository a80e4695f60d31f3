#pragma once

#include "platform/Language.h"
#include "sheet/PictureFiles.h"
#include "sheet/SymbolIndex.h"

#include <QString>
#include <QStringList>
#include <map>
#include <memory>

namespace mervak {

// The credit the library's licences ask for, in one line.
QString symbolLibraryCredit(Language language);

// The symbol library in one language, joined by the teacher's own pictures: what the
// symbol picker, the word-list sheets and the command line search.
class SymbolLibrary {
public:
    // Where the package installs the library: share/mervak/symbols beside the program.
    static QString installedFolder();

    // Reads the library in `folder` and the pictures under `pictureFolders`. A library
    // that cannot be read leaves errorText() set and finds the teacher's pictures only.
    SymbolLibrary(const QString& folder, Language language, const QStringList& pictureFolders = {});

    // Why the library could not be read, in `language`; empty when it was read.
    QString errorText(Language language) const;

    QList<SymbolMatch> search(QStringView words, qsizetype limit) const {
        return index_.search(words, limit);
    }

    // The symbol a word's cell gets: the best match when its name or a keyword is the
    // word or holds it whole; none for a weaker match, which would show something else.
    const Symbol* bestFor(QStringView word) const;

    // The colour SVG of a library symbol; empty when there is none. Plugs into the
    // sheet's PictureFiles.
    QString symbolFile(const QString& hexcode) const;
    SymbolFileLookup fileLookup() const { return filesIn(folder_); }
    // The same for the library in `folder`, without reading its names.
    static SymbolFileLookup filesIn(const QString& folder);

    // What a cell stores for the symbol: "symbol:" and the hexcode, or the picture's path.
    static QString cellPicture(const Symbol& symbol);

private:
    QString folder_;
    QString errorCaption_;
    QString errorFile_;
    SymbolIndex index_;
};

// The library in each language, read on first use and kept: reading it takes tens of
// milliseconds, a search well under one.
class SymbolLibraries {
public:
    SymbolLibraries(QString folder, QStringList pictureFolders);

    const SymbolLibrary& library(Language language);

    // When the teacher's folders changed, the libraries are read again on next use.
    void setPictureFolders(const QStringList& folders);
    const QStringList& pictureFolders() const { return pictureFolders_; }

private:
    QString folder_;
    QStringList pictureFolders_;
    std::map<Language, std::unique_ptr<SymbolLibrary>> read_;
};

} // namespace mervak
