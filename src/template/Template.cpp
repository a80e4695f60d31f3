#include "template/Template.h"

#include "platform/Checked16.h"

#include <QtGlobal>
#include <algorithm>

namespace mervak {

QString untitledName() {
    return QStringLiteral("(Sense Nom)");
}

QString windowTitle(const Template& t) {
    return QStringLiteral("Mervak - ") + t.TemplateFileName;
}

Template::Template() : TemplateFileName(untitledName()), areas_(1) {}

void Template::setPagePicture(int16_t page, const QString& picture) {
    if (picture.isEmpty())
        PagePictures.remove(page);
    else
        PagePictures.insert(page, picture);
}

bool Template::isComposed() const {
    if (!PagePictures.isEmpty())
        return true;
    return std::any_of(areas_.cbegin() + 1, areas_.cend(),
                       [](const Area& a) { return a.Cell.has_value(); });
}

void Template::beginComposing() {
    if (isComposed() || FitxGraf.isEmpty())
        return;
    for (int16_t page = 1; page <= PageCount; ++page)
        setPagePicture(page, FitxGraf);
}

void Template::NewTemplate() {
    *this = Template();
}

const Area& Template::area(int index) const {
    Q_ASSERT(index >= 1 && index <= AreaCount());
    return areas_[index];
}

Area& Template::area(int index) {
    Q_ASSERT(index >= 1 && index <= AreaCount());
    boxesCurrent_ = false;
    return areas_[index];
}

const QList<AreaBox>& Template::areaBoxes() const {
    if (boxesCurrent_)
        return boxes_;
    boxes_.clear();
    boxes_.reserve(AreaCount());
    for (int i = 1; i <= AreaCount(); ++i) {
        const Area& a = areas_[i];
        const auto [left, right] = std::minmax(a.X0, a.X1);
        const auto [bottom, top] = std::minmax(a.Y0, a.Y1);
        boxes_.append({left, bottom, right, top, a.Page});
    }
    boxesCurrent_ = true;
    return boxes_;
}

void Template::reserveAreas(qsizetype count) {
    if (count > 0)
        areas_.reserve(areas_.size() + qMin<qsizetype>(count, kMaxAreas));
}

void Template::AppendArea(const Area& area) {
    const int16_t pageAreas = add16(PageAreaCount, 1);
    const int16_t current = add16(CurrentArea, 1);
    add16(AreaCount(), 1);
    areas_.append(area);
    boxesCurrent_ = false;
    PageAreaCount = pageAreas;
    CurrentArea = current;
    Modified = true;
}

void Template::DeleteArea(int16_t index) {
    if (index == SelectedArea)
        SelectedArea = 0;
    if (index < 1 || index > AreaCount())
        return;
    areas_.removeAt(index);
    boxesCurrent_ = false;
    PageAreaCount = sub16(PageAreaCount, 1);
    CurrentArea = sub16(CurrentArea, 1);
}

QList<int16_t> Template::areasOfPage(int16_t page) const {
    QList<int16_t> indices;
    for (int i = 1; i <= AreaCount(); ++i)
        if (areas_[i].Page == page)
            indices.append(i);
    return indices;
}

int16_t Template::countAreasOfPage(int16_t page) const {
    int16_t count = 0;
    for (int i = 1; i <= AreaCount(); ++i)
        if (areas_[i].Page == page)
            ++count;
    return count;
}

void Template::refreshPageAreaCount() {
    PageAreaCount = countAreasOfPage(CurrentPage);
}

bool Template::NextArea() {
    if (CurrentArea >= PageAreaCount)
        return false;
    for (int i = SelectedArea + 1; i <= AreaCount(); ++i) {
        if (areas_[i].Page == CurrentPage) {
            ++CurrentArea;
            SelectedArea = static_cast<int16_t>(i);
            break;
        }
    }
    return true;
}

bool Template::PrevArea() {
    if (CurrentArea <= 1)
        return false;
    for (int i = qMin<int>(SelectedArea - 1, AreaCount()); i >= 1; --i) {
        if (areas_[i].Page == CurrentPage) {
            --CurrentArea;
            SelectedArea = static_cast<int16_t>(i);
            break;
        }
    }
    return true;
}

bool Template::isUntitled() const {
    return TemplateFileName.compare(QStringLiteral("(Sense nom)"), Qt::CaseInsensitive) == 0;
}

} // namespace mervak
