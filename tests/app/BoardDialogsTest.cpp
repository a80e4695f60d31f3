#include "EditorFixture.h"
#include "openboard/BoardPackage.h"
#include "support/TestFiles.h"

#include <QFileDialog>
#include <QMessageBox>

namespace mervak::test {
namespace {

class BoardDialogsTest : public EditorFixture {
protected:
    // Answers the file dialog titled `title` with `file`, checking the filter it offers.
    void answerFileDialog(const QString& title, const QString& filter, const QString& file,
                          const std::function<void()>& open) {
        whenModal(
            [&](QWidget* modal) {
                auto* dialog = qobject_cast<QFileDialog*>(modal);
                ASSERT_NE(dialog, nullptr);
                EXPECT_EQ(dialog->windowTitle(), title);
                EXPECT_TRUE(dialog->nameFilters().join(u';').contains(filter))
                    << dialog->nameFilters().join(u';');
                test::chooseInFileDialog(dialog, file);
            },
            open);
    }
};

// Opening a board asks where its Template goes, imports it there and opens it;
// what did not come across is said in a notice.
TEST_F(BoardDialogsTest, OpeningABoardImportsItAsATemplate) {
    tmpl.Modified = false;
    const QString board = QDir(home.path()).filePath(QStringLiteral("menjar.obf"));
    ASSERT_TRUE(QFile::copy(dataPath(QStringLiteral("openboard/grid-with-gaps.obf")), board));
    const QString target = QDir(home.path()).filePath(QStringLiteral("menjar.mvw"));
    answerFileDialog(QStringLiteral("Desar la plantilla importada"), QStringLiteral("*.mvw"),
                     target, [&] { document.openFile(board); });
    EXPECT_EQ(tmpl.TemplateFileName, target);
    EXPECT_EQ(tmpl.AreaCount(), 4);
    EXPECT_TRUE(
        QFileInfo::exists(QDir(home.path()).filePath(QStringLiteral("menjar-imatges/leaf.png"))));
    auto* notice = window.findChild<QMessageBox*>();
    ASSERT_NE(notice, nullptr);
    EXPECT_TRUE(notice->text().contains(QStringLiteral("http://example.org/gat.png")))
        << notice->text();
}

// "Save as" offers the boards; exporting leaves the Template as it was.
TEST_F(BoardDialogsTest, SaveAsExportsBoardsAndKeepsTheTemplate) {
    tmpl.AppendArea(makeArea(0, 0, 60, 60, 1, QStringLiteral("hola{|Llegir hola}")));
    const QString target = QDir(home.path()).filePath(QStringLiteral("classe.obz"));
    answerFileDialog(QStringLiteral("Enregistrar el fitxer de plantilla"),
                     QStringLiteral("Taulers de comunicació (Open Board) (*.obz *.OBZ)"), target,
                     [&] { EXPECT_TRUE(document.saveAs()); });
    EXPECT_TRUE(tmpl.isUntitled());
    EXPECT_TRUE(tmpl.Modified);
    const auto package = readBoardPackage(target);
    ASSERT_TRUE(std::holds_alternative<BoardPackage>(package));
    EXPECT_EQ(std::get<BoardPackage>(package).boards[0].buttons.value(0).label, "hola");
}

} // namespace
} // namespace mervak::test
