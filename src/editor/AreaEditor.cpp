#include "editor/AreaEditor.h"

#include "editor/GridSplit.h"
#include "platform/Checked16.h"
#include "template/AreaHitTest.h"

#include <algorithm>

namespace mervak {

namespace {

constexpr int16_t kNewAreaSide = 20;

} // namespace

AreaEditor::AreaEditor(Context context, QObject* parent)
    : QObject(parent), context_(std::move(context)), t_(context_.session.tmpl) {}

const Area* AreaEditor::selected() const {
    const int16_t index = t_.SelectedArea;
    return index >= 1 && index <= t_.AreaCount() ? &t_.area(index) : nullptr;
}

void AreaEditor::reset() {
    run_.clear();
    drag_.reset();
    drawing_.reset();
    emit drawingChanged();
    // Another Template, or one changed elsewhere, ends the start; the empty
    // Template the program starts with (or a new one like it) does not.
    atStart_ = atStart_ && t_.isUntitled() && t_.AreaCount() == 0 && !t_.Modified;
    keepSelection(t_.SelectedArea);
    emit changed();
}

CounterTexts AreaEditor::counters() const {
    return atStart_ ? startCounterTexts() : counterTexts(t_);
}

void AreaEditor::select(int16_t index) {
    atStart_ = false;
    run_.clear();
    keepSelection(index);
    emit changed();
}

void AreaEditor::keepSelection(int16_t index) {
    if (index < 1 || index > t_.AreaCount() || t_.area(index).Page != t_.CurrentPage) {
        t_.SelectedArea = 0;
        t_.CurrentArea = 0;
        t_.refreshPageAreaCount();
    } else {
        pickArea(t_, index);
    }
}

void AreaEditor::selectAt(int16_t x, int16_t y) {
    select(FindArea(t_, x, y).index);
}

void AreaEditor::nextArea() {
    atStart_ = false;
    if (!t_.NextArea())
        context_.beep();
    emit changed();
}

void AreaEditor::previousArea() {
    atStart_ = false;
    if (!t_.PrevArea())
        context_.beep();
    emit changed();
}

bool AreaEditor::showPage(int page) {
    if (page < 1 || page > t_.PageCount || page == t_.CurrentPage)
        return false;
    atStart_ = false;
    run_.clear();
    t_.CurrentPage = static_cast<int16_t>(page);
    selectFirstAreaOfPage(t_);
    emit changed();
    return true;
}

bool AreaEditor::needSelection() {
    if (selected())
        return true;
    context_.beep();
    return false;
}

void AreaEditor::takeSnapshot(UndoSnapshot::Mode mode) {
    run_.clear();
    if (auto error = context_.snapshot.run(t_, mode))
        emit problem(error->text(context_.session.language()));
}

void AreaEditor::snapshotForRun(const QString& run) {
    const QString key = run + u':' + QString::number(t_.SelectedArea);
    if (run_ == key)
        return;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    run_ = key;
}

void AreaEditor::edited() {
    atStart_ = false;
    t_.Modified = true;
    emit changed();
}

void AreaEditor::reportOverflow() {
    emit problem(
        TranslateCaption(context_.session.language(), QStringLiteral("Desbordament numèric")));
}

bool AreaEditor::addArea(const SheetRect& rect) {
    if (t_.AreaCount() == Template::kMaxAreas) {
        reportOverflow();
        return false;
    }
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    Area area;
    setRect(area, rect);
    area.Page = t_.CurrentPage;
    t_.AppendArea(area);
    pickArea(t_, t_.AreaCount());
    edited();
    return true;
}

bool AreaEditor::addArea() {
    const int16_t low = (kSheetUnits - kNewAreaSide) / 2;
    const int16_t high = low + kNewAreaSide;
    return addArea(SheetRect{low, low, high, high});
}

bool AreaEditor::deleteArea() {
    if (!needSelection())
        return false;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    const int ordinal = t_.areasOfPage(t_.CurrentPage).indexOf(t_.SelectedArea) + 1;
    t_.DeleteArea(t_.SelectedArea);
    selectOrdinal(ordinal);
    edited();
    return true;
}

// The Area at the ordinal among the current page's Areas, or the last one when
// fewer remain, so that deleting again goes on with its neighbour.
void AreaEditor::selectOrdinal(int ordinal) {
    const QList<int16_t> onPage = t_.areasOfPage(t_.CurrentPage);
    if (onPage.isEmpty()) {
        t_.SelectedArea = 0;
        t_.CurrentArea = 0;
        t_.PageAreaCount = 0;
        return;
    }
    pickArea(t_, onPage[std::clamp(ordinal, 1, static_cast<int>(onPage.size())) - 1]);
}

bool AreaEditor::maximizeArea() {
    const SheetRect whole{0, 0, kSheetUnits, kSheetUnits};
    if (!selected())
        return addArea(whole);
    return setSelectedRect(whole);
}

bool AreaEditor::setSelectedRect(const SheetRect& rect) {
    if (!needSelection())
        return false;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    setRect(t_.area(t_.SelectedArea), rect);
    edited();
    return true;
}

bool AreaEditor::setCoordinate(Coordinate which, int value) {
    if (!needSelection())
        return false;
    Area& area = t_.area(t_.SelectedArea);
    int16_t* field = which == Coordinate::X0   ? &area.X0
                     : which == Coordinate::Y0 ? &area.Y0
                     : which == Coordinate::X1 ? &area.X1
                                               : &area.Y1;
    const int16_t clamped = clampToSheet(value);
    if (*field == clamped)
        return true;
    snapshotForRun(QStringLiteral("coordinate%1").arg(static_cast<int>(which)));
    *field = clamped;
    edited();
    return true;
}

bool AreaEditor::moveArea(int dx, int dy) {
    return nudgeArea(Grip::Body, dx, dy);
}

bool AreaEditor::resizeArea(int dRight, int dTop) {
    return nudgeArea(Grip::TopRight, dRight, dTop);
}

bool AreaEditor::nudgeArea(Grip grip, int dx, int dy) {
    if (!needSelection())
        return false;
    const SheetRect start = rectOf(*selected());
    const SheetRect target = dragRect(start, grip, dx, dy);
    if (target == start)
        return true;
    snapshotForRun(QStringLiteral("keys"));
    setRect(t_.area(t_.SelectedArea), target);
    edited();
    return true;
}

bool AreaEditor::setActionText(const QString& text) {
    if (!needSelection())
        return false;
    if (selected()->ActionText == text)
        return true;
    snapshotForRun(QStringLiteral("text"));
    t_.area(t_.SelectedArea).ActionText = text;
    edited();
    return true;
}

bool AreaEditor::setRepeatReadings(bool on) {
    if (!needSelection())
        return false;
    const int16_t flags = on ? -1 : 0;
    if ((selected()->Flags != 0) == on)
        return true;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    t_.area(t_.SelectedArea).Flags = flags;
    edited();
    return true;
}

bool AreaEditor::setCell(const std::optional<AreaCell>& cell) {
    if (!needSelection())
        return false;
    const std::optional<AreaCell>& now = selected()->Cell;
    if (now == cell)
        return true;
    const bool onlyLabel =
        now && cell &&
        AreaCell{now->Picture, cell->Label, now->Placement, now->Background, now->Border} == *cell;
    if (onlyLabel)
        snapshotForRun(QStringLiteral("label"));
    else
        takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    t_.beginComposing();
    t_.area(t_.SelectedArea).Cell = cell;
    edited();
    return true;
}

bool AreaEditor::setPagePicture(const QString& picture) {
    if (t_.pagePicture(t_.CurrentPage) == picture && t_.isComposed())
        return true;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    t_.beginComposing();
    t_.setPagePicture(t_.CurrentPage, picture);
    edited();
    return true;
}

bool AreaEditor::editTemplate(const std::function<void(Template&)>& edit) {
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    try {
        edit(t_);
    } catch (const Overflow16&) {
        reportOverflow();
        return false;
    }
    t_.refreshPageAreaCount();
    selectFirstAreaOfPage(t_);
    edited();
    return true;
}

bool AreaEditor::beginSubdivide() {
    if (!needSelection())
        return false;
    takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
    return true;
}

bool AreaEditor::subdivide(int columns, int rows) {
    try {
        const SplitResult result =
            subdivideSelectedArea(t_, static_cast<int16_t>(std::clamp(columns, 0, 32767)),
                                  static_cast<int16_t>(std::clamp(rows, 0, 32767)));
        if (result != SplitResult::Done) {
            context_.beep();
            return false;
        }
    } catch (const Overflow16&) {
        reportOverflow();
        return false;
    }
    run_.clear();
    t_.refreshPageAreaCount();
    t_.SelectedArea = 0;
    t_.CurrentArea = 0;
    edited();
    return true;
}

bool AreaEditor::undo() {
    const int16_t page = t_.CurrentPage;
    const int16_t selection = t_.SelectedArea;
    if (auto error = context_.snapshot.run(t_, UndoSnapshot::Mode::Undo)) {
        emit problem(error->text(context_.session.language()));
        return false;
    }
    t_.CurrentPage = std::clamp<int16_t>(page, 1, std::max<int16_t>(t_.PageCount, 1));
    t_.SelectedArea = selection; // kept by reset() when that Area is still on the page
    t_.Modified = true;
    atStart_ = false;
    reset();
    return true;
}

void AreaEditor::beginDrag(Grip grip) {
    drag_.reset();
    if (grip == Grip::None || !selected())
        return;
    drag_ = Drag{grip, rectOf(*selected()), false};
}

void AreaEditor::dragBy(int dx, int dy) {
    if (!drag_ || !selected())
        return;
    const SheetRect target = dragRect(drag_->start, drag_->grip, dx, dy);
    if (target == rectOf(*selected()))
        return;
    if (!drag_->snapshotTaken) {
        takeSnapshot(UndoSnapshot::Mode::BeforeEdit);
        drag_->snapshotTaken = true;
    }
    setRect(t_.area(t_.SelectedArea), target);
    edited();
}

void AreaEditor::endDrag() {
    drag_.reset();
}

void AreaEditor::startDrawing(QPoint point) {
    drawStart_ = point;
    drawing_ = spanRect(point, point);
    emit drawingChanged();
}

void AreaEditor::drawTo(QPoint point) {
    if (!drawing_)
        return;
    drawing_ = spanRect(drawStart_, point);
    emit drawingChanged();
}

bool AreaEditor::finishDrawing() {
    if (!drawing_)
        return false;
    const SheetRect rect = *drawing_;
    drawing_.reset();
    emit drawingChanged();
    if (rect.width() < 1 || rect.height() < 1)
        return false;
    return addArea(rect);
}

void AreaEditor::drawWithDevice(int16_t x, int16_t y, DrawPhase phase) {
    if (phase == DrawStart)
        startDrawing(QPoint(x, y));
    else if (phase == DrawMove)
        drawTo(QPoint(x, y));
    else
        finishDrawing();
}

} // namespace mervak
