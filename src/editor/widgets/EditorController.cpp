#include "editor/widgets/EditorController.h"

#include "action/ActionMessages.h"
#include "action/KeysPreview.h"
#include "editor/RecentFiles.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "editor/widgets/GridDialog.h"
#include "editor/widgets/SheetGridDialog.h"
#include "platform/AtomicFile.h"
#include "platform/PathResolver.h"
#include "platform/Settings.h"
#include "sheet/PageRender.h"
#include "sheet/PlainLabel.h"
#include "sheet/SheetPainter.h"
#include "sheet/SheetStyle.h"
#include "template/PageModel.h"

#include <QAction>
#include <QClipboard>
#include <QDir>
#include <QFileInfo>
#include <QGuiApplication>
#include <QLineEdit>
#include <QPainter>
#include <QSvgRenderer>

namespace mervak {

EditorController::EditorController(Context context, Views views, QObject* parent)
    : QObject(parent), context_(std::move(context)), views_(views),
      snapshot_(context_.session.homeFolder), areas_({context_.session, snapshot_, context_.beep}),
      pages_(context_.session.tmpl, snapshot_, context_.session.homeFolder),
      interaction_(*views_.pane.sheet(), areas_) {
    connect(&areas_, &AreaEditor::changed, this, &EditorController::showTemplate);
    connect(&areas_, &AreaEditor::drawingChanged, this,
            [this] { views_.pane.sheet()->setDrawing(areas_.drawing()); });
    connect(&areas_, &AreaEditor::problem, this,
            [this](const QString& text) { context_.showStatus(text); });
    connect(&interaction_, &SheetInteraction::pressedAt, this, [this](QPointF point) {
        if (views_.pane.fitsWhole())
            emit sheetPressed(point);
    });
    connect(&interaction_, &SheetInteraction::areaPicked, this,
            [this] { views_.panel.actionText()->setFocus(Qt::MouseFocusReason); });
    wirePanel();
    wirePane();
    wireCells();
    showTemplate();
}

void EditorController::wirePanel() {
    AreaPanel& panel = views_.panel;
    connect(&panel, &AreaPanel::previousAreaClicked, &areas_, &AreaEditor::previousArea);
    connect(&panel, &AreaPanel::nextAreaClicked, &areas_, &AreaEditor::nextArea);
    connect(&panel, &AreaPanel::previousPageClicked, this, &EditorController::previousPage);
    connect(&panel, &AreaPanel::nextPageClicked, this, &EditorController::nextPage);
    connect(&panel, &AreaPanel::coordinateTyped, &areas_, &AreaEditor::setCoordinate);
    connect(&panel, &AreaPanel::actionTextEdited, &areas_, &AreaEditor::setActionText);
    connect(&panel, &AreaPanel::repeatReadingsToggled, &areas_, &AreaEditor::setRepeatReadings);
    connect(&panel, &AreaPanel::tryClicked, this, [this] {
        const QString text = views_.panel.actionText()->text();
        if (text.isEmpty())
            return;
        // What an earlier try left in the status line is not this one's.
        context_.showStatus(QString());
        context_.runActionText(text);
    });
    connect(panel.commands(), &CommandMenu::commandChosen, this, &EditorController::insertCommand);
    connect(panel.commands(), &CommandMenu::textChosen, this, &EditorController::insertText);
    connect(&views_.frame, &PageFrame::confirmed, this, &EditorController::confirmPageFrame);
    connect(&views_.frame, &PageFrame::cancelled, &views_.frame, &PageFrame::hide);
}

void EditorController::wirePane() {
    connect(&views_.pane, &SheetPane::coordinateEdited, &areas_, &AreaEditor::setCoordinate);
}

void EditorController::wireCells() {
    CellPanel* cells = views_.panel.cells();
    connect(cells, &CellPanel::cellEdited, &areas_, &AreaEditor::setCell);
    connect(cells, &CellPanel::pictureFileRequested, this, [this] {
        const QString path = choosePicture(QStringLiteral("Imatge de la cel·la"));
        if (!path.isEmpty())
            setCellPicture(storedPicture(path));
    });
    connect(cells, &CellPanel::pictureFileDropped, this,
            [this](const QString& path) { setCellPicture(storedPicture(path)); });
    connect(cells, &CellPanel::pictureImageGiven, this, &EditorController::keepPastedPicture);
    connect(cells, &CellPanel::pastePictureRequested, this, [this] {
        const QImage image = QGuiApplication::clipboard()->image();
        if (image.isNull())
            context_.showStatus(TranslateCaption(
                context_.session.language(), QStringLiteral("El porta-retalls no té cap imatge")));
        else
            keepPastedPicture(image);
    });
    connect(cells, &CellPanel::pagePictureRequested, this, [this] {
        const QString path = choosePicture(QStringLiteral("Caràtula:"));
        if (!path.isEmpty())
            areas_.setPagePicture(storedPicture(path));
    });
    connect(cells, &CellPanel::pagePictureCleared, this, [this] { areas_.setPagePicture({}); });
}

PictureFiles EditorController::pictureFiles() const {
    const Template& t = context_.session.tmpl;
    return {t.isUntitled() ? context_.session.workingFolder()
                           : QFileInfo(t.TemplateFileName).absolutePath(),
            symbols_};
}

QString EditorController::storedPicture(const QString& path) const {
    return storedFileName(path, pictureFiles().templateFolder, CommandFile::Picture);
}

QString EditorController::choosePicture(const QString& title) {
    const Language language = context_.session.language();
    const QList<FileFilter> filters = {
        {Message(language, Msg::PictureFiles),
         {QStringLiteral("*.png"), QStringLiteral("*.jpg"), QStringLiteral("*.jpeg"),
          QStringLiteral("*.svg"), QStringLiteral("*.gif"), QStringLiteral("*.bmp")}},
        {Message(language, Msg::AllFiles), {QStringLiteral("*")}}};
    return chooseFileToOpen(&views_.window, language, title, filters,
                            pictureFiles().templateFolder);
}

void EditorController::setCellPicture(const QString& stored) {
    const Area* area = areas_.selected();
    if (!area) {
        context_.beep();
        return;
    }
    AreaCell cell = area->Cell.value_or(AreaCell{});
    if (!area->Cell)
        cell.Border = kDefaultBorder;
    cell.Picture = stored;
    if (cell.Placement == LabelPlacement::Alone)
        cell.Placement = LabelPlacement::Below;
    areas_.setCell(cell);
}

// A pasted or dropped drawing becomes a file beside the Template, so that the
// Template names it as it names every picture.
void EditorController::keepPastedPicture(const QImage& image) {
    if (!areas_.selected()) {
        context_.beep();
        return;
    }
    const QDir folder(pictureFiles().templateFolder);
    QString name;
    for (int n = 1; name.isEmpty() || folder.exists(name); ++n)
        name = QStringLiteral("dibuix-%1.png").arg(n);
    QString why;
    if (!writeFileAtomically(folder.filePath(name), pngBytes(image), &why)) {
        context_.showStatus(folder.filePath(name) + QStringLiteral(": ") + why);
        return;
    }
    setCellPicture(name);
}

void EditorController::bindActions(const EditorActions& actions) {
    AreaEditor* areas = &areas_;
    connect(actions.draw, &QAction::toggled, this, &EditorController::setDrawMode);
    connect(actions.addArea, &QAction::triggered, areas, [areas] { areas->addArea(); });
    connect(actions.deleteArea, &QAction::triggered, areas, &AreaEditor::deleteArea);
    connect(actions.maximumArea, &QAction::triggered, areas, &AreaEditor::maximizeArea);
    connect(actions.subdivide, &QAction::triggered, this, &EditorController::subdivide);
    connect(actions.previousArea, &QAction::triggered, areas, &AreaEditor::previousArea);
    connect(actions.nextArea, &QAction::triggered, areas, &AreaEditor::nextArea);
    connect(actions.undo, &QAction::triggered, this, &EditorController::undo);
    connect(actions.previousPage, &QAction::triggered, this, &EditorController::previousPage);
    connect(actions.nextPage, &QAction::triggered, this, &EditorController::nextPage);
    connect(actions.addPage, &QAction::triggered, this,
            [this] { openPageFrame(PageFrame::Operation::Open); });
    connect(actions.insertPageBefore, &QAction::triggered, this,
            [this] { openPageFrame(PageFrame::Operation::Open, true); });
    connect(actions.insertPageAfter, &QAction::triggered, this,
            [this] { openPageFrame(PageFrame::Operation::Open, false); });
    connect(actions.deletePage, &QAction::triggered, this, &EditorController::deletePage);
    connect(actions.savePageModel, &QAction::triggered, this,
            [this] { openPageFrame(PageFrame::Operation::Save); });
    connect(actions.pastePageModel, &QAction::triggered, this,
            [this] { openPageFrame(PageFrame::Operation::Paste); });
    if (actions.cellGrid)
        connect(actions.cellGrid, &QAction::triggered, this, &EditorController::composeGrid);
    SheetPane* pane = &views_.pane;
    connect(actions.zoomIn, &QAction::triggered, pane, &SheetPane::zoomIn);
    connect(actions.zoomOut, &QAction::triggered, pane, &SheetPane::zoomOut);
    connect(actions.zoomToFit, &QAction::triggered, pane, &SheetPane::zoomToFit);
    actions_ = actions;
    showTemplate();
}

void EditorController::keepForUndo(const Template& before) {
    if (auto error = snapshot_.take(before))
        context_.showStatus(error->text(context_.session.language()));
}

void EditorController::refresh(bool anotherTemplate) {
    if (anotherTemplate)
        snapshot_.forget();
    areas_.reset();
}

void EditorController::refreshCatalogue() {
    views_.panel.commands()->setCatalogue(context_.session.catalogue, context_.session.language());
}

void EditorController::retranslate() {
    views_.frame.setLanguage(context_.session.language());
    refreshCatalogue();
    showTemplate();
}

QList<SheetArea> EditorController::sheetAreas() const {
    const Template& t = context_.session.tmpl;
    QList<SheetArea> areas;
    const QList<int16_t> page = t.areasOfPage(t.CurrentPage);
    for (int ordinal = 1; ordinal <= page.size(); ++ordinal) {
        const int16_t index = page[ordinal - 1];
        const Area& area = t.area(index);
        // A cell shows its own label on the sheet.
        const QString label = area.Cell ? QString() : context_.areaLabel(area.ActionText);
        areas.append({rectOf(area), label, index == t.SelectedArea, ordinal});
    }
    return areas;
}

// The sheet image is read again only when its name or its file changed.
QImage EditorController::sheetPicture() {
    const Template& t = context_.session.tmpl;
    if (t.isComposed())
        return composedPicture();
    if (t.FitxGraf.isEmpty()) {
        picturePath_.clear();
        picture_ = QImage();
        return picture_;
    }
    const QString folder = t.isUntitled() ? context_.session.workingFolder()
                                          : QFileInfo(t.TemplateFileName).absolutePath();
    const QString path = resolveStoredPath(t.FitxGraf, folder);
    const QString stamp = path + QFileInfo(path).lastModified().toString(Qt::ISODateWithMs);
    if (stamp != picturePath_) {
        picturePath_ = stamp;
        picture_ = QImage(path);
    }
    return picture_;
}

// Drawn at about 110 dots per inch, sharp on a large screen, and only when
// something the page shows has changed.
QImage EditorController::composedPicture() {
    constexpr double kScreenDpi = 110;
    const Template& t = context_.session.tmpl;
    const PictureFiles files = pictureFiles();
    QString key = QStringLiteral("%1 %2x%3 %4 %5")
                      .arg(files.templateFolder)
                      .arg(t.SheetWidthMm)
                      .arg(t.SheetHeightMm)
                      .arg(t.CurrentPage)
                      .arg(t.pagePicture(t.CurrentPage));
    for (const int16_t index : t.areasOfPage(t.CurrentPage)) {
        const Area& a = t.area(index);
        if (!a.Cell)
            continue;
        key += QStringLiteral("|%1,%2,%3,%4 %5 %6 %7 %8 %9")
                   .arg(a.X0)
                   .arg(a.Y0)
                   .arg(a.X1)
                   .arg(a.Y1)
                   .arg(a.Cell->Picture, SheetPainter::cellLabel(a))
                   .arg(static_cast<int>(a.Cell->Placement))
                   .arg(colourText(a.Cell->Background), colourText(a.Cell->Border));
    }
    if (key != composedKey_) {
        composedKey_ = key;
        composed_ = renderPageImage(t, t.CurrentPage, sheetPixels(t, kScreenDpi), files,
                                    {false, context_.session.language()});
    }
    return composed_;
}

void EditorController::showCell(const Area* area) {
    QImage preview;
    if (area && area->Cell) {
        const QString path = pictureFiles().find(area->Cell->Picture);
        if (path.endsWith(QLatin1String(".svg"), Qt::CaseInsensitive)) {
            QSvgRenderer drawing(path);
            preview = QImage(64, 64, QImage::Format_ARGB32_Premultiplied);
            preview.fill(Qt::transparent);
            QPainter painter(&preview);
            drawing.render(&painter);
        } else if (!path.isEmpty()) {
            preview = QImage(path);
        }
    }
    CellPanel* cells = views_.panel.cells();
    cells->showCell(area != nullptr, area ? area->Cell : std::nullopt,
                    area ? plainLabel(area->ActionText) : QString(), preview);
    cells->showPagePicture(context_.session.tmpl.pagePicture(context_.session.tmpl.CurrentPage));
}

void EditorController::showTemplate() {
    const Language language = context_.session.language();
    SheetView* sheet = views_.pane.sheet();
    sheet->setSheetSize(sheetSizeMm(context_.session.tmpl));
    sheet->setPicture(sheetPicture());
    sheet->setAreas(sheetAreas());
    const Area* selected = areas_.selected();
    views_.pane.showArea(selected);
    views_.panel.showArea(selected);
    showCell(selected);
    showKeysPreview(selected);
    const CounterTexts counters = areas_.counters();
    views_.panel.setCounters(translateCounter(language, counters.MsgArea),
                             translateCounter(language, counters.MsgPagina));
    if (actions_.deletePage)
        actions_.deletePage->setEnabled(pages_.canDeletePage());
    if (actions_.undo)
        actions_.undo->setEnabled(snapshot_.canUndo());
    views_.window.setWindowModified(context_.session.tmpl.Modified);
    emit templateChanged();
}

void EditorController::showKeysPreview(const Area* area) {
    const KeysPreview preview = KeysPreview::of(area ? area->ActionText : QString());
    if (!preview.error) {
        views_.panel.showKeysPreview(preview.text);
        return;
    }
    const SendKeysError& error = *preview.error;
    const bool braced = error.kind == SendKeysError::Kind::UnknownKeyName ||
                        error.kind == SendKeysError::Kind::BadRepeatCount;
    views_.panel.showKeysPreview(preview.text,
                                 notationErrorMessage(context_.session.language(), error),
                                 error.position, braced ? error.detail.size() + 2 : 1);
}

void EditorController::setDrawMode(bool on) {
    interaction_.setDrawMode(on);
}

void EditorController::subdivide() {
    const Area* area = areas_.selected();
    if (!area) {
        context_.beep();
        context_.showStatus(TranslateCaption(context_.session.language(),
                                             QStringLiteral("Subdividir: primer trieu una àrea")));
        return;
    }
    const SheetRect rect = rectOf(*area);
    GridDialog dialog(context_.session.language(), QSizeF(rect.width(), rect.height()),
                      &views_.window);
    dialog.setCounts(gridColumns_, gridRows_);
    if (!areas_.beginSubdivide() || dialog.exec() != QDialog::Accepted)
        return;
    gridColumns_ = dialog.columns();
    gridRows_ = dialog.rows();
    areas_.subdivide(gridColumns_, gridRows_);
}

void EditorController::undo() {
    views_.frame.hide();
    areas_.undo();
}

// At the first and the last page the buttons do nothing, without a beep.
void EditorController::previousPage() {
    areas_.showPage(context_.session.tmpl.CurrentPage - 1);
}

void EditorController::nextPage() {
    areas_.showPage(context_.session.tmpl.CurrentPage + 1);
}

void EditorController::openPageFrame(PageFrame::Operation operation, bool before) {
    views_.frame.start(operation, listPageModels(pages_.modelsFolder()),
                       context_.session.language(), before);
}

void EditorController::confirmPageFrame() {
    PageFrame& frame = views_.frame;
    const QString name = frame.nompag();
    if (name.isEmpty()) {
        context_.beep();
        frame.nameField()->setFocus(Qt::OtherFocusReason);
        return;
    }
    frame.hide();
    switch (frame.operation()) {
    case PageFrame::Operation::Save:
        report(pages_.saveModel(name));
        return;
    case PageFrame::Operation::Open:
        report(pages_.addPage(name, frame.placingCode(), context_.session.settings.model));
        break;
    case PageFrame::Operation::Paste:
        report(pages_.pasteModel(name));
        break;
    }
    areas_.reset();
}

void EditorController::deletePage() {
    if (!pages_.canDeletePage()) {
        context_.beep();
        return;
    }
    if (!confirmCritical(&views_.window, context_.session.language(), Msg::ConfirmPageDelete))
        return;
    report(pages_.deletePage());
    areas_.reset();
}

void EditorController::composeGrid() {
    SheetGridDialog dialog(context_.session.language(), cellGrid_, &views_.window);
    if (dialog.exec() != QDialog::Accepted)
        return;
    cellGrid_ = dialog.spec();
    const GridSpec spec = cellGrid_;
    if (dialog.onNewPage())
        areas_.editTemplate([spec](Template& t) { addGridPage(t, spec); });
    else
        areas_.editTemplate([spec](Template& t) { appendGrid(t, spec); });
}

void EditorController::report(const std::optional<TemplateError>& error) {
    if (error)
        showNotice(&views_.window, context_.session.language(),
                   error->text(context_.session.language()), true);
}

QString EditorController::chooseCommandFile(const CommandEntry& entry) {
    const Language language = context_.session.language();
    QList<FileFilter> filters;
    switch (entry.file) {
    case CommandFile::None:
        return {};
    case CommandFile::Program:
        break;
    case CommandFile::Sound:
        filters.append({Message(language, Msg::SoundFiles),
                        {QStringLiteral("*.wav"), QStringLiteral("*.mid")}});
        break;
    case CommandFile::Picture:
        filters.append({Message(language, Msg::PictureFiles),
                        {QStringLiteral("*.bmp"), QStringLiteral("*.jpg"), QStringLiteral("*.gif"),
                         QStringLiteral("*.wmf")}});
        break;
    case CommandFile::Text:
    case CommandFile::SpeechText:
        filters.append({QStringLiteral("Fitxers de text"), {QStringLiteral("*.txt")}});
        break;
    case CommandFile::Template:
        filters.append({QStringLiteral("Tauleta Windows"), {QStringLiteral("*.mvw")}});
        break;
    }
    filters.append({Message(language, Msg::AllFiles), {QStringLiteral("*")}});
    const RecentFiles recent(PrivateProfile(settingsFilePath(context_.session.homeFolder)));
    return chooseFileToOpen(&views_.window, language, entry.menuPath.last(), filters,
                            startFolder(context_.session, recent.files()));
}

void EditorController::insertCommand(const CommandEntry& entry) {
    if (!areas_.selected()) {
        context_.beep();
        return;
    }
    QString fileName;
    if (entry.file != CommandFile::None) {
        const QString chosen = chooseCommandFile(entry);
        if (chosen.isEmpty())
            return;
        fileName = storedFileName(chosen, context_.session.workingFolder(), entry.file);
    }
    views_.panel.actionText()->insertCommand(commandText(entry, fileName), entry.placeholder);
}

void EditorController::insertText(const QString& text) {
    if (!areas_.selected()) {
        context_.beep();
        return;
    }
    views_.panel.actionText()->insertCommand(text);
}

} // namespace mervak
