#include "platform/Language.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr Language kCa = Language::Catalan;
constexpr Language kEs = Language::Spanish;

TEST(LanguageSetting, OnlyTheExactSpanishValueGivesSpanish) {
    for (const QString value : {"CATALA", "español", "ESPANOL", " ESPAÑOL", ""})
        EXPECT_EQ(languageFromSetting(value), kCa) << value;
    for (Language language : {kCa, kEs})
        EXPECT_EQ(languageFromSetting(languageSettingValue(language)), language);
}

TEST(Message, KeepsQuirkyTextsExactly) {
    const std::tuple<Language, int, QString> cases[] = {
        {kCa, 3, "Error en llegir el fitxer "},
        {kEs, 1, "No se puede activar el archico de la imagen"},
        {kEs, 5, "Se ha modificado archivo. Queire guardarlo?"},
        {kEs, 20, "ACCEPTAR"},
        {kCa, 72, "No s'ha pogut  iniciar l'Vistal"},
        {kEs, 72, "Non se pudo iniciar el  Vistal"},
        {kEs, 113, "No se localitza la tauleta"},
        {kEs, 22, ""}, // numbers outside the tables have no text
    };
    for (const auto& [language, number, text] : cases)
        EXPECT_EQ(Message(language, number), text) << number;
}

TEST(Message, AboutTextOpensWithCarriageReturnAndEndsWithItsDate) {
    for (const auto& [language, lastLine] :
         {std::pair{kCa, "    març de 2002"}, std::pair{kEs, "    març de 2005"}}) {
        const QString about = Message(language, 6);
        EXPECT_TRUE(about.startsWith("\r    Dravon v 2.01 \r\n"));
        EXPECT_TRUE(about.endsWith(QString::fromUtf8(lastLine)));
        EXPECT_FALSE(about.mid(1).contains(QRegularExpression("\r(?!\n)|(?<!\r)\n")))
            << "lines end in CR LF only";
    }
}

TEST(CaptionDictionary, EveryKeyHasASpanishSideWithItsAccessKeyMarker) {
    const QStringList keys = captionKeys();
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size()) << "duplicate keys";
    for (const QString& key : keys) {
        const QString spanish = TranslateCaption(kEs, key);
        EXPECT_FALSE(spanish.isEmpty()) << key;
        EXPECT_EQ(key.count('&'), spanish.count('&')) << key;
        EXPECT_EQ(TranslateCaption(kCa, key), key) << key;
    }
}

// Captions are compared exactly: marker, case and blanks included.
TEST(CaptionDictionary, TranslatesExactCaptionsOnly) {
    const std::pair<QString, QString> cases[] = {{"&Fitxers", "&Archivos"},
                                                 {"Ratolí", "Raton"},
                                                 {"&fitxers", "&fitxers"},
                                                 {"Fitxers", "Fitxers"},
                                                 {"&Fitxers ", "&Fitxers "},
                                                 {"", ""},
                                                 {"Enganxar un dibuix", "Pegar un dijo"}};
    for (const auto& [catalan, spanish] : cases)
        EXPECT_EQ(TranslateCaption(kEs, catalan), spanish) << catalan;
}

} // namespace
} // namespace mervak
