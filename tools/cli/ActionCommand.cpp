#include "ActionCommand.h"

#include "ActionOptions.h"
#include "CliText.h"
#include "SelectionWatch.h"
#include "action/ActionRunner.h"
#include "action/Speech.h"
#include "action/dryrun/DryRunPlatform.h"
#include "platform/NoRegistry.h"
#include "platform/PrivateProfile.h"
#include "platform/Settings.h"
#include "platform/audio/AudioSound.h"
#include "platform/audio/EspeakEngine.h"
#include "platform/backends/PlatformBackends.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtProgramLauncher.h"
#include "platform/qt/SystemClock.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QTextStream>
#include <QTimer>
#include <cstdio>
#include <functional>

namespace mervak::cli {

namespace {

// After a paste the target asks this process for the clipboard's content, which
// goes when the process ends: it stays until the target has asked and then been
// quiet for kPasteQuietMs, or kPasteServeMs in all.
constexpr int kPasteQuietMs = 200;
constexpr int kPasteServeMs = 5000;
// How often the end of speech and music is looked for.
constexpr int kSoundPollMs = 20;

QTextStream& errors() {
    static QTextStream stream(stderr);
    return stream;
}

ActionState startState(const ActionOptions& options) {
    ActionState state;
    state.memoryRegister = options.memoryRegister;
    state.WorkingFolder = options.folder;
    return state;
}

void waitUntilIdle(ActionRunner& runner) {
    if (!runner.isBusy())
        return;
    QEventLoop loop;
    QObject::connect(&runner, &ActionRunner::busyChanged, &loop, [&loop](bool busy) {
        if (!busy)
            loop.quit();
    });
    loop.exec();
}

// Runs the event loop at least once, so that the problems of sounds that could
// not play, told from the event loop, are told before the end.
void waitWhile(const std::function<bool()>& busy) {
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop, [&loop, &busy] {
        if (!busy())
            loop.quit();
    });
    poll.start(kSoundPollMs);
    loop.exec();
}

// Runs the ActionText to its end, and then until `sounding` is false; returns how
// many problems it reported.
int execute(const ActionPlatform& platform, ActionState& state, const ActionOptions& options,
            const std::function<void(ActionRunner&)>& watch,
            const std::function<bool()>& sounding) {
    const QString title = options.targetTitle;
    ActionRunner runner(
        platform, state, [title] { return title; }, ActionRunner::noOwnWindows);
    runner.setLanguage(language());
    if (options.seed)
        runner.seedRandom(*options.seed);
    int problems = 0;
    QObject::connect(&runner, &ActionRunner::problem, [&problems](const QString& message) {
        errors() << message << '\n';
        errors().flush();
        ++problems;
    });
    watch(runner);
    runner.SendActionText(options.text);
    waitUntilIdle(runner);
    waitWhile(sounding);
    return problems;
}

int dryRun(int argc, char** argv, const ActionOptions& options) {
    QCoreApplication app(argc, argv);
    DryRunPlatform platform(
        [](const QByteArray& line) { std::fwrite(line.constData(), 1, line.size(), stdout); },
        DryRunOptions{options.targetTitle, options.clipboard.value_or(QString()), std::nullopt});
    ActionState state = startState(options);
    state.TargetWindow = platform.target();
    state.speechAvailable = true;
    const int problems = execute(
        platform.platform(), state, options,
        [&platform](ActionRunner& runner) { platform.watch(runner); }, [] { return false; });
    platform.writeState(state);
    std::fflush(stdout);
    return problems > 0 ? kFailure : kSuccess;
}

WindowId targetWindow(WindowSystem& windows, const QString& title) {
    if (title.isEmpty())
        return windows.activeWindow();
    return title == u"|" ? kNoWindow : windows.findByTitle(title);
}

// The backends MERVAK.INI and --platform choose; the portal's consent is kept in
// MERVAK.INI too.
std::unique_ptr<PlatformBackends> connectBackends(const ActionOptions& options,
                                                  const QString& homeFolder) {
    const PrivateProfile settingsFile(settingsFilePath(homeFolder));
    const Settings settings = readSettings(settingsFile);
    PlatformBackends::Options choice;
    choice.kind = options.platform;
    choice.setting = settings.platform;
    choice.portalToken = settings.portalRestoreToken;
    choice.keepPortalToken = [settingsFile](const QString& token) {
        QString error;
        if (!writePortalRestoreToken(settingsFile, token, &error))
            errors() << error << '\n';
    };
    return PlatformBackends::create(choice);
}

// Waits until the backend can type: the desktop may be asking the teacher.
void waitUntilReady(PlatformBackends& backends) {
    bool ready = false;
    QEventLoop loop;
    backends.whenReady([&ready, &loop] {
        ready = true;
        loop.quit();
    });
    if (!ready)
        loop.exec();
}

int realRun(int argc, char** argv, const ActionOptions& options, const QString& homeFolder) {
    const PlatformKind kind = choosePlatform(
        options.platform, readSettings(PrivateProfile(settingsFilePath(homeFolder))).platform,
        qEnvironmentVariable("WAYLAND_DISPLAY"), qEnvironmentVariable("XDG_SESSION_TYPE"));
    if (kind == PlatformKind::X11 && qEnvironmentVariable("DISPLAY").isEmpty()) {
        errors() << text(QStringLiteral("No es pot obrir la pantalla X; sense pantalla, feu servir "
                                        "--dry-run. DISPLAY="))
                 << '"' << qEnvironmentVariable("DISPLAY") << "\"\n";
        return kFailure;
    }
    // The clipboard is X11's (or XWayland's) whatever Qt would pick; a Wayland
    // session without XWayland has none that other programs share.
    qputenv("QT_QPA_PLATFORM", qEnvironmentVariable("DISPLAY").isEmpty() ? "offscreen" : "xcb");
    QGuiApplication app(argc, argv);
    std::unique_ptr<PlatformBackends> backends = connectBackends(options, homeFolder);
    if (const QString notice = backends->notice(language()); !notice.isEmpty())
        errors() << notice << '\n';
    waitUntilReady(*backends);
    SelectionWatch selection;
    backends->setKeyDelayMs(options.keyDelayMs);
    KeyboardOutput& keyboard = backends->keyboard();
    WindowSystem& windows = backends->windows();
    PointerOutput& pointer = backends->pointer();
    QtClipboard clipboard;
    QtProgramLauncher launcher;
    SystemClock clock;
    AudioOutput audio;
    MidiPlayer midi(audio);
    AudioSound sound(audio, midi);
    sound.setLanguage(language());
    EspeakEngine engine(audio);
    engine.setMessageLanguage(language());
    Speech speech(engine);
    NoRegistry registry;
    if (options.clipboard)
        clipboard.setText(*options.clipboard);
    ActionState state = startState(options);
    // Starting the speech engine reads every voice it has: a text of keys alone,
    // with no command that could speak, starts sooner without it.
    state.speechAvailable = options.text.contains(QStringLiteral("{|")) && speech.StartSpeech();
    state.TargetWindow = targetWindow(windows, options.targetTitle);
    bool pasted = false;
    const int problems = execute(
        {keyboard, windows, pointer, clipboard, launcher, sound, speech, clock, registry}, state,
        options,
        [&pasted](ActionRunner& runner) {
            QObject::connect(&runner, &ActionRunner::pasteStarted, [&pasted] { pasted = true; });
        },
        [&engine, &midi] { return engine.speaking() || midi.playing(); });
    if (pasted)
        selection.serve(kPasteQuietMs, kPasteServeMs);
    // The keyboard map is the user's again before the process ends, once the target
    // can have decoded the last keys typed on borrowed keycodes.
    QEventLoop restoring;
    keyboard.restoreLayout([&restoring] { restoring.quit(); });
    restoring.exec();
    return problems > 0 ? kFailure : kSuccess;
}

} // namespace

int runActionCommand(int argc, char** argv, const QString& homeFolder) {
    QStringList arguments;
    for (int i = 2; i < argc; ++i)
        arguments.append(QString::fromLocal8Bit(argv[i]));
    QString error;
    const auto options = parseActionOptions(arguments, &error);
    if (!options) {
        errors() << error << '\n';
        return kUsage;
    }
    if (options->help) {
        QTextStream(stdout) << actionHelp();
        return kSuccess;
    }
    return options->dryRun ? dryRun(argc, argv, *options)
                           : realRun(argc, argv, *options, homeFolder);
}

} // namespace mervak::cli
