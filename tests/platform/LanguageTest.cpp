#include "platform/Language.h"

#include <QRegularExpression>
#include <QSet>
#include <gtest/gtest.h>

namespace mervak {
namespace {

const char* languageName(Language language) {
    return language == Language::Spanish ? "Spanish" : "Catalan";
}

TEST(LanguageSetting, OnlyTheExactSpanishValueGivesSpanish) {
    struct Case {
        QString value;
        Language language;
    };
    const Case cases[] = {
        {"ESPAÑOL", Language::Spanish}, {"CATALA", Language::Catalan},
        {"catala", Language::Catalan},  {"español", Language::Catalan},
        {"ESPANOL", Language::Catalan}, {" ESPAÑOL", Language::Catalan},
        {"ANGLES", Language::Catalan},  {"", Language::Catalan},
    };
    for (const auto& c : cases)
        EXPECT_EQ(languageFromSetting(c.value), c.language) << c.value.toStdString();
    EXPECT_EQ(languageSettingValue(Language::Catalan), "CATALA");
    EXPECT_EQ(languageSettingValue(Language::Spanish), "ESPAÑOL");
    for (Language language : {Language::Catalan, Language::Spanish})
        EXPECT_EQ(languageFromSetting(languageSettingValue(language)), language);
}

const QSet<int> kListedMessages = {0,   1,   2,   3,   4,   5,   6,   7,   8,   9,   10,  11,
                                   12,  13,  14,  15,  16,  17,  18,  19,  20,  21,  39,  40,
                                   41,  42,  43,  44,  72,  73,  74,  101, 102, 103, 104, 105,
                                   106, 107, 108, 109, 110, 111, 112, 113, 114, 115, 116};

TEST(Message, OnlyListedNumbersHaveText) {
    for (Language language : {Language::Catalan, Language::Spanish}) {
        for (int number = -40; number <= 300; ++number) {
            EXPECT_EQ(Message(language, number).isEmpty(), !kListedMessages.contains(number))
                << languageName(language) << " " << number;
        }
        for (int number : {-32768, 32767, 65535})
            EXPECT_TRUE(Message(language, number).isEmpty()) << number;
    }
}

TEST(Message, SharedTextsAreSharedPerTable) {
    struct Case {
        Language language;
        int first;
        int second;
        bool same;
    };
    const Case cases[] = {
        {Language::Catalan, 1, 110, true},   {Language::Catalan, 2, 102, true},
        {Language::Catalan, 3, 103, true},   {Language::Catalan, 5, 109, true},
        {Language::Catalan, 20, 101, true},  {Language::Catalan, 74, 105, true},
        {Language::Catalan, 111, 115, true}, {Language::Spanish, 2, 102, true},
        {Language::Spanish, 111, 115, true}, {Language::Spanish, 1, 110, false},
        {Language::Spanish, 3, 103, false},  {Language::Spanish, 5, 109, false},
        {Language::Spanish, 20, 101, false}, {Language::Spanish, 74, 105, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Message(c.language, c.first) == Message(c.language, c.second), c.same)
            << languageName(c.language) << " " << c.first << "/" << c.second;
    }
}

TEST(Message, KeepsQuirkyTextsExactly) {
    struct Case {
        Language language;
        int number;
        QString text;
    };
    const Case cases[] = {
        {Language::Catalan, 1, "No es pot activar el fitxer de l'imatge"},
        {Language::Spanish, 1, "No se puede activar el archico de la imagen"},
        {Language::Catalan, 3, "Error en llegir el fitxer "},
        {Language::Spanish, 3, "Error en leer el archivo "},
        {Language::Spanish, 4, "Dravon ja se está ejecutando!"},
        {Language::Spanish, 5, "Se ha modificado archivo. Queire guardarlo?"},
        {Language::Catalan, 8, "Merda "},
        {Language::Spanish, 8, "Merda "},
        {Language::Spanish, 10, "Nivel "},
        {Language::Catalan, 14,
         "Teniu instal·lada una versió de Dravon anterior que no reconeix "
         "aquets format de fitxer"},
        {Language::Spanish, 14,
         "Tiene instalada una versión no actualizada de Dravon que no "
         "reconoce est formato de archivo"},
        {Language::Spanish, 15, "Dravon no encuentra el archivo "},
        {Language::Catalan, 16, "AVANÇAR"},
        {Language::Spanish, 17, "RECULAR"},
        {Language::Spanish, 20, "ACCEPTAR"},
        {Language::Spanish, 43, "Ficheros salvapantallas"},
        {Language::Catalan, 72, "No s'ha pogut  iniciar l'Vistal"},
        {Language::Spanish, 72, "Non se pudo iniciar el  Vistal"},
        {Language::Spanish, 73, "Vistal non está calibrado."},
        {Language::Spanish, 74, "¿Calibrado finalizado?"},
        {Language::Spanish, 101, "ACEPTAR"},
        {Language::Spanish, 103, "Error en leer el fichero "},
        {Language::Spanish, 105, "Calibrado correcto?"},
        {Language::Catalan, 106, "Vistal  ja s'està executant!"},
        {Language::Spanish, 106, "Vistal  ya se está ejecutando!"},
        {Language::Catalan, 107, "Segur que vol eliminar aquesta pàgina"},
        {Language::Spanish, 107, "Seguro que quiere eliminar esta página"},
        {Language::Catalan, 108, "Mervak ja s'està executant!"},
        {Language::Spanish, 108, "Mervak ya se está ejecutando!"},
        {Language::Spanish, 109, "El fichero ha sido modificado. Quieres guardarlo?"},
        {Language::Catalan, 111, "Prem contínuament la cantonada superior esquerra"},
        {Language::Spanish, 112, "Tauleta ya está calibrada."},
        {Language::Catalan, 113, "No es localitza la tauleta"},
        {Language::Spanish, 113, "No se localitza la tauleta"},
        {Language::Spanish, 114, "Tengo problemas para calibrar la tauleta"},
        {Language::Catalan, 116,
         "Aquesta opció encara no està disponible però es modificarà el fitxer MERVAK.INI"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(Message(c.language, c.number), c.text)
            << languageName(c.language) << " " << c.number;
    }
}

TEST(Message, AboutTextOpensWithCarriageReturnAndEndsWithItsDate) {
    struct Case {
        Language language;
        QString lastLine;
    };
    const Case cases[] = {{Language::Catalan, "    març de 2002"},
                          {Language::Spanish, "    març de 2005"}};
    for (const auto& c : cases) {
        const QString about = Message(c.language, 6);
        EXPECT_TRUE(about.startsWith("\r    Dravon v 2.01 \r\n")) << languageName(c.language);
        const QStringList lines = about.mid(1).split("\r\n");
        ASSERT_GE(lines.size(), 3) << languageName(c.language);
        EXPECT_EQ(lines.last(), c.lastLine) << languageName(c.language);
        EXPECT_TRUE(lines[1].contains("Mervak")) << languageName(c.language);
        EXPECT_FALSE(about.mid(1).contains(QRegularExpression("\r(?!\n)|(?<!\r)\n")))
            << languageName(c.language) << ": lines end in CR LF only";
    }
}

// The captions of the main window and the dialogs, in dictionary order.
const QStringList kListedCaptions = {" Imp.P",
                                     "%",
                                     "&Activar aplicació",
                                     "&Afegir",
                                     "&Ajuda",
                                     "&Àrea",
                                     "&Dades inicials",
                                     "&Desar",
                                     "&Desar ...",
                                     "&Desfer",
                                     "&Dibuixar",
                                     "&Eliminar",
                                     "&Fitxers",
                                     "&Índex de l'ajuda",
                                     "&Làmina",
                                     "&Nou",
                                     "&Obrir ...",
                                     "&Opcions",
                                     "&Pàgina",
                                     "&Plantilla",
                                     "&Quant al Mervak...",
                                     "&So actiu",
                                     "&Sortir",
                                     "&Subdividir",
                                     "&Test de la tauleta",
                                     "+",
                                     "-",
                                     "<",
                                     "Aixecar botó dret",
                                     "Aixecar botó esquerra",
                                     "Ajuda...",
                                     "Anul·lació",
                                     "Aplicació:",
                                     "Àrea &Màxima",
                                     "Automàtica",
                                     "Botó dret",
                                     "Botó esquerra",
                                     "Calibrar Vistal",
                                     "Canvi de plantilla",
                                     "Caràtula:",
                                     "Carregar fitxer a la carpeta:",
                                     "Carregar macros",
                                     "Clic dret",
                                     "Clic esquerra",
                                     "Columnes:",
                                     "Configuració automàtica",
                                     "Configuracio i test",
                                     "Dades Inicials",
                                     "Desar &làmina",
                                     "Desar mini-làmina",
                                     "Descripció:",
                                     "Directori",
                                     "Doble clic dret",
                                     "Doble clic esquerra",
                                     "Documentació:",
                                     "Dreta",
                                     "Editar MERVAK.INI",
                                     "En&ganxar",
                                     "Enganxar un dibuix",
                                     "Enganxar un text",
                                     "Esborra memòria",
                                     "Escoltar sons",
                                     "Esquerra",
                                     "Executar programes",
                                     "Exploració nivell anterior",
                                     "Exploració nivell inicial",
                                     "Fi",
                                     "Finalitzar Aplicació",
                                     "Fitxer inicial:",
                                     "Fitxer...",
                                     "Fitxers Gràfics",
                                     "Gràfic",
                                     "Icona làmina",
                                     "Inserir abans",
                                     "Inserir després",
                                     "Inv Horitzontal",
                                     "Llegir un text",
                                     "Memòria",
                                     "Models de pagina",
                                     "Moure's a...",
                                     "Ordres",
                                     "Pícsels",
                                     "Posa a memòria",
                                     "Programació",
                                     "Punxar i arrosegar dret",
                                     "Punxar i arrosegar esquerra",
                                     "Ratolí",
                                     "Recupera de memòria",
                                     "Recupera Text Carpeta  Windows",
                                     "Repetició de lectures",
                                     "Resta memòria",
                                     "Retard",
                                     "Retrocedir",
                                     "Seqüències de tecles",
                                     "Si memòria és ...",
                                     "Síntesis de veu UPCTV",
                                     "Subdividir l'àrea",
                                     "Suma memòria",
                                     "Tancar",
                                     "Tancar tot",
                                     "Teclat &auxiliar",
                                     "Tecles a enviar:",
                                     "Tecles:",
                                     "Temps",
                                     "Tria ",
                                     "Velocitat",
                                     "Veu",
                                     "Veure",
                                     "Veure la Caràtula",
                                     "Veure la documentació"};

TEST(CaptionDictionary, HoldsEveryListedCaptionInOrder) {
    const QStringList keys = captionKeys();
    qsizetype from = 0;
    for (const QString& caption : kListedCaptions) {
        const qsizetype at = keys.indexOf(caption, from);
        EXPECT_GE(at, 0) << caption.toStdString() << " missing or out of order";
        if (at >= 0)
            from = at + 1;
    }
    for (const char* caption : {"Pàgina nova", "Obrir models de pàgina", "Desar models de pàgina",
                                "Enganxar models de pàgina", "Files:"})
        EXPECT_TRUE(keys.contains(QString::fromUtf8(caption))) << caption;
    EXPECT_EQ(QSet<QString>(keys.begin(), keys.end()).size(), keys.size()) << "duplicate keys";
}

TEST(CaptionDictionary, EveryKeyHasASpanishSideAndStaysCatalanInCatalan) {
    for (const QString& key : captionKeys()) {
        EXPECT_FALSE(TranslateCaption(Language::Spanish, key).isEmpty()) << key.toStdString();
        EXPECT_EQ(TranslateCaption(Language::Catalan, key), key) << key.toStdString();
        EXPECT_EQ(key.count('&'), TranslateCaption(Language::Spanish, key).count('&'))
            << key.toStdString() << ": access-key marker kept";
    }
}

TEST(CaptionDictionary, TranslatesToSpanish) {
    struct Case {
        QString catalan;
        QString spanish;
    };
    const Case cases[] = {
        {"&Fitxers", "&Archivos"},
        {"&Obrir ...", "&Abrir ..."},
        {"&Desar ...", "&Guardar ..."},
        {"&Desfer", "&Deshacer"},
        {"&Afegir", "&Añadir"},
        {"&Dades inicials", "&Datos iniciales"},
        {"&So actiu", "&Activar sonido"},
        {"&Quant al Mervak...", "&Acerca de Mervak..."},
        {"Enganxar un dibuix", "Pegar un dijo"},
        {"Síntesis de veu UPCTV", "Síntesis de voz UPCTV"},
        {"Tecles a enviar:", "Teclas a enviar:"},
        {"Repetició de lectures", "Repetición de lecturas"},
        {"Retard", "Retardo"},
        {"Temps", "Segundos"},
        {"Pícsels", "Puntos"},
        {"Ratolí", "Raton"},
        {"&Eliminar", "&Eliminar"},
        {"&Subdividir", "&Subdividir"},
        {"&Test de la tauleta", "&Test de la tauleta"},
        {"-", "-"},
        {"<", "<"},
        {"Pàgina nova", "Página nueva"},
        {"Files:", "Filas:"},
        {"Columnes:", "Columnas:"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(TranslateCaption(Language::Spanish, c.catalan), c.spanish)
            << c.catalan.toStdString();
}

TEST(CaptionDictionary, UnknownCaptionsComeBackUnchanged) {
    const QString cases[] = {"",          "Desconegut", "&fitxers", "Fitxers",
                             "&Fitxers ", "Tria",       "&Archivos"};
    for (const QString& caption : cases) {
        EXPECT_EQ(TranslateCaption(Language::Spanish, caption), caption) << caption.toStdString();
        EXPECT_EQ(TranslateCaption(Language::Catalan, caption), caption) << caption.toStdString();
    }
}

} // namespace
} // namespace mervak
