#include "platform/Registry.h"

#include "platform/NoRegistry.h"
#include "platform/RegistryText.h"
#include "support/FakeRegistry.h"

#include <gtest/gtest.h>
#include <span>

namespace mervak {
namespace {

const QString kCurrentUser = "HKEY_CURRENT_USER\\Software\\Mervak";

// The value as it reads back, or "@" and where the text could not be read.
QString parsed(const QString& text) {
    const ParsedRegistryValue value = parseRegistryValue(text);
    if (!value.value)
        return QStringLiteral("@") + QString::number(value.errorPosition);
    return formatRegistryValue(*value.value);
}

TEST(RegistryText, ParsesValueTextsAndFormatsThemAsTheyReadBack) {
    const std::pair<const char*, const char*> read[] = {
        {"DWORD", "DWORD"},
        {" DWORD:5", " DWORD:5"},
        {"C:\\x", "C:\\x"},
        {"dword:&hFF", "dword:000000FF"},
        {"Dword: 10 ", "dword:0000000A"},
        {"DWORD:4294967295", "dword:FFFFFFFF"},
        {"DWORD:-2147483648", "dword:80000000"},
        {"DWORD:&HFFFF", "dword:FFFFFFFF"},
        {"DWORD:&H10000", "dword:00010000"},
        {"HEX:", "hex:"},
        {"Hex:&h0A, 255 ,", "hex:0A,FF"},
    };
    const std::pair<const char*, const char*> refused[] = {
        {"DWORD:", "@6"},         {"DWORD:  x", "@8"},        {"DWORD:12abc", "@6"},
        {"DWORD:1.5", "@6"},      {"DWORD:4294967296", "@6"}, {"DWORD:-2147483649", "@6"},
        {"dword:000000FF", "@6"}, {"HEX:ff", "@4"},           {"HEX:256", "@4"},
        {"HEX:1 2", "@4"},        {"HEX:1,,2", "@6"},         {"HEX:1, x", "@7"},
        {"HEX:1,2,&H100", "@8"}};
    using Rows = std::span<const std::pair<const char*, const char*>>;
    for (Rows cases : {Rows(read), Rows(refused)})
        for (const auto& [text, expected] : cases)
            EXPECT_EQ(parsed(text), expected) << text;
    for (auto root : {RegistryRoot::CurrentConfig, RegistryRoot::CurrentUser,
                      RegistryRoot::LocalMachine, RegistryRoot::Users})
        EXPECT_EQ(parseRegistryRoot(registryRootName(root)), root) << registryRootName(root);
}

TEST(Registry, WriteRegistryValueReportsFailureAsMinusOne) {
    test::FakeRegistry registry;
    registry.addKey(kCurrentUser);
    const std::tuple<QString, QString, QString, QString, int> cases[] = {
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "DWORD:7", 0},
        {"hkey_current_user", "\\Software\\Mervak\\", "Mode", "hex:&hFF", 0},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "", "text", 0},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "", "DWORD:1", -1},
        {"HKEY_CLASSES_ROOT", "Software\\Mervak", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Missing", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "HEX:300", -1},
    };
    for (const auto& [root, subkey, name, text, result] : cases)
        EXPECT_EQ(WriteRegistryValue(registry, root, subkey, name, text), result) << subkey << text;
    ASSERT_EQ(registry.writes().size(), 3);
    EXPECT_EQ(registry.writes()[1].key,
              (RegistryPath{RegistryRoot::CurrentUser, "Software\\Mervak"}));
    EXPECT_EQ(registry.writes()[1].value, RegistryValue(QByteArray("\xff")));
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
