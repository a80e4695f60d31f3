#pragma once

#include "editor/AreaGeometry.h"
#include "editor/AreaSelection.h"
#include "editor/UndoSnapshot.h"
#include "platform/Language.h"
#include "session/Session.h"
#include "template/Template.h"

#include <QObject>
#include <QPoint>
#include <functional>
#include <optional>

namespace mervak {

// The coordinates of the selected Area as its four text fields and bars name them.
enum class Coordinate { X0, Y0, X1, Y1 };

// The edits of the Areas of the current page. Every edit takes the undo snapshot
// first, sets Modified and emits changed(). A run of like edits of one Area
// shares one snapshot, so that one undo takes it back whole: a drag, the typing
// of its ActionText, the steps of one coordinate's bar, a run of arrow keys. Edits that need a
// selected Area beep and return false without one. Coordinates are sheet units, kept inside the
// sheet.
class AreaEditor : public QObject {
    Q_OBJECT
public:
    struct Context {
        Session& session; // the Template edited, the language of the messages
        UndoSnapshot& snapshot;
        std::function<void()> beep;
    };

    explicit AreaEditor(Context context, QObject* parent = nullptr);

    // The selected Area, or nullptr.
    const Area* selected() const;

    // Forgets gestures in progress, counts the current page's Areas again and
    // redraws, after the Template was replaced or changed elsewhere (a file
    // opened, a page edited). The selection stays when it is on the current page.
    void reset();

    // What the area and page counters show: "0/0 àrees" and "0/0 pàgines" from
    // the start until the first change of selection, page or Areas, then as
    // counterTexts() gives them.
    CounterTexts counters() const;

    void select(int16_t index); // as a pick on the sheet; 0 or a bad index selects none
    void selectAt(int16_t x, int16_t y);
    void nextArea(); // beeps past the last Area of the page
    void previousArea();
    // Shows the page with its first Area selected; false, and nothing else,
    // when there is no such page or it is shown already.
    bool showPage(int page);

    bool addArea(const SheetRect& rect); // on the current page, then selected
    bool addArea();                      // a square in the middle of the sheet
    bool deleteArea();
    bool maximizeArea(); // the whole sheet: the selected Area, or a new one without
    bool setCoordinate(Coordinate which, int value);
    bool moveArea(int dx, int dy);
    bool resizeArea(int dRight, int dTop);
    bool setActionText(const QString& text);
    bool setRepeatReadings(bool on);
    // The selected Area's cell; none takes it away. Typing its label is one run.
    bool setCell(const std::optional<AreaCell>& cell);
    // The current page's own background picture, as stored; empty takes it away.
    // Needs no selected Area.
    bool setPagePicture(const QString& picture);

    // A change of the whole Template made by `edit` (a grid of cells, a new
    // page): the snapshot first, then the current page shown with its first
    // Area selected. A count that would overflow changes nothing and is reported.
    bool editTemplate(const std::function<void(Template&)>& edit);

    // Grid subdivision: the snapshot is taken when the dialog opens, so that
    // the split itself changes nothing more than it must. False (a beep) when
    // no Area is selected.
    bool beginSubdivide();
    bool subdivide(int columns, int rows);

    // Puts back the Template of the last snapshot, on the page shown (when it
    // still exists), with the same Area selected when it is still there.
    bool undo();

    // A mouse drag on the selected Area, measured from where it started.
    void beginDrag(Grip grip);
    void dragBy(int dx, int dy);
    void endDrag();

    // Drawing a new Area, with the mouse or with the pen. It is added when it
    // ends with width and height.
    void startDrawing(QPoint point);
    void drawTo(QPoint point);
    bool finishDrawing();
    std::optional<SheetRect> drawing() const { return drawing_; }

    // The pen's drawing; it ends at the last point seen (the pen has left the
    // sheet and reports no position then).
    void drawWithDevice(int16_t x, int16_t y, DrawPhase phase);

signals:
    // Areas, page or selection changed.
    void changed();
    // The rectangle being drawn changed, appeared or went.
    void drawingChanged();
    // Something the user should read: the snapshot could not be written, a count overflowed.
    void problem(const QString& message);

private:
    void keepSelection(int16_t index);
    bool needSelection();
    void takeSnapshot(UndoSnapshot::Mode mode);
    // Takes the snapshot unless the last edit was of the same run.
    void snapshotForRun(const QString& run);
    void edited();
    void selectOrdinal(int ordinal);
    bool setSelectedRect(const SheetRect& rect);
    bool nudgeArea(Grip grip, int dx, int dy);
    void reportOverflow();

    Context context_;
    Template& t_;
    bool atStart_ = true;
    QString run_; // the run of like edits the last snapshot was taken for
    struct Drag {
        Grip grip = Grip::None;
        SheetRect start;
        bool snapshotTaken = false;
    };
    std::optional<Drag> drag_;
    QPoint drawStart_;
    std::optional<SheetRect> drawing_;
};

} // namespace mervak
