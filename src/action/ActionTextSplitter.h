#pragma once

#include <QList>
#include <QString>

namespace mervak {

// One piece of an ActionText, in the order it runs.
struct ActionStep {
    enum class Kind {
        Keys,        // a run of keys in send-keys notation, never empty
        Command,     // a block from its "{|" up to, not including, its closing "}"
        Conditional, // the same for a block that begins with "{|SIM"
    };
    Kind kind = Kind::Keys;
    QString text;
    friend bool operator==(const ActionStep&, const ActionStep&) = default;
};

// Cuts an ActionText into key runs and command blocks. A block ends at the "}"
// that matches its "{|", counting the braces inside it; an unclosed block runs
// to the end of the text. "{|SIM" is recognised whatever its letter case, as
// every other keyword is.
class ActionTextSplitter {
public:
    static QList<ActionStep> split(const QString& actionText);

    // The index of the "}" closing the brace at `open`, or -1 when it is never closed.
    static qsizetype matchingBrace(const QString& text, qsizetype open);
};

} // namespace mervak
