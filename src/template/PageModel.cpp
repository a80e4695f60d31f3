#include "template/PageModel.h"

#include "platform/PathResolver.h"
#include "platform/TextEncoding.h"
#include "template/AreaRecord.h"

#include <QDir>

namespace mervak {

QString pageModelFileName(const QString& nompag) {
    if (nompag.endsWith(QStringLiteral(".MVP"), Qt::CaseSensitive))
        return nompag;
    const qsizetype dot = nompag.indexOf(u'.');
    if (dot < 0)
        return nompag + QStringLiteral(".MVP");
    return nompag.left(dot + 1) + QStringLiteral("MVP");
}

QString pageModelPath(const QString& folder, const QString& nompag) {
    const QString path = QDir(folder).filePath(pageModelFileName(nompag));
    const QString existing = findCaseInsensitive(path);
    return existing.isEmpty() ? path : existing;
}

QStringList listPageModels(const QString& folder) {
    QDir dir(folder);
    dir.setNameFilters({QStringLiteral("*.mvp")});
    dir.setFilter(QDir::Files);
    dir.setSorting(QDir::Name | QDir::IgnoreCase);
    return dir.entryList();
}

QByteArray writePageModel(const Template& t, int16_t page) {
    FieldWriter out;
    for (int16_t index : t.areasOfPage(page))
        writeAreaRecord(out, t.area(index), kPageModelRecord);
    return out.bytes();
}

std::optional<TemplateError> readPageModel(const QByteArray& bytes, QList<Area>& areas) {
    const QString text = decodeFileText(bytes).text;
    FieldReader in(text);
    try {
        while (!in.atEnd()) {
            if (areas.size() >= Template::kMaxAreas)
                return TemplateError{TemplateMessage::ReadError, {}, in.line(), {}};
            areas.append(readAreaRecord(in, kPageModelRecord));
        }
    } catch (const FieldError& e) {
        return TemplateError{TemplateMessage::ReadError, {}, e.line, {}};
    }
    return std::nullopt;
}

} // namespace mervak
