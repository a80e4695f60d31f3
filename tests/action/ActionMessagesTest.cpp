#include "action/ActionMessages.h"

#include "support/QtPrinters.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr ActionProblem kLastProblem = ActionProblem::NotTrusted;

TEST(ActionMessages, EveryProblemHasItsOwnTextInBothLanguages) {
    const QStringList arguments = {"A", "B", "C"};
    for (int i = 0; i <= static_cast<int>(kLastProblem); ++i) {
        const auto problem = static_cast<ActionProblem>(i);
        const QString catalan = actionMessage(Language::Catalan, problem, arguments);
        const QString spanish = actionMessage(Language::Spanish, problem, arguments);
        EXPECT_FALSE(catalan.isEmpty()) << i;
        EXPECT_NE(catalan, spanish) << i;
        for (const QString& text : {catalan, spanish})
            EXPECT_FALSE(text.contains(QRegularExpression("%[0-9]"))) << i << ": " << text;
    }
}

TEST(ActionMessages, FileProblemsUseTheNumberedMessages) {
    for (Language language : {Language::Catalan, Language::Spanish})
        EXPECT_EQ(actionMessage(language, ActionProblem::FileNotRead, {"/a.txt"}),
                  Message(language, 3) + "/a.txt");
}

TEST(ActionMessages, MarkersInsideArgumentsStayAsTheyAre) {
    const SendKeysError error{SendKeysError::Kind::BadRepeatCount, 4, "%1 %2"};
    EXPECT_EQ(
        keysErrorMessage(Language::Catalan, error, "+%2{%1 %2}"),
        QString::fromUtf8("No es poden escriure les tecles \"+%2{%1 %2}\": hi ha un nombre de "
                          "repeticions incorrecte a \"{%1 %2}\" al caràcter 5"));
}

TEST(ActionMessages, LongArgumentsKeepTheirStartAndEnd) {
    const QString path = "/home/mestra/" + QString("Plantilles/").repeated(9) + "gat.wav";
    const QString text = actionMessage(Language::Catalan, ActionProblem::FileNotFound, {path});
    EXPECT_TRUE(text.endsWith(path.left(50) + QString::fromUtf8("…") + path.right(29))) << text;
    EXPECT_TRUE(actionMessage(Language::Catalan, ActionProblem::FileNotFound, {"/a.wav"})
                    .endsWith("/a.wav"));
}

TEST(ActionMessages, TypingErrorsNameTheKeyOrWhatIsMissing) {
    using Reason = TypingError::Reason;
    const std::tuple<Language, TypingError, const char*> cases[] = {
        {Language::Catalan,
         {Reason::KeyNotTypeable, {Key::Character, U'\x9b', {}}, {}},
         "No s'han pogut escriure les tecles: \"\u009b\" (U+009B) no es pot escriure amb cap "
         "teclat"},
        {Language::Spanish,
         {Reason::NoFreeKeycode, {Key::F13, 0, {}}, {}},
         "No se han podido escribir las teclas: no queda ningún código de tecla libre para "
         "{F13}"},
        {Language::Spanish,
         {Reason::NoModifierKey, {}, "Mod5"},
         "No se han podido escribir las teclas: ninguna tecla del teclado da el modificador "
         "Mod5"},
    };
    for (const auto& [language, error, text] : cases)
        EXPECT_EQ(typingErrorMessage(language, error), QString::fromUtf8(text));
}

} // namespace
} // namespace mervak
