#include "template/FileReferences.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(FileReferences, FindsTheFileArgumentsOfPasteAndSoundBlocks) {
    const std::pair<const char*, QStringList> cases[] = {
        {"{|Enganxa a.bmp}", {"a.bmp"}},
        {"x{|SONA  b c.wav  }y{|Suena d.WAV}", {"b c.wav", "d.WAV"}},
        {"{|engancha e.txt}", {"e.txt"}},
        {"{|Pagina 2}{|Executa prog.exe}{|Carrega x.mvw}", {}},
        {"{|Enganxa {|RM }}", {}},
        {"{|SIM 5 {{|Sona si.WAV}} {}}", {"si.WAV"}},
        {"{|Sona }", {}},
        {"{|Sona x.wav", {}},
        {"{|Sona a|b.wav}", {}},
    };
    for (const auto& [text, expected] : cases) {
        QStringList names;
        for (const FileReference& reference : fileReferences(QString::fromUtf8(text)))
            names.append(reference.name);
        EXPECT_EQ(names, expected) << text;
    }
}

} // namespace
} // namespace mervak
