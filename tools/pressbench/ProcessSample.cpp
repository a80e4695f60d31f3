#include "ProcessSample.h"

#include <QDir>
#include <QFile>
#include <QList>
#include <unistd.h>

namespace mervak::bench {

namespace {

// Fields of /proc/PID/stat after the program name: state is the first (field 3
// of the whole line), utime and stime are fields 14 and 15.
constexpr int kUtimeAfterName = 11;
constexpr int kStimeAfterName = 12;
constexpr int kParentAfterName = 1;

std::optional<QByteArray> readProcFile(qint64 pid, const char* name) {
    QFile file(QStringLiteral("/proc/%1/%2").arg(pid).arg(QLatin1String(name)));
    if (!file.open(QIODevice::ReadOnly))
        return std::nullopt;
    return file.readAll();
}

// The fields of /proc/PID/stat after the program name, and the name.
std::optional<std::pair<QByteArray, QList<QByteArray>>> splitStat(const QByteArray& stat) {
    const qsizetype nameStart = stat.indexOf('(');
    const qsizetype nameEnd = stat.lastIndexOf(')');
    if (nameStart < 0 || nameEnd < nameStart)
        return std::nullopt;
    return std::pair{stat.mid(nameStart + 1, nameEnd - nameStart - 1),
                     stat.mid(nameEnd + 1).simplified().split(' ')};
}

} // namespace

std::optional<qint64> cpuTicksFromStat(const QByteArray& stat) {
    const auto split = splitStat(stat);
    if (!split)
        return std::nullopt;
    const QList<QByteArray>& fields = split->second;
    if (fields.size() <= kStimeAfterName)
        return std::nullopt;
    bool userOk = false;
    bool systemOk = false;
    const qint64 user = fields[kUtimeAfterName].toLongLong(&userOk);
    const qint64 system = fields[kStimeAfterName].toLongLong(&systemOk);
    if (!userOk || !systemOk)
        return std::nullopt;
    return user + system;
}

std::optional<qint64> rssKiBFromStatus(const QByteArray& status) {
    for (const QByteArray& line : status.split('\n')) {
        if (!line.startsWith("VmRSS:"))
            continue;
        const QList<QByteArray> words = line.mid(6).simplified().split(' ');
        bool ok = false;
        const qint64 value = words.first().toLongLong(&ok);
        if (ok && words.size() == 2 && words[1] == "kB")
            return value;
        return std::nullopt;
    }
    return std::nullopt;
}

std::optional<ProcessSample> sampleProcess(qint64 pid) {
    const std::optional<QByteArray> stat = readProcFile(pid, "stat");
    const std::optional<QByteArray> status = readProcFile(pid, "status");
    if (!stat || !status)
        return std::nullopt;
    const std::optional<qint64> ticks = cpuTicksFromStat(*stat);
    const std::optional<qint64> rss = rssKiBFromStatus(*status);
    if (!ticks || !rss)
        return std::nullopt;
    return ProcessSample{*ticks, *rss};
}

double ticksToSeconds(qint64 ticks) {
    return static_cast<double>(ticks) / static_cast<double>(sysconf(_SC_CLK_TCK));
}

std::optional<qint64> runQueueWaitFromSchedstat(const QByteArray& schedstat) {
    const QList<QByteArray> fields = schedstat.simplified().split(' ');
    bool ok = false;
    const qint64 wait = fields.size() >= 2 ? fields[1].toLongLong(&ok) : 0;
    return ok ? std::optional(wait) : std::nullopt;
}

std::optional<qint64> runQueueWaitNs(qint64 tid) {
    const std::optional<QByteArray> schedstat = readProcFile(tid, "schedstat");
    return schedstat ? runQueueWaitFromSchedstat(*schedstat) : std::nullopt;
}

std::optional<qint64> findChildProcess(qint64 parent, const QByteArray& name) {
    std::optional<qint64> found;
    const QStringList entries = QDir(QStringLiteral("/proc")).entryList(QDir::Dirs);
    for (const QString& entry : entries) {
        bool numeric = false;
        const qint64 pid = entry.toLongLong(&numeric);
        const std::optional<QByteArray> stat = numeric ? readProcFile(pid, "stat") : std::nullopt;
        const auto split = stat ? splitStat(*stat) : std::nullopt;
        if (!split || split->first != name || split->second.size() <= kParentAfterName ||
            split->second[kParentAfterName].toLongLong() != parent)
            continue;
        if (found)
            return std::nullopt;
        found = pid;
    }
    return found;
}

} // namespace mervak::bench
