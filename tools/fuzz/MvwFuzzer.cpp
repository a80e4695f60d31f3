#include "FuzzCheck.h"
#include "template/MvwReader.h"
#include "template/MvwWriter.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any bytes either fail with a message or give a Template that both writers
// write and the reader reads back to the same Areas (but for ClipFlag, which
// the version 2 layout does not hold).
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    Template t;
    if (const auto error = readMvw(bytes, t)) {
        fuzzCheck(error->message == 3 || error->message == 14, "unexpected message");
        return 0;
    }
    Template back;
    fuzzCheck(!readMvw(writeMvw(t), back), "version 2 file does not read back");
    fuzzCheck(sameAreas(t, back, ClipFlagStored::No), "version 2 Areas differ");
    fuzzCheck(writeMvw(back) == writeMvw(t), "version 2 bytes differ");
    Template saveAs;
    fuzzCheck(!readMvw(writeMvwSaveAs(t), saveAs), "save-as file does not read back");
    fuzzCheck(sameAreas(t, saveAs), "save-as Areas differ");
    return 0;
}
