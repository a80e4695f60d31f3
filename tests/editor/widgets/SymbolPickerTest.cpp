#include "editor/widgets/SymbolPicker.h"

#include "editor/widgets/WordSheetDialog.h"

#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <gtest/gtest.h>

namespace mervak {
namespace {

// Typing into the picker shows the real library's symbols, best first, and the choice is
// what a cell stores.
TEST(SymbolPickerTest, TypingFindsAndChoosesASymbol) {
    const SymbolLibrary library(SymbolLibrary::installedFolder(), Language::Catalan);
    SymbolPicker picker(library, Language::Catalan);
    picker.show();
    EXPECT_FALSE(picker.acceptButton()->isEnabled());
    QTest::keyClicks(picker.searchField(), QStringLiteral("cafe"));
    ASSERT_GT(picker.results()->count(), 0);
    EXPECT_EQ(picker.results()->item(0)->text(), QStringLiteral("beguda calenta"));
    EXPECT_EQ(picker.chosenPicture(), QStringLiteral("symbol:2615"));
    EXPECT_TRUE(picker.acceptButton()->isEnabled());
    picker.search(QStringLiteral("gos"));
    picker.results()->setCurrentRow(1);
    EXPECT_EQ(picker.chosenName(), QStringLiteral("cara de gos"));
    picker.searchField()->clear();
    EXPECT_EQ(picker.results()->count(), 0);
    EXPECT_FALSE(picker.acceptButton()->isEnabled());
}

TEST(WordSheetDialogTest, SaysHowManyPagesTheWordsMake) {
    const std::tuple<Language, const char*, int, bool> cases[] = {
        {Language::Catalan, "7 paraules, 2 pàgines", 3, true},
        {Language::Spanish, "7 palabras, 1 páginas", 4, true},
        {Language::Catalan, "0 paraules, 0 pàgines", 3, false},
    };
    for (const auto& [language, summary, columns, words] : cases) {
        WordSheetDialog dialog(language);
        if (words)
            dialog.wordField()->setPlainText(
                QStringLiteral("gos gat vaca\ncavall ovella porc poma"));
        dialog.rowsField()->setValue(2);
        dialog.columnsField()->setValue(columns);
        EXPECT_EQ(dialog.findChild<QLabel*>(QStringLiteral("resum"))->text(),
                  QString::fromUtf8(summary));
        EXPECT_EQ(dialog.acceptButton()->isEnabled(), words);
        EXPECT_EQ(dialog.sheetLayout().columns, columns);
    }
}

} // namespace
} // namespace mervak
