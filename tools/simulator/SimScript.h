#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>
#include <optional>
#include <vector>

namespace mervak::sim {

// One script command:
//   press X Y [COUNT [INTERVAL_MS]]  COUNT packets "^" X Y, INTERVAL_MS apart
//                                    (defaults 1 and 20); X and Y are bytes 0..255.
//                                    The pen stays down until "lift".
//   hold X Y MS                      packets every 20 ms for MS milliseconds
//   lift | release                   one "no press" packet (both codes 120)
//   wait MS                          a pause
//   garbage N                        N random bytes in one write (N <= 65536)
//   quit                             end the simulator
// Blank lines and lines starting with "#" are no commands.
struct SimStep {
    enum class Kind { Packets, Wait, Garbage, Quit };
    Kind kind = Kind::Wait;
    QByteArray packet;  // Packets: the 3 bytes
    int count = 0;      // Packets: how many; Garbage: how many bytes
    int intervalMs = 0; // Packets: between two packets; Wait: the pause
};

struct SimParse {
    std::optional<SimStep> step; // none for a blank line, a comment or an error
    QString error;               // what is wrong with the line, in plain words
};

SimParse parseSimLine(const QString& line);

// Splits a script given on the command line into lines at ";" and newlines.
QStringList splitSimScript(const QString& script);

constexpr int kHoldIntervalMs = 20;
constexpr int kLiftCode = 120;
constexpr int kMaxGarbage = 65536;

} // namespace mervak::sim
