#include "platform/wayland/KeymapLayout.h"

#include <gtest/gtest.h>
#include <memory>
#include <xkbcommon/xkbcommon.h>

namespace mervak {
namespace {

// The uploaded keymap as a client compiles it, and what a press reads as there.
class CompiledKeymap {
public:
    explicit CompiledKeymap(const QByteArray& text)
        : context_(xkb_context_new(XKB_CONTEXT_NO_DEFAULT_INCLUDES), xkb_context_unref),
          keymap_(xkb_keymap_new_from_string(context_.get(), text.constData(),
                                             XKB_KEYMAP_FORMAT_TEXT_V1,
                                             XKB_KEYMAP_COMPILE_NO_FLAGS),
                  xkb_keymap_unref) {}

    bool valid() const { return keymap_ != nullptr; }

    // The keysym and the modifiers a client sees for the press.
    std::pair<xkb_keysym_t, QStringList> read(const KeyPress& press) const {
        std::unique_ptr<xkb_state, decltype(&xkb_state_unref)> state(xkb_state_new(keymap_.get()),
                                                                     xkb_state_unref);
        xkb_state_update_mask(state.get(), press.modifiers, 0, 0, 0, 0, 0);
        QStringList active;
        for (const char* name : {"Shift", "Control", "Mod1"})
            if (xkb_state_mod_name_is_active(state.get(), name, XKB_STATE_MODS_EFFECTIVE) > 0)
                active.append(QLatin1String(name));
        return {xkb_state_key_get_one_sym(state.get(), press.evdevCode + 8), active};
    }

private:
    std::unique_ptr<xkb_context, decltype(&xkb_context_unref)> context_;
    std::unique_ptr<xkb_keymap, decltype(&xkb_keymap_unref)> keymap_;
};

KeyStroke character(char32_t c, Modifiers modifiers = {}) {
    return {Key::Character, c, modifiers};
}

// Every character types itself, named keys and chords keep their modifiers, with
// the keymap compiled as a client compiles it.
TEST(KeymapLayoutTest, EveryStrokeReadsBackAsTypedThroughTheUploadedKeymap) {
    struct Case {
        KeyStroke stroke;
        xkb_keysym_t symbol;
        QStringList modifiers;
    };
    const Modifiers shift{true, false, false};
    const Modifiers control{false, true, false};
    const Modifiers alt{false, false, true};
    const Case cases[] = {
        {character(U'a'), XKB_KEY_a, {}},
        {character(U'A'), XKB_KEY_A, {"Shift"}},
        {character(U'a', shift), XKB_KEY_A, {"Shift"}},
        {character(U'é'), XKB_KEY_eacute, {}},
        {character(U'É'), XKB_KEY_Eacute, {"Shift"}},
        {character(U'€'), XKB_KEY_EuroSign, {}},
        {character(U'·'), XKB_KEY_periodcentered, {}},
        {character(U'¿'), XKB_KEY_questiondown, {}},
        {character(U'ß'), XKB_KEY_ssharp, {}},
        {character(U'ı'), XKB_KEY_idotless, {}},
        {character(U'İ'), XKB_KEY_Iabovedot, {}},
        {character(U'😀'), 0x100'0000 + 0x1F600, {}},
        {character(U'1', shift), XKB_KEY_1, {"Shift"}},
        {character(U'c', control), XKB_KEY_c, {"Control"}},
        {character(U'\n'), XKB_KEY_Return, {}},
        {character(U'\t', shift), XKB_KEY_Tab, {"Shift"}},
        {{Key::F4, 0, alt}, XKB_KEY_F4, {"Mod1"}},
        {{Key::Enter, 0, {}}, XKB_KEY_Return, {}},
        {{Key::Divide, 0, {}}, XKB_KEY_KP_Divide, {}},
    };
    KeymapLayout layout;
    KeyStrokes strokes;
    for (const Case& c : cases)
        strokes.append(c.stroke);
    EXPECT_TRUE(layout.place(strokes));
    EXPECT_FALSE(layout.place(strokes)) << "placed characters keep their keys";
    const CompiledKeymap keymap(layout.text());
    ASSERT_TRUE(keymap.valid()) << layout.text().constData();
    for (const Case& c : cases) {
        const std::optional<KeyPress> press = layout.pressFor(c.stroke);
        ASSERT_TRUE(press) << uint(c.stroke.character);
        const auto [symbol, modifiers] = keymap.read(*press);
        EXPECT_EQ(symbol, c.symbol) << uint(c.stroke.character);
        EXPECT_EQ(modifiers, c.modifiers) << uint(c.stroke.character);
    }
}

TEST(KeymapLayoutTest, RefusesWhatNoKeyboardTypes) {
    for (const char32_t c : {char32_t(0x01), char32_t(0x85), char32_t(0xd800), char32_t(0x110000)})
        EXPECT_FALSE(KeymapLayout::typeable(character(c))) << uint(c);
    EXPECT_TRUE(KeymapLayout::typeable(character(0x7f))) << "delete is a named key";
}

// When the keys run out, the least recently used character makes way, never one
// the run needs.
TEST(KeymapLayoutTest, MakesWayForNewCharactersFromTheLeastRecentlyUsed) {
    KeymapLayout layout;
    const int count = KeymapLayout::characterKeyCount();
    KeyStrokes all;
    for (int i = 0; i < count; ++i)
        all.append(character(0x4e00 + i));
    layout.place(all);
    for (const KeyStroke& stroke : all)
        ASSERT_TRUE(layout.pressFor(stroke));
    layout.touch(all[0]);
    const KeyStroke newcomer = character(U'ŵ');
    EXPECT_TRUE(layout.place({newcomer, all[2]}));
    EXPECT_TRUE(layout.pressFor(newcomer));
    EXPECT_TRUE(layout.pressFor(all[0])) << "used lately";
    EXPECT_FALSE(layout.pressFor(all[1])) << "the least recently used";
    EXPECT_TRUE(layout.pressFor(all[2])) << "needed by the run";
    EXPECT_TRUE(CompiledKeymap(layout.text()).valid());
}

} // namespace
} // namespace mervak
