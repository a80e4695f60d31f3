#include "PropertyCheck.h"
#include "devices/EvemuFormat.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

namespace {

// Feeds every line; false at the first one refused.
bool parse(const QByteArray& text, EvemuParser& parser) {
    QString error;
    for (const QByteArray& line : text.split('\n'))
        if (!parser.feed(line, &error)) {
            fuzzCheck(!error.isEmpty(), "a line refused without a reason");
            return false;
        }
    return true;
}

} // namespace

// Any recording is read or refused with a reason; the header written for what
// was read reads back to the same header.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    EvemuParser parser;
    if (!parse(bytes, parser))
        return 0;
    const QByteArray header = evemuHeader(parser.capabilities());
    EvemuParser back;
    fuzzCheck(parse(header, back), "the header written does not read back");
    fuzzCheck(evemuHeader(back.capabilities()) == header, "the header changed on reading back");
    return 0;
}
