#include "openboard/BoardExport.h"

#include "openboard/ActionMapping.h"
#include "openboard/BoardColour.h"
#include "openboard/GridLayout.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QMimeDatabase>
#include <QSet>
#include <algorithm>
#include <cmath>
#include <numeric>

namespace mervak {

namespace {

QString boardPath(int page) {
    return QStringLiteral("boards/%1.obf").arg(page);
}

SheetBox orderedBox(const Area& a) {
    return {std::min(a.X0, a.X1), std::min(a.Y0, a.Y1), std::max(a.X0, a.X1), std::max(a.Y0, a.Y1)};
}

// Boxes that do not form a grid: a grid in reading order for the programs that
// only know grids, and each button's own position.
BoardGrid readingOrderGrid(const QList<SheetBox>& boxes, const QStringList& ids,
                           QList<BoardButton>& buttons) {
    QList<qsizetype> order(boxes.size());
    std::iota(order.begin(), order.end(), 0);
    std::stable_sort(order.begin(), order.end(), [&boxes](qsizetype a, qsizetype b) {
        return boxes[a].top != boxes[b].top ? boxes[a].top > boxes[b].top
                                            : boxes[a].left < boxes[b].left;
    });
    const int columns = std::max(1, static_cast<int>(std::ceil(std::sqrt(boxes.size()))));
    const int rows = std::max(1, static_cast<int>((boxes.size() + columns - 1) / columns));
    BoardGrid grid{rows, columns, QList<QStringList>(rows, QStringList(columns))};
    for (qsizetype k = 0; k < order.size(); ++k)
        grid.order[k / columns][k % columns] = ids[order[k]];
    for (qsizetype i = 0; i < buttons.size(); ++i)
        buttons[i].position = boxPosition(boxes[i]);
    return grid;
}

BoardGrid placedGrid(const GridPlacement& placement, const QStringList& ids) {
    BoardGrid grid{placement.rows, placement.columns,
                   QList<QStringList>(placement.rows, QStringList(placement.columns))};
    for (qsizetype i = 0; i < ids.size(); ++i)
        grid.order[placement.cells[i].y()][placement.cells[i].x()] = ids[i];
    return grid;
}

QJsonObject headerExtension(const Template& t) {
    return {{QStringLiteral("descripcio"), t.descripcio},
            {QStringLiteral("Ordres"), t.Ordres},
            {QStringLiteral("Tecles"), t.Tecles},
            {QStringLiteral("TxFinestra"), t.TxFinestra},
            {QStringLiteral("FitxDoc"), t.FitxDoc},
            {QStringLiteral("FitxClip"), t.FitxClip},
            {QStringLiteral("PlantOption"), t.PlantOption},
            {QStringLiteral("SoundActive"), t.SoundActive},
            {QStringLiteral("HeaderFlag"), t.HeaderFlag},
            {QStringLiteral("sv_idioma"), t.sv_idioma},
            {QStringLiteral("sv_locutor"), t.sv_locutor},
            {QStringLiteral("SV_velocitat"), t.SV_velocitat},
            {QStringLiteral("SheetWidthMm"), t.SheetWidthMm},
            {QStringLiteral("SheetHeightMm"), t.SheetHeightMm}};
}

class Exporter {
public:
    Exporter(const Template& t, QString title, const PictureFiles& pictures)
        : t_(t), title_(std::move(title)), pictures_(pictures) {}

    BoardExport run() {
        for (int16_t i = 1; i <= t_.AreaCount(); ++i)
            if (t_.area(i).Page < 1 || t_.area(i).Page > t_.PageCount)
                result_.notes.append({BoardNote::Kind::AreaOffPage, {}, {}, QString::number(i)});
        for (int16_t page = 1; page <= t_.PageCount; ++page) {
            result_.package.boards.append(board(page));
            if (const QString background = t_.pagePicture(page); !background.isEmpty())
                result_.notes.append(
                    {BoardNote::Kind::PageBackground, boardName(page), {}, background});
            result_.package.boardPaths.append(boardPath(page));
        }
        result_.package.boards[0].extensions.insert(mervakExtension("template"),
                                                    headerExtension(t_));
        return std::move(result_);
    }

private:
    QString boardName(int page) const {
        return t_.PageCount > 1 ? QStringLiteral("%1 - %2").arg(title_).arg(page) : title_;
    }

    Board board(int16_t page) {
        Board board;
        board.id = QString::number(page);
        board.name = boardName(page);
        QList<SheetBox> boxes;
        QStringList ids;
        for (const int16_t index : t_.areasOfPage(page)) {
            board.buttons.append(button(board, index));
            boxes.append(orderedBox(t_.area(index)));
            ids.append(board.buttons.last().id);
        }
        if (boxes.isEmpty())
            board.grid = BoardGrid{1, 1, {QStringList(1)}};
        else if (const auto placement = inferGrid(boxes))
            board.grid = placedGrid(*placement, ids);
        else
            board.grid = readingOrderGrid(boxes, ids, board.buttons);
        board.extensions.insert(mervakExtension("page"), page);
        board.extensions.insert(mervakExtension("layout"), layoutMark(board));
        return board;
    }

    BoardButton button(Board& board, int16_t index) {
        const Area& a = t_.area(index);
        const ButtonAction action = buttonActionOf(a.ActionText);
        BoardButton b;
        b.id = QString::number(index);
        const QString cellLabel = a.Cell ? a.Cell->Label : QString();
        b.label = !cellLabel.isEmpty()       ? cellLabel
                  : !action.spoken.isEmpty() ? action.spoken
                                             : action.typed;
        if (!action.spoken.isEmpty() && action.spoken != b.label)
            b.vocalization = action.spoken;
        if (action.page && *action.page >= 1 && *action.page <= t_.PageCount)
            b.loadBoard = BoardLink{QString::number(*action.page),
                                    boardPath(*action.page),
                                    boardName(*action.page),
                                    {}};
        if (a.Cell) {
            if (a.Cell->Background)
                b.backgroundColor = boardColourText(*a.Cell->Background);
            if (a.Cell->Border)
                b.borderColor = boardColourText(*a.Cell->Border);
            b.imageId = image(board, b, a.Cell->Picture);
        }
        b.extensions = areaExtensions(a, b);
        return b;
    }

    static QJsonObject areaExtensions(const Area& a, const BoardButton& b) {
        QJsonObject cell{{QStringLiteral("present"), a.Cell.has_value()}};
        if (a.Cell) {
            cell.insert(QStringLiteral("label"), a.Cell->Label);
            cell.insert(QStringLiteral("placement"), static_cast<int>(a.Cell->Placement));
            if (isSymbolReference(a.Cell->Picture))
                cell.insert(QStringLiteral("symbol"), a.Cell->Picture);
        }
        QJsonObject extensions{
            {mervakExtension("action_text"), a.ActionText},
            {mervakExtension("said"), b.vocalization.isEmpty() ? b.label : b.vocalization},
            {mervakExtension("rect"), QJsonArray{a.X0, a.Y0, a.X1, a.Y1}},
            {mervakExtension("clip"), a.Clip},
            {mervakExtension("clip_flag"), a.ClipFlag},
            {mervakExtension("flags"), a.Flags},
            {mervakExtension("cell"), cell}};
        if (b.loadBoard)
            extensions.insert(mervakExtension("link"), b.loadBoard->id.toInt());
        return extensions;
    }

    // The image id of the picture, its file put into the package once.
    QString image(Board& board, const BoardButton& b, const QString& picture) {
        if (picture.isEmpty())
            return {};
        const QString file = pictures_.find(picture);
        QFile source(file);
        if (file.isEmpty() || !source.open(QIODevice::ReadOnly)) {
            const bool symbol = isSymbolReference(picture);
            result_.notes.append(
                {symbol ? BoardNote::Kind::SymbolNotFound : BoardNote::Kind::PictureNotFound,
                 board.name, b.label, symbol ? symbolHexcode(picture) : picture});
            return {};
        }
        const QString absolute = QFileInfo(file).absoluteFilePath();
        if (!zipPaths_.contains(absolute)) {
            QString name = QStringLiteral("images/") + QFileInfo(file).fileName();
            for (int n = 2; result_.package.files.contains(name); ++n)
                name = QStringLiteral("images/%1-%2").arg(n).arg(QFileInfo(file).fileName());
            result_.package.files.insert(name, source.readAll());
            zipPaths_.insert(absolute, name);
        }
        const QString path = zipPaths_.value(absolute);
        const QString id = QStringLiteral("image-%1").arg(b.id);
        board.images.append(
            {id,
             {},
             path,
             {},
             {},
             QMimeDatabase().mimeTypeForFile(file, QMimeDatabase::MatchExtension).name()});
        return id;
    }

    const Template& t_;
    QString title_;
    const PictureFiles& pictures_;
    BoardExport result_;
    QHash<QString, QString> zipPaths_; // picture file -> path in the package
};

} // namespace

BoardExport exportBoards(const Template& t, const QString& title, const PictureFiles& pictures) {
    return Exporter(t, title, pictures).run();
}

} // namespace mervak
