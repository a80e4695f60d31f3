#include "editor/widgets/SheetExport.h"

#include "action/KeysPreview.h"
#include "editor/AreaGeometry.h"
#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "platform/AtomicFile.h"
#include "platform/PathResolver.h"
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
#include <QPageSize>
#include <QPainter>
#include <QPdfWriter>
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
    const QSizeF portrait = paperMm(paper);
    return surfaceMm.width() > surfaceMm.height() ? portrait.transposed() : portrait;
}

struct OutlineStyle {
    double penWidth; // in the painter's units
    bool labels;
    double padding; // between an outline and its label
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
                int page, const OutlineStyle* style) {
    painter.fillRect(target, Qt::white);
    if (!picture.isNull())
        painter.drawImage(target, picture);
    if (!style)
        return;
    for (const auto index : t.areasOfPage(static_cast<int16_t>(page))) {
        const Area& area = t.area(index);
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
    writer.setPageSize(QPageSize(paper, QPageSize::Millimeter));
    writer.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Millimeter);
    const QSizeF paperDots(toDots(paper.width()), toDots(paper.height()));
    const QSizeF surfaceDots(toDots(sheetMm.width()), toDots(sheetMm.height()));
    const QRectF surface(QPointF((paperDots.width() - surfaceDots.width()) / 2,
                                 (paperDots.height() - surfaceDots.height()) / 2),
                         surfaceDots);

    QPainter painter;
    if (!painter.begin(&writer))
        return false;
    QFont font = painter.font();
    font.setPointSizeF(9);
    const OutlineStyle style{toDots(0.35), true, toDots(1)};
    const int first = options.allPages ? 1 : t.CurrentPage;
    const int last = options.allPages ? t.PageCount : t.CurrentPage;
    for (int page = first; page <= last; ++page) {
        if (page > first)
            writer.newPage();
        painter.setFont(font);
        paintSheet(painter, surface, t, picture, page, options.outlines ? &style : nullptr);
        paintFooter(painter, surface, paperDots, t, page);
    }
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
        paper_->addItems({QStringLiteral("A4"), QStringLiteral("A3")});
        paper_->setCurrentIndex(options.paper == PaperSize::A3 ? 1 : 0);
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
        chosen.paper = paper_->currentIndex() == 1 ? PaperSize::A3 : PaperSize::A4;
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
                               bool outlines) {
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    const OutlineStyle style{std::max(1.0, size.width() / 240.0), false, 0};
    paintSheet(painter, QRectF(QPointF(0, 0), QSizeF(size)), t, picture, page,
               outlines ? &style : nullptr);
    return image;
}

bool SheetExport::saveThumbnail(const Template& t, const QImage& picture, const QString& path,
                                Language language, QString* error, int longSide) {
    const QSize size = sheetSizeMm(t)
                           .scaled(QSizeF(longSide, longSide), Qt::KeepAspectRatio)
                           .toSize()
                           .expandedTo(QSize(1, 1));
    QString why;
    if (!writeImage(renderPage(t, picture, t.CurrentPage, size, true), path, &why)) {
        *error = notSaved(language, path, why);
        return false;
    }
    return true;
}

namespace {

// What one export asks of the user and writes.
struct ExportFlow {
    const char* title;
    const char* filterName;
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
            parent, language, QString::fromUtf8(flow.title),
            {{QString::fromUtf8(flow.filterName),
              {QStringLiteral("*.") + QLatin1String(flow.defaultSuffix)}}},
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
    *options = dialog.options();
    return runExportFlow(parent, t, language,
                         {"Desar la làmina en PDF", "Document PDF", ".pdf", "pdf",
                          [&](const QImage& picture, const QString& path, QString* error) {
                              return exportPdf(t, picture, *options, path, language, error);
                          }});
}

bool SheetExport::saveThumbnailWithDialog(QWidget* parent, const Template& t, Language language) {
    return runExportFlow(parent, t, language,
                         {"Desar mini-làmina", "Imatge PNG", "-mini.png", "png",
                          [&](const QImage& picture, const QString& path, QString* error) {
                              return saveThumbnail(t, picture, path, language, error);
                          }});
}

} // namespace mervak
