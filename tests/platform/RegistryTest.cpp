#include "platform/Registry.h"

#include "platform/NoRegistry.h"
#include "platform/RegistryText.h"
#include "support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

const QString kCurrentUser = "HKEY_CURRENT_USER\\Software\\Mervak";

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray result;
    for (int value : values)
        result.append(static_cast<char>(value));
    return result;
}

TEST(RegistryText, ParsesValueTexts) {
    const struct {
        QString text;
        RegistryValue expected;
    } cases[] = {
        {"DWORD", QString("DWORD")},
        {" DWORD:5", QString(" DWORD:5")},
        {"C:\\x", QString("C:\\x")},
        {"dword:&hFF", 255u},
        {"Dword: 10 ", 10u},
        {"DWORD:4294967295", 0xFFFFFFFFu},
        {"DWORD:-2147483648", 0x80000000u},
        {"DWORD:&HFFFF", 0xFFFFFFFFu},
        {"DWORD:&H10000", 0x10000u},
        {"HEX:", QByteArray()},
        {"Hex:&h0A, 255 ,", bytes({10, 255})},
    };
    for (const auto& c : cases) {
        const ParsedRegistryValue parsed = parseRegistryValue(c.text);
        EXPECT_EQ(parsed.value, c.expected) << c.text;
        EXPECT_EQ(parsed.errorPosition, -1) << c.text;
    }
}

TEST(RegistryText, RefusesBadNumbersWhereTheyStand) {
    const struct {
        QString text;
        qsizetype errorPosition;
    } cases[] = {
        {"DWORD:", 6},           {"DWORD:  x", 8},         {"DWORD:12abc", 6},    {"DWORD:1.5", 6},
        {"DWORD:4294967296", 6}, {"DWORD:-2147483649", 6}, {"dword:000000FF", 6}, {"HEX:ff", 4},
        {"HEX:256", 4},          {"HEX:1 2", 4},           {"HEX:1,,2", 6},       {"HEX:1, x", 7},
        {"HEX:1,2,&H100", 8},
    };
    for (const auto& c : cases) {
        const ParsedRegistryValue parsed = parseRegistryValue(c.text);
        EXPECT_FALSE(parsed.value.has_value()) << c.text;
        EXPECT_EQ(parsed.errorPosition, c.errorPosition) << c.text;
    }
}

TEST(RegistryText, NamesAndFormatsAsTheyReadBack) {
    for (auto root : {RegistryRoot::CurrentConfig, RegistryRoot::CurrentUser,
                      RegistryRoot::LocalMachine, RegistryRoot::Users})
        EXPECT_EQ(parseRegistryRoot(registryRootName(root)), root) << registryRootName(root);
    EXPECT_EQ(formatRegistryValue(QString("abc")), "abc");
    EXPECT_EQ(formatRegistryValue(255u), "dword:000000FF");
    EXPECT_EQ(formatRegistryValue(0xABCDEFu), "dword:00ABCDEF");
    EXPECT_EQ(formatRegistryValue(QByteArray()), "hex:");
    EXPECT_EQ(formatRegistryValue(bytes({0x0A, 0xFF, 0})), "hex:0A,FF,00");
}

TEST(Registry, WriteRegistryValueReportsFailureAsMinusOne) {
    test::FakeRegistry registry;
    registry.addKey(kCurrentUser);
    const struct {
        QString root;
        QString subkey;
        QString name;
        QString text;
        int result;
    } cases[] = {
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "DWORD:7", 0},
        {"hkey_current_user", "\\Software\\Mervak\\", "Mode", "hex:&hFF", 0},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "", "text", 0},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "", "DWORD:1", -1},
        {"HKEY_CLASSES_ROOT", "Software\\Mervak", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Missing", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "HEX:300", -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(WriteRegistryValue(registry, c.root, c.subkey, c.name, c.text), c.result)
            << c.root << c.subkey << c.text;
    ASSERT_EQ(registry.writes().size(), 3);
    EXPECT_EQ(registry.writes()[1].key,
              (RegistryPath{RegistryRoot::CurrentUser, "Software\\Mervak"}));
    EXPECT_EQ(registry.writes()[1].value, RegistryValue(bytes({255})));
    EXPECT_EQ(registry.stored(kCurrentUser, "level"), RegistryValue(7u));
    registry.setWritesFail(true);
    EXPECT_EQ(WriteRegistryValue(registry, "HKEY_CURRENT_USER", "Software\\Mervak", "A", "x"), -1);
}

TEST(NoRegistry, WritesNothing) {
    NoRegistry registry;
    EXPECT_EQ(WriteRegistryValue(registry, "HKEY_CURRENT_USER", "Software", "Nom", "abc"), -1);
}

} // namespace
} // namespace mervak
