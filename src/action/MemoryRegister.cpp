#include "action/MemoryRegister.h"

#include "platform/Checked16.h"
#include "platform/NumericText.h"

namespace mervak {

namespace {

int16_t wholeValue(const QString& text) {
    return roundToInt16(Val(text));
}

} // namespace

QString MemoryRegister::added(const QString& memory, const QString& argument) {
    if (!IsNumeric(memory))
        return memory + argument;
    return numberToText(add16(wholeValue(argument), wholeValue(memory)));
}

QString MemoryRegister::subtracted(const QString& memory, const QString& argument) {
    if (!IsNumeric(memory))
        return memory;
    return numberToText(sub16(wholeValue(memory), wholeValue(argument)));
}

} // namespace mervak
