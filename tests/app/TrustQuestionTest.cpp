#include "app/TrustQuestion.h"

#include <QCheckBox>
#include <QPushButton>
#include <QSignalSpy>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using Kind = GuardedCommand::Kind;

// The same effect from several Areas is one line naming them all.
TEST(TrustQuestion, GroupsEffectsByWhatAndWhereInBothLanguages) {
    const QList<AuditEntry> entries = {
        {1, 3, {Kind::StartProgram, "EXECUTA", "touch x"}},
        {1, 5, {Kind::ReadFile, "ENGANXA", "/home/m/notes.txt"}},
        {2, 7, {Kind::ReadFile, "CLIP", "/home/m/notes.txt"}},
        {2, 7, {Kind::ReadFile, "LLEGEIX", "/home/m/notes.txt"}},
        {2, 8, {Kind::WriteSettings, "REG", "HKEY_CURRENT_USER\\S\\a"}},
        {2, 9, {Kind::OpenTemplate, "CARREGA", "/tmp/b.mvw"}},
    };
    EXPECT_EQ(TrustQuestion::describe(entries, Language::Catalan),
              (QStringList{"engegar el programa \"touch x\" (àrea 3)",
                           "llegir /home/m/notes.txt (àrees 5, 7)",
                           "escriure la configuració HKEY_CURRENT_USER\\S\\a (àrea 8)",
                           "obrir la plantilla /tmp/b.mvw (àrea 9)"}));
    EXPECT_EQ(TrustQuestion::describe(entries.mid(0, 2), Language::Spanish),
              (QStringList{"iniciar el programa \"touch x\" (área 3)",
                           "leer /home/m/notes.txt (área 5)"}));
}

TEST(TrustQuestion, AnswersOnceWithoutTakingTheFocus) {
    TrustQuestion question;
    QSignalSpy answered(&question, &TrustQuestion::answered);
    question.ask("/tmp/t.mvw", {{1, 1, {Kind::StartProgram, "EXECUTA", "touch x"}}},
                 Language::Catalan);
    EXPECT_TRUE(question.isVisible());
    EXPECT_TRUE(question.testAttribute(Qt::WA_ShowWithoutActivating));
    question.findChild<QCheckBox*>()->setChecked(true);
    for (QPushButton* button : question.findChildren<QPushButton*>())
        if (button->text() == "Permetre")
            button->click();
    ASSERT_EQ(answered.size(), 1);
    EXPECT_EQ(answered.first(), (QVariantList{true, true}));
    EXPECT_FALSE(question.isVisible());
}

} // namespace
} // namespace mervak
