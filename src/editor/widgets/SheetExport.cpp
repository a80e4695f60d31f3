#include "editor/widgets/SheetExport.h"

#include "action/KeysPreview.h"
#include "editor/AreaGeometry.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "platform/AtomicFile.h"
#include "platform/PathResolver.h"
#include "sheet/PageRender.h"
#include "template/Template.h"

#include <QBuffer>
#include <QButtonGroup>
#include <QCheckBox>
#include <QComboBox>
#include <QDialog>
#include <QDir>
#include <QFileInfo>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QImageReader>
#include <QLabel>
#include <QMessageBox>
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <functional>

namespace mervak {

namespace {

constexpr int kPdfDpi = 600;
constexpr double kMmPerInch = 25.4;
const QColor kOutlineColour(0, 70, 200);

double toDots(double mm) {
    return mm * kPdfDpi / kMmPerInch;
}

QString caption(Language language, const char* catalan) {
    return TranslateCaption(language, QString::fromUtf8(catalan));
}

QSizeF paperMm(PaperSize paper) {
    const QPageSize size(paper == PaperSize::A3 ? QPageSize::A3 : QPageSize::A4);
    return size.size(QPageSize::Millimeter);
}

// Portrait paper in millimetres, turned when the surface is wider than high.
QSizeF orientedPaperMm(QSizeF surfaceMm, PaperSize paper) {
    if (paper == PaperSize::Sheet)
        return surfaceMm;
    const QSizeF portrait = paperMm(paper);
    return surfaceMm.width() > surfaceMm.height() ? portrait.transposed() : portrait;
}

struct OutlineStyle {
    double penWidth; // in the painter's units
    bool labels;
    double padding; // between an outline and its label
};

// How a sheet is drawn besides its outlines.
struct SheetLook {
    const SymbolFileLookup& symbols;
    bool cornerMarks = false;
};

QRectF areaRect(const Area& area, const QRectF& target) {
    const SheetRect r = rectOf(area);
    const double sx = target.width() / kSheetUnits;
    const double sy = target.height() / kSheetUnits;
    return {target.left() + r.left * sx, target.bottom() - r.top * sy, (r.right - r.left) * sx,
            (r.top - r.bottom) * sy};
}

// The sheet over `target` (its 120 x 120 units) with the picture on it, and
// the outlines of the page's Areas when a style is given.
void paintSheet(QPainter& painter, const QRectF& target, const Template& t, const QImage& picture,
                int page, const OutlineStyle* style, const SheetLook& look) {
    // The composed page, or the picture alone (the painter then adds only marks).
    SheetPainter sheet(t, PictureFiles{SheetPainter::folderOf(t), look.symbols});
    if (t.isComposed()) {
        sheet.paint(painter, target, static_cast<int16_t>(page), {look.cornerMarks, {}});
    } else {
        painter.fillRect(target, Qt::white);
        if (!picture.isNull())
            painter.drawImage(target, picture);
        if (look.cornerMarks)
            SheetPainter::paintCornerMarks(painter, target, target.width() / t.SheetWidthMm);
    }
    if (!style)
        return;
    for (const auto index : t.areasOfPage(static_cast<int16_t>(page))) {
        const Area& area = t.area(index);
        if (area.Cell)
            continue;
        const QRectF box = areaRect(area, target);
        painter.setPen(QPen(kOutlineColour, style->penWidth));
        painter.setBrush(Qt::NoBrush);
        painter.drawRect(box);
        if (!style->labels)
            continue;
        const QString label = KeysPreview::of(area.ActionText).text;
        if (label.isEmpty())
            continue;
        // A pale backing keeps the label readable on dark pictures.
        const QRectF room =
            box.adjusted(style->padding, style->padding, -style->padding, -style->padding);
        const int flags = Qt::AlignLeft | Qt::AlignTop | Qt::TextWordWrap;
        const QRectF used = painter.boundingRect(room, flags, label).intersected(room);
        painter.save();
        painter.setClipRect(box);
        painter.fillRect(used.adjusted(-style->padding / 2, 0, style->padding / 2, 0),
                         QColor(255, 255, 255, 210));
        painter.drawText(room, flags, label);
        painter.restore();
    }
}

// The Template's name and the page number, small, under the surface.
void paintFooter(QPainter& painter, const QRectF& surface, const QSizeF& paper, const Template& t,
                 int page) {
    const double margin = paper.height() - surface.bottom();
    if (margin < toDots(5))
        return;
    QFont font = painter.font();
    font.setPointSizeF(7);
    painter.setFont(font);
    painter.setPen(Qt::darkGray);
    const QString name =
        t.isUntitled() ? t.TemplateFileName : QFileInfo(t.TemplateFileName).fileName();
    const QRectF band(surface.left(), surface.bottom() + toDots(1), surface.width(),
                      std::min(margin - toDots(2), toDots(6)));
    painter.drawText(band, Qt::AlignLeft | Qt::AlignTop,
                     QStringLiteral("%1    %2/%3").arg(name).arg(page).arg(t.PageCount));
}

// The chosen pages, each on its own paper, the sheet at `surface` (in dots of
// kPdfDpi) with its footer below it.
void paintPages(QPainter& painter, const std::function<void()>& newPage, const Template& t,
                const QImage& picture, const SheetExportOptions& options, const QRectF& surface,
                const QSizeF& paperDots) {
    QFont font = painter.font();
    font.setPointSizeF(9);
    const OutlineStyle style{toDots(0.35), true, toDots(1)};
    const int first = options.allPages ? 1 : t.CurrentPage;
    const int last = options.allPages ? t.PageCount : t.CurrentPage;
    for (int page = first; page <= last; ++page) {
        if (page > first)
            newPage();
        painter.setFont(font);
        paintSheet(painter, surface, t, picture, page, options.outlines ? &style : nullptr,
                   {options.symbols, true});
        paintFooter(painter, surface, paperDots, t, page);
    }
}

QRectF centred(const QSizeF& size, const QSizeF& paper) {
    return {QPointF((paper.width() - size.width()) / 2, (paper.height() - size.height()) / 2),
            size};
}

bool writePdf(const Template& t, const QImage& picture, const SheetExportOptions& options,
              QByteArray* pdf) {
    QBuffer buffer(pdf);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setResolution(kPdfDpi);
    writer.setCreator(QStringLiteral("Mervak"));
    writer.setTitle(QFileInfo(t.TemplateFileName).fileName());
    const QSizeF sheetMm = sheetSizeMm(t);
    const QSizeF paper = orientedPaperMm(sheetMm, options.paper);
    writer.setPageSize(QPageSize(paper, QPageSize::Millimeter, QString(),
                                 options.paper == PaperSize::Sheet ? QPageSize::ExactMatch
                                                                   : QPageSize::FuzzyMatch));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    const QSizeF paperDots(toDots(paper.width()), toDots(paper.height()));
    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    paintPages(
        painter, [&writer] { writer.newPage(); }, t, picture, options,
        centred(QSizeF(toDots(sheetMm.width()), toDots(sheetMm.height())), paperDots), paperDots);
    return painter.end();
}

bool writeImage(const QImage& image, const QString& path, QString* error) {
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    if (!image.save(&buffer, "PNG")) {
        *error = QStringLiteral("PNG");
        return false;
    }
    return writeFileAtomically(path, png, error);
}

QString notSaved(Language language, const QString& path, const QString& why) {
    return caption(language, "No s'ha pogut desar ") + QDir::toNativeSeparators(path) +
           QStringLiteral(": ") + why;
}

// The options of a PDF export: pages, paper and outlines.
class ExportOptionsDialog : public QDialog {
public:
    ExportOptionsDialog(const SheetExportOptions& options, Language language, QWidget* parent)
        : QDialog(parent) {
        setObjectName(QStringLiteral("SheetExportOptions"));
        setWindowCaption(this, QStringLiteral("Desar la làmina en PDF"), language);
        setCaption(currentPage_, QStringLiteral("Pàgina actual"), language);
        setCaption(allPages_, QStringLiteral("Totes les pàgines"), language);
        (options.allPages ? allPages_ : currentPage_)->setChecked(true);
        paper_->addItems({QStringLiteral("A4"), QStringLiteral("A3"),
                          TranslateCaption(language, QStringLiteral("La mida de la làmina"))});
        paper_->setCurrentIndex(static_cast<int>(options.paper));
        setCaption(outlines_, QStringLiteral("Contorns i etiquetes de les àrees"), language);
        outlines_->setChecked(options.outlines);
        auto* pages = new QHBoxLayout;
        pages->addWidget(currentPage_);
        pages->addWidget(allPages_);
        pages->addStretch(1);
        auto* form = new QFormLayout;
        form->addRow(label("Pàgines:", language), pages);
        form->addRow(label("Paper:", language), paper_);
        form->addRow(QString(), outlines_);
        auto* layout = new QVBoxLayout(this);
        layout->addLayout(form);
        layout->addLayout(buttons(language));
    }

    SheetExportOptions options() const {
        SheetExportOptions chosen;
        chosen.allPages = allPages_->isChecked();
        chosen.paper = static_cast<PaperSize>(paper_->currentIndex());
        chosen.outlines = outlines_->isChecked();
        return chosen;
    }

private:
    static QLabel* label(const char* catalan, Language language) {
        auto* label = new QLabel;
        setCaption(label, QString::fromUtf8(catalan), language);
        return label;
    }

    QHBoxLayout* buttons(Language language) {
        auto* accept = new QPushButton;
        setCaption(accept, QStringLiteral("Acceptar"), language);
        accept->setDefault(true);
        auto* cancel = new QPushButton;
        setCaption(cancel, QStringLiteral("Cancel·lar"), language);
        connect(accept, &QPushButton::clicked, this, &QDialog::accept);
        connect(cancel, &QPushButton::clicked, this, &QDialog::reject);
        auto* row = new QHBoxLayout;
        row->addStretch(1);
        row->addWidget(accept);
        row->addWidget(cancel);
        return row;
    }

    QRadioButton* currentPage_ = new QRadioButton;
    QRadioButton* allPages_ = new QRadioButton;
    QComboBox* paper_ = new QComboBox;
    QCheckBox* outlines_ = new QCheckBox;
};

// Where the exported files go at first: beside the Template, named after it.
QString suggestedPath(const Template& t, const QString& suffix) {
    if (t.isUntitled())
        return QDir::homePath();
    const QFileInfo file(t.TemplateFileName);
    return file.dir().filePath(file.completeBaseName() + suffix);
}

} // namespace

QImage SheetExport::loadPicture(const Template& t, Language language, QString* error) {
    if (t.FitxGraf.isEmpty())
        return {};
    const QString folder =
        t.isUntitled() ? QDir::currentPath() : QFileInfo(t.TemplateFileName).absolutePath();
    const QString path = resolveStoredPath(t.FitxGraf, folder);
    QImageReader reader(path);
    reader.setAutoTransform(true);
    const QImage picture = reader.read();
    if (picture.isNull())
        *error = Message(language, Msg::PictureNotLoaded) + QStringLiteral(": ") +
                 QDir::toNativeSeparators(path);
    return picture;
}

bool SheetExport::fits(QSizeF surfaceMm, PaperSize paper) {
    const QSizeF sheet = orientedPaperMm(surfaceMm, paper);
    return surfaceMm.width() > 0 && surfaceMm.height() > 0 && surfaceMm.width() <= sheet.width() &&
           surfaceMm.height() <= sheet.height();
}

bool SheetExport::exportPdf(const Template& t, const QImage& picture,
                            const SheetExportOptions& options, const QString& path,
                            Language language, QString* error) {
    if (!fits(sheetSizeMm(t), options.paper)) {
        *error = caption(language, "La làmina no cap en aquest paper: ") +
                 QStringLiteral("%1 × %2 mm").arg(t.SheetWidthMm).arg(t.SheetHeightMm);
        return false;
    }
    QByteArray pdf;
    QString why;
    if (!writePdf(t, picture, options, &pdf)) {
        *error = notSaved(language, path, QStringLiteral("PDF"));
        return false;
    }
    if (!writeFileAtomically(path, pdf, &why)) {
        *error = notSaved(language, path, why);
        return false;
    }
    return true;
}

QImage SheetExport::renderPage(const Template& t, const QImage& picture, int page, QSize size,
                               bool outlines, const SymbolFileLookup& symbols) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const OutlineStyle style{std::max(1.0, size.width() / 240.0), false, 0};
    paintSheet(painter, QRectF(QPointF(0, 0), QSizeF(size)), t, picture, page,
               outlines ? &style : nullptr, {symbols, false});
    return image;
}

bool SheetExport::saveThumbnail(const Template& t, const QImage& picture, const QString& path,
                                Language language, QString* error, int longSide,
                                const SymbolFileLookup& symbols) {
    const QSize size = sheetSizeMm(t)
                           .scaled(QSizeF(longSide, longSide), Qt::KeepAspectRatio)
                           .toSize()
                           .expandedTo(QSize(1, 1));
    QString why;
    if (!writeImage(renderPage(t, picture, t.CurrentPage, size, !t.isComposed(), symbols), path,
                    &why)) {
        *error = notSaved(language, path, why);
        return false;
    }
    return true;
}

bool SheetExport::savePng(const Template& t, const QImage& picture, const QString& path,
                          const SheetExportOptions& options, Language language, QString* error,
                          double dpi) {
    QString why;
    const QImage page = renderPage(t, picture, t.CurrentPage, sheetPixels(t, dpi), options.outlines,
                                   options.symbols);
    if (!writeImage(page, path, &why)) {
        *error = notSaved(language, path, why);
        return false;
    }
    return true;
}

namespace {

// The printer's paper and its printable part, in dots of kPdfDpi, the paper's
// corner at the origin.
struct PrinterPaper {
    QSizeF paper;
    QRectF printable;
};

PrinterPaper paperOf(const QPrinter& printer) {
    const QPageLayout layout = printer.pageLayout();
    const QRectF full = layout.fullRect(QPageLayout::Millimeter);
    const QRectF printable = layout.paintRect(QPageLayout::Millimeter);
    return {QSizeF(toDots(full.width()), toDots(full.height())),
            QRectF(toDots(printable.left()), toDots(printable.top()), toDots(printable.width()),
                   toDots(printable.height()))};
}

bool printerWouldScale(const Template& t, const PrinterPaper& paper) {
    const QSizeF sheet(toDots(t.SheetWidthMm), toDots(t.SheetHeightMm));
    return sheet.width() > paper.printable.width() + 1 ||
           sheet.height() > paper.printable.height() + 1;
}

// True size centred on the paper; when it does not fit, as large as the
// printable part allows.
void printPages(QPrinter& printer, const Template& t, const QImage& picture,
                const SheetExportOptions& options) {
    const PrinterPaper paper = paperOf(printer);
    const QSizeF sheet(toDots(t.SheetWidthMm), toDots(t.SheetHeightMm));
    const QRectF surface =
        printerWouldScale(t, paper)
            ? centred(sheet.scaled(paper.printable.size(), Qt::KeepAspectRatio), paper.paper)
            : centred(sheet, paper.paper);
    QPainter painter;
    if (!painter.begin(&printer))
        return;
    const double scale = printer.resolution() / static_cast<double>(kPdfDpi);
    painter.scale(scale, scale);
    paintPages(
        painter, [&printer] { printer.newPage(); }, t, picture, options, surface, paper.paper);
    painter.end();
}

} // namespace

bool SheetExport::printWithDialog(QWidget* parent, const Template& t, Language language,
                                  const SheetExportOptions& options) {
    QString error;
    const QImage picture = loadPicture(t, language, &error);
    if (!error.isEmpty()) {
        showNotice(parent, language, error, true);
        return false;
    }
    QPrinter printer(QPrinter::HighResolution);
    printer.setFullPage(true);
    printer.setPageOrientation(t.SheetWidthMm > t.SheetHeightMm ? QPageLayout::Landscape
                                                                : QPageLayout::Portrait);
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(caption(language, "Imprimir la làmina"));
    dialog.setOption(QAbstractPrintDialog::PrintCurrentPage);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    if (printerWouldScale(t, paperOf(printer))) {
        const QString warning =
            caption(language,
                    "La làmina (%1 × %2 mm) no cap en aquest paper: s'imprimiria "
                    "reduïda i no coincidiria amb la tauleta. Voleu imprimir-la igualment?")
                .arg(t.SheetWidthMm)
                .arg(t.SheetHeightMm);
        QMessageBox box(QMessageBox::Warning, caption(language, "Imprimir la làmina"), warning,
                        QMessageBox::NoButton, parent);
        QPushButton* yes = box.addButton(caption(language, "Acceptar"), QMessageBox::AcceptRole);
        box.addButton(caption(language, "Cancel·lar"), QMessageBox::RejectRole);
        box.exec();
        if (box.clickedButton() != yes)
            return false;
    }
    SheetExportOptions chosen = options;
    chosen.allPages = printer.printRange() != QPrinter::CurrentPage;
    printPages(printer, t, picture, chosen);
    return true;
}

namespace {

// What one export asks of the user and writes.
struct ExportFlow {
    const char* title;
    QList<FileFilter> filters;
    const char* suffix;        // of the suggested name
    const char* defaultSuffix; // added to a name typed without one
    std::function<bool(const QImage& picture, const QString& path, QString* error)> write;
};

// The sheet picture, then a file name, then the file; every failure is shown.
bool runExportFlow(QWidget* parent, const Template& t, Language language, const ExportFlow& flow) {
    QString error;
    const QImage picture = SheetExport::loadPicture(t, language, &error);
    if (error.isEmpty()) {
        const QString path = chooseFileToSave(
            parent, language, QString::fromUtf8(flow.title), flow.filters,
            suggestedPath(t, QLatin1String(flow.suffix)), QLatin1String(flow.defaultSuffix));
        if (path.isEmpty() || flow.write(picture, path, &error))
            return !path.isEmpty();
    }
    showNotice(parent, language, error, true);
    return false;
}

} // namespace

bool SheetExport::exportWithDialog(QWidget* parent, const Template& t, Language language,
                                   SheetExportOptions* options) {
    ExportOptionsDialog dialog(*options, language, parent);
    if (dialog.exec() != QDialog::Accepted)
        return false;
    SheetExportOptions chosen = dialog.options();
    chosen.symbols = options->symbols;
    *options = chosen;
    // The name's ending chooses: a PNG of the current page, else the PDF.
    return runExportFlow(parent, t, language,
                         {"Desar la làmina",
                          {{QStringLiteral("Document PDF"), {QStringLiteral("*.pdf")}},
                           {QStringLiteral("Imatge PNG"), {QStringLiteral("*.png")}}},
                          ".pdf",
                          "pdf",
                          [&](const QImage& picture, const QString& path, QString* error) {
                              if (path.endsWith(QLatin1String(".png"), Qt::CaseInsensitive))
                                  return savePng(t, picture, path, *options, language, error);
                              return exportPdf(t, picture, *options, path, language, error);
                          }});
}

bool SheetExport::saveThumbnailWithDialog(QWidget* parent, const Template& t, Language language,
                                          const SymbolFileLookup& symbols) {
    return runExportFlow(parent, t, language,
                         {"Desar mini-làmina",
                          {{QStringLiteral("Imatge PNG"), {QStringLiteral("*.png")}}},
                          "-mini.png",
                          "png",
                          [&](const QImage& picture, const QString& path, QString* error) {
                              return saveThumbnail(t, picture, path, language, error, 240, symbols);
                          }});
}

} // namespace mervak
