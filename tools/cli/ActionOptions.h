#pragma once

#include "platform/PlatformChoice.h"

#include <QString>
#include <QStringList>
#include <cstdint>
#include <optional>

namespace mervak::cli {

// The command line of `mervak-cli action TEXT [options]`.
struct ActionOptions {
    QString text;                      // the ActionText
    bool dryRun = false;               // print the effects instead of causing them
    QString memoryRegister;            // --register: the register at the start
    std::optional<QString> clipboard;  // --clipboard: put on the clipboard first
    std::optional<std::uint64_t> seed; // --seed: repeatable TRIA picks
    QString targetTitle;               // --target: the window that gets the keys; "|" for none
    QString folder;     // --folder: WorkingFolder, absolute; the current folder by default
    int keyDelayMs = 0; // --key-delay: pause between two keys, milliseconds
    PlatformKind platform = PlatformKind::Automatic; // --platform: x11, wayland, portal
    bool help = false;                               // --help
};

constexpr int kMaxKeyDelayMs = 1000;

// Reads the arguments that follow "action"; "--" ends the options. Nothing,
// with the reason in `error`, when they are wrong.
std::optional<ActionOptions> parseActionOptions(const QStringList& arguments, QString* error);

QString actionHelp();

} // namespace mervak::cli
