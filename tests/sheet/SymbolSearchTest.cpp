#include "sheet/SymbolLibrary.h"
#include "sheet/SymbolText.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

QStringList ids(const QList<SymbolMatch>& matches) {
    QStringList found;
    for (const SymbolMatch& match : matches)
        found.append(match.symbol->id);
    return found;
}

TEST(SymbolTextTest, FoldsCaseAccentsMiddleDotsAndBlanks) {
    const std::pair<const char*, const char*> cases[] = {
        {"Cafè", "cafe"},        {"  CARA   de\tgos ", "cara de gos"},
        {"col·legi", "collegi"}, {"l’àvia", "l'avia"},
        {"Pingüí", "pingui"},    {"ÑANDÚ", "nandu"},
    };
    for (const auto& [text, folded] : cases)
        EXPECT_EQ(foldForSearch(QString::fromUtf8(text)), QString::fromUtf8(folded)) << text;
}

// The installed library, as the setup fetched it: names and keywords as teachers type them.
TEST(SymbolSearchTest, FindsTheRealLibraryInBothLanguages) {
    struct Case {
        Language language;
        const char* words;
        const char* first; // the best symbol
        const char* later; // a weaker one that must come after it, or nothing
    };
    const Case cases[] = {
        {Language::Catalan, "gos", "1F415", "1F436"}, // the dog before "cara de gos"
        {Language::Catalan, "GAT", "1F408", "1F431"}, // letter case ignored
        {Language::Catalan, "cafe", "2615", nullptr}, // "cafè" without its accent
        {Language::Catalan, "cara de gos", "1F436", nullptr},
        {Language::Catalan, "ovella", "1F411", nullptr},
        {Language::Spanish, "perro", "1F415", "1F436"},
        {Language::Spanish, "cafe", "2615", nullptr},
        {Language::Spanish, "caballo", "1F40E", nullptr},
    };
    for (const Language language : {Language::Catalan, Language::Spanish}) {
        const SymbolLibrary library(SymbolLibrary::installedFolder(), language);
        ASSERT_EQ(library.errorText(language), QString());
        for (const Case& c : cases) {
            if (c.language != language)
                continue;
            const QStringList found = ids(library.search(QString::fromUtf8(c.words), 40));
            ASSERT_FALSE(found.isEmpty()) << c.words;
            EXPECT_EQ(found.first(), QLatin1String(c.first)) << c.words;
            if (c.later) {
                EXPECT_GT(found.indexOf(QLatin1String(c.later)), 0) << c.words;
            }
            EXPECT_FALSE(library.symbolFile(found.first()).isEmpty()) << c.words;
        }
    }
}

TEST(SymbolSearchTest, OwnPicturesJoinTheSearchAndComeFirstAmongEquals) {
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("granja"));
    for (const char* name : {"gos.png", "granja/vaca_lletera.jpg", "zxq.txt"})
        test::writeAll(QDir(dir.path()).filePath(QString::fromUtf8(name)), "x");
    const SymbolLibrary library(SymbolLibrary::installedFolder(), Language::Catalan, {dir.path()});
    const QList<SymbolMatch> dog = library.search(QStringLiteral("gos"), 2);
    ASSERT_EQ(dog.size(), 2);
    EXPECT_EQ(dog[0].symbol->id, QDir(dir.path()).filePath(QStringLiteral("gos.png")));
    EXPECT_EQ(dog[1].symbol->id, QStringLiteral("1F415"));
    EXPECT_EQ(library.search(QStringLiteral("lletera"), 1).value(0).symbol->name,
              QStringLiteral("vaca lletera"));
    EXPECT_TRUE(library.search(QStringLiteral("zxq"), 5).isEmpty());
}

TEST(SymbolSearchTest, AMissingLibraryIsSaidInTheLanguageAndOwnPicturesStillAnswer) {
    QTemporaryDir dir;
    test::writeAll(QDir(dir.path()).filePath(QStringLiteral("sol.png")), "x");
    const SymbolLibrary library(QDir(dir.path()).filePath(QStringLiteral("none")),
                                Language::Spanish, {dir.path()});
    EXPECT_TRUE(library.errorText(Language::Spanish)
                    .startsWith(QStringLiteral("No se puede leer la biblioteca de símbolos: ")));
    EXPECT_EQ(library.search(QStringLiteral("sol"), 5).size(), 1);
}

} // namespace
} // namespace mervak
