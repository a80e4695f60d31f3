#pragma once

#include <QString>
#include <optional>

namespace mervak {

// What a command block may do beyond keys, pages, mouse, memory and speech: the
// effects an untrusted Template needs consent for.
struct GuardedCommand {
    enum class Kind {
        StartProgram,  // EXECUTA: `target` is the command line
        WriteSettings, // REG: `target` is "ROOT\subkey\name"
        OpenTemplate,  // CARREGA: `target` is the Template file found
        ReadFile,      // SONA, ENGANXA, LLEGEIX and clip files: `target` is the file
    };
    Kind kind = Kind::StartProgram;
    QString keyword; // as the Template writes it, in upper case ("EXECUTA", "CARGA", "CLIP")
    QString target;
    friend bool operator==(const GuardedCommand&, const GuardedCommand&) = default;

    // Whether the command names a file, which is harmless inside the Template's folder.
    bool namesFile() const { return kind == Kind::OpenTemplate || kind == Kind::ReadFile; }

    // The guarded effect of a decoded block (upper-case keyword, argument with its
    // inner blocks expanded), its file resolved against `workingFolder` as the
    // interpreter resolves it; nothing for every other block, for a malformed REG,
    // a sound that would not play and a paste that reads no file.
    static std::optional<GuardedCommand> of(const QString& keyword, const QString& argument,
                                            const QString& workingFolder);
};

// Asked by the interpreter before it carries out a guarded command.
class CommandGuard {
public:
    virtual ~CommandGuard() = default;
    // Whether the open Template may carry out `command` now.
    virtual bool permits(const GuardedCommand& command) const = 0;
};

} // namespace mervak
