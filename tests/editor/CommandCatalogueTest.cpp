#include "editor/CommandCatalogue.h"

#include "platform/Language.h"

#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// The entry with exactly these captions.
const CommandEntry& entryAt(const QStringList& menuPath) {
    for (const CommandEntry& entry : commandEntries())
        if (entry.menuPath == menuPath)
            return entry;
    ADD_FAILURE() << menuPath.join(u'/').toStdString();
    return commandEntries().front();
}

TEST(CommandCatalogue, CommandsTakeTheirPlaceholderOrTheChosenName) {
    const QString mouse = QStringLiteral("Ratolí");
    const CommandEntry& move = entryAt({mouse, QStringLiteral("Moure's a...")});
    EXPECT_EQ(commandText(move), QStringLiteral("{|Mouse M x y }"));
    EXPECT_TRUE(move.text.contains(move.placeholder));
    EXPECT_EQ(commandText(
                  entryAt({mouse, QStringLiteral("Botó dret"), QStringLiteral("Doble clic dret")})),
              QStringLiteral("{|Mouse 2CD}"));
    const CommandEntry& sound = entryAt({QStringLiteral("Escoltar sons")});
    EXPECT_EQ(sound.file, CommandFile::Sound);
    EXPECT_EQ(commandText(sound, QStringLiteral("sons\\BELL.WAV")),
              QStringLiteral("{|Sona sons\\BELL.WAV}"));
    EXPECT_EQ(commandText(entryAt({QStringLiteral("Canvi de plantilla")}), QStringLiteral("b.mvw")),
              QStringLiteral("{|Carrega b.mvw}"));
    const CommandEntry& page = entryAt({QStringLiteral("Canvi de pàgina")});
    for (const int shown : {1, 3})
        EXPECT_EQ(commandText(page, {}, shown) + commandPlaceholder(page, shown),
                  QStringLiteral("{|Pagina %1}%1").arg(shown + 1))
            << "the page after the one shown";
}

// Linux has no registry to write: the menu does not offer it.
TEST(CommandCatalogue, NoRegistryCommandOnLinux) {
    for (const CommandEntry& entry : commandEntries())
        EXPECT_FALSE(entry.text.startsWith(QStringLiteral("{|Reg "))) << entry.text;
}

TEST(CommandCatalogue, EveryCaptionHasItsSpanishForm) {
    QSet<QString> untranslated;
    for (const CommandEntry& entry : commandEntries())
        for (const QString& caption : entry.menuPath)
            if (!captionKeys().contains(caption) && !caption.startsWith(u'F'))
                untranslated.insert(caption);
    EXPECT_TRUE(untranslated.isEmpty()) << QStringList(untranslated.values()).join(u'|');
}

TEST(CommandCatalogue, StoredNamesAreRelativeWhereTheyCanBe) {
    const QString work = QStringLiteral("/home/mestra/plantilles");
    const struct {
        const char* name;
        QString chosen;
        CommandFile kind;
        QString stored;
    } cases[] = {
        {"beside the Template", work + QStringLiteral("/foto.jpg"), CommandFile::Picture,
         QStringLiteral("foto.jpg")},
        {"in a subfolder, Windows separators, a sound's extension in upper case",
         work + QStringLiteral("/sons/gat.wav"), CommandFile::Sound,
         QStringLiteral("sons\\gat.WAV")},
        {"a sound without extension", work + QStringLiteral("/so"), CommandFile::Sound,
         QStringLiteral("so")},
        {"elsewhere stays absolute", QStringLiteral("/usr/bin/gcompris"), CommandFile::Program,
         QStringLiteral("/usr/bin/gcompris")},
        {"a Template elsewhere is still relative", QStringLiteral("/home/mestra/altres/b.mvw"),
         CommandFile::Template, QStringLiteral("..\\altres\\b.mvw")},
        {"a sibling folder with the same prefix is outside",
         QStringLiteral("/home/mestra/plantilles2/x.txt"), CommandFile::Text,
         QStringLiteral("/home/mestra/plantilles2/x.txt")},
    };
    for (const auto& c : cases)
        EXPECT_EQ(storedFileName(c.chosen, work, c.kind), c.stored) << c.name;
    EXPECT_EQ(storedFileName(QStringLiteral("/a/b.txt"), QString(), CommandFile::Text),
              QStringLiteral("/a/b.txt"));
}

} // namespace
} // namespace mervak
