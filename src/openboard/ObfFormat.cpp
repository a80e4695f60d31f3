#include "openboard/ObfFormat.h"

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonParseError>

namespace mervak {

namespace {

// Thrown inside the reader only; readBoard turns it into its result.
struct Refused {
    BoardError error;
};

class BoardReader {
public:
    explicit BoardReader(QString file) : file_(std::move(file)) {}

    Board board(const QJsonObject& root) {
        Board board;
        board.id = id(root, QStringLiteral("id"), {}, false);
        board.name = text(root, QStringLiteral("name"), {});
        board.locale = text(root, QStringLiteral("locale"), {});
        board.extensions = extensions(root);
        const QJsonArray buttons = array(root, QStringLiteral("buttons"), {}, true);
        for (qsizetype i = 0; i < buttons.size(); ++i)
            board.buttons.append(button(object(buttons[i], item(QStringLiteral("buttons"), i))));
        if (root.contains(QStringLiteral("grid")))
            board.grid = grid(object(root[QStringLiteral("grid")], QStringLiteral("grid")));
        board.images = media(root, QStringLiteral("images"));
        board.sounds = media(root, QStringLiteral("sounds"));
        return board;
    }

private:
    [[noreturn]] void refuse(BoardError::Kind kind, const QString& where,
                             const QString& detail = {}) const {
        throw Refused{{kind, file_, where, detail}};
    }

    static QString item(const QString& parent, qsizetype index) {
        return parent + u'[' + QString::number(index) + u']';
    }
    static QString field(const QString& parent, const QString& name) {
        return parent.isEmpty() ? name : parent + u'.' + name;
    }

    QJsonObject object(const QJsonValue& value, const QString& where) const {
        if (!value.isObject())
            refuse(BoardError::Kind::WrongType, where, QStringLiteral("object"));
        return value.toObject();
    }

    QJsonArray array(const QJsonObject& o, const QString& name, const QString& parent,
                     bool required) const {
        const QJsonValue value = o[name];
        if (value.isUndefined() || value.isNull()) {
            if (required)
                refuse(BoardError::Kind::MissingField, field(parent, name));
            return {};
        }
        if (!value.isArray())
            refuse(BoardError::Kind::WrongType, field(parent, name), QStringLiteral("array"));
        return value.toArray();
    }

    QString text(const QJsonObject& o, const QString& name, const QString& parent) const {
        const QJsonValue value = o[name];
        if (value.isUndefined() || value.isNull())
            return {};
        if (!value.isString())
            refuse(BoardError::Kind::WrongType, field(parent, name), QStringLiteral("string"));
        return value.toString();
    }

    // Ids are text, but some programs write them as numbers.
    static std::optional<QString> idText(const QJsonValue& value) {
        if (value.isString())
            return value.toString();
        if (value.isDouble())
            return QString::number(value.toDouble(), 'g', 17);
        return std::nullopt;
    }

    QString id(const QJsonObject& o, const QString& name, const QString& parent,
               bool required) const {
        const QJsonValue value = o[name];
        if (value.isUndefined() || value.isNull()) {
            if (required)
                refuse(BoardError::Kind::MissingField, field(parent, name));
            return {};
        }
        const auto found = idText(value);
        if (!found)
            refuse(BoardError::Kind::WrongType, field(parent, name), QStringLiteral("string"));
        return *found;
    }

    double number(const QJsonObject& o, const QString& name, const QString& parent) const {
        const QJsonValue value = o[name];
        if (!value.isDouble())
            refuse(value.isUndefined() ? BoardError::Kind::MissingField
                                       : BoardError::Kind::WrongType,
                   field(parent, name), QStringLiteral("number"));
        return value.toDouble();
    }

    static QJsonObject extensions(const QJsonObject& o) {
        QJsonObject found;
        const QString prefix = mervakExtension("");
        for (auto it = o.begin(); it != o.end(); ++it)
            if (it.key().startsWith(prefix))
                found.insert(it.key(), it.value());
        return found;
    }

    BoardButton button(const QJsonObject& o) {
        const QString at = item(QStringLiteral("buttons"), buttonIndex_++);
        BoardButton b;
        b.id = id(o, QStringLiteral("id"), at, true);
        b.label = text(o, QStringLiteral("label"), at);
        b.vocalization = text(o, QStringLiteral("vocalization"), at);
        b.imageId = id(o, QStringLiteral("image_id"), at, false);
        b.soundId = id(o, QStringLiteral("sound_id"), at, false);
        b.backgroundColor = text(o, QStringLiteral("background_color"), at);
        b.borderColor = text(o, QStringLiteral("border_color"), at);
        if (o.contains(QStringLiteral("load_board")))
            b.loadBoard = link(
                object(o[QStringLiteral("load_board")], field(at, QStringLiteral("load_board"))),
                field(at, QStringLiteral("load_board")));
        if (const QString action = text(o, QStringLiteral("action"), at); !action.isEmpty())
            b.actions.append(action);
        const QJsonArray actions = array(o, QStringLiteral("actions"), at, false);
        for (qsizetype i = 0; i < actions.size(); ++i) {
            if (!actions[i].isString())
                refuse(BoardError::Kind::WrongType, item(field(at, QStringLiteral("actions")), i),
                       QStringLiteral("string"));
            if (!b.actions.contains(actions[i].toString()))
                b.actions.append(actions[i].toString());
        }
        b.position = position(o, at);
        b.extensions = extensions(o);
        return b;
    }

    // All four of left, top, width and height, or none.
    std::optional<BoardPosition> position(const QJsonObject& o, const QString& at) const {
        const QStringList names{QStringLiteral("left"), QStringLiteral("top"),
                                QStringLiteral("width"), QStringLiteral("height")};
        bool any = false;
        for (const QString& name : names)
            any = any || o.contains(name);
        if (!any)
            return std::nullopt;
        return BoardPosition{number(o, names[0], at), number(o, names[1], at),
                             number(o, names[2], at), number(o, names[3], at)};
    }

    BoardLink link(const QJsonObject& o, const QString& at) const {
        return {id(o, QStringLiteral("id"), at, false), text(o, QStringLiteral("path"), at),
                text(o, QStringLiteral("name"), at), text(o, QStringLiteral("url"), at)};
    }

    int side(const QJsonObject& o, const QString& name) const {
        const QString at = field(QStringLiteral("grid"), name);
        const double value = number(o, name, QStringLiteral("grid"));
        if (value < 0 || value > kMaxGridSide || value != static_cast<int>(value))
            refuse(BoardError::Kind::BadNumber, at, QString::number(value));
        return static_cast<int>(value);
    }

    BoardGrid grid(const QJsonObject& o) const {
        BoardGrid g;
        g.rows = side(o, QStringLiteral("rows"));
        g.columns = side(o, QStringLiteral("columns"));
        const QString at = QStringLiteral("grid.order");
        const QJsonArray rows = array(o, QStringLiteral("order"), QStringLiteral("grid"), false);
        if (rows.size() > g.rows)
            refuse(BoardError::Kind::GridTooLarge, at,
                   QStringLiteral("%1 > %2").arg(rows.size()).arg(g.rows));
        for (qsizetype r = 0; r < rows.size(); ++r) {
            if (!rows[r].isArray())
                refuse(BoardError::Kind::WrongType, item(at, r), QStringLiteral("array"));
            const QJsonArray row = rows[r].toArray();
            if (row.size() > g.columns)
                refuse(BoardError::Kind::GridTooLarge, item(at, r),
                       QStringLiteral("%1 > %2").arg(row.size()).arg(g.columns));
            QStringList ids;
            for (qsizetype c = 0; c < row.size(); ++c) {
                if (row[c].isNull()) {
                    ids.append(QString());
                    continue;
                }
                const auto found = idText(row[c]);
                if (!found)
                    refuse(BoardError::Kind::WrongType, item(item(at, r), c),
                           QStringLiteral("string"));
                ids.append(*found);
            }
            g.order.append(ids);
        }
        return g;
    }

    QList<BoardMedia> media(const QJsonObject& root, const QString& name) const {
        QList<BoardMedia> list;
        const QJsonArray entries = array(root, name, {}, false);
        for (qsizetype i = 0; i < entries.size(); ++i) {
            const QString at = item(name, i);
            const QJsonObject o = object(entries[i], at);
            BoardMedia m;
            m.id = id(o, QStringLiteral("id"), at, true);
            m.data = text(o, QStringLiteral("data"), at);
            m.path = text(o, QStringLiteral("path"), at);
            m.url = text(o, QStringLiteral("url"), at);
            m.contentType = text(o, QStringLiteral("content_type"), at);
            if (o[QStringLiteral("symbol")].isObject()) {
                const QJsonObject symbol = o[QStringLiteral("symbol")].toObject();
                m.symbolSet = symbol[QStringLiteral("set")].toString() + u'/' +
                              symbol[QStringLiteral("filename")].toString();
            }
            list.append(m);
        }
        return list;
    }

    QString file_;
    qsizetype buttonIndex_ = 0;
};

void putText(QJsonObject& o, const char* name, const QString& value) {
    if (!value.isEmpty())
        o.insert(QLatin1String(name), value);
}

void putExtensions(QJsonObject& o, const QJsonObject& extensions) {
    for (auto it = extensions.begin(); it != extensions.end(); ++it)
        o.insert(it.key(), it.value());
}

QJsonObject buttonJson(const BoardButton& b) {
    QJsonObject o{{QStringLiteral("id"), b.id}};
    putText(o, "label", b.label);
    putText(o, "vocalization", b.vocalization);
    putText(o, "image_id", b.imageId);
    putText(o, "sound_id", b.soundId);
    putText(o, "background_color", b.backgroundColor);
    putText(o, "border_color", b.borderColor);
    if (b.loadBoard) {
        QJsonObject link;
        putText(link, "id", b.loadBoard->id);
        putText(link, "path", b.loadBoard->path);
        putText(link, "name", b.loadBoard->name);
        putText(link, "url", b.loadBoard->url);
        o.insert(QStringLiteral("load_board"), link);
    }
    if (!b.actions.isEmpty()) {
        o.insert(QStringLiteral("action"), b.actions.first());
        o.insert(QStringLiteral("actions"), QJsonArray::fromStringList(b.actions));
    }
    if (b.position) {
        o.insert(QStringLiteral("left"), b.position->left);
        o.insert(QStringLiteral("top"), b.position->top);
        o.insert(QStringLiteral("width"), b.position->width);
        o.insert(QStringLiteral("height"), b.position->height);
    }
    putExtensions(o, b.extensions);
    return o;
}

QJsonObject gridJson(const BoardGrid& g) {
    QJsonArray rows;
    for (const QStringList& row : g.order) {
        QJsonArray ids;
        for (const QString& id : row)
            ids.append(id.isEmpty() ? QJsonValue(QJsonValue::Null) : QJsonValue(id));
        rows.append(ids);
    }
    return {{QStringLiteral("rows"), g.rows},
            {QStringLiteral("columns"), g.columns},
            {QStringLiteral("order"), rows}};
}

QJsonArray mediaJson(const QList<BoardMedia>& list) {
    QJsonArray entries;
    for (const BoardMedia& m : list) {
        QJsonObject o{{QStringLiteral("id"), m.id}};
        putText(o, "data", m.data);
        putText(o, "path", m.path);
        putText(o, "url", m.url);
        putText(o, "content_type", m.contentType);
        if (!m.symbolSet.isEmpty()) {
            const qsizetype slash = m.symbolSet.indexOf(u'/');
            o.insert(QStringLiteral("symbol"),
                     QJsonObject{{QStringLiteral("set"), m.symbolSet.left(slash)},
                                 {QStringLiteral("filename"), m.symbolSet.mid(slash + 1)}});
        }
        entries.append(o);
    }
    return entries;
}

} // namespace

const BoardButton* Board::button(const QString& id) const {
    for (const BoardButton& b : buttons)
        if (b.id == id)
            return &b;
    return nullptr;
}

const BoardMedia* Board::image(const QString& id) const {
    for (const BoardMedia& m : images)
        if (m.id == id)
            return &m;
    return nullptr;
}

std::variant<Board, BoardError> readBoard(const QByteArray& json, const QString& file) {
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(json, &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return BoardError{BoardError::Kind::NotJson, file, QString::number(parseError.offset),
                          parseError.errorString()};
    if (!document.isObject())
        return BoardError{BoardError::Kind::NotObject, file, {}, {}};
    try {
        return BoardReader(file).board(document.object());
    } catch (const Refused& refused) {
        return refused.error;
    }
}

QByteArray writeBoard(const Board& board) {
    QJsonObject o{{QStringLiteral("format"), QStringLiteral("open-board-0.1")},
                  {QStringLiteral("id"), board.id}};
    putText(o, "name", board.name);
    putText(o, "locale", board.locale);
    QJsonArray buttons;
    for (const BoardButton& b : board.buttons)
        buttons.append(buttonJson(b));
    o.insert(QStringLiteral("buttons"), buttons);
    if (board.grid)
        o.insert(QStringLiteral("grid"), gridJson(*board.grid));
    o.insert(QStringLiteral("images"), mediaJson(board.images));
    o.insert(QStringLiteral("sounds"), mediaJson(board.sounds));
    putExtensions(o, board.extensions);
    return QJsonDocument(o).toJson(QJsonDocument::Indented);
}

} // namespace mervak
