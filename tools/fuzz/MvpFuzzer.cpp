#include "FuzzCheck.h"
#include "template/PageModel.h"

#include <cstddef>
#include <cstdint>

using namespace mervak;

// Any bytes either fail with message 3 or give Areas that a saved model of
// their page reads back the same.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QList<Area> areas;
    if (const auto error = readPageModel(bytes, areas)) {
        fuzzCheck(error->message == 3, "unexpected message");
        return 0;
    }
    Template t;
    for (Area a : areas) {
        a.Page = 1;
        t.AppendArea(a);
    }
    QList<Area> back;
    fuzzCheck(!readPageModel(writePageModel(t, 1), back), "model does not read back");
    fuzzCheck(back.size() == areas.size(), "Area count differs");
    for (qsizetype i = 0; i < back.size(); ++i)
        fuzzCheck(back[i] == areas[i], "Area differs");
    return 0;
}
