// Press-to-first-audio of LLEGIR through the program's own speech stack (the
// ActionText runner, espeak-ng, the QAudioSink output) on a private PulseAudio
// null sink: from handing "{|Llegir bon dia}" to the runner to the first loud
// sample read back from the sink's monitor. Also the time of the engine's read
// alone and the memory the audio stack adds.
//   mervak-audio-bench [--presses N]   (default 100)
#include "MonitorRecorder.h"
#include "action/ActionRunner.h"
#include "action/Speech.h"
#include "action/dryrun/DryRunPlatform.h"
#include "platform/audio/AudioSound.h"
#include "platform/audio/EspeakEngine.h"
#include "pressbench/LatencySummary.h"

#include <QCoreApplication>
#include <QFile>
#include <QProcess>
#include <QTemporaryDir>
#include <QTextStream>
#include <csignal>
#include <cstdio>

namespace mervak::bench {
namespace {

using Clock = MonitorRecorder::Clock;

constexpr int kDefaultPresses = 100;
constexpr int kGiveUpMs = 2000;
constexpr int kQuietMs = 150;
const char kMidi[] = "MThd\0\0\0\6\0\0\0\1\0\140MTrk\0\0\0\24\0\220\74\144\140\200\74\100"
                     "\0\220\100\144\140\200\100\100\0\377\57\0";

long residentKiB() {
    QFile status(QStringLiteral("/proc/self/status"));
    if (!status.open(QIODevice::ReadOnly))
        return 0;
    for (const QByteArray& line : status.readAll().split('\n'))
        if (line.startsWith("VmRSS:"))
            return line.mid(6).trimmed().split(' ').first().toLong();
    return 0;
}

double microseconds(Clock::duration duration) {
    return std::chrono::duration<double, std::micro>(duration).count();
}

// Runs the event loop until `done` or kGiveUpMs; false on giving up.
bool spinUntil(const std::function<bool()>& done) {
    const auto deadline = Clock::now() + std::chrono::milliseconds(kGiveUpMs);
    while (!done()) {
        if (Clock::now() > deadline)
            return false;
        QCoreApplication::processEvents(QEventLoop::AllEvents, 1);
    }
    return true;
}

void print(const char* what, const LatencySummary& s) {
    std::printf("%-34s n=%zu p50=%.2f ms p90=%.2f ms p99=%.2f ms max=%.2f ms\n", what, s.count,
                s.p50 / 1000, s.p90 / 1000, s.p99 / 1000, s.max / 1000);
}

int run(int presses) {
    MonitorRecorder recorder;
    QString error;
    if (!spinUntil([&] { return recorder.open("nullsink.monitor", &error); })) {
        std::fprintf(stderr, "no private PulseAudio: %s\n", qPrintable(error));
        return 1;
    }
    const long before = residentKiB();
    AudioOutput audio;
    MidiPlayer midi(audio);
    AudioSound sound(audio, midi);
    EspeakEngine engine(audio);
    Speech speech(engine);
    if (!speech.StartSpeech()) {
        std::fprintf(stderr, "espeak-ng has no Catalan or Spanish voice\n");
        return 1;
    }
    DryRunPlatform dryRun([](const QByteArray&) {}, DryRunOptions{});
    const ActionPlatform p = dryRun.platform();
    ActionState state;
    state.speechAvailable = true;
    ActionRunner runner(
        {p.keyboard, p.windows, p.pointer, p.clipboard, p.launcher, sound, speech, p.clock,
         p.registry},
        state, [] { return QStringLiteral("|"); }, ActionRunner::noOwnWindows);
    std::vector<double> latencies;
    for (int press = 0; press <= presses; ++press) {
        spinUntil([&] { return !engine.speaking() && recorder.quietFor(kQuietMs); });
        recorder.arm();
        const Clock::time_point pressed = Clock::now();
        runner.SendActionText(QStringLiteral("{|Llegir bon dia}"));
        Clock::time_point heard;
        if (!spinUntil([&] { return recorder.heard(&heard); }))
            std::fprintf(stderr, "press %d was never heard\n", press);
        else if (press > 0) // the first press loads the voice's dictionary
            latencies.push_back(microseconds(heard - pressed));
    }
    const long withSpeech = residentKiB();
    std::vector<double> reads;
    for (int i = 0; i < presses; ++i) {
        const Clock::time_point start = Clock::now();
        engine.read(QStringLiteral("bon dia"));
        reads.push_back(microseconds(Clock::now() - start));
        engine.stop();
    }
    QTemporaryDir folder;
    QFile file(folder.filePath(QStringLiteral("M.MID")));
    file.open(QIODevice::WriteOnly);
    file.write(kMidi, sizeof kMidi - 1);
    file.close();
    sound.play(file.fileName(), SoundOutput::Kind::Midi, [](const QString&) {});
    spinUntil([&] { return !midi.playing(); });
    const long withMidi = residentKiB();

    print("press to first audio (LLEGIR)", summarize(latencies));
    print("engine read of \"bon dia\"", summarize(reads));
    std::printf("memory: audio output and espeak-ng +%ld KiB; with fluidsynth and %s +%ld KiB\n",
                withSpeech - before, qPrintable(MidiPlayer::soundFont()), withMidi - before);
    std::fflush(stdout);
    return 0;
}

// `--presses N` from the command line, else kDefaultPresses.
int presses(const QStringList& arguments) {
    const qsizetype at = arguments.indexOf(QStringLiteral("--presses"));
    const int asked = at >= 0 && at + 1 < arguments.size() ? arguments[at + 1].toInt() : 0;
    return asked > 0 ? asked : kDefaultPresses;
}

} // namespace
} // namespace mervak::bench

// The server ends after the application, whose sound service would otherwise
// see it vanish while still connected.
int main(int argc, char** argv) {
    QTemporaryDir runtime;
    QFile::setPermissions(runtime.path(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    qputenv("XDG_RUNTIME_DIR", runtime.path().toLocal8Bit());
    qint64 pulse = 0;
    int status = 1;
    {
        QCoreApplication app(argc, argv);
        QProcess server;
        server.setProgram(QStringLiteral("pulseaudio"));
        server.setArguments({"-n", "--daemonize=no", "--exit-idle-time=-1", "-L",
                             "module-null-sink sink_name=nullsink", "-L",
                             "module-native-protocol-unix"});
        server.setStandardOutputFile(QProcess::nullDevice());
        server.setStandardErrorFile(QProcess::nullDevice());
        if (server.startDetached(&pulse))
            status = mervak::bench::run(mervak::bench::presses(app.arguments()));
    }
    if (pulse > 0)
        ::kill(static_cast<pid_t>(pulse), SIGTERM);
    return status;
}
