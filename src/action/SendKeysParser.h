#pragma once

#include "platform/KeyStroke.h"

#include <QString>
#include <optional>

namespace mervak {

// Where and why a run of keys could not be read; actionMessage() words it.
struct SendKeysError {
    enum class Kind {
        UnknownKeyName, // `detail` is the text between the braces
        BadRepeatCount, // `detail` is the text between the braces
        UnclosedBrace,
        UnclosedGroup, // a "(" never closed
        UnopenedGroup, // a ")" with no "(" before it
    };
    Kind kind = Kind::UnclosedBrace;
    qsizetype position = 0; // 0-based index into the run, in UTF-16 units
    QString detail;
    friend bool operator==(const SendKeysError&, const SendKeysError&) = default;
};

struct SendKeysResult {
    KeyStrokes strokes;                 // empty whenever `error` is set
    std::optional<SendKeysError> error; // a malformed run types nothing
};

// Reads the send-keys notation: plain characters; "+", "^", "%" (Shift, Ctrl,
// Alt) on the next key or on a parenthesised group; "~" for Enter; braced key
// names ("{ENTER}", "{F5}"), case-insensitive; braced single characters
// ("{+}", "{{}", "{}}"); repeat counts ("{LEFT 3}", "{a 5}", at most 32767).
// A line break (CR LF, CR or LF) types Enter and a tab character Tab.
// A modifier with no key after it is dropped.
// Errors: an unknown key name, a bad repeat count, an unclosed brace (at its
// "{"), an unclosed parenthesis (at its "("), a ")" with no "(".
class SendKeysParser {
public:
    static SendKeysResult parse(const QString& keys);

    // The characters of a run that would be typed literally, for display: "{"
    // skips to just after the next "}"; "%", "^" or "+" skips itself and the
    // character after it, and one more when that one is also "%", "^" or "+".
    static QString PlainKeys(const QString& keys);

    // One stroke written back in the notation ("a", "+a", "^{ENTER}", "{+}"),
    // modifiers in the order Shift, Ctrl, Alt: for logs and dry runs. It reads
    // back as the same stroke.
    static QString notation(const KeyStroke& stroke);
};

} // namespace mervak
