#pragma once

#include <QByteArray>
#include <QtGlobal>
#include <optional>

namespace mervak::bench {

// What the kernel says one process has used so far.
struct ProcessSample {
    qint64 cpuTicks = 0; // user + system time, in clock ticks (see ticksToSeconds)
    qint64 rssKiB = 0;   // resident memory (VmRSS), in KiB
};

// Reads /proc/PID/stat and /proc/PID/status; nothing when the process is gone.
std::optional<ProcessSample> sampleProcess(qint64 pid);

// utime + stime from the text of /proc/PID/stat. The program name in it may hold
// blanks and parentheses, so the fields are counted from its last ")".
std::optional<qint64> cpuTicksFromStat(const QByteArray& stat);

// The "VmRSS:" value, in KiB, from the text of /proc/PID/status.
std::optional<qint64> rssKiBFromStatus(const QByteArray& status);

double ticksToSeconds(qint64 ticks);

// How long the thread (or a process's main thread) `tid` has waited, runnable,
// for a CPU so far, in nanoseconds: the second field of /proc/TID/schedstat.
std::optional<qint64> runQueueWaitNs(qint64 tid);
std::optional<qint64> runQueueWaitFromSchedstat(const QByteArray& schedstat);

// A process with this parent and this program name (as /proc/PID/stat gives it,
// at most 15 characters); nothing when none or several match.
std::optional<qint64> findChildProcess(qint64 parent, const QByteArray& name);

} // namespace mervak::bench
