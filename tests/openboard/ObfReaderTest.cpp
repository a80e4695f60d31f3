#include "openboard/ObfFormat.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

// Each broken board is refused with the field at fault.
TEST(ObfReader, BrokenBoardsNameWhatAndWhere) {
    using K = BoardError::Kind;
    const std::tuple<const char*, K, const char*, const char*> cases[] = {
        {"", K::NotJson, "0", nullptr},
        {R"({"buttons": [)", K::NotJson, "13", nullptr},
        {"[1, 2]", K::NotObject, "", ""},
        {R"({"id": "b"})", K::MissingField, "buttons", ""},
        {R"({"buttons": {}})", K::WrongType, "buttons", "array"},
        {R"({"buttons": [{"id": "1"}, {"label": "x"}]})", K::MissingField, "buttons[1].id", ""},
        {R"({"buttons": [{"id": "1", "label": 5}]})", K::WrongType, "buttons[0].label", "string"},
        {R"({"buttons": [{"id": true}]})", K::WrongType, "buttons[0].id", "string"},
        {R"({"buttons": [{"id": "1", "left": 0.5}]})", K::MissingField, "buttons[0].top", "number"},
        {R"({"buttons": [{"id": "1", "load_board": "b2"}]})", K::WrongType, "buttons[0].load_board",
         "object"},
        {R"({"buttons": [], "grid": {"rows": 1}})", K::MissingField, "grid.columns", "number"},
        {R"({"buttons": [], "grid": {"rows": -1, "columns": 1}})", K::BadNumber, "grid.rows", "-1"},
        {R"({"buttons": [], "grid": {"rows": 1e9, "columns": 1}})", K::BadNumber, "grid.rows",
         "1e+09"},
        {R"({"buttons": [], "grid": {"rows": 1, "columns": 1, "order": [[null], [null]]}})",
         K::GridTooLarge, "grid.order", "2 > 1"},
        {R"({"buttons": [], "grid": {"rows": 1, "columns": 1, "order": [["a", "b"]]}})",
         K::GridTooLarge, "grid.order[0]", "2 > 1"},
        {R"({"buttons": [], "grid": {"rows": 1, "columns": 1, "order": [[{}]]}})", K::WrongType,
         "grid.order[0][0]", "string"},
        {R"({"buttons": [], "images": [{"url": "x"}]})", K::MissingField, "images[0].id", ""},
    };
    for (const auto& [json, kind, where, detail] : cases) {
        const auto result = readBoard(QByteArray(json), QStringLiteral("b.obf"));
        ASSERT_TRUE(std::holds_alternative<BoardError>(result)) << json;
        const BoardError& error = std::get<BoardError>(result);
        EXPECT_EQ(error.kind, kind) << json;
        EXPECT_EQ(error.file, "b.obf");
        EXPECT_EQ(error.where, QString::fromUtf8(where)) << json;
        if (detail) {
            EXPECT_EQ(error.detail, QString::fromUtf8(detail)) << json;
        }
    }
}

// The messages say what and where in the user's language.
TEST(ObfReader, ErrorTextsInBothLanguages) {
    const BoardError error{BoardError::Kind::WrongType, "b.obf", "buttons[0].label", "string"};
    EXPECT_EQ(boardErrorText(Language::Catalan, error),
              "Al tauler b.obf, el camp buttons[0].label hauria de ser de tipus string");
    EXPECT_EQ(boardErrorText(Language::Spanish, error),
              "En el tablero b.obf, el campo buttons[0].label debería ser de tipo string");
}

} // namespace
} // namespace mervak
