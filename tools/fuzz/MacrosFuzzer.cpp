#include "PropertyCheck.h"
#include "action/MacroCatalogue.h"
#include "platform/TextEncoding.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any MACROS.INI gives a catalogue whose every entry has a name and a value.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    const MacroCatalogue catalogue = MacroCatalogue::parse(decodeFileText(bytes).text);
    for (const auto* entries : {&catalogue.programs(), &catalogue.macros()})
        for (const CatalogueEntry& entry : *entries)
            fuzzCheck(!entry.name.isEmpty() && !entry.text.isEmpty(), "an empty entry");
    return 0;
}
