#include "template/FileReferences.h"

#include <gtest/gtest.h>

namespace mervak {
namespace {

TEST(FileReferences, FindsTheFileArgumentsOfPasteAndSoundBlocks) {
    const struct {
        const char* text;
        QStringList names;
    } cases[] = {
        {"{|Enganxa a.bmp}", {"a.bmp"}},
        {"x{|SONA  b c.wav  }y{|Suena d.WAV}", {"b c.wav", "d.WAV"}},
        {"{|engancha e.txt}", {"e.txt"}},
        {"{|Pagina 2}{|Executa prog.exe}{|Carrega x.mvw}", {}},
        {"{|Enganxa {|RM }}", {}},
        {"{|SIM 5 {{|Sona si.WAV}} {}}", {"si.WAV"}},
        {"{|Sona}", {}},
        {"{|Sona }", {}},
        {"{|Sona x.wav", {}},
        {"{|Sona a|b.wav}", {}},
    };
    for (const auto& c : cases) {
        QStringList names;
        for (const FileReference& reference : fileReferences(QString::fromUtf8(c.text)))
            names.append(reference.name);
        EXPECT_EQ(names, c.names) << c.text;
    }
}

TEST(FileReferences, RewritesOnlyTheArguments) {
    const QString text = QStringLiteral("a{|Sona  x.wav }b{|Enganxa y.bmp}c");
    const auto references = fileReferences(text);
    EXPECT_EQ(withReferenceNames(text, references, {QStringLiteral("1.WAV"), QStringLiteral("22")}),
              QStringLiteral("a{|Sona  1.WAV }b{|Enganxa 22}c"));
}

} // namespace
} // namespace mervak
