#pragma once

#include <QJsonObject>
#include <QList>
#include <QString>
#include <QStringList>
#include <optional>

namespace mervak {

// A picture or a sound of a board. Where its bytes are, in the order a reader
// takes them: embedded as a data: URL, a file inside the .obz, a web address,
// or a symbol set's own name (which only that set's owners can draw).
struct BoardMedia {
    QString id;
    QString data; // "data:image/png;base64,..."
    QString path; // inside the .obz
    QString url;
    QString symbolSet; // "set/filename" of a licensed symbol set
    QString contentType;
    friend bool operator==(const BoardMedia&, const BoardMedia&) = default;
};

// Where a button leads: another board of the same package (by id or path), or
// a board elsewhere (url).
struct BoardLink {
    QString id;
    QString path;
    QString name;
    QString url;
    friend bool operator==(const BoardLink&, const BoardLink&) = default;
};

// Left, top, width and height as fractions of the board, 0..1.
struct BoardPosition {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;
    friend bool operator==(const BoardPosition&, const BoardPosition&) = default;
};

struct BoardButton {
    QString id;
    QString label;
    QString vocalization; // empty: the label is spoken
    QString imageId;
    QString soundId;
    QString backgroundColor; // as written: "rgb(...)", "rgba(...)", "#rrggbb"
    QString borderColor;
    std::optional<BoardLink> loadBoard;
    QStringList actions; // ":space", "+a", ... ("action" first, then "actions")
    std::optional<BoardPosition> position;
    QJsonObject extensions; // the button's "ext_mervak_" fields
    friend bool operator==(const BoardButton&, const BoardButton&) = default;
};

// Rows of button ids; an empty id is an empty slot.
struct BoardGrid {
    int rows = 0;
    int columns = 0;
    QList<QStringList> order;
    friend bool operator==(const BoardGrid&, const BoardGrid&) = default;
};

// One .obf board, holding only the fields Mervak uses; the rest of a file is
// read past.
struct Board {
    QString id;
    QString name;
    QString locale;
    QList<BoardButton> buttons;
    std::optional<BoardGrid> grid;
    QList<BoardMedia> images;
    QList<BoardMedia> sounds;
    QJsonObject extensions; // the board's "ext_mervak_" fields
    friend bool operator==(const Board&, const Board&) = default;

    const BoardButton* button(const QString& id) const;
    const BoardMedia* image(const QString& id) const;
};

// The extension fields Mervak writes, so that its own boards come back whole.
inline QString mervakExtension(const char* name) {
    return QStringLiteral("ext_mervak_") + QLatin1String(name);
}

} // namespace mervak
