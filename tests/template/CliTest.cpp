#include "support/TestFiles.h"

#include <QDir>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QProcess>
#include <QProcessEnvironment>
#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::dataPath;

struct CliRun {
    int status = -1;
    QString out;
    QString err;
};

class CliTest : public ::testing::Test {
protected:
    QTemporaryDir dir;

    QString file(const QString& name) const { return QDir(dir.path()).filePath(name); }

    // Messages follow MERVAK.INI in the home folder, else `lang`.
    CliRun run(QStringList arguments, const QString& lang = QStringLiteral("C")) const {
        arguments.prepend(QStringLiteral("--home"));
        arguments.insert(1, file(QStringLiteral("home")));
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("LANG"), lang);
        process.setProcessEnvironment(environment);
        process.setWorkingDirectory(dir.path());
        process.start(QStringLiteral(MERVAK_CLI), arguments);
        process.waitForFinished(30000);
        return {process.exitStatus() == QProcess::NormalExit ? process.exitCode() : -1,
                QString::fromUtf8(process.readAllStandardOutput()),
                QString::fromUtf8(process.readAllStandardError())};
    }
};

TEST_F(CliTest, InfoAsJsonUsesTheModelsFieldNames) {
    const CliRun r =
        run({QStringLiteral("info"), dataPath("template/golden-v2.mvw"), QStringLiteral("--json")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    const QJsonObject root = QJsonDocument::fromJson(r.out.toUtf8()).object();
    EXPECT_EQ(root.value(QStringLiteral("AreaCount")).toInt(), 3);
    EXPECT_EQ(root.value(QStringLiteral("SV_velocitat")).toInt(), 150);
    EXPECT_EQ(root.value(QStringLiteral("FitxGraf")).toString(),
              QStringLiteral("C:\\PLANTILLES\\lamina.bmp"));
    const QJsonObject third = root.value(QStringLiteral("Areas")).toArray().at(2).toObject();
    EXPECT_EQ(third.value(QStringLiteral("index")).toInt(), 3);
    EXPECT_EQ(third.value(QStringLiteral("Y1")).toInt(), -32768);
    EXPECT_EQ(third.value(QStringLiteral("ActionText")).toString(), QStringLiteral("àèòç·l \"x\""));
}

TEST_F(CliTest, ExitStatusAndMessages) {
    const struct {
        const char* name;
        QStringList arguments;
        int status;
        const char* stderrHas;
    } cases[] = {
        {"no command", {}, 2, "Ús: mervak-cli"},
        {"unknown command", {"fes"}, 2, "Ordre desconeguda: fes"},
        {"missing argument", {"info"}, 2, "Ús: mervak-cli info"},
        {"unreadable file",
         {"info", dataPath("template/broken/negative-count.mvw")},
         1,
         "Error en llegir el fitxer "},
        {"line of the failure",
         {"check", dataPath("template/broken/negative-count.mvw")},
         1,
         "(línia 4)"},
        {"wrong format",
         {"info", dataPath("template/broken/page-zero.mvd")},
         1,
         "Format incorrecte: "},
        {"newer version",
         {"info", dataPath("template/broken/version-3.mvw")},
         1,
         "Teniu instal·lada una versió"},
        {"bad output name",
         {"convert", dataPath("template/golden-v2.mvw"), "x.txt"},
         2,
         "ha d'acabar en .mvw o .mvd"},
        {"page out of range",
         {"page-delete", dataPath("template/golden-v2.mvw"), "3"},
         2,
         "de 1 a 2"},
        {"missing model",
         {"page-paste", dataPath("template/golden-v2.mvw"), "1", "cap"},
         1,
         "cap.MVP"},
        {"problems found", {"check", dataPath("template/golden-v2.mvw")}, 3, ""},
    };
    for (const auto& c : cases) {
        const CliRun r = run(c.arguments);
        EXPECT_EQ(r.status, c.status) << c.name;
        EXPECT_TRUE(r.err.contains(QString::fromUtf8(c.stderrHas)))
            << c.name << ": " << r.err.toStdString();
    }
}

TEST_F(CliTest, CommandLineConventions) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("-t.mvw"));
    const struct {
        QStringList arguments;
        int status;
        const char* out;
        const char* err; // the whole of stderr
    } cases[] = {
        {{"--version"}, 0, "mervak-cli 0.1.0\n", ""},
        {{"info", "--", "-t.mvw"}, 0, "PageCount: 2", ""},
        {{"action", "--dry-run", "--", "-5"}, 0, R"("text":"-5")", ""},
        {{"info", "-t.mvw"}, 2, "", "Opció desconeguda: -t.mvw\n"},
        {{"--speed", "info"}, 2, "", "Opció desconeguda: --speed\n"},
        {{"page-delete", "x.mvw", "1", "--output"}, 2, "", "Falta el valor després de --output\n"},
    };
    for (const auto& c : cases) {
        const CliRun r = run(c.arguments);
        const QString name = c.arguments.join(u' ');
        EXPECT_EQ(r.status, c.status) << name << ": " << r.err;
        EXPECT_TRUE(r.out.contains(QString::fromUtf8(c.out))) << name << ": " << r.out;
        EXPECT_EQ(r.err, QString::fromUtf8(c.err)) << name;
    }
}

TEST_F(CliTest, MessagesFollowMervakIniElseLang) {
    const QString ini = QDir(file(QStringLiteral("home"))).filePath(QStringLiteral("MERVAK.INI"));
    const struct {
        const char* idioma; // nothing: no MERVAK.INI
        const char* lang;
        const char* says;
    } cases[] = {
        {nullptr, "es_ES.UTF-8", "Orden desconocida: fes"},
        {nullptr, "ca_ES.UTF-8", "Ordre desconeguda: fes"},
        {"ESPAÑOL", "C", "Orden desconocida: fes"},
        {"CATALA", "es_ES.UTF-8", "Ordre desconeguda: fes"},
    };
    for (const auto& c : cases) {
        QFile::remove(ini);
        if (c.idioma) {
            QDir().mkpath(file(QStringLiteral("home")));
            test::writeAll(ini, QByteArray("[Mervak]\nIDIOMA=") + c.idioma + '\n');
        }
        const CliRun r = run({QStringLiteral("fes")}, QString::fromUtf8(c.lang));
        EXPECT_TRUE(r.err.startsWith(QString::fromUtf8(c.says))) << c.lang << ": " << r.err;
    }
}

TEST_F(CliTest, TheOnlyPageIsNotDeleted) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("t.mvw"));
    ASSERT_EQ(run({QStringLiteral("page-delete"), file("t.mvw"), QStringLiteral("2")}).status, 0);
    const QByteArray before = test::readAll(file("t.mvw"));
    const CliRun r = run({QStringLiteral("page-delete"), file("t.mvw"), QStringLiteral("1")});
    EXPECT_EQ(r.status, 2);
    EXPECT_EQ(r.err, QStringLiteral("La plantilla només té una pàgina i no es pot eliminar: no "
                                    "s'ha fet res.\n"));
    EXPECT_EQ(test::readAll(file("t.mvw")), before);
}

TEST_F(CliTest, HelpForEveryCommand) {
    for (const char* command : {"info", "convert", "check", "copy", "models", "page-save",
                                "page-insert", "page-paste", "page-delete"}) {
        const CliRun r = run({QLatin1String(command), QStringLiteral("--help")});
        EXPECT_EQ(r.status, 0) << command;
        EXPECT_TRUE(r.out.startsWith(QStringLiteral("Ús: mervak-cli"))) << command;
    }
}

TEST_F(CliTest, ConvertsBetweenFormats) {
    CliRun r = run({QStringLiteral("convert"), dataPath("template/golden.mvd"), file("a.mvw")});
    ASSERT_EQ(r.status, 0) << r.err.toStdString();
    r = run({QStringLiteral("convert"), file("a.mvw"), file("b.mvd")});
    EXPECT_EQ(r.status, 3) << "the sheet image name is not stored";
    EXPECT_TRUE(r.err.contains(QStringLiteral("no desa el camp FitxGraf")));
    EXPECT_EQ(test::readAll(file("b.mvd")), test::readAll(dataPath("template/golden.mvd")));
}

TEST_F(CliTest, PageModelsRoundTrip) {
    QFile::copy(dataPath("template/golden-v2.mvw"), file("t.mvw"));
    ASSERT_EQ(run({QStringLiteral("page-save"), file("t.mvw"), QStringLiteral("2"),
                   QStringLiteral("segona")})
                  .status,
              0);
    EXPECT_EQ(run({QStringLiteral("models")}).out, QStringLiteral("segona.MVP\n"));
    ASSERT_EQ(run({QStringLiteral("page-insert"), file("t.mvw"), QStringLiteral("1"),
                   QStringLiteral("segona"), QStringLiteral("--before"), QStringLiteral("--output"),
                   file("u.mvw")})
                  .status,
              0);
    const QJsonObject root =
        QJsonDocument::fromJson(
            run({QStringLiteral("info"), file("u.mvw"), QStringLiteral("--json")}).out.toUtf8())
            .object();
    EXPECT_EQ(root.value(QStringLiteral("PageCount")).toInt(), 3);
    const QJsonArray areas = root.value(QStringLiteral("Areas")).toArray();
    ASSERT_EQ(areas.size(), 4);
    EXPECT_EQ(areas.at(3).toObject().value(QStringLiteral("Page")).toInt(), 1);
    EXPECT_EQ(areas.at(3).toObject().value(QStringLiteral("ActionText")).toString(),
              QStringLiteral("{|Pagina 1}"));
}

} // namespace
} // namespace mervak
