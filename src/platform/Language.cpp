#include "platform/Language.h"

namespace mervak {

namespace {

const QString kSpanishSetting = QStringLiteral("ESPAÑOL");
const QString kCatalanSetting = QStringLiteral("CATALA");

} // namespace

Language languageFromSetting(const QString& value) {
    return value == kSpanishSetting ? Language::Spanish : Language::Catalan;
}

QString languageSettingValue(Language language) {
    return language == Language::Spanish ? kSpanishSetting : kCatalanSetting;
}

} // namespace mervak
