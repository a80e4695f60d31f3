#include "editor/CommandCatalogue.h"

#include "platform/Language.h"

#include <QDir>
#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(CommandCatalogue, MouseTemplatesAreTheLanguagesOwn) {
    const QString mouse = QStringLiteral("Ratolí");
    const QString left = QStringLiteral("Botó esquerra");
    const QString right = QStringLiteral("Botó dret");
    const struct {
        QStringList path;
        const char* text;
    } cases[] = {
        {{mouse, QStringLiteral("Amunt")}, "{|Mouse A n}"},
        {{mouse, QStringLiteral("Avall")}, "{|Mouse R n}"},
        {{mouse, QStringLiteral("Dreta")}, "{|Mouse D n}"},
        {{mouse, QStringLiteral("Esquerra")}, "{|Mouse E n}"},
        {{mouse, QStringLiteral("Moure's a...")}, "{|Mouse M x y }"},
        {{mouse, left, QStringLiteral("Clic esquerra")}, "{|Mouse CE}"},
        {{mouse, left, QStringLiteral("Doble clic esquerra")}, "{|Mouse 2CE}"},
        {{mouse, left, QStringLiteral("Punxar i arrosegar esquerra")}, "{|Mouse PE x y }"},
        {{mouse, left, QStringLiteral("Aixecar botó esquerra")}, "{|Mouse AE}"},
        {{mouse, right, QStringLiteral("Clic dret")}, "{|Mouse CD}"},
        {{mouse, right, QStringLiteral("Doble clic dret")}, "{|Mouse 2CD}"},
        {{mouse, right, QStringLiteral("Punxar i arrosegar dret")}, "{|Mouse PD x y }"},
        {{mouse, right, QStringLiteral("Aixecar botó dret")}, "{|Mouse AD}"},
    };
    for (const auto& c : cases) {
        const CommandEntry* entry = findCommandEntry(c.path);
        ASSERT_NE(entry, nullptr) << c.path.join(u'/');
        EXPECT_EQ(commandText(*entry), QString::fromUtf8(c.text)) << c.path.join(u'/');
        if (!entry->placeholder.isEmpty()) {
            EXPECT_TRUE(entry->text.contains(entry->placeholder)) << c.path.join(u'/');
        }
    }
}

TEST(CommandCatalogue, EveryCaptionHasItsSpanishForm) {
    QSet<QString> untranslated;
    for (const CommandEntry& entry : commandEntries())
        for (const QString& caption : entry.menuPath)
            if (!captionKeys().contains(caption) && !caption.startsWith(u'F'))
                untranslated.insert(caption);
    EXPECT_TRUE(untranslated.isEmpty()) << QStringList(untranslated.values()).join(u'|');
}

TEST(CommandCatalogue, FileCommandsTakeTheChosenName) {
    const CommandEntry* sound = findCommandEntry({QStringLiteral("Escoltar sons")});
    ASSERT_NE(sound, nullptr);
    EXPECT_EQ(sound->file, CommandFile::Sound);
    EXPECT_EQ(commandText(*sound, QStringLiteral("sons\\BELL.WAV")),
              QStringLiteral("{|Sona sons\\BELL.WAV}"));
    const CommandEntry* page = findCommandEntry({QStringLiteral("Canvi de plantilla")});
    ASSERT_NE(page, nullptr);
    EXPECT_EQ(commandText(*page, QStringLiteral("b.mvw")), QStringLiteral("{|Carrega b.mvw}"));
    EXPECT_EQ(findCommandEntry({QStringLiteral("No such entry")}), nullptr);
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
        {"in a subfolder, Windows separators", work + QStringLiteral("/sons/gat.wav"),
         CommandFile::Sound, QStringLiteral("sons\\gat.WAV")},
        {"a sound's extension in upper case", work + QStringLiteral("/a.Mid"), CommandFile::Sound,
         QStringLiteral("a.MID")},
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
