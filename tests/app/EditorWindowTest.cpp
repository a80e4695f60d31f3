#include "EditorFixture.h"
#include "action/MacroCatalogue.h"
#include "editor/widgets/GridDialog.h"
#include "support/DialogButtons.h"

#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QDropEvent>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenuBar>
#include <QMessageBox>
#include <QMimeData>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSpinBox>
#include <QTest>
#include <QToolButton>

namespace mervak::test {
namespace {

class EditorWindowTest : public EditorFixture {
protected:
    void SetUp() override {
        tmpl.PageCount = 3;
        tmpl.AppendArea(makeArea(60, 60, 110, 110, 1, QStringLiteral("hola")));
        tmpl.AppendArea(makeArea(10, 10, 50, 50, 2, QStringLiteral("dos")));
        tmpl.AppendArea(makeArea(10, 10, 50, 50, 3, QStringLiteral("tres")));
        tmpl.Modified = false;
        tmpl.CurrentArea = 0;
        editor.refresh();
    }

    QLabel* areaCounter() const { return window.panel()->areaCounter(); }
    QLabel* pageCounter() const { return window.panel()->pageCounter(); }
    const EditorActions& actions() const { return window.editorActions(); }
};

TEST_F(EditorWindowTest, DrawAnAreaWithTheMouseThenResizeIt) {
    actions().draw->trigger();
    dragOnSheet({20, 30}, {50, 60});
    ASSERT_EQ(tmpl.AreaCount(), 4);
    EXPECT_EQ(rectAt(4), (SheetRect{20, 30, 50, 60}));
    EXPECT_EQ(tmpl.area(4).Page, 1);
    EXPECT_EQ(tmpl.SelectedArea, 4);
    EXPECT_EQ(areaCounter()->text(), QStringLiteral("2/2 àrees"));
    EXPECT_EQ(window.panel()->field(Coordinate::X1)->text(), QStringLiteral("50"));
    EXPECT_EQ(window.sheetPane()->barCaption(Coordinate::Y1), QStringLiteral("60"));
    EXPECT_EQ(window.sheetPane()->bar(Coordinate::Y1)->value(), 60) << "maximum minus 60";
    EXPECT_TRUE(tmpl.Modified);

    dragOnSheet({50, 60}, {70, 80}); // the upper-right corner
    EXPECT_EQ(rectAt(4), (SheetRect{20, 30, 70, 80}));
    dragOnSheet({40, 40}, {45, 35}); // the body
    EXPECT_EQ(rectAt(4), (SheetRect{25, 25, 75, 75}));
    EXPECT_EQ(tmpl.AreaCount(), 4);
    EXPECT_TRUE(ran.isEmpty()) << "nothing fires while drawing";
}

TEST_F(EditorWindowTest, ACleanClickFiresAndSelectsOutsideTheDrawingMode) {
    QList<QPointF> pressed;
    QObject::connect(&editor, &EditorController::sheetPressed,
                     [&pressed](QPointF point) { pressed.append(point); });
    clickOnSheet({80, 80});
    EXPECT_EQ(pressed.size(), 1);
    EXPECT_EQ(tmpl.SelectedArea, 1);
    EXPECT_EQ(window.panel()->actionText()->text(), QStringLiteral("hola"));
    dragOnSheet({80, 80}, {90, 90});
    EXPECT_EQ(rectAt(1), (SheetRect{60, 60, 110, 110})) << "no moves outside the drawing mode";
    window.sheetPane()->zoomIn();
    clickOnSheet({80, 80});
    EXPECT_EQ(pressed.size(), 2) << "an enlarged sheet is for editing only";
}

TEST_F(EditorWindowTest, BarsFieldsAndBoxEditTheSelectedArea) {
    clickOnSheet({80, 80});
    window.sheetPane()->bar(Coordinate::Y0)->setValue(100); // the label shows 120 - 100
    EXPECT_EQ(tmpl.area(1).Y0, 20);
    EXPECT_EQ(window.sheetPane()->barCaption(Coordinate::Y0), QStringLiteral("20"));
    QLineEdit* x1 = window.panel()->field(Coordinate::X1);
    x1->setText(QStringLiteral("99"));
    emit x1->editingFinished();
    EXPECT_EQ(tmpl.area(1).X1, 99);
    EXPECT_EQ(window.sheetPane()->bar(Coordinate::X1)->value(), 99);
    QTest::keyClicks(x1, QStringLiteral("abc")); // the validator refuses letters
    EXPECT_EQ(x1->text(), QStringLiteral("99"));
    QCheckBox* repeat = window.panel()->repeatReadings();
    repeat->click();
    EXPECT_EQ(tmpl.area(1).Flags, -1);
    clickOnSheet({5, 5});
    EXPECT_FALSE(repeat->isEnabled());
}

TEST_F(EditorWindowTest, ArrowKeysMoveTheSelectedArea) {
    actions().draw->trigger();
    clickOnSheet({80, 80});
    QTest::keyClick(window.sheet(), Qt::Key_Left);
    QTest::keyClick(window.sheet(), Qt::Key_Up, Qt::ControlModifier);
    EXPECT_EQ(rectAt(1), (SheetRect{59, 65, 109, 115}));
    QTest::keyClick(window.sheet(), Qt::Key_Left, Qt::ShiftModifier);
    EXPECT_EQ(rectAt(1), (SheetRect{59, 65, 108, 115}));
}

TEST_F(EditorWindowTest, SplitThreeByTwoThenUndo) {
    actions().subdivide->trigger();
    EXPECT_EQ(beeps, 1) << "nothing selected";
    EXPECT_TRUE(status.contains(QStringLiteral("trieu una àrea"))) << status;
    EXPECT_FALSE(actions().undo->isEnabled()) << "nothing to undo yet";
    clickOnSheet({80, 80});
    whenModal(
        [](QWidget* modal) {
            auto* grid = qobject_cast<GridDialog*>(modal);
            ASSERT_NE(grid, nullptr);
            grid->columnsField()->setValue(3); // typed, not scrolled
            grid->rowsField()->setValue(2);
            grid->acceptButton()->click();
        },
        [this] { actions().subdivide->trigger(); });
    ASSERT_EQ(tmpl.AreaCount(), 8);
    EXPECT_EQ(rectAt(8), (SheetRect{92, 85, 108, 110}));
    EXPECT_EQ(areaCounter()->text(), QStringLiteral("----- àrees"));
    EXPECT_TRUE(actions().undo->isEnabled());
    actions().undo->trigger();
    EXPECT_EQ(tmpl.AreaCount(), 3);
    EXPECT_EQ(rectAt(1), (SheetRect{60, 60, 110, 110}));
}

// The panel makes the selected Area's cell, the sheet shows it as it prints,
// and a grid of cells comes on a page of its own.
TEST_F(EditorWindowTest, TheCellPanelComposesTheSheet) {
    clickOnSheet({80, 80});
    CellPanel* cells = window.panel()->cells();
    QTest::keyClicks(cells->labelField(), QStringLiteral("casa"));
    cells->paletteButton(0)->click();
    ASSERT_TRUE(tmpl.area(1).Cell.has_value());
    EXPECT_EQ(tmpl.area(1).Cell->Label, QStringLiteral("casa"));
    EXPECT_EQ(tmpl.area(1).Cell->Background, 0xFFEB3BU);
    // Yellow under the selection's tint.
    const QColor shown =
        window.sheet()->grab().toImage().pixelColor(widgetPoint({64, 106}).toPoint());
    EXPECT_TRUE(shown.red() > 220 && shown.green() > 180 && shown.blue() < 90) << shown.name();
    actions().undo->trigger();
    EXPECT_FALSE(tmpl.area(1).Cell->Background.has_value()) << "the colour was the last change";
    EXPECT_EQ(tmpl.area(1).Cell->Label, QStringLiteral("casa"));

    whenModal([](QWidget* modal) { QTest::keyClick(modal, Qt::Key_Return); },
              [this] { actions().cellGrid->trigger(); });
    EXPECT_EQ(tmpl.PageCount, 4);
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(tmpl.countAreasOfPage(2), 6);
    EXPECT_EQ(pageCounter()->text(), QStringLiteral("2/4 pàgines"));
}

// A picture dropped on the panel is named as the Template names files; one
// pasted from the clipboard is kept beside it first.
TEST_F(EditorWindowTest, PicturesComeDroppedOrPasted) {
    QTemporaryDir folder;
    workingFolder = folder.path();
    QImage red(8, 8, QImage::Format_RGB32);
    red.fill(Qt::red);
    ASSERT_TRUE(red.save(QDir(folder.path()).filePath(QStringLiteral("gos.png"))));
    clickOnSheet({80, 80});
    CellPanel* cells = window.panel()->cells();

    QMimeData dropped;
    dropped.setUrls({QUrl::fromLocalFile(QDir(folder.path()).filePath(QStringLiteral("gos.png")))});
    QDragEnterEvent enter(QPoint(10, 10), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(cells, &enter);
    EXPECT_TRUE(enter.isAccepted()) << "a picture file is welcome";
    QDropEvent drop(QPointF(10, 10), Qt::CopyAction, &dropped, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(cells, &drop);
    ASSERT_TRUE(tmpl.area(1).Cell.has_value());
    EXPECT_EQ(tmpl.area(1).Cell->Picture, QStringLiteral("gos.png"));

    QGuiApplication::clipboard()->setImage(red);
    cells->findChild<QPushButton*>(QStringLiteral("EnganxarDibuix"))->click();
    EXPECT_EQ(tmpl.area(1).Cell->Picture, QStringLiteral("dibuix-1.png"));
    EXPECT_FALSE(QImage(QDir(folder.path()).filePath(QStringLiteral("dibuix-1.png"))).isNull());
}

TEST_F(EditorWindowTest, DeleteAPageAfterMessage107ThenUndo) {
    actions().previousPage->trigger();
    EXPECT_EQ(beeps, 0) << "the page buttons do nothing at the ends, silently";
    actions().nextPage->trigger();
    whenModal(
        [](QWidget* modal) {
            auto* box = qobject_cast<QMessageBox*>(modal);
            ASSERT_NE(box, nullptr);
            EXPECT_EQ(box->text(), QStringLiteral("Segur que vol eliminar aquesta pàgina"));
            EXPECT_EQ(box->icon(), QMessageBox::Critical);
            buttonNamed(box, QStringLiteral("Cancel·lar"))->click();
        },
        [this] { actions().deletePage->trigger(); });
    EXPECT_EQ(tmpl.PageCount, 3);
    whenModal([](QWidget* modal) { buttonNamed(modal, QStringLiteral("Acceptar"))->click(); },
              [this] { actions().deletePage->trigger(); });
    EXPECT_EQ(tmpl.PageCount, 2);
    EXPECT_EQ(tmpl.area(2).ActionText, QStringLiteral("tres"));
    EXPECT_EQ(pageCounter()->text(), QStringLiteral("2/2 pàgines"));
    actions().undo->trigger();
    EXPECT_EQ(tmpl.PageCount, 3);
    EXPECT_EQ(tmpl.area(2).ActionText, QStringLiteral("dos"));
}

TEST_F(EditorWindowTest, TheOnlyPageCannotBeDeleted) {
    tmpl = Template();
    editor.refresh();
    EXPECT_FALSE(actions().deletePage->isEnabled());
}

TEST_F(EditorWindowTest, ThePageFrameSavesPastesAndInsertsPages) {
    actions().savePageModel->trigger();
    PageFrame* frame = window.pageFrame();
    EXPECT_EQ(frame->title(), QStringLiteral("Desar models de pàgina"));
    EXPECT_FALSE(frame->option(0)->isVisibleTo(frame));
    frame->confirmButton()->click(); // an empty name beeps
    EXPECT_EQ(beeps, 1);
    frame->nameField()->setText(QStringLiteral("salutacio"));
    frame->confirmButton()->click();
    actions().nextPage->trigger();
    actions().pastePageModel->trigger();
    ASSERT_EQ(frame->models()->count(), 1);
    frame->models()->setCurrentRow(0);
    EXPECT_EQ(frame->nameField()->text(), QStringLiteral("salutacio.MVP"));
    frame->confirmButton()->click();
    ASSERT_EQ(tmpl.AreaCount(), 4);
    EXPECT_EQ(tmpl.area(4).Page, 2);
    EXPECT_EQ(tmpl.area(4).ActionText, QStringLiteral("hola"));

    actions().insertPageBefore->trigger();
    ASSERT_TRUE(frame->isVisible());
    EXPECT_EQ(frame->title(), QStringLiteral("Obrir models de pàgina"));
    EXPECT_EQ(frame->nameField()->text(), QStringLiteral("Pàgina nova"));
    EXPECT_TRUE(frame->option(0)->isChecked());
    frame->confirmButton()->click();
    EXPECT_FALSE(frame->isVisible());
    EXPECT_EQ(tmpl.PageCount, 4);
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(tmpl.area(2).Page, 3) << "the new page goes before the current one";
}

TEST_F(EditorWindowTest, CommandsFromTheMenuAndTheEnterKeyGoIntoTheActionText) {
    clickOnSheet({80, 80});
    ActionTextEdit* text = window.panel()->actionText();
    text->moveCursor(QTextCursor::End);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("hola{ENTER}"));
    window.panel()
        ->commands()
        ->actionFor({QStringLiteral("Ratolí"), QStringLiteral("Moure's a...")})
        ->trigger();
    EXPECT_EQ(text->textCursor().selectedText(), QStringLiteral("x"));
    QTest::keyClicks(text, QStringLiteral("15"));
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("hola{ENTER}{|Mouse M 15 y }"));
    status = QStringLiteral("Notació incorrecta");
    window.panel()->tryButton()->click();
    EXPECT_TRUE(status.isEmpty()) << "what a failed try left goes";
    EXPECT_EQ(ran, QStringList{QStringLiteral("hola{ENTER}{|Mouse M 15 y }")});
    actions().undo->trigger();
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("hola")) << "the typing is one step";
}

TEST_F(EditorWindowTest, WhatTheFieldTypesAndItsBrokenNotationShowWhileTyping) {
    clickOnSheet({80, 80});
    ActionTextEdit* text = window.panel()->actionText();
    QLabel* preview = window.panel()->keysPreview();
    QLabel* problem = window.panel()->notationProblem();
    text->moveCursor(QTextCursor::End);
    QTest::keyClicks(text, QStringLiteral("+1{TA"));
    EXPECT_EQ(preview->text(), QStringLiteral("hola⟨Shift+1⟩"));
    EXPECT_EQ(problem->text(), QStringLiteral("Al caràcter 7 hi ha una \"{\" que no es tanca"));
    ASSERT_EQ(text->extraSelections().size(), 1);
    EXPECT_EQ(text->extraSelections()[0].cursor.selectionStart(), 6);
    QTest::keyClicks(text, QStringLiteral("B}"));
    EXPECT_EQ(preview->text(), QStringLiteral("hola⟨Shift+1⟩⇥"));
    EXPECT_TRUE(problem->isHidden());
    EXPECT_TRUE(text->extraSelections().isEmpty());
}

QAction* actionNamed(QMenu* menu, const QString& text) {
    for (QAction* action : menu->actions())
        if (action->text() == text)
            return action;
    return nullptr;
}

TEST_F(EditorWindowTest, TheCataloguesProgramsAndMacrosAreOffered) {
    session.catalogue = MacroCatalogue::parse(QStringLiteral(
        "[Programes]\nCalculadora=gnome-calculator\n[Macros: Memòria]\nDir la memòria={|RM }\n"));
    editor.refreshCatalogue();
    clickOnSheet({80, 80});
    window.panel()->actionText()->selectAll();
    CommandMenu* commands = window.panel()->commands();
    QAction* programs = actionNamed(commands, QStringLiteral("Executar programes"));
    ASSERT_NE(programs, nullptr);
    ASSERT_NE(programs->menu(), nullptr) << "a submenu once the catalogue has programs";
    actionNamed(programs->menu(), QStringLiteral("Calculadora"))->trigger();
    QAction* macros = actionNamed(commands, QStringLiteral("Carregar macros"));
    ASSERT_NE(macros, nullptr);
    QAction* group = actionNamed(macros->menu(), QStringLiteral("Memòria"));
    ASSERT_NE(group, nullptr);
    actionNamed(group->menu(), QStringLiteral("Dir la memòria"))->trigger();
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("{|Executa gnome-calculator}{|RM }"));

    switchLanguage(Language::Spanish);
    programs = actionNamed(commands, QStringLiteral("Ejecutar programas"));
    ASSERT_NE(programs, nullptr);
    EXPECT_EQ(programs->menu()->actions().value(0)->text(), QStringLiteral(">>> OTROS"));
    int shown = 0;
    for (QAction* action : commands->actions())
        shown += action->isVisible() && (action->text() == QStringLiteral("Cargar macros") ||
                                         action->text() == QStringLiteral("Ejecutar programas"));
    EXPECT_EQ(shown, 2) << "rebuilt, not added again";
}

// A pupil's session: no menu, key or panel edits the Template or opens another.
// A hidden action has no shortcut either.
TEST_F(EditorWindowTest, ALockedWindowLeavesNothingThatEditsOrOpens) {
    tmpl.CurrentArea = 1;
    editor.refresh();
    window.lock();
    QApplication::processEvents();
    QTest::keyClick(&window, Qt::Key_Delete);
    EXPECT_EQ(tmpl.AreaCount(), 3);
    EXPECT_FALSE(window.panel()->isVisible());
    for (QAction* action : window.filesMenu()->actions())
        EXPECT_FALSE(action->isVisible()) << action->text();
    QStringList shown;
    for (QAction* menu : window.menuBar()->actions())
        if (menu->isVisible())
            shown << menu->text().remove(u'&');
    EXPECT_EQ(shown, (QStringList{"Veure", "Opcions", "Ajuda"}));
}

TEST_F(EditorWindowTest, SpanishAndBackAgainWithADialogOpen) {
    clickOnSheet({80, 80});
    actions().addPage->trigger();
    switchLanguage(Language::Spanish);
    const QList<QAction*> menus = window.menuBar()->actions();
    ASSERT_GE(menus.size(), 3);
    EXPECT_EQ(menus[0]->text(), QStringLiteral("&Archivos"));
    EXPECT_EQ(actions().maximumArea->text(), QStringLiteral("Área &Máxima"));
    EXPECT_EQ(window.panel()->repeatReadings()->text(), QStringLiteral("Repetición de lecturas"));
    EXPECT_EQ(areaCounter()->text(), QStringLiteral("1/1 áreas"));
    EXPECT_EQ(pageCounter()->text(), QStringLiteral("1/3 páginas"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Mervak - (Sin nombre)[*]"));
    EXPECT_EQ(window.pageFrame()->nameField()->text(), QStringLiteral("Página nueva"));
    const auto toolkitText = [] { return QCoreApplication::translate("QFileSystemModel", "Name"); };
    EXPECT_EQ(toolkitText(), QStringLiteral("Nombre")) << "install qt6-translations-l10n";
    whenModal(
        [this](QWidget* modal) {
            EXPECT_EQ(modal->windowTitle(), QStringLiteral("Subdividir el área"));
            switchLanguage(Language::Catalan);
            EXPECT_EQ(modal->windowTitle(), QStringLiteral("Subdividir l'àrea"));
            ASSERT_NE(buttonNamed(modal, QStringLiteral("Acceptar")), nullptr);
            qobject_cast<QDialog*>(modal)->reject();
        },
        [this] { actions().subdivide->trigger(); });
    EXPECT_EQ(menus[0]->text(), QStringLiteral("&Fitxers"));
    EXPECT_EQ(areaCounter()->text(), QStringLiteral("1/1 àrees"));
    EXPECT_EQ(toolkitText(), QStringLiteral("Nom"));
    EXPECT_EQ(window.pageFrame()->title(), QStringLiteral("Obrir models de pàgina"));
    EXPECT_EQ(window.windowTitle(), QStringLiteral("Mervak - (Sense Nom)[*]"));
    window.pageFrame()->confirmButton()->click();
    EXPECT_EQ(tmpl.PageCount, 4) << "the Catalan name means the new empty page";
}

} // namespace
} // namespace mervak::test
