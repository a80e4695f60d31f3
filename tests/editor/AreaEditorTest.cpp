#include "editor/AreaEditor.h"

#include "support/TestAreas.h"

#include <QTemporaryDir>
#include <gtest/gtest.h>

namespace mervak {
namespace {

using test::makeArea;

class AreaEditorTest : public ::testing::Test {
protected:
    void SetUp() override {
        tmpl.PageCount = 2;
        tmpl.AppendArea(makeArea(10, 10, 30, 30, 1, QStringLiteral("a")));
        tmpl.AppendArea(makeArea(10, 10, 30, 30, 2, QStringLiteral("other page")));
        tmpl.AppendArea(makeArea(50, 50, 90, 70, 1, QStringLiteral("b")));
        // As a file leaves it after reading.
        tmpl.Modified = false;
        tmpl.CurrentArea = 0;
        tmpl.refreshPageAreaCount();
    }

    SheetRect rectAt(int16_t index) const { return rectOf(tmpl.area(index)); }

    QTemporaryDir home;
    Session session{home.path()};
    Template& tmpl{session.tmpl};
    UndoSnapshot snapshot{home.path()};
    int beeps = 0;
    AreaEditor editor{{session, snapshot, [this] { ++beeps; }}};
};

TEST_F(AreaEditorTest, PickingOnTheSheetSetsTheCounters) {
    editor.selectAt(60, 60);
    EXPECT_EQ(tmpl.SelectedArea, 3);
    EXPECT_EQ(tmpl.CurrentArea, 2);
    EXPECT_EQ(tmpl.PageAreaCount, 2);
    editor.selectAt(100, 100);
    EXPECT_EQ(editor.selected(), nullptr);
    editor.select(2); // on page 2, not shown
    EXPECT_EQ(tmpl.SelectedArea, 0);
    EXPECT_EQ(beeps, 0);
}

TEST_F(AreaEditorTest, NextAndPreviousBeepAtTheEndsOfThePage) {
    editor.nextArea();
    EXPECT_EQ(tmpl.SelectedArea, 1);
    editor.nextArea();
    EXPECT_EQ(tmpl.SelectedArea, 3);
    EXPECT_EQ(beeps, 0);
    editor.nextArea();
    EXPECT_EQ(tmpl.SelectedArea, 3);
    EXPECT_EQ(beeps, 1);
    editor.previousArea();
    EXPECT_EQ(tmpl.SelectedArea, 1);
    editor.previousArea();
    EXPECT_EQ(beeps, 2);
}

TEST_F(AreaEditorTest, EditsNeedASelectionAndBeepWithout) {
    EXPECT_FALSE(editor.deleteArea());
    EXPECT_FALSE(editor.setCoordinate(Coordinate::X0, 5));
    EXPECT_FALSE(editor.moveArea(1, 1));
    EXPECT_FALSE(editor.setActionText(QStringLiteral("x")));
    EXPECT_FALSE(editor.setRepeatReadings(true));
    EXPECT_FALSE(editor.beginSubdivide());
    EXPECT_EQ(beeps, 6);
    EXPECT_EQ(tmpl.AreaCount(), 3);
    EXPECT_EQ(rectAt(1), (SheetRect{10, 10, 30, 30}));
    EXPECT_FALSE(tmpl.Modified);
    EXPECT_FALSE(QFile::exists(snapshot.snapshotPath()));
}

TEST_F(AreaEditorTest, DrawingAddsTheRectangleOnTheCurrentPage) {
    int repaints = 0;
    QObject::connect(&editor, &AreaEditor::drawingChanged, [&repaints] { ++repaints; });
    editor.startDrawing({40, 100});
    editor.drawTo({20, 130});
    EXPECT_EQ(repaints, 2) << "the rubber band follows";
    ASSERT_TRUE(editor.drawing());
    EXPECT_EQ(*editor.drawing(), (SheetRect{20, 100, 40, 120}));
    EXPECT_TRUE(editor.finishDrawing());
    EXPECT_FALSE(editor.drawing());
    ASSERT_EQ(tmpl.AreaCount(), 4);
    EXPECT_EQ(rectAt(4), (SheetRect{20, 100, 40, 120}));
    EXPECT_EQ(tmpl.area(4).Page, 1);
    EXPECT_EQ(tmpl.SelectedArea, 4);
    EXPECT_EQ(tmpl.PageAreaCount, 3);
    EXPECT_TRUE(tmpl.Modified);
    for (QPoint end : {QPoint(100, 100), QPoint(100, 60)}) {
        editor.startDrawing({100, 100});
        editor.drawTo(end);
        EXPECT_FALSE(editor.finishDrawing()) << "no width or height " << end.y();
    }
    EXPECT_FALSE(editor.finishDrawing()) << "nothing started";
    EXPECT_EQ(tmpl.AreaCount(), 4);
}

TEST_F(AreaEditorTest, ThePenDrawsFromStartToItsLastPoint) {
    editor.drawWithDevice(5, 6, DrawStart);
    editor.drawWithDevice(15, 20, DrawMove);
    editor.drawWithDevice(25, 26, DrawMove);
    editor.drawWithDevice(-1, -1, DrawEnd); // the lifted pen reports no position
    ASSERT_EQ(tmpl.AreaCount(), 4);
    EXPECT_EQ(rectAt(4), (SheetRect{5, 6, 25, 26}));
    editor.drawWithDevice(0, 0, DrawEnd); // an end with no start
    EXPECT_EQ(tmpl.AreaCount(), 4);
}

TEST_F(AreaEditorTest, DragMovesAndResizesWithOneSnapshot) {
    editor.select(3);
    editor.beginDrag(Grip::Body);
    editor.dragBy(5, 5);
    editor.dragBy(10, -10);
    editor.endDrag();
    EXPECT_EQ(rectAt(3), (SheetRect{60, 40, 100, 60}));
    editor.beginDrag(Grip::TopRight);
    editor.dragBy(0, 0);
    editor.dragBy(-20, 30);
    editor.endDrag();
    EXPECT_EQ(rectAt(3), (SheetRect{60, 40, 80, 90}));
    ASSERT_TRUE(editor.undo());
    EXPECT_EQ(rectAt(3), (SheetRect{60, 40, 100, 60})) << "one undo takes back one drag";
}

TEST_F(AreaEditorTest, CoordinatesAreClampedAndStoredAsTyped) {
    editor.select(1);
    ASSERT_TRUE(editor.setCoordinate(Coordinate::X1, 500));
    ASSERT_TRUE(editor.setCoordinate(Coordinate::Y0, -4));
    ASSERT_TRUE(editor.setCoordinate(Coordinate::X0, 200)); // past X1: the hit test orders it
    EXPECT_EQ(tmpl.area(1).X1, 120);
    EXPECT_EQ(tmpl.area(1).Y0, 0);
    EXPECT_EQ(tmpl.area(1).X0, 120);
}

TEST_F(AreaEditorTest, ArrowKeysMoveAndResizeInsideTheSheet) {
    editor.select(3);
    EXPECT_TRUE(editor.moveArea(-5, 0));
    EXPECT_TRUE(editor.moveArea(0, 100));
    EXPECT_EQ(rectAt(3), (SheetRect{45, 100, 85, 120}));
    EXPECT_TRUE(editor.resizeArea(-50, -30));
    EXPECT_EQ(rectAt(3), (SheetRect{35, 90, 45, 100}));
    ASSERT_TRUE(editor.undo());
    EXPECT_EQ(rectAt(3), (SheetRect{50, 50, 90, 70})) << "a run of keys is one step";
}

TEST_F(AreaEditorTest, TypingAnActionTextIsOneUndoStepPerArea) {
    editor.select(1);
    for (const char* text : {"h", "ho", "hol", "hola"})
        editor.setActionText(QString::fromUtf8(text));
    editor.select(3);
    editor.setActionText(QStringLiteral("b!"));
    ASSERT_TRUE(editor.undo());
    EXPECT_EQ(tmpl.area(1).ActionText, QStringLiteral("hola"));
    EXPECT_EQ(tmpl.area(3).ActionText, QStringLiteral("b"));
}

TEST_F(AreaEditorTest, AddDeleteAndMaximum) {
    EXPECT_TRUE(editor.maximizeArea()); // nothing selected: a new whole-sheet Area
    EXPECT_EQ(rectAt(4), (SheetRect{0, 0, 120, 120}));
    editor.select(1);
    EXPECT_TRUE(editor.maximizeArea());
    EXPECT_EQ(rectAt(1), (SheetRect{0, 0, 120, 120}));
    EXPECT_TRUE(editor.addArea());
    EXPECT_EQ(rectAt(5), (SheetRect{50, 50, 70, 70}));
    editor.select(3);
    EXPECT_TRUE(editor.deleteArea());
    EXPECT_EQ(tmpl.AreaCount(), 4);
    EXPECT_EQ(tmpl.SelectedArea, 3) << "the next Area of the page takes the place";
    EXPECT_EQ(tmpl.CurrentArea, 2);
    EXPECT_EQ(tmpl.PageAreaCount, 3);
    while (editor.selected())
        editor.deleteArea();
    EXPECT_EQ(tmpl.AreaCount(), 1);
    EXPECT_EQ(tmpl.PageAreaCount, 0);
}

TEST_F(AreaEditorTest, SubdivideAfterItsSnapshot) {
    editor.select(3);
    ASSERT_TRUE(editor.beginSubdivide());
    ASSERT_TRUE(editor.subdivide(2, 2));
    EXPECT_EQ(tmpl.AreaCount(), 6);
    EXPECT_EQ(tmpl.PageAreaCount, 5);
    EXPECT_FALSE(editor.subdivide(2, 2)) << "nothing is selected after a split";
    ASSERT_TRUE(editor.undo());
    EXPECT_EQ(tmpl.AreaCount(), 3);
}

TEST_F(AreaEditorTest, UndoKeepsThePageShownAndTheSelectionThatStillExists) {
    editor.showPage(2);
    editor.select(2);
    EXPECT_FALSE(snapshot.canUndo()) << "nothing done yet";
    ASSERT_TRUE(editor.setCoordinate(Coordinate::X1, 100));
    EXPECT_TRUE(snapshot.canUndo());
    ASSERT_TRUE(editor.undo());
    EXPECT_FALSE(snapshot.canUndo()) << "one level only";
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(tmpl.area(2).X1, 30);
    EXPECT_EQ(tmpl.SelectedArea, 2);
    EXPECT_EQ(tmpl.PageAreaCount, 1);
    EXPECT_TRUE(tmpl.Modified);
    ASSERT_TRUE(editor.addArea());
    ASSERT_TRUE(editor.undo());
    EXPECT_EQ(tmpl.SelectedArea, 0) << "the new Area is gone";
}

// Without a snapshot undo says so; an unwritable one is reported and the edit goes on.
TEST_F(AreaEditorTest, SnapshotProblemsAreReported) {
    QStringList problems;
    QObject::connect(&editor, &AreaEditor::problem,
                     [&problems](const QString& text) { problems.append(text); });
    EXPECT_FALSE(editor.undo());
    ASSERT_EQ(problems.size(), 1);
    EXPECT_TRUE(problems[0].startsWith(QStringLiteral("Error en llegir el fitxer ")));
    EXPECT_EQ(tmpl.AreaCount(), 3);

    UndoSnapshot nowhere{QStringLiteral("/proc/no/such/folder")};
    AreaEditor stuck{{session, nowhere, [] {}}};
    int stuckProblems = 0;
    QObject::connect(&stuck, &AreaEditor::problem, [&stuckProblems] { ++stuckProblems; });
    stuck.select(1);
    EXPECT_TRUE(stuck.moveArea(1, 0));
    EXPECT_EQ(stuckProblems, 1);
    EXPECT_EQ(rectAt(1), (SheetRect{11, 10, 31, 30}));
}

TEST_F(AreaEditorTest, PagesChangeOnlyToExistingOnes) {
    EXPECT_FALSE(editor.showPage(0));
    EXPECT_FALSE(editor.showPage(3));
    EXPECT_FALSE(editor.showPage(1));
    EXPECT_TRUE(editor.showPage(2));
    EXPECT_EQ(tmpl.CurrentPage, 2);
    EXPECT_EQ(tmpl.SelectedArea, 2) << "a page shown anew selects its first Area";
    EXPECT_EQ(editor.counters(),
              (CounterTexts{QStringLiteral("1/1 àrees"), QStringLiteral("2/2 pàgines")}));
    EXPECT_EQ(beeps, 0);
}

TEST_F(AreaEditorTest, CountersStartAtOnePageThenShowAreaDashesWithoutASelection) {
    Session empty{home.path()};
    AreaEditor start{{empty, snapshot, [] {}}};
    start.reset(); // the empty Template the program starts with
    EXPECT_EQ(start.counters(),
              (CounterTexts{QStringLiteral("0/0 àrees"), QStringLiteral("1/1 pàgines")}));
    start.select(0);
    EXPECT_EQ(start.counters(),
              (CounterTexts{QStringLiteral("----- àrees"), QStringLiteral("1/1 pàgines")}));
    editor.reset(); // a Template with Areas, as one opened
    EXPECT_EQ(editor.counters().MsgArea, QStringLiteral("----- àrees"));
    EXPECT_EQ(editor.counters().MsgPagina,
              QStringLiteral("%1/%2 pàgines").arg(tmpl.CurrentPage).arg(tmpl.PageCount));
}

} // namespace
} // namespace mervak
