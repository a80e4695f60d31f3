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

TEST(RegistryText, ParsesPathsUnderTheFourRoots) {
    const struct {
        QString path;
        std::optional<RegistryPath> expected;
    } cases[] = {
        {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes",
         RegistryPath{RegistryRoot::LocalMachine, "SOFTWARE\\Classes"}},
        {"hkey_current_user\\a b\\c", RegistryPath{RegistryRoot::CurrentUser, "a b\\c"}},
        {"HKEY_USERS", RegistryPath{RegistryRoot::Users, ""}},
        {"HKEY_CURRENT_CONFIG\\a\\\\", RegistryPath{RegistryRoot::CurrentConfig, "a"}},
        {"HKEY_CLASSES_ROOT\\CLSID", std::nullopt},
        {"HKEY_USERSX\\a", std::nullopt},
        {" HKEY_USERS\\a", std::nullopt},
        {"HKEY_LOCAL_MACHINE/SOFTWARE", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseRegistryPath(c.path), c.expected) << c.path;
    for (auto root : {RegistryRoot::CurrentConfig, RegistryRoot::CurrentUser,
                      RegistryRoot::LocalMachine, RegistryRoot::Users})
        EXPECT_EQ(parseRegistryRoot(registryRootName(root)), root) << registryRootName(root);
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

TEST(RegistryText, FormatsValuesAsTheyReadBack) {
    EXPECT_EQ(formatRegistryValue(QString("abc")), "abc");
    EXPECT_EQ(formatRegistryValue(255u), "dword:000000FF");
    EXPECT_EQ(formatRegistryValue(0xABCDEFu), "dword:00ABCDEF");
    EXPECT_EQ(formatRegistryValue(QByteArray()), "hex:");
    EXPECT_EQ(formatRegistryValue(bytes({0x0A, 0xFF, 0})), "hex:0A,FF,00");
}

TEST(Registry, GetValueReadsTypedValuesAsText) {
    test::FakeRegistry registry;
    registry.put(kCurrentUser, "Count", 255u);
    registry.put(kCurrentUser, "", 5u);
    registry.put(kCurrentUser, "Fits", QString(kRegistryReadBufferBytes - 1, u'x'));
    registry.put(kCurrentUser, "TooLong", QString(kRegistryReadBufferBytes, u'x'));
    registry.put(kCurrentUser, "TooManyBytes", QByteArray(kRegistryReadBufferBytes + 1, '\1'));
    EXPECT_EQ(GetValue(registry, "hkey_current_user\\SOFTWARE\\mervak", "count"), "dword:000000FF");
    EXPECT_EQ(GetValue(registry, kCurrentUser, ""), "") << "the default value is only a string";
    EXPECT_EQ(GetValue(registry, "HKEY_CLASSES_ROOT\\Software\\Mervak", "Count"), "");
    EXPECT_EQ(GetValue(registry, kCurrentUser, "Fits").size(), kRegistryReadBufferBytes - 1);
    EXPECT_EQ(GetValue(registry, kCurrentUser, "TooLong"), "");
    EXPECT_EQ(GetValue(registry, kCurrentUser, "TooManyBytes"), "");
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

TEST(NoRegistry, ReadsNothingAndWritesNothing) {
    NoRegistry registry;
    EXPECT_EQ(GetValue(registry, kCurrentUser, "Nom"), "");
    EXPECT_EQ(WriteRegistryValue(registry, "HKEY_CURRENT_USER", "Software", "Nom", "abc"), -1);
}

} // namespace
} // namespace mervak
