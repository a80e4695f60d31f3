#pragma once

#include <QString>

namespace mervak {

// The arithmetic of the memory register. It counts in whole signed 16-bit
// numbers: each operand is read with Val and rounded half to even, and a result
// outside -32768..32767 throws Overflow16, so the caller's command ends with the
// register as it was. An empty register is not a number.
class MemoryRegister {
public:
    // {|M+ x}: the sum when the register holds a number, else the register with
    // `argument` appended.
    static QString added(const QString& memory, const QString& argument);

    // {|M- x}: the difference when the register holds a number, else the
    // register unchanged.
    static QString subtracted(const QString& memory, const QString& argument);
};

} // namespace mervak
