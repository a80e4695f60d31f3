#include "openboard/BoardPackage.h"

#include "openboard/ObfFormat.h"

#include <QFile>
#include <QFileInfo>
#include <QJsonDocument>
#include <QSet>

namespace mervak {

namespace {

const QString kManifest = QStringLiteral("manifest.json");

QString entryName(const QString& file, const QString& entry) {
    return file + u':' + entry;
}

// The root board's path and the other boards the manifest names.
struct Manifest {
    QString root;
    QStringList boards;
};

std::variant<Manifest, BoardError> readManifest(const ZipEntries& entries, const QString& file) {
    const QString where = entryName(file, kManifest);
    Manifest manifest;
    if (!entries.contains(kManifest)) {
        for (auto it = entries.begin(); it != entries.end(); ++it)
            if (it.key().endsWith(QStringLiteral(".obf"), Qt::CaseInsensitive))
                manifest.boards.append(it.key());
        if (manifest.boards.isEmpty())
            return BoardError{BoardError::Kind::NoBoard, file, {}, {}};
        manifest.root = manifest.boards.first();
        return manifest;
    }
    QJsonParseError parseError{};
    const QJsonDocument document = QJsonDocument::fromJson(entries[kManifest], &parseError);
    if (parseError.error != QJsonParseError::NoError)
        return BoardError{BoardError::Kind::NotJson, where, QString::number(parseError.offset),
                          parseError.errorString()};
    const QJsonObject o = document.object();
    if (!o[QStringLiteral("root")].isString())
        return BoardError{o.contains(QStringLiteral("root")) ? BoardError::Kind::WrongType
                                                             : BoardError::Kind::MissingField,
                          where, QStringLiteral("root"), QStringLiteral("string")};
    manifest.root = o[QStringLiteral("root")].toString();
    const QJsonValue boards = o[QStringLiteral("paths")][QStringLiteral("boards")];
    if (!boards.isUndefined() && !boards.isObject())
        return BoardError{BoardError::Kind::WrongType, where, QStringLiteral("paths.boards"),
                          QStringLiteral("object")};
    const QJsonObject byId = boards.toObject();
    for (auto it = byId.begin(); it != byId.end(); ++it) {
        if (!it.value().isString())
            return BoardError{BoardError::Kind::WrongType, where,
                              QStringLiteral("paths.boards.") + it.key(), QStringLiteral("string")};
        manifest.boards.append(it.value().toString());
    }
    for (const QString& path : QStringList{manifest.root} + manifest.boards)
        if (!entries.contains(path))
            return BoardError{BoardError::Kind::MissingEntry, where, {}, path};
    return manifest;
}

// The pages Mervak wrote the boards from, when every board says its own.
std::optional<QList<qsizetype>> exportedOrder(const BoardPackage& p) {
    QMap<int, qsizetype> byPage;
    for (qsizetype i = 0; i < p.boards.size(); ++i) {
        const QJsonValue page = p.boards[i].extensions[mervakExtension("page")];
        if (!page.isDouble() || byPage.contains(page.toInt()))
            return std::nullopt;
        byPage.insert(page.toInt(), i);
    }
    if (byPage.isEmpty() || byPage.first() != 0)
        return std::nullopt;
    return byPage.values();
}

// Orders the boards from the root outwards along their links, or as the pages
// they were written from.
void orderFromRoot(BoardPackage& p) {
    QList<qsizetype> order{0};
    QSet<qsizetype> seen{0};
    if (const auto exported = exportedOrder(p)) {
        order = *exported;
        seen = QSet<qsizetype>(order.begin(), order.end());
    }
    for (qsizetype next = 0; next < order.size(); ++next)
        for (const BoardButton& b : p.boards[order[next]].buttons)
            if (b.loadBoard) {
                const qsizetype target = p.linkedBoard(*b.loadBoard);
                if (target >= 0 && !seen.contains(target)) {
                    seen.insert(target);
                    order.append(target);
                }
            }
    for (qsizetype i = 0; i < p.boards.size(); ++i)
        if (!seen.contains(i))
            order.append(i);
    BoardPackage sorted;
    for (const qsizetype i : order) {
        sorted.boards.append(p.boards[i]);
        sorted.boardPaths.append(p.boardPaths[i]);
    }
    p.boards = std::move(sorted.boards);
    p.boardPaths = std::move(sorted.boardPaths);
}

QString normalised(QString path) {
    while (path.startsWith(QStringLiteral("./")))
        path.remove(0, 2);
    return path;
}

} // namespace

qsizetype BoardPackage::linkedBoard(const BoardLink& link) const {
    if (!link.path.isEmpty()) {
        const qsizetype at = boardPaths.indexOf(normalised(link.path));
        if (at >= 0)
            return at;
    }
    if (link.id.isEmpty())
        return -1;
    for (qsizetype i = 0; i < boards.size(); ++i)
        if (boards[i].id == link.id)
            return i;
    return -1;
}

std::variant<BoardPackage, BoardError> readObf(const QByteArray& bytes, const QString& name) {
    auto board = readBoard(bytes, name);
    if (auto* error = std::get_if<BoardError>(&board))
        return *error;
    BoardPackage package;
    package.boards.append(std::get<Board>(std::move(board)));
    package.boardPaths.append(QString());
    return package;
}

std::variant<BoardPackage, BoardError> readObz(const QByteArray& bytes, const QString& name) {
    QString reason;
    auto entries = readZip(bytes, &reason);
    if (!entries)
        return BoardError{BoardError::Kind::NotZip, name, {}, reason};
    BoardPackage package;
    for (auto it = entries->begin(); it != entries->end(); ++it)
        package.files.insert(normalised(it.key()), it.value());
    auto manifest = readManifest(package.files, name);
    if (auto* error = std::get_if<BoardError>(&manifest))
        return *error;
    const Manifest& m = std::get<Manifest>(manifest);
    QStringList paths{normalised(m.root)};
    for (const QString& path : m.boards)
        if (!paths.contains(normalised(path)))
            paths.append(normalised(path));
    for (const QString& path : paths) {
        auto board = readBoard(package.files[path], entryName(name, path));
        if (auto* error = std::get_if<BoardError>(&board))
            return *error;
        package.boards.append(std::get<Board>(std::move(board)));
        package.boardPaths.append(path);
    }
    orderFromRoot(package);
    return package;
}

std::variant<BoardPackage, BoardError> readBoardPackage(const QString& path) {
    const QString suffix = QFileInfo(path).suffix().toLower();
    const QString name = QFileInfo(path).fileName();
    if (suffix != QLatin1String("obf") && suffix != QLatin1String("obz"))
        return BoardError{BoardError::Kind::UnknownFileType, name, {}, {}};
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return BoardError{BoardError::Kind::CannotRead, path, {}, file.errorString()};
    const QByteArray bytes = file.readAll();
    return suffix == QLatin1String("obf") ? readObf(bytes, name) : readObz(bytes, name);
}

std::variant<QByteArray, BoardError> writeObz(const BoardPackage& package) {
    ZipEntries entries = package.files;
    QJsonObject boards;
    QJsonObject images;
    QJsonObject sounds;
    for (qsizetype i = 0; i < package.boards.size(); ++i) {
        const Board& board = package.boards[i];
        entries.insert(package.boardPaths[i], writeBoard(board));
        boards.insert(board.id, package.boardPaths[i]);
        for (const BoardMedia& image : board.images)
            if (!image.path.isEmpty())
                images.insert(image.id, image.path);
        for (const BoardMedia& sound : board.sounds)
            if (!sound.path.isEmpty())
                sounds.insert(sound.id, sound.path);
    }
    const QJsonObject manifest{
        {QStringLiteral("format"), QStringLiteral("open-board-0.1")},
        {QStringLiteral("root"), package.boardPaths.value(0)},
        {QStringLiteral("paths"), QJsonObject{{QStringLiteral("boards"), boards},
                                              {QStringLiteral("images"), images},
                                              {QStringLiteral("sounds"), sounds}}}};
    entries.insert(kManifest, QJsonDocument(manifest).toJson(QJsonDocument::Indented));
    QString reason;
    auto bytes = writeZip(entries, &reason);
    if (!bytes)
        return BoardError{BoardError::Kind::CannotWrite, {}, {}, reason};
    return *bytes;
}

} // namespace mervak
