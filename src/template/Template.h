#pragma once

#include "template/Area.h"

#include <QDateTime>
#include <QList>
#include <QMap>
#include <QString>
#include <cstdint>

namespace mervak {

// An Area's rectangle with its corners in order, and its page: all the hit test
// reads, packed so that a scan of every Area stays in the cache.
struct AreaBox {
    int16_t left = 0;
    int16_t bottom = 0;
    int16_t right = 0;
    int16_t top = 0;
    int16_t page = 0;
};

// The one open Template: its stored header, its Areas and the editing cursor.
// The Areas of all Pages form one array indexed 1..AreaCount() in file order.
// Stored booleans (PlantOption, SoundActive) keep the classic -1/0 values.
class Template {
public:
    static constexpr int16_t kMaxAreas = 32767;

    Template();

    // Stored header.
    int16_t FormatVersion = 1;
    int16_t FormatRevision = 0;
    QString FitxGraf; // sheet image, as stored (Windows form kept)
    QString Ordres;
    int16_t PlantOption = 0;
    QString FitxClip;
    QString Tecles;
    QString FitxDoc;
    QString TxFinestra;
    QString descripcio;
    int16_t PageCount = 1;
    int16_t SoundActive = 0;
    int16_t HeaderFlag = 0;
    int16_t sv_idioma = 0;
    int16_t sv_locutor = 0;
    int16_t SV_velocitat = 0;

    // The size of the printed sheet in millimetres, which the sheet units span
    // edge to edge; the tablet's active surface unless the teacher chose another.
    // Stored after the last Area record, and only when it is not the tablet's.
    static constexpr int16_t kTabletWidthMm = 270;
    static constexpr int16_t kTabletHeightMm = 190;
    int16_t SheetWidthMm = kTabletWidthMm;
    int16_t SheetHeightMm = kTabletHeightMm;
    bool hasTabletSheetSize() const {
        return SheetWidthMm == kTabletWidthMm && SheetHeightMm == kTabletHeightMm;
    }

    // Each page's own background picture, stored as the other file references
    // are; stored after the last Area record. A page without one has none.
    QMap<int16_t, QString> PagePictures;
    QString pagePicture(int16_t page) const { return PagePictures.value(page); }
    void setPagePicture(int16_t page, const QString& picture);

    // A composed Template draws each page from its own picture and its cells;
    // FitxGraf then names the rendered first page, for readers that know only it.
    // Any other Template shows FitxGraf under every page, as it always has.
    bool isComposed() const;
    // Called before the first cell or page picture: an older Template showed
    // FitxGraf under every page, so every page takes it as its own and looks
    // as it did.
    void beginComposing();
    // The Template's own switch scanning, "Key=value" pairs joined by ";"; empty
    // when the user's settings apply. Stored after the last Area record.
    QString Exploracio;

    // Editing state, never stored.
    QString TemplateFileName;
    int16_t CurrentPage = 1;
    int16_t CurrentArea = 0;   // ordinal of the selected Area among the current page's Areas
    int16_t PageAreaCount = 0; // Areas on the current page
    int16_t SelectedArea = 0;  // array index of the marked Area; 0 when none
    bool Modified = false;
    QDateTime GraphDate; // last change of the sheet image when it was loaded
    bool GraphChanged = false;

    // Empties the Template: no Areas, one page, untitled, header cleared.
    void NewTemplate();

    int16_t AreaCount() const { return static_cast<int16_t>(areas_.size() - 1); }

    // Index 1..AreaCount(); anything else is a programming error. The writable
    // reference drops areaBoxes(): write through it before the next hit test.
    const Area& area(int index) const;
    Area& area(int index);

    // One box per Area, element i - 1 for Area i. Every member that can change an
    // Area drops them and the first use after it builds them again.
    const QList<AreaBox>& areaBoxes() const;

    // Makes room for `count` further Areas so that reading a file grows the array once.
    void reserveAreas(qsizetype count);

    // Appends a copy; raises PageAreaCount and CurrentArea by one and sets Modified.
    // Throws Overflow16, changing nothing, past 32767 Areas.
    void AppendArea(const Area& area);

    // Removes the Area; later ones move down one place. An index outside
    // 1..AreaCount() does nothing (SelectedArea is still cleared when it matches).
    void DeleteArea(int16_t index);

    // Array indices of the Areas of `page`, in array order.
    QList<int16_t> areasOfPage(int16_t page) const;
    int16_t countAreasOfPage(int16_t page) const;

    // PageAreaCount counted again for CurrentPage.
    void refreshPageAreaCount();

    // Select the next or previous Area of the current page. False (the caller
    // beeps) when the counter says there is none; the scan may still find none,
    // in which case nothing changes and true is returned.
    bool NextArea();
    bool PrevArea();

    bool isUntitled() const;

private:
    QList<Area> areas_; // element 0 always exists and holds no Area
    mutable QList<AreaBox> boxes_;
    mutable bool boxesCurrent_ = false;
};

// The untitled name, and the window title that shows the file name.
QString untitledName();
QString windowTitle(const Template& t);

} // namespace mervak
