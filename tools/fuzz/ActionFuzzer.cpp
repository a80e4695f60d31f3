#include "PropertyCheck.h"
#include "action/ActionRunner.h"
#include "action/KeysPreview.h"
#include "action/dryrun/DryRunPlatform.h"

#include <QCoreApplication>
#include <QJsonDocument>
#include <QJsonObject>
#include <QTemporaryDir>
#include <cstddef>
#include <cstdint>

using namespace mervak;

namespace {

// Longer texts only repeat what shorter ones reach.
constexpr qsizetype kMaxTextLength = 2000;
// A bound for a runner that never ends; an ActionText ends long before.
constexpr int kMaxEventRounds = 200000;

QTemporaryDir* emptyFolder = nullptr;

void checkKeys(const QString& text) {
    const SendKeysResult parsed = SendKeysParser::parse(text);
    if (parsed.error) {
        fuzzCheck(parsed.strokes.isEmpty(), "a broken run has strokes");
        fuzzCheck(parsed.error->position >= 0 && parsed.error->position < text.size(),
                  "error position outside the run");
        return;
    }
    for (const KeyStroke& stroke : parsed.strokes) {
        const SendKeysResult back = SendKeysParser::parse(SendKeysParser::notation(stroke));
        fuzzCheck(back.strokes.size() == 1 && back.strokes[0] == stroke,
                  "a stroke's notation does not read back");
    }
    fuzzCheck(SendKeysParser::PlainKeys(text).size() <= text.size(), "PlainKeys grew");
}

// The editor marks a broken run at its "{", "(" or ")", counted in the whole text.
void checkPreview(const QString& text) {
    const std::optional<SendKeysError> error = KeysPreview::of(text).error;
    if (!error)
        return;
    const QChar expected = error->kind == SendKeysError::Kind::UnclosedGroup   ? u'('
                           : error->kind == SendKeysError::Kind::UnopenedGroup ? u')'
                                                                               : u'{';
    fuzzCheck(error->position >= 0 && error->position < text.size() &&
                  text[error->position] == expected,
              "the preview marks the wrong character");
}

// Every line is one JSON object naming its effect; the last is the state.
void checkLine(const QByteArray& line, QByteArray& last) {
    fuzzCheck(line.endsWith('\n') && line.count('\n') == 1, "not one line");
    QJsonParseError error;
    const QJsonDocument json = QJsonDocument::fromJson(line, &error);
    fuzzCheck(error.error == QJsonParseError::NoError && json.isObject(), "not a JSON object");
    fuzzCheck(json.object().value("effect").isString(), "no effect");
    last = line;
}

void runDry(const QString& text) {
    QByteArray last;
    DryRunPlatform platform([&last](const QByteArray& line) { checkLine(line, last); },
                            DryRunOptions{"Fuzz", "a{|RCW }", 43200.25});
    ActionState state;
    state.WorkingFolder = emptyFolder->path();
    state.TargetWindow = platform.target();
    state.speechAvailable = true;
    ActionRunner runner(
        platform.platform(), state, [] { return QStringLiteral("Fuzz"); },
        ActionRunner::noOwnWindows);
    runner.seedRandom(1);
    platform.watch(runner);
    runner.SendActionText(text);
    for (int i = 0; i < kMaxEventRounds && runner.isBusy(); ++i)
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    fuzzCheck(!runner.isBusy(), "the runner never ended");
    platform.writeState(state);
    fuzzCheck(last.startsWith("{\"effect\":\"state\""), "no state line at the end");
}

} // namespace

extern "C" int LLVMFuzzerInitialize(int* argc, char*** argv) {
    static QCoreApplication app(*argc, *argv);
    emptyFolder = new QTemporaryDir;
    return 0;
}

// Any text either fails to read as keys with a position or gives strokes that
// read back from their notation; its preview marks a broken run where it breaks; run on the dry-run
// backends it always ends, writing only JSON objects and the state last.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
    const QString text =
        QString::fromUtf8(reinterpret_cast<const char*>(data), static_cast<qsizetype>(size))
            .left(kMaxTextLength);
    checkKeys(text);
    checkPreview(text);
    runDry(text);
    return 0;
}
