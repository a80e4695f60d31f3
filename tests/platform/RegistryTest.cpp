#include "platform/Registry.h"

#include "platform/NoRegistry.h"
#include "platform/RegistryText.h"
#include "support/FakeRegistry.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

const QString kCurrentUser = "HKEY_CURRENT_USER\\Software\\Mervak";
const QString kLocalMachine = "HKEY_LOCAL_MACHINE\\SOFTWARE";

QByteArray bytes(std::initializer_list<int> values) {
    QByteArray result;
    for (int value : values)
        result.append(static_cast<char>(value));
    return result;
}

TEST(RegistryText, ParsesPathsUnderTheFourRoots) {
    struct Case {
        QString path;
        std::optional<RegistryPath> expected;
    };
    const Case cases[] = {
        {"HKEY_LOCAL_MACHINE\\SOFTWARE\\Classes",
         RegistryPath{RegistryRoot::LocalMachine, "SOFTWARE\\Classes"}},
        {"hkey_current_user\\Software", RegistryPath{RegistryRoot::CurrentUser, "Software"}},
        {"HKEY_USERS", RegistryPath{RegistryRoot::Users, ""}},
        {"HKEY_CURRENT_CONFIG\\", RegistryPath{RegistryRoot::CurrentConfig, ""}},
        {"HKEY_CURRENT_USER\\a\\b\\\\", RegistryPath{RegistryRoot::CurrentUser, "a\\b"}},
        {"HKEY_CURRENT_USER\\a b\\c", RegistryPath{RegistryRoot::CurrentUser, "a b\\c"}},
        {"HKEY_CLASSES_ROOT\\CLSID", std::nullopt},
        {"HKEY_DYN_DATA", std::nullopt},
        {"HKEY_USERSX\\a", std::nullopt},
        {" HKEY_USERS\\a", std::nullopt},
        {"\\HKEY_USERS\\a", std::nullopt},
        {"HKEY_LOCAL_MACHINE/SOFTWARE", std::nullopt},
        {"", std::nullopt},
    };
    for (const auto& c : cases)
        EXPECT_EQ(parseRegistryPath(c.path), c.expected) << c.path;
    for (auto root : {RegistryRoot::CurrentConfig, RegistryRoot::CurrentUser,
                      RegistryRoot::LocalMachine, RegistryRoot::Users})
        EXPECT_EQ(parseRegistryRoot(registryRootName(root)), root) << registryRootName(root);
}

TEST(RegistryText, ParsesValueTexts) {
    struct Case {
        QString text;
        RegistryValue expected;
    };
    const Case cases[] = {
        {"hola", QString("hola")},
        {"", QString("")},
        {"C:\\Program Files\\x.exe", QString("C:\\Program Files\\x.exe")},
        {"DWORD", QString("DWORD")},
        {" DWORD:5", QString(" DWORD:5")},
        {"SZ:text", QString("SZ:text")},
        {"DWORD:255", 255u},
        {"dword:&hFF", 255u},
        {"Dword: 10 ", 10u},
        {"DWORD:0", 0u},
        {"DWORD:1e3", 1000u},
        {"DWORD:4294967295", 0xFFFFFFFFu},
        {"DWORD:-1", 0xFFFFFFFFu},
        {"DWORD:-2147483648", 0x80000000u},
        {"DWORD:&HFFFF", 0xFFFFFFFFu},
        {"DWORD:&H10000", 0x10000u},
        {"HEX:", QByteArray()},
        {"hex: ", QByteArray()},
        {"HEX:0", bytes({0})},
        {"hex:1,2,255", bytes({1, 2, 255})},
        {"Hex:&h0A, &hFF ,", bytes({10, 255})},
        {"HEX: 7 ", bytes({7})},
    };
    for (const auto& c : cases) {
        const ParsedRegistryValue parsed = parseRegistryValue(c.text);
        EXPECT_EQ(parsed.value, c.expected) << c.text;
        EXPECT_EQ(parsed.errorPosition, -1) << c.text;
    }
}

TEST(RegistryText, RefusesBadNumbersWhereTheyStand) {
    struct Case {
        QString text;
        qsizetype errorPosition;
    };
    const Case cases[] = {
        {"DWORD:", 6},
        {"DWORD:   ", 6},
        {"DWORD:abc", 6},
        {"DWORD:  x", 8},
        {"DWORD:12abc", 6},
        {"DWORD:1.5", 6},
        {"DWORD:4294967296", 6},
        {"DWORD:-2147483649", 6},
        {"DWORD:&H100000000", 6},
        {"dword:000000FF", 6},
        {"HEX:ff", 4},
        {"HEX:0a", 4},
        {"HEX:-1", 4},
        {"HEX:256", 4},
        {"HEX:0.5", 4},
        {"HEX:1 2", 4},
        {"HEX:,", 4},
        {"HEX:1,,2", 6},
        {"HEX:1,,", 6},
        {"HEX:1, x", 7},
        {"HEX:1,2,&H100", 8},
    };
    for (const auto& c : cases) {
        const ParsedRegistryValue parsed = parseRegistryValue(c.text);
        EXPECT_FALSE(parsed.value.has_value()) << c.text;
        EXPECT_EQ(parsed.errorPosition, c.errorPosition) << c.text;
    }
}

TEST(RegistryText, FormatsValuesAsTheyReadBack) {
    struct Case {
        RegistryValue value;
        QString text;
    };
    const Case cases[] = {
        {QString("abc"), "abc"},       {QString(""), ""},
        {255u, "dword:000000FF"},      {0u, "dword:00000000"},
        {0xABCDEFu, "dword:00ABCDEF"}, {0xFFFFFFFFu, "dword:FFFFFFFF"},
        {QByteArray(), "hex:"},        {bytes({0x0A, 0xFF, 0}), "hex:0A,FF,00"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(formatRegistryValue(c.value), c.text) << c.text;
}

class RegistryAccessTest : public ::testing::Test {
protected:
    void SetUp() override {
        registry.put(kCurrentUser, "Nom", QString("abc"));
        registry.put(kCurrentUser, "Count", 255u);
        registry.put(kCurrentUser, "Data", bytes({1, 0xAB}));
        registry.put(kCurrentUser, "", QString("Default text"));
        registry.put(kLocalMachine + "\\Numbered", "", 5u);
        registry.addKey(kLocalMachine + "\\b");
        registry.addKey(kLocalMachine + "\\A");
        registry.addKey(kLocalMachine + "\\c\\deep");
    }
    test::FakeRegistry registry;
};

TEST_F(RegistryAccessTest, GetValueReadsTypedValuesAsText) {
    struct Case {
        QString path;
        QString name;
        QString expected;
    };
    const Case cases[] = {
        {kCurrentUser, "Count", "dword:000000FF"},
        {kCurrentUser, "Nom", "abc"},
        {"hkey_current_user\\SOFTWARE\\mervak", "nom", "abc"},
        {kCurrentUser + "\\", "Data", "hex:01,AB"},
        {kCurrentUser, "", "Default text"},
        {kCurrentUser, "Missing", ""},
        {kCurrentUser + "\\Missing", "Nom", ""},
        {kLocalMachine + "\\Numbered", "", ""},
        {"HKEY_CLASSES_ROOT\\Software\\Mervak", "Nom", ""},
        {"Software\\Mervak", "Nom", ""},
    };
    for (const auto& c : cases)
        EXPECT_EQ(GetValue(registry, c.path, c.name), c.expected) << c.path << " " << c.name;
}

TEST_F(RegistryAccessTest, GetValueRefusesWhatOverflowsItsBuffer) {
    const qsizetype limit = kRegistryReadBufferBytes;
    registry.put(kCurrentUser, "Fits", QString(limit - 1, u'x'));
    registry.put(kCurrentUser, "TooLong", QString(limit, u'x'));
    registry.put(kCurrentUser, "FitBytes", QByteArray(limit, '\1'));
    registry.put(kCurrentUser, "TooManyBytes", QByteArray(limit + 1, '\1'));
    EXPECT_EQ(GetValue(registry, kCurrentUser, "Fits").size(), limit - 1);
    EXPECT_EQ(GetValue(registry, kCurrentUser, "TooLong"), "");
    EXPECT_TRUE(GetValue(registry, kCurrentUser, "FitBytes").startsWith("hex:01,01"));
    EXPECT_EQ(GetValue(registry, kCurrentUser, "TooManyBytes"), "");
}

TEST_F(RegistryAccessTest, EnumerateSubkeysJoinsDirectChildrenWithCarriageReturns) {
    struct Case {
        QString path;
        QString expected;
    };
    const Case cases[] = {
        {kLocalMachine, "A\rb\rc\rNumbered"}, {kLocalMachine + "\\c", "deep"},
        {kLocalMachine + "\\b", ""},          {kLocalMachine + "\\Missing", ""},
        {"HKEY_CLASSES_ROOT\\SOFTWARE", ""},  {"HKEY_CURRENT_USER", "Software"},
    };
    for (const auto& c : cases)
        EXPECT_EQ(EnumerateSubkeys(registry, c.path), c.expected) << c.path;
}

TEST_F(RegistryAccessTest, SetValueWritesIntoExistingKeysOnly) {
    struct Case {
        QString path;
        QString name;
        QString text;
        bool written;
        QString readBack;
    };
    const Case cases[] = {
        {kCurrentUser, "Speed", "DWORD:&h10", true, "dword:00000010"},
        {kCurrentUser, "Blob", "hex:1,2", true, "hex:01,02"},
        {kCurrentUser, "Path", "C:\\x", true, "C:\\x"},
        {kCurrentUser, "", "new default", true, "new default"},
        {"hkey_current_user\\software\\mervak", "Nom", "xyz", true, "xyz"},
        {kCurrentUser, "", "DWORD:1", false, "new default"},
        {kCurrentUser, "Bad", "DWORD:abc", false, ""},
        {kCurrentUser + "\\Missing", "Nom", "x", false, ""},
        {"HKEY_CLASSES_ROOT\\Software\\Mervak", "Nom", "x", false, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(SetValue(registry, c.path, c.name, c.text), c.written) << c.path << c.text;
        EXPECT_EQ(GetValue(registry, c.path, c.name), c.readBack) << c.path << c.text;
    }
    EXPECT_EQ(registry.writes().size(), 5);
    registry.setWritesFail(true);
    EXPECT_FALSE(SetValue(registry, kCurrentUser, "Nom", "abc"));
    EXPECT_EQ(GetValue(registry, kCurrentUser, "Nom"), "xyz");
}

TEST_F(RegistryAccessTest, RegistryWriterReportsFailureAsMinusOne) {
    struct Case {
        QString root;
        QString subkey;
        QString name;
        QString text;
        int result;
    };
    const Case cases[] = {
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "DWORD:7", 0},
        {"hkey_current_user", "\\Software\\Mervak\\", "Mode", "hex:&hFF", 0},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Name", "Joan", 0},
        {"HKEY_CLASSES_ROOT", "Software\\Mervak", "Level", "DWORD:7", -1},
        {"", "Software\\Mervak", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Missing", "Level", "DWORD:7", -1},
        {"HKEY_CURRENT_USER", "Software\\Mervak", "Level", "HEX:300", -1},
    };
    for (const auto& c : cases)
        EXPECT_EQ(WriteRegistryValue(registry, c.root, c.subkey, c.name, c.text), c.result)
            << c.root << c.subkey << c.text;

    ASSERT_EQ(registry.writes().size(), 3);
    EXPECT_EQ(registry.writes()[1].key,
              (RegistryPath{RegistryRoot::CurrentUser, "Software\\Mervak"}));
    EXPECT_EQ(registry.writes()[1].name, "Mode");
    EXPECT_EQ(registry.writes()[1].value, RegistryValue(bytes({255})));
    EXPECT_EQ(registry.stored(kCurrentUser, "level"), RegistryValue(7u));
}

TEST(FindServerProgram, CutsTheServerCommandLineAfterExe) {
    test::FakeRegistry registry;
    const QString classes = kLocalMachine + "\\Classes\\";
    struct Case {
        QString identifier;
        QString commandLine;
        QString expected;
    };
    const Case cases[] = {
        {"Speech.Engine", "  C:\\Prog\\Engine.exe /automation  ", "C:\\Prog\\Engine.exe"},
        {"Upper.Case", "C:\\PROG\\TV.EXE", "C:\\PROG\\TV.EXE"},
        {"Two.Exe", "C:\\a.Exe\\b.EXE -x", "C:\\a.Exe"},
        {"Quoted", "\"C:\\Program Files\\tv.exe\" /x", "\"C:\\Program Files\\tv.exe"},
        {"No.Extension", " C:\\bin\\server -x ", "C:\\bin\\server -x"},
    };
    int classNumber = 0;
    for (const auto& c : cases) {
        const QString classId = QString("{%1}").arg(++classNumber);
        registry.put(classes + c.identifier + "\\CLSID", "", classId);
        registry.put(classes + "CLSID\\" + classId + "\\LocalServer32", "", c.commandLine);
    }
    registry.put(classes + "No.Server\\CLSID", "", QString("{99}"));
    registry.put(classes + "Empty.Class\\CLSID", "", QString(""));

    for (const auto& c : cases)
        EXPECT_EQ(FindServerProgram(registry, c.identifier), c.expected) << c.identifier;
    for (const QString identifier : {"Missing", "No.Server", "Empty.Class", ""})
        EXPECT_EQ(FindServerProgram(registry, identifier), "") << identifier;
}

TEST(NoRegistry, ReadsNothingAndWritesNothing) {
    NoRegistry registry;
    EXPECT_EQ(EnumerateSubkeys(registry, "HKEY_CURRENT_USER"), "");
    EXPECT_EQ(GetValue(registry, kCurrentUser, "Nom"), "");
    EXPECT_EQ(GetValue(registry, kCurrentUser, ""), "");
    EXPECT_FALSE(SetValue(registry, kCurrentUser, "Nom", "abc"));
    EXPECT_EQ(FindServerProgram(registry, "Speech.Engine"), "");
    EXPECT_EQ(WriteRegistryValue(registry, "HKEY_CURRENT_USER", "Software", "Nom", "abc"), -1);
}

} // namespace
} // namespace mervak
