#include "openboard/BoardImport.h"

#include "openboard/ActionMapping.h"
#include "openboard/BoardColour.h"
#include "openboard/GridLayout.h"
#include "platform/Checked16.h"

#include <QHash>
#include <QJsonArray>
#include <QMimeDatabase>
#include <QSet>

namespace mervak {

namespace {

// A button and where it lies on its page.
struct PlacedButton {
    const BoardButton* button = nullptr;
    SheetBox box;
};

QString boardTitle(const Board& board, qsizetype index) {
    if (!board.name.isEmpty())
        return board.name;
    return board.id.isEmpty() ? QString::number(index + 1) : board.id;
}

// The suffix a picture file takes from its type or its name.
QString pictureSuffix(const QString& contentType, const QString& name) {
    const QString fromName = name.section(u'/', -1).section(u'.', -1).toLower();
    if (name.section(u'/', -1).contains(u'.') && fromName.size() <= 5)
        return fromName;
    const QMimeType type = QMimeDatabase().mimeTypeForName(contentType.section(u';', 0, 0));
    return type.isValid() && !type.preferredSuffix().isEmpty() ? type.preferredSuffix()
                                                               : QStringLiteral("png");
}

// The bytes of a data: URL, base64 or percent-encoded; no value when broken.
std::optional<QByteArray> dataUrlBytes(const QString& url, QString* contentType) {
    const qsizetype comma = url.indexOf(u',');
    if (!url.startsWith(QLatin1String("data:"), Qt::CaseInsensitive) || comma < 0)
        return std::nullopt;
    const QString header = url.mid(5, comma - 5);
    *contentType = header.section(u';', 0, 0);
    const QByteArray payload = url.mid(comma + 1).toLatin1();
    if (!header.endsWith(QLatin1String(";base64"), Qt::CaseInsensitive))
        return QByteArray::fromPercentEncoding(payload);
    auto decoded =
        QByteArray::fromBase64Encoding(payload.trimmed(), QByteArray::AbortOnBase64DecodingErrors);
    if (!decoded)
        return std::nullopt;
    return *decoded;
}

class Importer {
public:
    Importer(const BoardPackage& package, QString pictureFolder)
        : package_(package), folder_(std::move(pictureFolder)) {}

    std::variant<BoardImport, BoardError> run() {
        Template& t = result_.tmpl;
        t.PageCount = static_cast<int16_t>(std::max<qsizetype>(1, package_.boards.size()));
        t.descripcio = package_.boards.isEmpty() ? QString() : package_.boards[0].name;
        restoreHeader();
        for (qsizetype i = 0; i < package_.boards.size(); ++i) {
            auto placed = placeButtons(i);
            if (auto* error = std::get_if<BoardError>(&placed))
                return *error;
            try {
                for (const PlacedButton& p : std::get<QList<PlacedButton>>(placed))
                    t.AppendArea(area(i, p));
            } catch (const Overflow16&) {
                return BoardError{BoardError::Kind::TooManyAreas, boardFile(i), {}, {}};
            }
        }
        t.CurrentPage = 1;
        t.CurrentArea = 0;
        t.refreshPageAreaCount();
        return std::move(result_);
    }

private:
    QString boardFile(qsizetype i) const {
        return package_.boardPaths[i].isEmpty() ? boardTitle(package_.boards[i], i)
                                                : package_.boardPaths[i];
    }

    void note(BoardNote::Kind kind, qsizetype board, const QString& subject,
              const QString& detail) {
        result_.notes.append({kind, boardTitle(package_.boards[board], board), subject, detail});
    }

    // The header fields of a Template that Mervak exported.
    void restoreHeader() {
        if (package_.boards.isEmpty())
            return;
        const QJsonObject header =
            package_.boards[0].extensions[mervakExtension("template")].toObject();
        if (header.isEmpty())
            return;
        Template& t = result_.tmpl;
        t.descripcio = header[QStringLiteral("descripcio")].toString(t.descripcio);
        t.Ordres = header[QStringLiteral("Ordres")].toString();
        t.Tecles = header[QStringLiteral("Tecles")].toString();
        t.TxFinestra = header[QStringLiteral("TxFinestra")].toString();
        t.FitxDoc = header[QStringLiteral("FitxDoc")].toString();
        t.FitxClip = header[QStringLiteral("FitxClip")].toString();
        const auto number = [&header](const char* name, int16_t fallback) {
            const double value = header[QLatin1String(name)].toDouble(fallback);
            return value >= -32768 && value <= 32767 ? static_cast<int16_t>(value) : fallback;
        };
        t.PlantOption = number("PlantOption", 0);
        t.SoundActive = number("SoundActive", 0);
        t.HeaderFlag = number("HeaderFlag", 0);
        t.sv_idioma = number("sv_idioma", 0);
        t.sv_locutor = number("sv_locutor", 0);
        t.SV_velocitat = number("SV_velocitat", 0);
        const int16_t width = number("SheetWidthMm", Template::kTabletWidthMm);
        const int16_t height = number("SheetHeightMm", Template::kTabletHeightMm);
        if (width > 0 && height > 0) {
            t.SheetWidthMm = width;
            t.SheetHeightMm = height;
        }
    }

    std::variant<QList<PlacedButton>, BoardError> placeButtons(qsizetype index) {
        const Board& board = package_.boards[index];
        QList<PlacedButton> placed;
        if (layoutUnchanged(board)) {
            for (const BoardButton& b : board.buttons)
                placed.append({&b, exportedBox(b)});
            return placed;
        }
        const bool positioned =
            !board.buttons.isEmpty() &&
            std::all_of(board.buttons.begin(), board.buttons.end(),
                        [](const BoardButton& b) { return b.position.has_value(); });
        if (positioned) {
            for (const BoardButton& b : board.buttons)
                placed.append({&b, positionBox(*b.position)});
            return placed;
        }
        if (!board.grid) {
            if (board.buttons.isEmpty())
                return placed;
            return BoardError{
                BoardError::Kind::MissingField, boardFile(index), QStringLiteral("grid"), {}};
        }
        const BoardGrid& grid = *board.grid;
        for (int r = 0; r < grid.order.size(); ++r)
            for (int c = 0; c < grid.order[r].size(); ++c) {
                const QString& id = grid.order[r][c];
                if (id.isEmpty())
                    continue;
                if (const BoardButton* b = board.button(id))
                    placed.append({b, gridCellBox(grid.rows, grid.columns, r, c)});
                else
                    note(BoardNote::Kind::EmptySlotId, index, {}, id);
            }
        return placed;
    }

    // A board Mervak wrote whose grid and positions nobody has changed since.
    static bool layoutUnchanged(const Board& board) {
        const QJsonValue mark = board.extensions[mervakExtension("layout")];
        return mark.isString() && mark.toString() == layoutMark(board) &&
               std::all_of(board.buttons.begin(), board.buttons.end(), [](const BoardButton& b) {
                   return b.extensions[mervakExtension("rect")].toArray().size() == 4;
               });
    }

    static SheetBox exportedBox(const BoardButton& b) {
        const QJsonArray rect = b.extensions[mervakExtension("rect")].toArray();
        return {rect[0].toInt(), rect[1].toInt(), rect[2].toInt(), rect[3].toInt()};
    }

    Area area(qsizetype board, const PlacedButton& p) {
        const BoardButton& b = *p.button;
        Area a;
        a.Page = static_cast<int16_t>(board + 1);
        a.X0 = static_cast<int16_t>(p.box.left);
        a.Y0 = static_cast<int16_t>(p.box.bottom);
        a.X1 = static_cast<int16_t>(p.box.right);
        a.Y1 = static_cast<int16_t>(p.box.top);
        const ButtonAction action = buttonAction(board, b);
        a.ActionText = actionTextOf(action);
        const bool restored = restoreArea(b, a);
        a.Cell = cell(board, b, restored);
        if (restored)
            restoreCell(b, a.Cell);
        return a;
    }

    ButtonAction buttonAction(qsizetype board, const BoardButton& b) {
        ButtonAction action;
        const QString said = b.vocalization.isEmpty() ? b.label : b.vocalization;
        if (b.loadBoard) {
            const qsizetype target = package_.linkedBoard(*b.loadBoard);
            if (target >= 0)
                action.page = static_cast<int>(target + 1);
            else
                note(BoardNote::Kind::LinkOutside, board, b.label,
                     b.loadBoard->url.isEmpty() ? b.loadBoard->name : b.loadBoard->url);
            // A link speaks only when it was given its own words.
            if (!b.vocalization.isEmpty())
                action.spoken = b.vocalization;
        } else if (!said.trimmed().isEmpty()) {
            action.typed = said + u' ';
            action.spoken = said;
        }
        for (const QString& a : b.actions)
            applyAction(board, b, a, action);
        if (!b.soundId.isEmpty())
            note(BoardNote::Kind::SoundNotCarried, board, b.label, b.soundId);
        return action;
    }

    // Spelling ("+a") types its letters; ":space", ":backspace" and ":home" have
    // keys and a page; the rest are the other program's own.
    void applyAction(qsizetype board, const BoardButton& b, const QString& name,
                     ButtonAction& action) {
        if (name.startsWith(u'+')) {
            action.typed = name.mid(1);
            action.spoken.clear();
        } else if (name == QLatin1String(":space")) {
            action.typed = QStringLiteral(" ");
            action.spoken.clear();
        } else if (name == QLatin1String(":home")) {
            action.page = 1;
        } else if (name != QLatin1String(":speak")) {
            note(BoardNote::Kind::ActionNotCarried, board, b.label, name);
        }
    }

    // An Area Mervak exported keeps its own ActionText, fields and cell, unless
    // the button's words or link were changed in another program since.
    static bool restoreArea(const BoardButton& b, Area& a) {
        const QJsonValue exported = b.extensions[mervakExtension("action_text")];
        const QJsonValue said = b.extensions[mervakExtension("said")];
        const QJsonValue link = b.extensions[mervakExtension("link")];
        const std::optional<int> linkNow = buttonActionOf(a.ActionText).page;
        if (!exported.isString() || !said.isString() ||
            said.toString() != (b.vocalization.isEmpty() ? b.label : b.vocalization) ||
            (link.isDouble() ? std::optional<int>(link.toInt()) : std::nullopt) != linkNow)
            return false;
        a.ActionText = exported.toString();
        a.Clip = b.extensions[mervakExtension("clip")].toString();
        a.ClipFlag = static_cast<int16_t>(b.extensions[mervakExtension("clip_flag")].toInt());
        a.Flags = static_cast<int16_t>(b.extensions[mervakExtension("flags")].toInt());
        return true;
    }

    // The cell as Mervak had it: its own label (empty when the sheet showed the
    // Area's words), placement and library symbol.
    static void restoreCell(const BoardButton& b, std::optional<AreaCell>& c) {
        const QJsonValue exported = b.extensions[mervakExtension("cell")];
        if (!exported.isObject())
            return;
        const QJsonObject o = exported.toObject();
        if (!o[QStringLiteral("present")].toBool(true)) {
            c.reset();
            return;
        }
        if (!c)
            c = AreaCell{};
        c->Label = o[QStringLiteral("label")].toString();
        const int placement = o[QStringLiteral("placement")].toInt();
        if (placement >= 0 && placement <= static_cast<int>(LabelPlacement::None))
            c->Placement = static_cast<LabelPlacement>(placement);
        if (const QString symbol = o[QStringLiteral("symbol")].toString(); !symbol.isEmpty())
            c->Picture = symbol;
    }

    std::optional<AreaCell> cell(qsizetype board, const BoardButton& b, bool restored) {
        AreaCell c;
        c.Label = b.label;
        // A library symbol comes back as itself, not as a copy of its file.
        const bool symbol =
            restored &&
            b.extensions[mervakExtension("cell")].toObject()[QStringLiteral("symbol")].isString();
        c.Picture = symbol ? QString() : picture(board, b);
        c.Background = colour(board, b, b.backgroundColor);
        c.Border = colour(board, b, b.borderColor);
        c.Placement = c.Picture.isEmpty() ? LabelPlacement::Alone : LabelPlacement::Below;
        if (c.Label.isEmpty() && !c.Picture.isEmpty())
            c.Placement = LabelPlacement::None;
        if (c == AreaCell{})
            return std::nullopt;
        return c;
    }

    CellColour colour(qsizetype board, const BoardButton& b, const QString& text) {
        bool understood = true;
        const auto rgb = parseBoardColour(text, &understood);
        if (!understood)
            note(BoardNote::Kind::ColourUnknown, board, b.label, text);
        return rgb;
    }

    // The picture's name in the folder, its bytes written once however many
    // buttons show it.
    QString picture(qsizetype board, const BoardButton& b) {
        if (b.imageId.isEmpty())
            return {};
        const BoardMedia* image = package_.boards[board].image(b.imageId);
        if (!image) {
            note(BoardNote::Kind::PictureMissing, board, b.label, b.imageId);
            return {};
        }
        const QString key =
            image->path.isEmpty() ? package_.boardPaths[board] + u'#' + image->id : image->path;
        if (const auto known = written_.constFind(key); known != written_.cend())
            return known.value();
        QString contentType = image->contentType;
        std::optional<QByteArray> bytes;
        if (!image->data.isEmpty()) {
            bytes = dataUrlBytes(image->data, &contentType);
            if (!bytes || bytes->isEmpty()) {
                note(BoardNote::Kind::PictureUnreadable, board, b.label, image->id);
                return {};
            }
        } else if (!image->path.isEmpty()) {
            const auto found = package_.files.constFind(image->path);
            if (found == package_.files.cend()) {
                note(BoardNote::Kind::PictureMissing, board, b.label, image->path);
                return {};
            }
            bytes = found.value();
        } else if (!image->url.isEmpty()) {
            note(BoardNote::Kind::PictureOnline, board, b.label, image->url);
            return {};
        } else {
            note(BoardNote::Kind::PictureSymbolSet, board, b.label, image->symbolSet);
            return {};
        }
        const QString name = uniqueName(image->path.isEmpty() ? image->id : image->path,
                                        pictureSuffix(contentType, image->path));
        result_.pictures.append({name, *bytes});
        const QString stored = folder_ + u'/' + name;
        written_.insert(key, stored);
        return stored;
    }

    // A file name of safe characters from `source`, not yet taken.
    QString uniqueName(const QString& source, const QString& suffix) {
        QString base = source.section(u'/', -1);
        if (base.contains(u'.'))
            base = base.section(u'.', 0, -2);
        for (QChar& c : base)
            if (!c.isLetterOrNumber() && c != u'-' && c != u'_')
                c = u'_';
        if (base.isEmpty())
            base = QStringLiteral("imatge");
        QString name = base + u'.' + suffix;
        for (int n = 2; taken_.contains(name.toLower()); ++n)
            name = base + u'-' + QString::number(n) + u'.' + suffix;
        taken_.insert(name.toLower());
        return name;
    }

    const BoardPackage& package_;
    QString folder_;
    BoardImport result_;
    QHash<QString, QString> written_; // picture source -> stored name
    QSet<QString> taken_;             // file names, in lower case
};

} // namespace

std::variant<BoardImport, BoardError> importBoards(const BoardPackage& package,
                                                   const QString& pictureFolder) {
    return Importer(package, pictureFolder).run();
}

} // namespace mervak
