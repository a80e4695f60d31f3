#include "action/ActionMessages.h"

#include "support/QtPrinters.h"

#include <QRegularExpression>
#include <gtest/gtest.h>

namespace mervak {
namespace {

constexpr ActionProblem kLastProblem = ActionProblem::FileNotRead;

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
    struct Case {
        const char* name;
        ActionProblem problem;
        int number;
    };
    const Case cases[] = {
        {"not found", ActionProblem::FileNotFound, 15},
        {"not read", ActionProblem::FileNotRead, 3},
    };
    for (const auto& c : cases) {
        for (Language language : {Language::Catalan, Language::Spanish})
            EXPECT_EQ(actionMessage(language, c.problem, {"/a/b.txt"}),
                      Message(language, c.number) + "/a/b.txt")
                << c.name;
    }
}

TEST(ActionMessages, MarkersInsideArgumentsStayAsTheyAre) {
    const SendKeysError error{SendKeysError::Kind::BadRepeatCount, 4, "%1 %2"};
    EXPECT_EQ(
        keysErrorMessage(Language::Catalan, error, "+%2{%1 %2}"),
        QString::fromUtf8("No es poden escriure les tecles \"+%2{%1 %2}\": hi ha un nombre de "
                          "repeticions incorrecte a \"{%1 %2}\" al caràcter 5"));
}

TEST(ActionMessages, MissingArgumentsLeaveTheirMarkers) {
    EXPECT_EQ(actionMessage(Language::Catalan, ActionProblem::ProgramNotStarted),
              QString::fromUtf8("No s'ha pogut engegar \"%1\""));
}

} // namespace
} // namespace mervak
