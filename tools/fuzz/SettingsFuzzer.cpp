#include "PropertyCheck.h"
#include "platform/PrivateProfile.h"
#include "platform/Settings.h"
#include "platform/TextEncoding.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

using namespace mervak;

namespace {

QString* iniPath = nullptr;

} // namespace

extern "C" int LLVMFuzzerInitialize(int*, char***) {
    // Every write is synced to disk: memory keeps the runs fast where it can.
    static QTemporaryDir folder(QDir(QStringLiteral("/dev/shm")).exists()
                                    ? QStringLiteral("/dev/shm/mervak-fuzz-XXXXXX")
                                    : QDir::tempPath() + QStringLiteral("/mervak-fuzz-XXXXXX"));
    iniPath = new QString(QDir(folder.path()).filePath(QStringLiteral("MERVAK.INI")));
    return 0;
}

// Any MERVAK.INI reads into settings; its sections list; one key written into it
// reads back and leaves the other keys of its section as they were.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QByteArray bytes(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size));
    QFile file(*iniPath);
    fuzzCheck(file.open(QIODevice::WriteOnly | QIODevice::Truncate) &&
                  file.write(bytes) == bytes.size(),
              "cannot write the input");
    file.close();
    const PrivateProfile ini(*iniPath);
    const Settings before = readSettings(ini);
    splitTrustedFolders(before.trustedFolders, QStringLiteral("/home/pupil"));
    PrivateProfile::sections(decodeFileText(bytes).text);
    fuzzCheck(writeLanguage(ini, Language::Spanish), "the key was not written");
    const Settings after = readSettings(ini);
    fuzzCheck(after.language == Language::Spanish, "the key written does not read back");
    fuzzCheck(after.model == before.model && after.closeWord == before.closeWord,
              "writing one key changed another");
    return 0;
}
