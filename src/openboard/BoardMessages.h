#pragma once

#include "platform/Language.h"

#include <QList>
#include <QString>

namespace mervak {

// Why a board file could not be read or written. `file` is the file (or the
// entry inside the .obz) and `where` the place inside it: a JSON location such
// as "buttons[2].id", or a byte offset for text that is not JSON.
struct BoardError {
    enum class Kind {
        CannotRead,      // detail: the system's reason
        CannotWrite,     // detail: the system's reason
        NotJson,         // detail: the parser's reason
        NotObject,       // a value that must be an object is not
        MissingField,    // where: the field
        WrongType,       // where: the field; detail: the type it must have
        BadNumber,       // where: the field; detail: the value
        GridTooLarge,    // where: the grid; detail: rows x columns
        NotZip,          // detail: libzip's reason
        NoBoard,         // a package with no .obf inside
        MissingEntry,    // a path the manifest or a board names is not in the package
        UnknownFileType, // neither .obf nor .obz
        TooManyAreas,    // more buttons than a Template holds
    };
    Kind kind = Kind::CannotRead;
    QString file;
    QString where;
    QString detail;
    friend bool operator==(const BoardError&, const BoardError&) = default;
};

// Something that did not come across, said once the import or export is done.
struct BoardNote {
    enum class Kind {
        PictureOnline,     // subject: the button's label; detail: the URL
        PictureSymbolSet,  // detail: the symbol set's file
        PictureMissing,    // detail: the image id or path that names nothing
        PictureUnreadable, // detail: what is wrong with its data
        SoundNotCarried,   // subject: the button's label
        LinkOutside,       // subject: the label; detail: the board it leads to
        ActionNotCarried,  // subject: the label; detail: the action
        EmptySlotId,       // detail: the id in the grid that names no button
        ColourUnknown,     // detail: the colour text
        AreaOffPage,       // detail: the Area's number (export)
        SymbolNotFound,    // detail: the symbol (export)
        PictureNotFound,   // detail: the file (export)
        PageBackground,    // board: the page; detail: its picture (export)
    };
    Kind kind = Kind::PictureOnline;
    QString board; // the board's name or page number
    QString subject;
    QString detail;
    friend bool operator==(const BoardNote&, const BoardNote&) = default;
};

QString boardErrorText(Language language, const BoardError& error);
QString boardNoteText(Language language, const BoardNote& note);

} // namespace mervak
