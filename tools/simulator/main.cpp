// mervak-tablet-sim: a serial "EASY" tablet on a pseudo-terminal, driven by a
// script, for trying Mervak and testing it without hardware.

#include "PtyPair.h"
#include "SimScript.h"
#include "Simulator.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QSocketNotifier>
#include <cstdio>
#include <unistd.h>

using namespace mervak::sim;

namespace {

constexpr int kUsageError = 2;

const char* kScriptHelp =
    "Script commands, one per line on standard input, or separated by ';'\n"
    "in the arguments:\n"
    "  press X Y [COUNT [INTERVAL_MS]]   packets \"^\" X Y (X, Y: 0..255)\n"
    "  hold X Y MS                       packets every 20 ms for MS ms\n"
    "  lift | release                    a no-press packet\n"
    "  wait MS                           pause\n"
    "  garbage N                         N random bytes\n"
    "  quit                              close the terminal (once read) and end\n"
    "Packets and garbage wait until the host has sent \"@X\".";

void reportLineError(int number, const QString& line, const QString& error) {
    std::fprintf(stderr, "mervak-tablet-sim: line %d \"%s\": %s\n", number,
                 line.toLocal8Bit().constData(), error.toLocal8Bit().constData());
}

// Parses the whole script given as arguments; false at the first bad line.
bool parseArguments(const QStringList& words, std::vector<SimStep>* steps) {
    int number = 0;
    for (const QString& line : splitSimScript(words.join(u' '))) {
        const SimParse parsed = parseSimLine(line);
        ++number;
        if (!parsed.error.isEmpty()) {
            reportLineError(number, line, parsed.error);
            return false;
        }
        if (parsed.step)
            steps->push_back(*parsed.step);
    }
    return true;
}

// Feeds standard input to the simulator line by line; a bad line is reported
// and skipped. The terminal stays open at end of input until "quit".
void readStandardInput(Simulator& simulator) {
    auto* notifier = new QSocketNotifier(STDIN_FILENO, QSocketNotifier::Read, &simulator);
    auto pending = std::make_shared<QByteArray>();
    auto number = std::make_shared<int>(0);
    QObject::connect(notifier, &QSocketNotifier::activated, &simulator, [=, &simulator] {
        char buffer[4096];
        const ssize_t n = ::read(STDIN_FILENO, buffer, sizeof buffer);
        if (n <= 0) {
            notifier->setEnabled(false);
            return;
        }
        pending->append(buffer, n);
        qsizetype end;
        while ((end = pending->indexOf('\n')) >= 0) {
            const QString line = QString::fromLocal8Bit(pending->left(end));
            pending->remove(0, end + 1);
            const SimParse parsed = parseSimLine(line);
            ++*number;
            if (!parsed.error.isEmpty())
                reportLineError(*number, line, parsed.error);
            else if (parsed.step)
                simulator.enqueue(*parsed.step);
        }
    });
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCoreApplication::setApplicationName(QStringLiteral("mervak-tablet-sim"));
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("Simulated EASY serial tablet on a pseudo-terminal. Prints the "
                       "terminal's path first, then answers on it.\n\n%1")
            .arg(QLatin1String(kScriptHelp)));
    parser.addHelpOption();
    const QCommandLineOption idOption(QStringLiteral("id"),
                                      QStringLiteral("Identification answered to \"@I\"."),
                                      QStringLiteral("text"));
    const QCommandLineOption muteOption(QStringLiteral("mute"),
                                        QStringLiteral("Answer no command at all."));
    const QCommandLineOption seedOption(
        QStringLiteral("seed"), QStringLiteral("Seed of the garbage bytes."), QStringLiteral("n"));
    const QCommandLineOption verboseOption({QStringLiteral("v"), QStringLiteral("verbose")},
                                           QStringLiteral("Log the dialogue on standard error."));
    parser.addOptions({idOption, muteOption, seedOption, verboseOption});
    parser.addPositionalArgument(QStringLiteral("script"),
                                 QStringLiteral("Script commands; without them, standard input."));
    parser.process(app);

    Simulator::Options options;
    options.mute = parser.isSet(muteOption);
    options.verbose = parser.isSet(verboseOption);
    if (parser.isSet(idOption))
        options.identification = parser.value(idOption).toLocal8Bit();
    if (parser.isSet(seedOption)) {
        bool ok = false;
        options.seed = parser.value(seedOption).toUInt(&ok);
        if (!ok) {
            std::fprintf(stderr, "mervak-tablet-sim: --seed needs a whole number\n");
            return kUsageError;
        }
    }
    std::vector<SimStep> steps;
    if (!parseArguments(parser.positionalArguments(), &steps))
        return kUsageError;

    PtyPair pty;
    QString error;
    if (!pty.create(&error)) {
        std::fprintf(stderr, "mervak-tablet-sim: %s\n", error.toLocal8Bit().constData());
        return 1;
    }
    std::printf("%s\n", pty.slavePath().toLocal8Bit().constData());
    std::fflush(stdout);

    Simulator simulator(pty, options);
    QObject::connect(&simulator, &Simulator::quitRequested, &app, &QCoreApplication::quit);
    for (const SimStep& step : steps)
        simulator.enqueue(step);
    if (parser.positionalArguments().isEmpty())
        readStandardInput(simulator);
    return app.exec();
}
