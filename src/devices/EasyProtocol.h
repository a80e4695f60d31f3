#pragma once

#include <QByteArray>
#include <QString>
#include <array>

namespace mervak {

// Commands go out as their text followed by a carriage return; the tablet ends
// every reply with a carriage return too.
constexpr char kEasyTerminator = '\r';

// One step of the set-up dialogue: a command and the text its reply must hold.
struct EasyExchange {
    const char* command;  // without the terminator
    const char* expected; // found anywhere in the reply, ignoring case
    bool checked;         // a reply without it ends the set-up
};

// The set-up dialogue, in order. Its first step is also the handshake that
// auto-detection uses.
constexpr std::array<EasyExchange, 6> kEasySetup{{
    {"@Z0", "#0", true},
    {"@I", "Anastasis/Smack", true},
    {"@S5=0", "#0", false},
    {"@S6=1", "#0", false},
    {"@S8=1", "#0", false},
    {"@S9=0", "#0", false},
}};

// Sent after the dialogue, with no reply awaited: the tablet starts streaming.
constexpr const char* kEasyStreamCommand = "@X";

QByteArray easyCommandBytes(const char* command);
bool replyHolds(const QString& reply, const char* expected);

} // namespace mervak
