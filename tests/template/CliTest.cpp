#include "support/CliRun.h"
#include "support/TestFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::CliRun;
using test::dataPath;

class CliTest : public ::testing::Test {
protected:
    QTemporaryDir dir;

    QString file(const QString& name) const { return QDir(dir.path()).filePath(name); }

    // Messages follow MERVAK.INI in the home folder, else `lang`.
    CliRun run(const QStringList& arguments, const QString& lang = QStringLiteral("C")) const {
        return test::runProgram(QStringLiteral(MERVAK_CLI),
                                QStringList{"--home", file("home")} + arguments, dir.path(), lang);
    }

    QJsonObject info(const QString& path) const {
        return QJsonDocument::fromJson(run({"info", path, "--json"}).out.toUtf8()).object();
    }
};

// Standard error is compared whole when the row's text is empty or ends in a
// line end; otherwise it need only hold the text.
TEST_F(CliTest, ExitStatusAndMessages) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("-t.mvw"));
    const QString golden = dataPath("template/golden-v2.mvw");
    const std::tuple<QStringList, int, const char*, const char*> cases[] = {
        {{}, 2, "", "Ús: mervak-cli"},
        {{"fes"}, 2, "", "Ordre desconeguda: fes"},
        {{"info"}, 2, "", "Ús: mervak-cli info"},
        {{"check", dataPath("template/broken/negative-count.mvw")}, 1, "", "(línia 4)"},
        {{"info", dataPath("template/broken/page-zero.mvd")}, 1, "", "Format incorrecte: /"},
        {{"convert", golden, "x.txt"}, 2, "", "acabar en .mvw o .mvd"},
        {{"page-delete", golden, "3"}, 2, "", "de 1 a 2"},
        {{"page-paste", golden, "1", "cap"}, 1, "", "cap.MVP"},
        {{"check", golden}, 3, "", ""},
        {{"audit", golden}, 0, "no és de confiança\n", ""},
        {{"audit", "cap.mvw"}, 1, "", "cap.mvw"},
        {{"--version"}, 0, "mervak-cli 0.1.0\n", ""},
        {{"info", "--", "-t.mvw"}, 0, "PageCount: 2", ""},
        {{"action", "--dry-run", "--", "-5"}, 0, R"("text":"-5")", ""},
        {{"info", "-t.mvw"}, 2, "", "Opció desconeguda: -t.mvw\n"},
        {{"--speed", "info"}, 2, "", "Opció desconeguda: --speed\n"},
        {{"page-delete", "x.mvw", "1", "--output"}, 2, "", "Falta el valor després de --output\n"},
    };
    for (const auto& [arguments, status, out, err] : cases) {
        const CliRun r = run(arguments);
        const QString name = arguments.join(u' ');
        const QString expectedErr = QString::fromUtf8(err);
        EXPECT_EQ(r.status, status) << name << ": " << r.err;
        EXPECT_TRUE(r.out.contains(QString::fromUtf8(out))) << name << ": " << r.out;
        const bool whole = expectedErr.isEmpty() || expectedErr.endsWith(u'\n');
        EXPECT_TRUE(whole ? r.err == expectedErr : r.err.contains(expectedErr))
            << name << ": " << r.err;
    }
}

TEST_F(CliTest, MessagesFollowMervakIniElseLang) {
    const QString ini = QDir(file("home")).filePath("MERVAK.INI");
    // IDIOMA in MERVAK.INI (nothing: no MERVAK.INI), LANG, and what the refusal says.
    const std::tuple<const char*, const char*, const char*> cases[] = {
        {nullptr, "es_ES.UTF-8", "Orden desconocida: fes"},
        {nullptr, "ca_ES.UTF-8", "Ordre desconeguda: fes"},
        {"ESPAÑOL", "C", "Orden desconocida: fes"},
        {"CATALA", "es_ES.UTF-8", "Ordre desconeguda: fes"},
    };
    for (const auto& [idioma, lang, says] : cases) {
        QFile::remove(ini);
        if (idioma) {
            QDir().mkpath(file("home"));
            test::writeAll(ini, QByteArray("[Mervak]\nIDIOMA=") + idioma + '\n');
        }
        const CliRun r = run({"fes"}, QString::fromUtf8(lang));
        EXPECT_TRUE(r.err.startsWith(QString::fromUtf8(says))) << lang << ": " << r.err;
    }
}

TEST_F(CliTest, TheOnlyPageIsNotDeleted) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("t.mvw"));
    ASSERT_EQ(run({"page-delete", file("t.mvw"), "2"}).status, 0);
    const QByteArray before = test::readAll(file("t.mvw"));
    const CliRun r = run({"page-delete", file("t.mvw"), "1"});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, QStringLiteral("La plantilla només té una pàgina i no es pot eliminar: no "
                                    "s'ha fet res.\n"));
    EXPECT_EQ(test::readAll(file("t.mvw")), before);
}

TEST_F(CliTest, HelpForEveryCommand) {
    for (const char* command : {"info", "convert", "check", "copy", "models", "page-save",
                                "page-insert", "page-paste", "page-delete", "audit"}) {
        const CliRun r = run({command, "--help"});
        EXPECT_EQ(r.status, 0) << command;
        EXPECT_TRUE(r.out.startsWith("Ús: mervak-cli")) << command;
    }
}

// The same Template, untrusted and then in a folder MERVAK.INI trusts.
TEST_F(CliTest, AuditListsGuardedCommandsAndTrust) {
    QByteArray demo = test::readAll(dataPath("../../data/demo/demo.mvw"));
    demo.replace("\"hola \"", "\"{|Executa touch x}\"");
    QDir(dir.path()).mkpath("home");
    test::writeAll(file("demo.mvw"), demo);
    const QJsonObject expected{{"page", 1},
                               {"area", 1},
                               {"command", "EXECUTA"},
                               {"kind", "program"},
                               {"target", "touch x"}};
    for (const bool trusted : {false, true}) {
        if (trusted)
            test::writeAll(file("home/MERVAK.INI"),
                           "[Seguretat]\r\nCarpetesDeConfianca=" + dir.path().toUtf8() + "\r\n");
        const CliRun r = run({"audit", file("demo.mvw"), "--json"});
        EXPECT_EQ(r.status, 3) << r.err;
        const QJsonObject audit = QJsonDocument::fromJson(r.out.toUtf8()).object();
        EXPECT_EQ(audit["trusted"].toBool(), trusted);
        EXPECT_EQ(audit["standing"].toString(), trusted ? "trusted-folder" : "unknown");
        EXPECT_EQ(audit["guarded"].toArray(), QJsonArray{expected});
    }
    EXPECT_EQ(run({"audit", file("demo.mvw")}).lines().value(1),
              "pàgina 1  àrea 1  EXECUTA  touch x");
}

TEST_F(CliTest, ConvertReportsWhatTheExportLeavesOut) {
    ASSERT_EQ(run({"convert", dataPath("template/golden.mvd"), file("a.mvw")}).status, 0);
    const CliRun r = run({"convert", file("a.mvw"), file("b.mvd")});
    EXPECT_EQ(r.status, 3);
    EXPECT_TRUE(r.err.contains("no desa el camp FitxGraf")) << r.err;
    EXPECT_EQ(test::readAll(file("b.mvd")), test::readAll(dataPath("template/golden.mvd")));
}

// info --json names the fields as the model does.
TEST_F(CliTest, PageModelsRoundTrip) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("t.mvw"));
    ASSERT_EQ(run({"page-save", file("t.mvw"), "2", "segona"}).status, 0);
    EXPECT_EQ(run({"models"}).out, "segona.MVP\n");
    ASSERT_EQ(
        run({"page-insert", file("t.mvw"), "1", "segona", "--before", "--output", file("u.mvw")})
            .status,
        0);
    const QJsonObject root = info(file("u.mvw"));
    EXPECT_EQ(root.value("PageCount").toInt(), 3);
    EXPECT_EQ(root.value("AreaCount").toInt(), 4);
    EXPECT_EQ(root.value("FitxGraf").toString(), "C:\\PLANTILLES\\lamina.bmp");
    const QJsonArray areas = root.value("Areas").toArray();
    EXPECT_EQ(areas.at(2).toObject().value("Y1").toInt(), -32768);
    EXPECT_EQ(areas.at(2).toObject().value("ActionText").toString(), "àèòç·l \"x\"");
    const QJsonObject inserted = areas.at(3).toObject();
    EXPECT_EQ(inserted.value("index").toInt(), 4);
    EXPECT_EQ(inserted.value("Page").toInt(), 1);
    EXPECT_EQ(inserted.value("ActionText").toString(), "{|Pagina 1}");
}

} // namespace
} // namespace mervak
