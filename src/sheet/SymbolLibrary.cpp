#include "sheet/SymbolLibrary.h"

#include "platform/HomeFolder.h"
#include "sheet/SymbolFiles.h"
#include "template/AreaCell.h"

#include <QDir>

namespace mervak {

namespace {

SymbolIndex indexOf(const LibraryRead& library, const QStringList& pictureFolders) {
    return SymbolIndex(library.symbols + readOwnPictures(pictureFolders));
}

} // namespace

QString symbolLibraryCredit(Language language) {
    return TranslateCaption(language,
                            QStringLiteral("Símbols d'OpenMoji (openmoji.org), llicència CC BY-SA "
                                           "4.0; noms dels símbols d'Unicode CLDR, llicència "
                                           "Unicode."));
}

QString SymbolLibrary::installedFolder() {
    return QDir(programDataFolder(executableFolder())).filePath(QStringLiteral("symbols"));
}

SymbolLibrary::SymbolLibrary(const QString& folder, Language language,
                             const QStringList& pictureFolders)
    : folder_(folder) {
    const LibraryRead library = readLibrarySymbols(folder, language);
    errorCaption_ = library.errorCaption;
    errorFile_ = library.errorFile;
    index_ = indexOf(library, pictureFolders);
}

QString SymbolLibrary::errorText(Language language) const {
    if (errorCaption_.isEmpty())
        return {};
    return TranslateCaption(language, errorCaption_).arg(errorFile_);
}

const Symbol* SymbolLibrary::bestFor(QStringView word) const {
    const QList<SymbolMatch> best = index_.search(word, 1);
    if (best.isEmpty() || best.first().kind > SymbolMatchKind::KeywordWords)
        return nullptr;
    return best.first().symbol;
}

QString SymbolLibrary::symbolFile(const QString& hexcode) const {
    return librarySymbolFile(folder_, hexcode, true);
}

SymbolFileLookup SymbolLibrary::filesIn(const QString& folder) {
    return [folder](const QString& hexcode) { return librarySymbolFile(folder, hexcode, true); };
}

QString SymbolLibrary::cellPicture(const Symbol& symbol) {
    return symbol.ownPicture ? symbol.id : symbolReference(symbol.id);
}

SymbolLibraries::SymbolLibraries(QString folder, QStringList pictureFolders)
    : folder_(std::move(folder)), pictureFolders_(std::move(pictureFolders)) {}

const SymbolLibrary& SymbolLibraries::library(Language language) {
    auto& slot = read_[language];
    if (!slot)
        slot = std::make_unique<SymbolLibrary>(folder_, language, pictureFolders_);
    return *slot;
}

void SymbolLibraries::setPictureFolders(const QStringList& folders) {
    if (folders == pictureFolders_)
        return;
    pictureFolders_ = folders;
    read_.clear();
}

} // namespace mervak
