#include "platform/Settings.h"
#include "session/TemplateAudit.h"
#include "session/TrustPolicy.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using Standing = TrustPolicy::Standing;

// home/ holds a school folder trusted as "~/escola", a data folder, a folder
// nobody trusts, and links across them.
class Trust : public ::testing::Test {
protected:
    void SetUp() override {
        for (const char* folder : {"home/escola/sub", "home/fora", "home/escolar", "data"})
            QDir(root.path()).mkpath(folder);
        for (const char* file : {"home/escola/a.mvw", "home/escola/sub/b.mvw", "home/fora/c.mvw",
                                 "home/escolar/d.mvw", "data/demo.mvw", "home/fora/notes.txt"})
            test::writeAll(path(file), file);
        QFile::link(path("home/fora"), path("home/escola/cap-a-fora"));
        QFile::link(path("home/escola"), path("home/fora/cap-a-escola"));
        policy = makePolicy();
    }
    QString path(const QString& relative) const { return root.filePath(relative); }
    TrustPolicy makePolicy() const {
        TrustPolicy made;
        made.configure(path("data"), splitTrustedFolders(" ~/escola ; ;/nowhere", path("home")),
                       TrustStore(path("home/" + TrustStore::kFileName)));
        return made;
    }
    Standing standing(const TrustPolicy& judge, const QString& relative) const {
        return judge.standingOf(path(relative), test::readAll(path(relative)));
    }
    QTemporaryDir root;
    TrustPolicy policy;
};

TEST_F(Trust, JudgesATemplateByItsResolvedFolderThenByItsContent) {
    const std::pair<const char*, Standing> cases[] = {
        {"data/demo.mvw", Standing::SystemData},
        {"home/escola/a.mvw", Standing::TrustedFolder},
        {"home/escola/sub/b.mvw", Standing::TrustedFolder},
        {"home/fora/cap-a-escola/a.mvw", Standing::TrustedFolder},
        {"home/fora/c.mvw", Standing::Unknown},
        {"home/escola/../fora/c.mvw", Standing::Unknown},
        {"home/escola/cap-a-fora/c.mvw", Standing::Unknown},
        {"home/escolar/d.mvw", Standing::Unknown},
    };
    for (const auto& [file, expected] : cases)
        EXPECT_EQ(standing(policy, file), expected) << file;
}

// Answers are kept by content: for this run, or across runs when remembered.
TEST_F(Trust, RemembersAnswersByContent) {
    policy.opened(path("home/fora/c.mvw"));
    EXPECT_FALSE(policy.permits({GuardedCommand::Kind::StartProgram, "EXECUTA", "touch x"}));
    ASSERT_TRUE(policy.answer(true, false));
    EXPECT_TRUE(policy.permits({GuardedCommand::Kind::StartProgram, "EXECUTA", "touch x"}));
    EXPECT_EQ(standing(policy, "home/fora/c.mvw"), Standing::Allowed);
    EXPECT_EQ(standing(makePolicy(), "home/fora/c.mvw"), Standing::Unknown);

    ASSERT_TRUE(policy.answer(false, true));
    EXPECT_EQ(standing(makePolicy(), "home/fora/c.mvw"), Standing::Denied);
    ASSERT_TRUE(policy.answer(true, true));
    EXPECT_EQ(standing(makePolicy(), "home/fora/c.mvw"), Standing::Allowed);

    test::writeAll(path("home/fora/c.mvw"), "changed behind Mervak's back");
    EXPECT_EQ(standing(makePolicy(), "home/fora/c.mvw"), Standing::Unknown);
    ASSERT_TRUE(policy.saved(path("home/fora/c.mvw")));
    EXPECT_EQ(standing(makePolicy(), "home/fora/c.mvw"), Standing::Allowed);
}

// Programs and settings always need consent; files only outside the
// Template's folder and the program's data.
TEST_F(Trust, GuardsFilesOutsideTheTemplatesFolder) {
    using Kind = GuardedCommand::Kind;
    const std::tuple<Kind, QString, bool> cases[] = {
        {Kind::StartProgram, "touch x", true},
        {Kind::WriteSettings, "HKEY_CURRENT_USER\\Software\\x", true},
        {Kind::ReadFile, path("home/escola/sub/b.mvw"), false},
        {Kind::ReadFile, path("home/escola/missing.txt"), false},
        {Kind::ReadFile, path("data/demo.mvw"), false},
        {Kind::ReadFile, path("home/escola/../fora/notes.txt"), true},
        {Kind::ReadFile, path("home/escola/cap-a-fora/notes.txt"), true},
        {Kind::OpenTemplate, path("home/escola/a.mvw"), false},
        {Kind::OpenTemplate, path("home/fora/c.mvw"), true},
    };
    for (const auto& [kind, target, guarded] : cases)
        EXPECT_EQ(policy.isGuarded({kind, "X", target}, path("home/escola")), guarded) << target;
}

TEST_F(Trust, AuditListsEachGuardedCommandWhereAPressWouldRunIt) {
    Template t;
    t.TemplateFileName = path("home/escola/a.mvw");
    const auto add = [&t](int16_t page, const QString& clip, const QString& text) {
        Area area;
        area.Page = page;
        area.Clip = clip;
        area.ActionText = text;
        t.AppendArea(area);
    };
    add(1, {}, "a{|Executa touch x}b{|M+ 1}{|Pagina 2}");
    add(1, "sub\\b.mvw", "{|Enganxa sub\\b.mvw}{|Sona Cap.WAV}{|Sona x.wav}{|Carrega sub\\b.mvw}");
    add(2, "../fora/notes.txt",
        "{|SIM 1 {{|Reg [HKEY_CURRENT_USER\\S]a=1}}{{|Llegeix /F:..\\fora\\notes.txt}}}");
    add(2, {}, "{|Executa {|RM }}{|Carga ..\\fora\\c.mvw}{|Engancha cap-a-fora\\notes.txt}");
    const auto entry = [](int16_t page, int16_t area, const char* keyword, const QString& target) {
        using Kind = GuardedCommand::Kind;
        const QString word = keyword;
        const Kind kind = word == "EXECUTA" ? Kind::StartProgram
                          : word == "REG"   ? Kind::WriteSettings
                          : word == "CARGA" ? Kind::OpenTemplate
                                            : Kind::ReadFile;
        return AuditEntry{page, area, {kind, word, target}};
    };
    const QString notes = QFileInfo(path("home/fora/notes.txt")).canonicalFilePath();
    EXPECT_EQ(auditTemplate(t, policy),
              (QList<AuditEntry>{
                  entry(1, 1, "EXECUTA", "touch x"),
                  entry(2, 3, "CLIP", notes),
                  entry(2, 3, "REG", "HKEY_CURRENT_USER\\S\\a"),
                  entry(2, 3, "LLEGEIX", notes),
                  entry(2, 4, "EXECUTA", "{|RM }"),
                  entry(2, 4, "CARGA", QFileInfo(path("home/fora/c.mvw")).canonicalFilePath()),
                  entry(2, 4, "ENGANCHA", notes),
              }));
}

} // namespace
} // namespace mervak
