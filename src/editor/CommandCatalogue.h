#pragma once

#include <QList>
#include <QString>
#include <QStringList>

namespace mervak {

// The kind of file an inserted command names; None when it names none.
enum class CommandFile { None, Program, Sound, Picture, Text, Template, SpeechText };

// One entry of the menus that insert commands into an ActionText.
struct CommandEntry {
    QStringList menuPath; // Catalan captions: the submenus, then the entry itself
    QString text;         // what is inserted; "%1" stands for the chosen file's name
    QString placeholder;  // the part of `text` selected afterwards for typing over; may be empty
    CommandFile file = CommandFile::None;
    bool nextPage = false; // "%1" stands for the page after the one shown
};

// Every entry, in menu order: keys, wait, programs, sounds, speech, pasting,
// memory, choice, page and Template change, registry (where the system has
// one), closing, and the mouse.
const QList<CommandEntry>& commandEntries();

// The text an entry inserts, with the stored file name in place of "%1", or
// the page after `currentPage` for a page change.
QString commandText(const CommandEntry& entry, const QString& storedFileName = {},
                    int currentPage = 1);
// The part of that text selected afterwards for typing over.
QString commandPlaceholder(const CommandEntry& entry, int currentPage = 1);

// A chosen file's name as an ActionText stores it: relative to `workingFolder`
// (with "\" between folders, as stored names always had) when the file lies
// inside it, else the absolute path. A sound's extension is put in upper case,
// since only ".WAV" and ".MID" written so play.
QString storedFileName(const QString& chosenPath, const QString& workingFolder, CommandFile kind);

} // namespace mervak
