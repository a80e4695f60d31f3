#pragma once

#include <QList>
#include <QString>

namespace mervak {

// One named program or macro of the catalogue.
struct CatalogueEntry {
    QString group; // empty for the entries of the plain "[Programes]" and "[Macros]"
    QString name;  // what the pickers show
    QString text;  // a program's command line, or a macro's ActionText
    friend bool operator==(const CatalogueEntry&, const CatalogueEntry&) = default;
};

// The programs and macros offered by the template properties dialog and the
// editor's insertion menus, read from MACROS.INI (format in docs/macros.md).
// Sections "[Programes]" and "[Macros]", optionally grouped as
// "[Programes: Group]" and "[Macros: Group]", hold "Name=value" lines; names of
// sections and the duplicate check ignore letter case, values are trimmed and
// lose one pair of surrounding quotes, ";" starts a comment line. Lines without
// a name or a value, a name given twice and unknown sections are skipped; they
// never stop the reading.
class MacroCatalogue {
public:
    static inline const QString kFileName = QStringLiteral("MACROS.INI");

    // Picker rows before the first entry: the program picker starts with
    // message 11 (">>> tria un programa") and message 12 (">>> ALTRES"), the
    // macro picker with message 13 (">>> Tria una macro").
    static constexpr int kProgramPromptRow = 0;
    static constexpr int kOtherProgramRow = 1;
    static constexpr int kMacroPromptRow = 0;

    // The catalogue in a file: Windows-1252, or UTF-8 when the file is valid
    // UTF-8 with multi-byte sequences. A missing or unreadable file gives an
    // empty catalogue.
    static MacroCatalogue read(const QString& path);
    static MacroCatalogue parse(const QString& text);

    // The catalogue to read: MACROS.INI in `homeFolder` (any letter case),
    // else the sample shipped in the program's data folder; empty when neither exists.
    static QString locate(const QString& homeFolder, const QString& dataFolder);

    const QList<CatalogueEntry>& programs() const { return programs_; }
    const QList<CatalogueEntry>& macros() const { return macros_; }

    // The ActionText block that starts a program: "{|Executa " + command + "}".
    static QString executeBlock(const QString& commandLine);

private:
    QList<CatalogueEntry> programs_;
    QList<CatalogueEntry> macros_;
};

} // namespace mervak
