#include "sheet/SymbolFiles.h"

#include <QDir>
#include <QDirIterator>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <algorithm>

namespace mervak {

namespace {

struct JsonRead {
    QJsonDocument document;
    bool ok = false;
};

JsonRead readJson(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    QJsonParseError error{};
    JsonRead read{QJsonDocument::fromJson(file.readAll(), &error), false};
    read.ok = error.error == QJsonParseError::NoError;
    return read;
}

// CLDR writes most emoji without the variation selector that OpenMoji keeps.
QString withoutVariationSelector(QString emoji) {
    return emoji.remove(QChar(0xFE0F));
}

struct Names {
    QString name;
    QStringList keywords;
};

QHash<QString, Names> namesByEmoji(const QJsonObject& annotations) {
    QHash<QString, Names> names;
    for (auto it = annotations.begin(); it != annotations.end(); ++it) {
        const QJsonObject entry = it.value().toObject();
        const QString name = entry.value(QLatin1String("tts")).toArray().at(0).toString();
        if (name.isEmpty())
            continue;
        QStringList keywords;
        for (const QJsonValue keyword : entry.value(QLatin1String("default")).toArray())
            if (keyword.toString() != name)
                keywords.append(keyword.toString());
        names.insert(withoutVariationSelector(it.key()), {name, keywords});
    }
    return names;
}

QString languageFolder(Language language) {
    return language == Language::Spanish ? QStringLiteral("es") : QStringLiteral("ca");
}

const QStringList& pictureSuffixes() {
    static const QStringList suffixes = {QStringLiteral("png"),  QStringLiteral("jpg"),
                                         QStringLiteral("jpeg"), QStringLiteral("gif"),
                                         QStringLiteral("bmp"),  QStringLiteral("svg")};
    return suffixes;
}

bool isHexcode(const QString& text) {
    return !text.isEmpty() && std::all_of(text.cbegin(), text.cend(), [](QChar c) {
        return c.isDigit() || (c >= u'A' && c <= u'F') || c == u'-';
    });
}

} // namespace

LibraryRead readLibrarySymbols(const QString& folder, Language language) {
    const QDir dir(folder);
    const QString listPath = dir.filePath(QStringLiteral("openmoji/openmoji.json"));
    const QString namesPath =
        dir.filePath(QStringLiteral("cldr/%1/annotations.json").arg(languageFolder(language)));
    const JsonRead list = readJson(listPath);
    const JsonRead annotations = readJson(namesPath);
    const QString unreadable = QStringLiteral("No es pot llegir la biblioteca de símbols: %1");
    if (!list.ok || !list.document.isArray())
        return {{}, unreadable, listPath};
    const QJsonObject names = annotations.document.object()
                                  .value(QLatin1String("annotations"))
                                  .toObject()
                                  .value(QLatin1String("annotations"))
                                  .toObject();
    if (!annotations.ok || names.isEmpty())
        return {{}, unreadable, namesPath};
    const QHash<QString, Names> byEmoji = namesByEmoji(names);
    LibraryRead read;
    for (const QJsonValue value : list.document.array()) {
        const QJsonObject entry = value.toObject();
        if (!entry.value(QLatin1String("skintone")).toString().isEmpty())
            continue;
        const auto found = byEmoji.constFind(
            withoutVariationSelector(entry.value(QLatin1String("emoji")).toString()));
        if (found != byEmoji.cend())
            read.symbols.append({entry.value(QLatin1String("hexcode")).toString(), found->name,
                                 found->keywords, false});
    }
    return read;
}

QString librarySymbolFile(const QString& folder, const QString& hexcode, bool colour) {
    if (!isHexcode(hexcode))
        return {};
    const QString path = QDir(folder).filePath(
        QStringLiteral("openmoji/%1/%2.svg")
            .arg(colour ? QStringLiteral("color") : QStringLiteral("black"), hexcode));
    return QFileInfo::exists(path) ? path : QString();
}

QList<Symbol> readOwnPictures(const QStringList& folders, qsizetype limit) {
    QList<Symbol> pictures;
    for (const QString& folder : folders) {
        QDirIterator it(folder, QDir::Files | QDir::Readable, QDirIterator::Subdirectories);
        while (it.hasNext() && pictures.size() < limit) {
            const QFileInfo file(it.next());
            if (!pictureSuffixes().contains(file.suffix().toLower()))
                continue;
            QString name = file.completeBaseName();
            name.replace(u'_', u' ').replace(u'-', u' ');
            pictures.append({file.absoluteFilePath(), name, {}, true});
        }
    }
    return pictures;
}

} // namespace mervak
