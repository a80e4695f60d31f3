// mervak-evemu-script: writes an evemu recording of a simulated tablet, touch
// screen, joystick or dance pad from a script of presses, for Mervak to replay
// as the device (its "Port" names the recording).

#include "EvemuScript.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <QFile>
#include <QRegularExpression>
#include <QTextStream>
#include <cstdio>

using namespace mervak::sim;

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral(
        "Writes an evemu recording from a script read from standard input, or given as\n"
        "arguments with commands separated by ';':\n"
        "  press X Y [MS]   tablet, touch, joystick: sheet point (1..119, Y upwards)\n"
        "  button N [MS]    dance pad, joystick: button N (from 1)\n"
        "  wait MS          a pause"));
    parser.addHelpOption();
    const QCommandLineOption deviceOption(QStringLiteral("device"),
                                          QStringLiteral("tablet, touch, joystick or dancepad."),
                                          QStringLiteral("kind"), QStringLiteral("tablet"));
    const QCommandLineOption outputOption(
        QStringLiteral("o"), QStringLiteral("Write to this file, not standard output."),
        QStringLiteral("file"));
    parser.addOptions({deviceOption, outputOption});
    parser.addPositionalArgument(QStringLiteral("script"), QStringLiteral("Script commands."));
    parser.process(app);

    EvemuScript::Device device{};
    if (!EvemuScript::deviceNamed(parser.value(deviceOption), &device)) {
        std::fprintf(stderr, "mervak-evemu-script: unknown device kind\n");
        return 2;
    }
    QString script = parser.positionalArguments().join(u' ');
    if (parser.positionalArguments().isEmpty())
        script = QTextStream(stdin).readAll();
    EvemuScript recording(device);
    int number = 0;
    for (const QString& line : script.split(QRegularExpression(QStringLiteral("[;\n]")))) {
        QString error;
        ++number;
        if (!recording.add(line, &error)) {
            std::fprintf(stderr, "mervak-evemu-script: command %d: %s\n", number,
                         error.toLocal8Bit().constData());
            return 2;
        }
    }
    QFile out;
    const bool opened = parser.isSet(outputOption) ? (out.setFileName(parser.value(outputOption)),
                                                      out.open(QIODevice::WriteOnly))
                                                   : out.open(stdout, QIODevice::WriteOnly);
    if (!opened || out.write(recording.recording()) < 0) {
        std::fprintf(stderr, "mervak-evemu-script: cannot write the recording\n");
        return 1;
    }
    return 0;
}
