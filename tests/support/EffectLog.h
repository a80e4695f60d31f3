#pragma once

#include <QString>
#include <QStringList>

namespace mervak::test {

// One ordered record of what every fake saw, so a test compares the effects of
// an ActionText across keyboard, windows, pointer, clipboard, sound and speech
// with one list of lines.
struct EffectLog {
    QStringList lines;
    void add(const QString& line) { lines.append(line); }
};

// Adds the line when the fake was given a log.
inline void logTo(EffectLog* log, const QString& line) {
    if (log)
        log->add(line);
}

} // namespace mervak::test
