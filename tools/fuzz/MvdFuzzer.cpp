#include "FuzzCheck.h"
#include "template/MvdFormat.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any bytes either fail with "Format incorrecte" or import Areas that the export
// writes without loss and the import reads back the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Template t;
    if (const auto error = readMvd(bytes, t)) {
        fuzzCheck(error->message == 2, "unexpected message");
        return 0;
    }
    const MvdExport exported = writeMvd(t);
    fuzzCheck(exported.losses.isEmpty(), "an imported Template loses something on export");
    Template back;
    fuzzCheck(!readMvd(exported.bytes, back), "export does not read back");
    fuzzCheck(back.PageCount == t.PageCount, "page count differs");
    fuzzCheck(sameAreas(t, back), "Areas differ");
    return 0;
}
