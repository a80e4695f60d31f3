#include "action/ActionTextSplitter.h"

namespace mervak {

namespace {

const QString kBlockStart = QStringLiteral("{|");

ActionStep blockStep(const QString& block) {
    const bool conditional = block.left(5).toUpper() == QLatin1String("{|SIM");
    return {conditional ? ActionStep::Kind::Conditional : ActionStep::Kind::Command, block};
}

} // namespace

qsizetype ActionTextSplitter::matchingBrace(const QString& text, qsizetype open) {
    int unmatched = 0;
    for (qsizetype i = open + 1; i < text.size(); ++i) {
        if (text[i] == u'{') {
            ++unmatched;
        } else if (text[i] == u'}') {
            if (unmatched == 0)
                return i;
            --unmatched;
        }
    }
    return -1;
}

QList<ActionStep> ActionTextSplitter::split(const QString& actionText) {
    QList<ActionStep> steps;
    QString text = actionText;
    qsizetype pos = text.indexOf(kBlockStart);
    while (pos >= 0) {
        if (pos > 0)
            steps.append({ActionStep::Kind::Keys, text.left(pos)});
        const qsizetype end = matchingBrace(text, pos);
        steps.append(blockStep(end < 0 ? text.mid(pos) : text.mid(pos, end - pos)));
        text = end < 0 ? QString() : text.mid(end + 1);
        pos = text.indexOf(kBlockStart);
    }
    if (!text.isEmpty())
        steps.append({ActionStep::Kind::Keys, text});
    return steps;
}

} // namespace mervak
