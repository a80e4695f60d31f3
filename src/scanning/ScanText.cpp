#include "scanning/ScanText.h"

#include "action/ActionTextSplitter.h"
#include "action/CommandBlock.h"
#include "action/KeysPreview.h"

namespace mervak {

namespace {

bool isLevelKeyword(const QString& keyword) {
    return keyword == u"NIVELL" || keyword == u"NIVEL";
}

bool isSpeechKeyword(const QString& keyword) {
    return keyword == u"LLEGIR" || keyword == u"LEER";
}

// The preview's signs for named keys ("⏎", "⇥", "←").
bool isKeySign(QChar c) {
    return c.category() == QChar::Symbol_Other || (c.unicode() >= 0x2190 && c.unicode() <= 0x23FF);
}

// The preview marks everything else that is not a typed character between "⟨"
// "⟩" or "⟦" "⟧"; none of it reads aloud.
QString typedCharacters(const QString& preview) {
    QString text;
    int depth = 0;
    for (const QChar c : preview) {
        if (c == u'⟨' || c == u'⟦')
            ++depth;
        else if (c == u'⟩' || c == u'⟧')
            depth = std::max(0, depth - 1);
        else if (depth == 0 && !isKeySign(c))
            text += c;
    }
    return text.simplified();
}

} // namespace

std::optional<ScanLevel> scanLevelOf(const QString& actionText) {
    std::optional<ScanLevel> level;
    for (const ActionStep& step : ActionTextSplitter::split(actionText)) {
        if (step.kind != ActionStep::Kind::Command)
            continue;
        const DecodedBlock block = CommandBlock::decode(step.text);
        if (!isLevelKeyword(block.keyword))
            continue;
        if (block.argument == u"-1")
            level = ScanLevel::Previous;
        else if (block.argument == u"0")
            level = ScanLevel::Initial;
    }
    return level;
}

QString scanLevelBlock(ScanLevel level) {
    return level == ScanLevel::Previous ? QStringLiteral("{|Nivell -1}")
                                        : QStringLiteral("{|Nivell 0}");
}

QString scanLabel(const QString& actionText) {
    for (const ActionStep& step : ActionTextSplitter::split(actionText)) {
        if (step.kind != ActionStep::Kind::Command)
            continue;
        const DecodedBlock block = CommandBlock::decode(step.text);
        if (isSpeechKeyword(block.keyword) && !block.argument.isEmpty())
            return block.argument;
    }
    return typedCharacters(KeysPreview::of(actionText).text);
}

} // namespace mervak
