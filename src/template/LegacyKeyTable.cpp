#include "template/LegacyKeyTable.h"

namespace mervak {

namespace {

constexpr int kFirstPrintableCode = 42;
constexpr int kFirstNamedKeyCode = 137;
constexpr int kFirstLatinCode = 160;

// A character as send-keys notation types it literally.
QString literalKey(QChar c) {
    static const QString special = QStringLiteral("+^%~(){}[]");
    if (special.contains(c))
        return QStringLiteral("{") + c + u'}';
    return QString(c);
}

void fillControlRows(std::array<LegacyKey, 257>& rows) {
    for (int code = 1; code <= 26; ++code)
        rows[code].ctrl = QStringLiteral("^") + QChar(u'A' + code - 1);
    rows[5].ctrl = QStringLiteral("^");
    rows[9].sends = QStringLiteral("{TAB}");
    rows[10].sends = QStringLiteral("^{ENTER}");
    rows[13].sends = QStringLiteral("{ENTER}");
    rows[14].sends = QStringLiteral("{BS}");
    rows[15].sends = QStringLiteral("+{TAB}");
}

void fillAltRows(std::array<LegacyKey, 257>& rows) {
    const QString letters = QStringLiteral("QWERTYUIOPASDFGHJKLZXCVBNM");
    for (int i = 0; i < letters.size(); ++i)
        rows[16 + i].sends = QStringLiteral("%") + letters[i];
}

void fillCharacterRows(std::array<LegacyKey, 257>& rows) {
    for (int c = 0x20; c <= 0x7E; ++c)
        rows[kFirstPrintableCode + c - 0x20].sends = literalKey(QChar(c));
    for (int c = 0xA0; c <= 0xFF; ++c)
        rows[kFirstLatinCode + c - 0xA0].sends = QString(QChar(c));
}

void fillNamedKeyRows(std::array<LegacyKey, 257>& rows) {
    const char* const names[] = {"F1",  "F2",   "F3",     "F4",     "F5",   "F6",    "F7",   "F8",
                                 "F9",  "F10",  "HOME",   "UP",     "PGDN", "RIGHT", "PGUP", "LEFT",
                                 "END", "DOWN", "INSERT", "DELETE", "ESC",  "F11",   "F12"};
    int code = kFirstNamedKeyCode;
    for (const char* name : names)
        rows[code++].sends = QStringLiteral("{") + QLatin1String(name) + u'}';
}

} // namespace

const std::array<LegacyKey, 257>& legacyKeyTable() {
    static const std::array<LegacyKey, 257> rows = [] {
        std::array<LegacyKey, 257> r;
        fillControlRows(r);
        fillAltRows(r);
        fillCharacterRows(r);
        fillNamedKeyRows(r);
        return r;
    }();
    return rows;
}

const QString& legacyKeyText(int code) {
    const LegacyKey& row = legacyKeyTable().at(code);
    return row.sends.isEmpty() ? row.ctrl : row.sends;
}

} // namespace mervak
