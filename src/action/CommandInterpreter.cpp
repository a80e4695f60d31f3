#include "action/CommandInterpreter.h"

#include "action/CommandBlock.h"
#include "action/CommandFiles.h"
#include "action/ConditionalBlock.h"
#include "action/MemoryRegister.h"
#include "platform/Checked16.h"
#include "platform/NumericText.h"
#include "platform/PathResolver.h"
#include "platform/TextEncoding.h"

#include <QFile>
#include <QFileInfo>
#include <algorithm>
#include <array>
#include <limits>
#include <optional>

namespace mervak {

namespace {

enum class Command {
    Page,
    Registry,
    TypeClipboard,
    Subtract,
    Add,
    TypeMemory,
    ClearMemory,
    Choose,
    Mouse,
    Load,
    Play,
    Wait,
    Launch,
    Paste,
    Level,
    Close,
    Speak,
    ReadFile,
};

struct Keyword {
    const char* name;
    Command command;
};

constexpr std::array kKeywords = {
    Keyword{"PAGINA", Command::Page},
    Keyword{"REG", Command::Registry},
    Keyword{"RCW", Command::TypeClipboard},
    Keyword{"M-", Command::Subtract},
    Keyword{"M+", Command::Add},
    Keyword{"RM", Command::TypeMemory},
    Keyword{"CM", Command::ClearMemory},
    Keyword{"TRIA", Command::Choose},
    Keyword{"ESCOGE", Command::Choose},
    Keyword{"MOUSE", Command::Mouse},
    Keyword{"CARREGA", Command::Load},
    Keyword{"CARGA", Command::Load},
    Keyword{"SONA", Command::Play},
    Keyword{"SUENA", Command::Play},
    Keyword{"ESPERA", Command::Wait},
    Keyword{"EXECUTA", Command::Launch},
    Keyword{"ENGANXA", Command::Paste},
    Keyword{"ENGANCHA", Command::Paste},
    Keyword{"NIVELL", Command::Level},
    Keyword{"TANCAR", Command::Close},
    Keyword{"CERRAR", Command::Close},
    Keyword{"LLEGIR", Command::Speak},
    Keyword{"LEER", Command::Speak},
    Keyword{"LLEGEIX", Command::ReadFile},
    Keyword{"LEE", Command::ReadFile},
};

std::optional<Command> commandOf(const QString& keyword) {
    for (const Keyword& entry : kKeywords)
        if (keyword == QLatin1String(entry.name))
            return entry.command;
    return std::nullopt;
}

// Commands that do nothing at all without an argument.
bool needsArgument(Command command) {
    switch (command) {
    case Command::TypeClipboard:
    case Command::TypeMemory:
    case Command::ClearMemory:
    case Command::Wait:
    case Command::Level:
    case Command::Close:
        return false;
    default:
        return true;
    }
}

CommandResult followUp(CommandFollowUp::Kind kind, const QString& text = {}) {
    return {{CommandFollowUp{kind, text}}, {}};
}

} // namespace

CommandInterpreter::CommandInterpreter(ActionState& state, const ActionPlatform& platform,
                                       RandomChoice& random)
    : state_(state), platform_(platform), random_(random) {}

CommandResult CommandInterpreter::failure(ActionProblem problem, const QString& argument) const {
    return {{}, actionMessage(language_, problem, {argument})};
}

CommandResult CommandInterpreter::ExecuteCommand(const QString& block) {
    try {
        const DecodedBlock decoded = CommandBlock::decode(block);
        const auto argument = CommandBlock::expandArgument(
            decoded.argument, [this](const QString& keyword, const QString& inner) {
                return innerValue(keyword, inner);
            });
        if (!argument)
            return {};
        return carryOut(decoded.keyword, *argument);
    } catch (const Overflow16&) {
        return failure(ActionProblem::NumberOutOfRange, block);
    }
}

CommandResult CommandInterpreter::executeConditional(const QString& block) {
    const ConditionalBlock conditional = ConditionalBlock::parse(block);
    const QString& branch = conditional.condition == state_.memoryRegister ? conditional.whenEqual
                                                                           : conditional.otherwise;
    if (branch.isEmpty())
        return {};
    return followUp(CommandFollowUp::Kind::SendText, branch);
}

QString CommandInterpreter::innerValue(const QString& keyword, const QString& argument) {
    if (keyword == u"RCW")
        return platform_.clipboard.text();
    if (keyword == u"RM")
        return state_.memoryRegister;
    if (keyword == u"TRIA")
        return random_.choose(argument);
    return keyword;
}

// The rest of the ActionText goes on; the status line and the log say what was left out.
CommandResult CommandInterpreter::skipped(const GuardedCommand& command) const {
    const CommandResult result =
        failure(ActionProblem::NotTrusted, {command.keyword + u' ' + command.target});
    qInfo("%s", qPrintable(result.problem));
    return result;
}

CommandResult CommandInterpreter::carryOut(const QString& keyword, const QString& argument) {
    const auto command = commandOf(keyword);
    if (!command || (argument.isEmpty() && needsArgument(*command)))
        return {};
    if (guard_ != nullptr) {
        const auto guarded = GuardedCommand::of(keyword, argument, state_.WorkingFolder);
        if (guarded && !guard_->permits(*guarded))
            return skipped(*guarded);
    }
    switch (*command) {
    case Command::Page:
        return setPage(argument);
    case Command::Registry:
        writeRegistry(argument);
        return {};
    case Command::TypeClipboard:
        return followUp(CommandFollowUp::Kind::SendText, platform_.clipboard.text());
    case Command::Subtract:
        state_.memoryRegister = MemoryRegister::subtracted(state_.memoryRegister, argument);
        return {};
    case Command::Add:
        state_.memoryRegister = MemoryRegister::added(state_.memoryRegister, argument);
        return {};
    case Command::TypeMemory:
        return followUp(CommandFollowUp::Kind::SendText, state_.memoryRegister);
    case Command::ClearMemory:
        state_.memoryRegister.clear();
        return {};
    case Command::Choose:
        return followUp(CommandFollowUp::Kind::SendText, random_.choose(argument));
    case Command::Mouse:
        return followUp(CommandFollowUp::Kind::Mouse, argument);
    case Command::Load:
        return load(argument);
    case Command::Play:
        return play(argument);
    case Command::Wait:
        return wait(argument);
    case Command::Launch:
        return launch(argument);
    case Command::Paste:
        return paste(argument);
    case Command::Level:
        return {};
    case Command::Close:
        state_.closeRequested = true;
        return followUp(CommandFollowUp::Kind::Close);
    case Command::Speak:
        return speak(argument);
    case Command::ReadFile:
        return readFile(argument);
    }
    return {};
}

CommandResult CommandInterpreter::setPage(const QString& argument) {
    state_.pendingPage = roundToInt16(Val(argument));
    CommandResult result = followUp(CommandFollowUp::Kind::PageSet);
    result.followUps.first().count = *state_.pendingPage;
    return result;
}

// "[ROOT\subkey]name=value"; anything else is left alone. Writes fail quietly.
void CommandInterpreter::writeRegistry(const QString& argument) {
    if (const auto parts = CommandBlock::registryArgument(argument))
        WriteRegistryValue(platform_.registry, parts->root, parts->subkey, parts->name,
                           parts->value);
}

// Moves WorkingFolder to the Template's folder; the runner asks the application
// to open it once the ActionText ends. The process's own current folder is left
// alone: every file is resolved against WorkingFolder.
CommandResult CommandInterpreter::load(const QString& argument) {
    const QString found = CommandFiles::findTemplate(argument, state_.WorkingFolder);
    if (found.isEmpty())
        return failure(
            ActionProblem::FileNotFound,
            toLocalPath(state_.WorkingFolder + u'\\' + CommandBlock::trimBlanks(argument)));
    state_.WorkingFolder = QFileInfo(found).absolutePath();
    state_.templateToOpen = found;
    return {};
}

// Only names ending in upper-case ".WAV" or ".MID" play: the test is
// case-sensitive on purpose.
CommandResult CommandInterpreter::play(const QString& argument) {
    SoundOutput::Kind kind;
    if (argument.endsWith(QLatin1String(".WAV")))
        kind = SoundOutput::Kind::Wave;
    else if (argument.endsWith(QLatin1String(".MID")))
        kind = SoundOutput::Kind::Midi;
    else
        return {};
    CommandResult result = followUp(CommandFollowUp::Kind::Sound,
                                    CommandFiles::resolve(argument, state_.WorkingFolder));
    result.followUps.first().sound = kind;
    return result;
}

// One flush, then one more while the count, less one after each, is 1 or more.
// Counting down from -32768 overflows after the first flush.
CommandResult CommandInterpreter::wait(const QString& argument) {
    const int16_t count = roundToInt16(Val(argument));
    CommandResult result = followUp(CommandFollowUp::Kind::Flush);
    result.followUps.first().count = std::max<int>(1, count);
    if (count == std::numeric_limits<int16_t>::min())
        result.problem = actionMessage(language_, ActionProblem::WaitOutOfRange, {argument});
    return result;
}

CommandResult CommandInterpreter::launch(const QString& argument) {
    if (argument.isEmpty())
        return {};
    const auto processId = platform_.launcher.start(argument, state_.WorkingFolder);
    if (!processId)
        return failure(ActionProblem::ProgramNotStarted, argument);
    state_.launchedPrograms += QString::number(*processId, 16).toUpper() + u' ';
    return {};
}

// The file goes onto the clipboard, then the runner pastes it into the target.
// Other extensions paste whatever the cleared clipboard holds: nothing.
CommandResult CommandInterpreter::paste(const QString& argument) {
    platform_.clipboard.clear();
    const QString path = CommandFiles::resolve(argument, state_.WorkingFolder);
    const QString extension = argument.right(3).toUpper();
    if (extension == u"WMF" || extension == u"BMP" || extension == u"GIF" || extension == u"JPG") {
        if (!platform_.clipboard.setPictureFromFile(path))
            return failure(ActionProblem::FileNotRead, path);
    } else if (extension == u"TXT") {
        QFile file(path);
        if (!file.open(QIODevice::ReadOnly))
            return failure(ActionProblem::FileNotRead, path);
        platform_.clipboard.setText(decodeFileText(file.readAll()).text);
    }
    return followUp(CommandFollowUp::Kind::Paste);
}

CommandResult CommandInterpreter::speak(const QString& argument) {
    if (!state_.speechAvailable)
        return {};
    QString text = argument;
    text.replace(u'.', u';');
    return {{}, platform_.speech.speak(text, state_.speakerNumber)};
}

// "/I:c /L:1 /V:100 /F:name": the file after "/F:" is made absolute; a file that
// is not there is said in the status line and the ActionText goes on.
CommandResult CommandInterpreter::readFile(const QString& argument) {
    if (!state_.speechAvailable)
        return {};
    const QString marker = QStringLiteral("/F:");
    const qsizetype at = argument.indexOf(marker, 0, Qt::CaseInsensitive);
    if (at < 0)
        return {{}, platform_.speech.readFile(argument)};
    const QString file =
        CommandFiles::resolve(argument.mid(at + marker.size()), state_.WorkingFolder);
    if (!QFileInfo(file).isFile())
        return failure(ActionProblem::FileNotFound, file);
    return {{}, platform_.speech.readFile(argument.left(at + marker.size()) + file)};
}

} // namespace mervak
