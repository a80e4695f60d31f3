#include "template/PageOperations.h"

#include "platform/Checked16.h"
#include "template/FileAccess.h"
#include "template/PageModel.h"

namespace mervak {

namespace {

int16_t buttonValue(bool chosen) {
    return chosen ? -1 : 0;
}

bool skipsModel(const QString& nompag, const QString& deviceModel) {
    const QString model = deviceModel.toUpper();
    return nompag == newPageName() || model == QStringLiteral("DANCEPAD") ||
           model == QStringLiteral("TRUSTMASTER");
}

std::optional<TemplateError> loadModel(const QString& folder, const QString& nompag,
                                       QList<Area>& areas) {
    const QString path = pageModelPath(folder, nompag);
    QByteArray bytes;
    if (auto error = readFileBytes(path, bytes))
        return error;
    if (auto error = readPageModel(bytes, areas))
        return readErrorFor(path, *error);
    return std::nullopt;
}

void checkRoomFor(const Template& t, qsizetype areas) {
    toInt16(t.AreaCount() + areas);
}

void appendToCurrentPage(Template& t, QList<Area>& areas) {
    t.reserveAreas(areas.size());
    for (Area& a : areas) {
        a.Page = t.CurrentPage;
        t.AppendArea(a);
    }
    t.Modified = true;
    t.CurrentArea = 0;
}

// Page pictures follow their pages: those from `firstPage` on move by `step`,
// and a picture whose page is deleted goes with it.
void movePagePictures(Template& t, int16_t firstPage, int step, int16_t deletedPage = 0) {
    QMap<int16_t, QString> moved;
    for (auto it = t.PagePictures.cbegin(); it != t.PagePictures.cend(); ++it) {
        if (it.key() == deletedPage)
            continue;
        const int page = it.key() >= firstPage ? it.key() + step : it.key();
        moved.insert(static_cast<int16_t>(page), it.value());
    }
    t.PagePictures = moved;
}

} // namespace

int16_t placingCode(bool index0Chosen, bool index1Chosen) {
    return static_cast<int16_t>(-(2 * buttonValue(index1Chosen) + buttonValue(index0Chosen)));
}

QString newPageName() {
    return QStringLiteral("Pàgina nova");
}

void insertPage(Template& t, int16_t placingCode) {
    const int16_t pages = add16(t.PageCount, 1);
    const int16_t newPage =
        placingCode == PlacingCode::Before ? t.CurrentPage : add16(t.CurrentPage, 1);
    for (int i = 1; i <= t.AreaCount(); ++i)
        if (t.area(i).Page >= newPage)
            add16(t.area(i).Page, 1);
    for (int i = 1; i <= t.AreaCount(); ++i)
        if (t.area(i).Page >= newPage)
            ++t.area(i).Page;
    movePagePictures(t, newPage, 1);
    t.PageCount = pages;
    t.CurrentPage = newPage;
    t.CurrentArea = 0;
    t.SelectedArea = 0;
    t.Modified = true;
    t.refreshPageAreaCount();
}

void deletePage(Template& t) {
    for (int i = 1; i <= t.AreaCount();) {
        Area& a = t.area(i);
        if (a.Page == t.CurrentPage) {
            t.DeleteArea(i);
            continue;
        }
        if (a.Page > t.CurrentPage)
            --a.Page;
        ++i;
    }
    movePagePictures(t, static_cast<int16_t>(t.CurrentPage + 1), -1, t.CurrentPage);
    --t.PageCount;
    t.CurrentPage = t.PageCount;
    t.CurrentArea = 1;
    t.Modified = true;
    t.refreshPageAreaCount();
}

bool hasOtherPages(const Template& t) {
    return t.PageCount > 1;
}

std::optional<TemplateError> savePageModel(const Template& t, const QString& folder,
                                           const QString& nompag) {
    return writeFileBytes(pageModelPath(folder, nompag), writePageModel(t, t.CurrentPage));
}

std::optional<TemplateError> openPageModel(Template& t, const QString& folder,
                                           const QString& nompag, int16_t placingCode,
                                           const QString& deviceModel) {
    QList<Area> areas;
    if (!skipsModel(nompag, deviceModel)) {
        if (auto error = loadModel(folder, nompag, areas))
            return error;
    }
    add16(t.PageCount, 1);
    checkRoomFor(t, areas.size());
    insertPage(t, placingCode);
    if (!skipsModel(nompag, deviceModel))
        appendToCurrentPage(t, areas);
    return std::nullopt;
}

std::optional<TemplateError> pastePageModel(Template& t, const QString& folder,
                                            const QString& nompag) {
    QList<Area> areas;
    if (auto error = loadModel(folder, nompag, areas))
        return error;
    checkRoomFor(t, areas.size());
    appendToCurrentPage(t, areas);
    return std::nullopt;
}

} // namespace mervak
