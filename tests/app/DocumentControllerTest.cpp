#include "EditorFixture.h"
#include "platform/PathResolver.h"
#include "support/DialogButtons.h"
#include "support/TestFiles.h"
#include "template/TemplateFile.h"

#include <QFileDialog>
#include <QMenu>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QUrl>

namespace mervak::test {
namespace {

class DocumentControllerTest : public EditorFixture {
protected:
    void SetUp() override {
        Template saved;
        saved.AppendArea(makeArea(0, 0, 60, 60, 1, QStringLiteral("desat")));
        path = QDir(home.path()).filePath(QStringLiteral("classe.mvw"));
        ASSERT_FALSE(saveTemplate(saved, path).error);
        tmpl.AppendArea(makeArea(10, 10, 20, 20, 1, QStringLiteral("sense desar")));
        editor.refresh();
    }

    // Opens the saved file, answering message 5 with the button `answer`.
    void openAnswering(const QString& answer) {
        whenModal(
            [answer](QWidget* modal) {
                auto* box = qobject_cast<QMessageBox*>(modal);
                ASSERT_NE(box, nullptr);
                EXPECT_EQ(box->text(),
                          QStringLiteral("El fitxer ha estat modificat. Voleu enregistrar-lo?"));
                QPushButton* button = buttonNamed(box, answer);
                ASSERT_NE(button, nullptr) << answer;
                button->click();
            },
            [this] { document.openFile(path); });
    }

    // Picks `file` in the file dialog `modal`, as a person would.
    static void chooseFile(QWidget* modal, const QString& file) {
        auto* dialog = qobject_cast<QFileDialog*>(modal);
        ASSERT_NE(dialog, nullptr);
        test::chooseInFileDialog(dialog, file);
    }

    QString path;
};

TEST_F(DocumentControllerTest, CancelKeepsTheUnsavedTemplateNoDropsItAndOpens) {
    openAnswering(QStringLiteral("&Cancel·lar"));
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("sense desar"));
    EXPECT_TRUE(tmpl.Modified);
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Mervak - (Sense Nom)[*]"));
    EXPECT_TRUE(window.isWindowModified()) << "the title marks unsaved changes";
    openAnswering(QStringLiteral("&No"));
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("desat"));
    EXPECT_FALSE(tmpl.Modified) << "a Template just read equals its file";
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Mervak - ") + path + QStringLiteral("[*]"));
    EXPECT_FALSE(window.isWindowModified());
    EXPECT_EQ(workingFolder, home.path());
    EXPECT_EQ(window.panel()->areaCounter()->text(), QStringLiteral("----- àrees"));
}

TEST_F(DocumentControllerTest, YesSavesFirstThroughTheSaveDialog) {
    const QString first = QDir(home.path()).filePath(QStringLiteral("primera.mvw"));
    answerModals({[](QWidget* modal) { buttonNamed(modal, QStringLiteral("&Sí"))->click(); },
                  [first](QWidget* modal) {
                      EXPECT_EQ(modal->windowTitle(),
                                QStringLiteral("Enregistrar el fitxer de plantilla"));
                      chooseFile(modal, first);
                  }},
                 [this] { document.openFile(path); });
    Template written;
    ASSERT_FALSE(loadTemplateFile(first, written));
    EXPECT_EQ(written.area(1).ActionText, QStringLiteral("sense desar"));
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("desat"));
    EXPECT_EQ(document.title(), QStringLiteral("Mervak - ") + path);
}

TEST_F(DocumentControllerTest, SavingAnImportOffersTheMvwName) {
    tmpl.Modified = false;
    const QString mvd = QDir(home.path()).filePath(QStringLiteral("VELL.MVD"));
    ASSERT_TRUE(QFile::copy(test::dataPath(QStringLiteral("template/golden.mvd")), mvd));
    ASSERT_TRUE(document.open(mvd));
    whenModal(
        [](QWidget* modal) {
            auto* dialog = qobject_cast<QFileDialog*>(modal);
            ASSERT_NE(dialog, nullptr);
            EXPECT_EQ(QFileInfo(dialog->selectedFiles().value(0)).fileName(),
                      QStringLiteral("VELL.mvw"));
            dialog->reject();
        },
        [this] { EXPECT_FALSE(document.save()); });
    EXPECT_EQ(tmpl.TemplateFileName, mvd);
}

TEST_F(DocumentControllerTest, AnUntitledTemplateSavedElsewhereFindsItsFilesFromThere) {
    const QDir working(home.path());
    for (const char* name : {"dibuix.bmp", "so.WAV", "text.txt", "el joc.sh"})
        test::writeAll(working.filePath(QString::fromUtf8(name)), name);
    QFile::setPermissions(working.filePath(QStringLiteral("el joc.sh")),
                          QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    tmpl.NewTemplate();
    Area area =
        makeArea(0, 0, 60, 60, 1,
                 QStringLiteral("{|Sona so.WAV}{|Executa \"el joc.sh\" -n 2}{|Enganxa text.txt}"
                                "{|Executa gnome-calculator}"));
    area.Clip = QStringLiteral("dibuix.bmp");
    tmpl.AppendArea(area);
    QTemporaryDir elsewhere;
    const QString saved = QDir(elsewhere.path()).filePath(QStringLiteral("classe.mvw"));
    whenModal([saved](QWidget* modal) { chooseFile(modal, saved); },
              [this] { EXPECT_TRUE(document.saveAs()); });
    tmpl.NewTemplate();
    ASSERT_TRUE(document.open(saved));
    ASSERT_EQ(workingFolder, elsewhere.path());
    const Area& opened = tmpl.area(1);
    EXPECT_EQ(opened.ActionText, QStringLiteral("{|Sona so.WAV}{|Executa \"el joc.sh\" -n 2}"
                                                "{|Enganxa text.txt}{|Executa gnome-calculator}"))
        << "the path's program is left alone";
    for (const QString& name : {opened.Clip, QStringLiteral("so.WAV"), QStringLiteral("text.txt")})
        EXPECT_EQ(QFileInfo(resolveStoredPath(name, workingFolder)).absolutePath(),
                  elsewhere.path())
            << name;
    EXPECT_TRUE(
        QFileInfo(QDir(workingFolder).filePath(QStringLiteral("el joc.sh"))).isExecutable());
}

// A folder copied whole to another machine keeps working; stored Windows paths
// and files elsewhere stay as they were.
TEST_F(DocumentControllerTest, FilesBesideTheTemplateAreStoredRelativeToIt) {
    QTemporaryDir classe;
    const QDir folder(classe.path());
    ASSERT_TRUE(folder.mkpath(QStringLiteral("sons")));
    tmpl.NewTemplate();
    tmpl.FitxGraf = folder.filePath(QStringLiteral("fons.png"));
    Area area = makeArea(0, 0, 60, 60, 1,
                         QStringLiteral("{|Sona %1}{|Enganxa C:\\PLANT\\a.bmp}")
                             .arg(folder.filePath(QStringLiteral("sons/bell.WAV"))));
    area.Clip = home.filePath(QStringLiteral("dibuix.bmp"));
    tmpl.AppendArea(area);
    const QString saved = folder.filePath(QStringLiteral("classe.mvw"));
    const auto saveAnswering = [this](const QString& file, QString* startedIn) {
        whenModal(
            [file, startedIn](QWidget* modal) {
                *startedIn = qobject_cast<QFileDialog*>(modal)->directory().absolutePath();
                chooseFile(modal, file);
            },
            [this] { EXPECT_TRUE(document.save()); });
    };
    QString startedIn;
    saveAnswering(saved, &startedIn);
    EXPECT_NE(startedIn, QDir(home.path()).absolutePath()) << "never beside MERVAK.INI";
    Template written;
    ASSERT_FALSE(loadTemplateFile(saved, written));
    EXPECT_EQ(written.FitxGraf, QStringLiteral("fons.png"));
    EXPECT_EQ(written.area(1).ActionText, "{|Sona sons\\bell.WAV}{|Enganxa C:\\PLANT\\a.bmp}");
    EXPECT_EQ(written.area(1).Clip, area.Clip) << "outside the folder";
    EXPECT_EQ(tmpl.FitxGraf, written.FitxGraf) << "what is open is what is on disk";

    document.newTemplate();
    workingFolder = home.path(); // as at start
    saveAnswering(folder.filePath(QStringLiteral("altra.mvw")), &startedIn);
    EXPECT_EQ(startedIn, folder.absolutePath()) << "the folder used last";
}

// "Desar" (Ctrl+S) on a Template with its own file writes it there, with no dialog.
TEST_F(DocumentControllerTest, SaveWritesANamedTemplateWithoutADialog) {
    tmpl.Modified = false;
    ASSERT_TRUE(document.open(path));
    tmpl.area(1).ActionText = QStringLiteral("canviat");
    tmpl.Modified = true;
    QAction* save = nullptr;
    for (QAction* action : window.filesMenu()->actions())
        if (action->shortcut() == QKeySequence(QKeySequence::Save))
            save = action;
    ASSERT_NE(save, nullptr);
    EXPECT_FALSE(save->toolTip().isEmpty());
    answerModals({}, [save] { save->trigger(); });
    Template written;
    ASSERT_FALSE(loadTemplateFile(path, written));
    EXPECT_EQ(written.area(1).ActionText, QStringLiteral("canviat"));
    EXPECT_FALSE(tmpl.Modified);
}

// The save dialogs name Mervak's own formats and start in the Template's
// folder, or, for a new Template, anywhere but the settings folder.
TEST_F(DocumentControllerTest, SaveDialogsStartInTheTemplatesFolderWithMervaksFormats) {
    QTemporaryDir classe;
    const QString named = QDir(classe.path()).filePath(QStringLiteral("joc.mvw"));
    ASSERT_FALSE(saveTemplate(tmpl, named).error);
    const struct {
        bool untitled;
        bool saveAs;
        QStringList filters;
    } cases[] = {
        {true, false, {QStringLiteral("Plantilles de Mervak (*.mvw *.MVW)")}},
        {false,
         true,
         {QStringLiteral("Plantilles de Mervak (*.mvw *.MVW)"),
          QStringLiteral("Plantilles antigues de MS-DOS (*.mvd *.MVD)"),
          QStringLiteral("Taulers de comunicació (Open Board) (*.obz *.OBZ)")}},
    };
    for (const auto& c : cases) {
        tmpl.Modified = false;
        if (c.untitled) {
            document.newTemplate();
            workingFolder = QDir::rootPath(); // a CARREGA could have moved it there
        } else {
            ASSERT_TRUE(document.open(named));
        }
        QString folder;
        whenModal(
            [&c, &folder](QWidget* modal) {
                auto* dialog = qobject_cast<QFileDialog*>(modal);
                ASSERT_NE(dialog, nullptr);
                EXPECT_EQ(dialog->nameFilters(), c.filters) << c.saveAs;
                folder = dialog->directory().absolutePath();
                dialog->reject();
            },
            [this, &c] { c.saveAs ? document.saveAs() : document.save(); });
        if (c.untitled)
            EXPECT_TRUE(folder != QDir(home.path()).absolutePath() && folder != QDir::rootPath())
                << folder.toStdString();
        else
            EXPECT_EQ(folder, QDir(classe.path()).absolutePath());
    }
}

TEST_F(DocumentControllerTest, TheLastTemplateOpensAgainWhileItIsThere) {
    tmpl.Modified = false;
    EXPECT_FALSE(document.openLast()) << "nothing used yet";
    ASSERT_TRUE(document.open(path));
    document.newTemplate();
    ASSERT_TRUE(document.openLast());
    EXPECT_EQ(tmpl.TemplateFileName, path);
    QFile::remove(path);
    document.newTemplate();
    EXPECT_FALSE(document.openLast());
    EXPECT_TRUE(tmpl.isUntitled());
}

TEST_F(DocumentControllerTest, AnUnchangedTemplateIsReplacedWithoutAsking) {
    tmpl.Modified = false;
    document.newTemplate();
    EXPECT_EQ(tmpl.AreaCount(), 0);
    EXPECT_TRUE(tmpl.isUntitled());
}

TEST_F(DocumentControllerTest, AnOpenedFileIsListedInTheRecentFilesMenu) {
    tmpl.Modified = false;
    ASSERT_TRUE(document.open(path));
    QMenu* recent = nullptr;
    for (QAction* action : window.filesMenu()->actions())
        if (action->menu() && action->text() == QStringLiteral("Fitxers &recents"))
            recent = action->menu();
    ASSERT_NE(recent, nullptr);
    ASSERT_EQ(recent->actions().size(), 1);
    EXPECT_EQ(recent->actions()[0]->text(), QStringLiteral("&1 classe.mvw"));
    EXPECT_EQ(recent->actions()[0]->toolTip(), home.path()) << "its folder";
}

TEST_F(DocumentControllerTest, ABrokenFileIsRefusedWithItsMessage) {
    tmpl.Modified = false;
    const QString broken = QDir(home.path()).filePath(QStringLiteral("trencat.mvw"));
    test::writeAll(broken, "2\r\n0\r\nfoto.png\r\n5\r\n\"x\"\r\n");
    EXPECT_FALSE(document.open(broken));
    const QList<QMessageBox*> boxes = window.findChildren<QMessageBox*>();
    ASSERT_EQ(boxes.size(), 1);
    EXPECT_TRUE(boxes[0]->text().startsWith(QStringLiteral("Error en llegir el fitxer ")))
        << boxes[0]->text();
    boxes[0]->close();
    EXPECT_EQ(tmpl.AreaCount(), 0);
    EXPECT_TRUE(tmpl.isUntitled());
}

TEST_F(DocumentControllerTest, ATemplateDroppedOnTheWindowOpens) {
    tmpl.Modified = false;
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(path)});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&window, &drop);
    EXPECT_EQ(tmpl.TemplateFileName, path);
    data.setUrls({QUrl::fromLocalFile(QStringLiteral("/tmp/foto.png"))});
    QDragEnterEvent refused(QPoint(10, 10), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    refused.setAccepted(false);
    QApplication::sendEvent(&window, &refused);
    EXPECT_FALSE(refused.isAccepted()) << "only Templates are taken";
}

} // namespace
} // namespace mervak::test
