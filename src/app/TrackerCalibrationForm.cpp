#include "app/TrackerCalibrationForm.h"

#include "editor/widgets/Captions.h"
#include "editor/widgets/Dialogs.h"
#include "platform/Language.h"
#include "platform/NumericText.h"
#include "platform/Settings.h"

#include <QDir>
#include <QFileInfo>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QMessageBox>
#include <QVBoxLayout>

namespace mervak {

namespace {

constexpr int kColourSample = 2; // the marker's colour is the mean of 5 x 5 pixels
constexpr int kLongestDwellMs = 10000;
constexpr int kDwellStepMs = 100;

const QString kStillFile = QStringLiteral("tmp.bmp");

QLabel* pointLabel(const QString& text, QWidget* parent) {
    auto* label = new QLabel(text, parent);
    label->setStyleSheet(QStringLiteral("background: yellow; color: black; padding: 0 2px;"));
    label->adjustSize();
    label->hide();
    return label;
}

// Centred on `point`, as far as it fits in the picture.
void placeOn(QLabel* label, QPoint point) {
    label->move(point - QPoint(label->width() / 2, label->height() / 2));
    label->show();
    label->raise();
}

MarkerColour meanColour(const QImage& image, QPoint centre) {
    int sums[3] = {};
    int count = 0;
    for (int y = centre.y() - kColourSample; y <= centre.y() + kColourSample; ++y)
        for (int x = centre.x() - kColourSample; x <= centre.x() + kColourSample; ++x) {
            if (!image.valid(x, y))
                continue;
            const QRgb pixel = image.pixel(x, y);
            sums[0] += qRed(pixel);
            sums[1] += qGreen(pixel);
            sums[2] += qBlue(pixel);
            ++count;
        }
    if (count == 0)
        return {};
    return {uint8_t(sums[0] / count), uint8_t(sums[1] / count), uint8_t(sums[2] / count)};
}

} // namespace

TrackerCalibrationForm::TrackerCalibrationForm(Session& session, TabletControl& tablet,
                                               QWidget* parent)
    : QDialog(parent), session_(session), tablet_(tablet),
      ini_(settingsFilePath(session.homeFolder)), calibration_(ini_, tablet.mapping()),
      preview_(tablet.tracker()) {
    setObjectName(QStringLiteral("UDLL_CALIB"));
    clock_.start();
    ctrlTimer_.setInterval(kCtrlTimerMs);
    buildControls();
    wireControls();
    setWindowCaption(this, QStringLiteral("Calibrar Vistal"));
    TranslateForm(this, session_.language());
    const QString still = QDir(session_.homeFolder).filePath(kStillFile);
    if (QFileInfo::exists(still))
        picture_->setBackground(QImage(still));
    restartPreview();
}

void TrackerCalibrationForm::buildControls() {
    picture_ = new CameraPicture;
    picture_->setObjectName(QStringLiteral("Picture1"));
    punt_ = pointLabel(QStringLiteral("punt"), picture_);
    for (int k = 0; k < 4; ++k)
        cornerLabels_[k] = pointLabel(QString::number(k + 1), picture_);
    progress_ = new QLabel;
    status_ = new QLabel;
    status_->setWordWrap(true);
    auto* hint = new QLabel;
    hint->setWordWrap(true);
    setCaption(hint, QStringLiteral("Poseu la marca a cada cantonada de la làmina, per ordre: a "
                                    "dalt a l'esquerra, a dalt a la dreta, a baix a la dreta i a "
                                    "baix a l'esquerra; o feu clic a cada cantonada."));
    auto* left = new QVBoxLayout;
    left->addWidget(picture_);
    left->addWidget(progress_);
    left->addWidget(hint);
    left->addWidget(status_);
    left->addStretch();
    auto* layout = new QHBoxLayout(this);
    // The picture is one camera pixel per pixel; the form grows with what it says.
    layout->setSizeConstraint(QLayout::SetFixedSize);
    layout->addLayout(left);
    layout->addWidget(buildSideColumn());
}

QWidget* TrackerCalibrationForm::buildSideColumn() {
    const auto button = [](const char* name, const char* catalan) {
        auto* made = new QPushButton;
        made->setObjectName(QString::fromLatin1(name));
        setCaption(made, QString::fromUtf8(catalan));
        return made;
    };
    const auto checkBox = [](const char* name, const char* catalan) {
        auto* made = new QCheckBox;
        made->setObjectName(QString::fromLatin1(name));
        setCaption(made, QString::fromUtf8(catalan));
        return made;
    };
    ullColorEngega_ = button("ull_color_engega", "Engegar Vistal");
    webcam_ = button("webcam", "Webcam");
    calibrar_ = button("calibrar", "Calibrar");
    chkToggleAlarm_ = checkBox("chkToggleAlarm", "Prendre punts");
    text1_ = new QLineEdit(QStringLiteral("2"));
    text1_->setObjectName(QStringLiteral("Text1"));
    bTest_ = button("b_test", "Test");
    bTest_->setCheckable(true);
    midesDefecte_ = button("mides_defecte", "Mides per defecte");
    invH_ = checkBox("WEBCAM_INV_H", "Inv Horitzontal");
    invV_ = checkBox("WEBCAM_INV_V", "Inv Vertical");
    amagaFons_ = checkBox("amaga_fons", "Imatge de fons");
    amagaFons_->setChecked(true);
    dwell_ = new QSpinBox;
    dwell_->setRange(0, kLongestDwellMs);
    dwell_->setSingleStep(kDwellStepMs);
    pickColour_ = button("color_marca", "Color de la marca");
    pickColour_->setCheckable(true);
    colourSwatch_ = new QLabel;
    colourSwatch_->setFixedSize(24, 24);
    command3_ = button("Command3", "Tancar");

    const TrackerSettings settings = readTrackerSettings(ini_);
    dwell_->setValue(settings.dwellMs);
    showColour(settings.colour);
    invH_->setChecked(calibration_.mirror().horizontal == 1);
    invV_->setChecked(calibration_.mirror().vertical == 1);

    auto* column = new QWidget;
    auto* grid = new QGridLayout(column);
    int row = 0;
    const auto add = [&](QWidget* widget) { grid->addWidget(widget, row++, 0, 1, 2); };
    const auto addLabelled = [&](const char* catalan, QWidget* widget) {
        auto* label = new QLabel;
        setCaption(label, QString::fromUtf8(catalan));
        grid->addWidget(label, row, 0);
        grid->addWidget(widget, row++, 1);
    };
    for (QWidget* widget :
         {static_cast<QWidget*>(ullColorEngega_), static_cast<QWidget*>(webcam_),
          static_cast<QWidget*>(calibrar_), static_cast<QWidget*>(chkToggleAlarm_)})
        add(widget);
    addLabelled("Segons per punt:", text1_);
    for (QWidget* widget : {static_cast<QWidget*>(bTest_), static_cast<QWidget*>(midesDefecte_),
                            static_cast<QWidget*>(invH_), static_cast<QWidget*>(invV_),
                            static_cast<QWidget*>(amagaFons_)})
        add(widget);
    addLabelled("Temps de repòs (ms):", dwell_);
    grid->addWidget(pickColour_, row, 0);
    grid->addWidget(colourSwatch_, row++, 1);
    grid->setRowStretch(row++, 1);
    add(command3_);
    return column;
}

void TrackerCalibrationForm::wireControls() {
    connect(&ctrlTimer_, &QTimer::timeout, this, &TrackerCalibrationForm::pollTracker);
    connect(ullColorEngega_, &QPushButton::clicked, this, &TrackerCalibrationForm::startTracker);
    connect(webcam_, &QPushButton::clicked, this, &TrackerCalibrationForm::restartPreview);
    connect(calibrar_, &QPushButton::clicked, this,
            [this] { startCorners(TrackerCalibration::Entry::CalibrateButton); });
    connect(chkToggleAlarm_, &QCheckBox::clicked, this, [this](bool checked) {
        if (checked)
            startCorners(TrackerCalibration::Entry::AlarmCheckBox);
        else
            stopCorners();
    });
    connect(bTest_, &QPushButton::clicked, this, &TrackerCalibrationForm::setTesting);
    connect(midesDefecte_, &QPushButton::clicked, this,
            &TrackerCalibrationForm::storeDefaultCorners);
    connect(invH_, &QCheckBox::clicked, this,
            [this](bool on) { calibration_.setHorizontalMirror(on); });
    connect(invV_, &QCheckBox::clicked, this,
            [this](bool on) { calibration_.setVerticalMirror(on); });
    connect(amagaFons_, &QCheckBox::toggled, picture_, &CameraPicture::setBackgroundVisible);
    connect(dwell_, &QSpinBox::valueChanged, this, &TrackerCalibrationForm::setDwell);
    connect(pickColour_, &QPushButton::toggled, this, [this](bool on) {
        picture_->setCursor(on ? Qt::PointingHandCursor : Qt::ArrowCursor);
    });
    connect(picture_, &CameraPicture::clicked, this, &TrackerCalibrationForm::onPictureClicked);
    connect(command3_, &QPushButton::clicked, this, &QDialog::accept);
}

// Starting the tracker is starting the VISTAL device: on failure the program
// says why, as at start-up.
void TrackerCalibrationForm::startTracker() {
    if (tablet_.tracker().isRunning()) {
        showNotice(this, session_.language(), Message(session_.language(), Msg::TrackerRunning));
        return;
    }
    tablet_.start();
    if (suspended_)
        tablet_.SetTabletActive(false);
    if (tablet_.tracker().isRunning())
        restartPreview();
}

void TrackerCalibrationForm::restartPreview() {
    preview_.StopPreview();
    preview_.StartPreview(picture_);
}

// The corners are taken over a still picture, with the program's presses held
// off so that the marker fires no Area meanwhile.
void TrackerCalibrationForm::startCorners(TrackerCalibration::Entry entry) {
    releaseTracker();
    takeStill();
    if (tablet_.tracker().VSTInicialitza(0) == 0)
        tell(Message(session_.language(), Msg::TrackerNotStarted));
    calibration_.startCorners(entry, clock_.elapsed());
    chkToggleAlarm_->setChecked(entry == TrackerCalibration::Entry::AlarmCheckBox);
    bTest_->setChecked(false);
    calibrar_->setStyleSheet(QStringLiteral("background: yellow; color: black;"));
    picture_->setCursor(Qt::CrossCursor);
    showPoint(std::nullopt);
    showCorners();
    showProgress();
    ctrlTimer_.start();
}

void TrackerCalibrationForm::stopCorners() {
    calibration_.stop();
    ctrlTimer_.stop();
    chkToggleAlarm_->setChecked(false);
    calibrar_->setStyleSheet(QString());
    picture_->setCursor(Qt::ArrowCursor);
    showPoint(std::nullopt);
}

void TrackerCalibrationForm::releaseTracker() {
    if (suspended_)
        return;
    suspended_ = true;
    suspendedActive_ = tablet_.isActive();
    tablet_.SetTabletActive(false);
}

// The still is kept in the home folder as "tmp.bmp" and shown from there.
void TrackerCalibrationForm::takeStill() {
    const QString file = QDir(session_.homeFolder).filePath(kStillFile);
    const bool grabbed = preview_.StartPreview(picture_) && preview_.GrabFrame();
    const bool saved = grabbed && preview_.SaveFrame(file);
    preview_.StopPreview();
    if (grabbed && !saved)
        tell(caption("No s'ha pogut desar ") + file);
    if (saved)
        picture_->setBackground(QImage(file));
}

void TrackerCalibrationForm::setTesting(bool on) {
    if (calibration_.mode() == TrackerCalibration::Mode::Calibrating)
        stopCorners();
    calibration_.setTesting(on);
    bTest_->setChecked(on);
    for (QPushButton* button : {calibrar_, bTest_, midesDefecte_, command3_})
        button->setStyleSheet(QString());
    for (QLabel* label : cornerLabels_)
        label->hide();
    showPoint(std::nullopt);
    progress_->clear();
    if (on && tablet_.tracker().VSTInicialitza(0) == 0)
        tell(Message(session_.language(), Msg::TrackerNotStarted));
    if (on)
        ctrlTimer_.start();
    else
        ctrlTimer_.stop();
}

void TrackerCalibrationForm::storeDefaultCorners() {
    QString error;
    if (!calibration_.storeDefaultCorners(QDate::currentDate(), &error) && !error.isEmpty())
        tell(error);
}

void TrackerCalibrationForm::pollTracker() {
    int16_t x = 0;
    int16_t y = 0;
    const int status = tablet_.tracker().VSTObtenirPosicio(x, y);
    const int before = calibration_.cornersTaken();
    const std::optional<CameraPoint> point =
        calibration_.tick(status, {x, y}, clock_.elapsed(), holdSeconds());
    showPoint(point);
    if (calibration_.cornersTaken() != before)
        afterCornerTaken();
    if (calibration_.mode() != TrackerCalibration::Mode::Testing || !point)
        return;
    try {
        const SheetCell cell = tablet_.mapping().cameraToSheet(1, point->x, point->y);
        progress_->setText(caption("Casella: ") + QStringLiteral("%1, %2").arg(cell.x).arg(cell.y));
    } catch (const std::exception&) {
        progress_->setText(caption("Desbordament numèric"));
    }
}

void TrackerCalibrationForm::onPictureClicked(QPoint point) {
    if (pickColour_->isChecked()) {
        pickColour(point);
        return;
    }
    const CameraPoint clicked{int16_t(point.x()), int16_t(point.y())};
    if (calibration_.click(clicked, clock_.elapsed()))
        afterCornerTaken();
}

// The colour under the click, of the live picture or of the still.
void TrackerCalibrationForm::pickColour(QPoint point) {
    pickColour_->setChecked(false);
    const QImage shown = picture_->shown();
    if (shown.isNull())
        return;
    const MarkerColour colour = meanColour(shown, point);
    QString error;
    if (!writeMarkerColour(ini_, colour, &error))
        tell(error);
    tablet_.tracker().setColour(colour);
    showColour(colour);
}

void TrackerCalibrationForm::setDwell(int ms) {
    QString error;
    if (!writeDwellMs(ini_, ms, &error))
        tell(error);
    tablet_.vistalSource().setDwellMs(ms);
}

void TrackerCalibrationForm::afterCornerTaken() {
    showCorners();
    showProgress();
    if (!calibration_.logError().isEmpty())
        tell(calibration_.logError());
    if (calibration_.awaitsConfirmation())
        askConfirmation();
}

// Declined, the corners are taken again from the first.
void TrackerCalibrationForm::askConfirmation() {
    ctrlTimer_.stop();
    const Language language = session_.language();
    QMessageBox box(QMessageBox::Question, QStringLiteral("MERVAK"),
                    Message(language, calibration_.confirmationMessage()), QMessageBox::NoButton,
                    this);
    QPushButton* yes = box.addButton(caption("&Sí"), QMessageBox::YesRole);
    box.setEscapeButton(box.addButton(caption("&No"), QMessageBox::NoRole));
    box.setDefaultButton(yes);
    box.exec();
    const bool accepted = box.clickedButton() == yes;
    QString error;
    calibration_.confirm(accepted, QDate::currentDate(), &error);
    if (!error.isEmpty())
        tell(error);
    showCorners();
    showProgress();
    if (accepted)
        stopCorners();
    else
        ctrlTimer_.start();
}

void TrackerCalibrationForm::showPoint(std::optional<CameraPoint> point) {
    if (point)
        placeOn(punt_, QPoint(point->x, point->y));
    else
        punt_->hide();
}

void TrackerCalibrationForm::showCorners() {
    const Corners& corners = calibration_.corners();
    for (int k = 0; k < 4; ++k) {
        if (k < calibration_.cornersTaken())
            placeOn(cornerLabels_[k], QPoint(corners.x[k + 1], corners.y[k + 1]));
        else
            cornerLabels_[k]->hide();
    }
}

void TrackerCalibrationForm::showProgress() {
    progress_->setText(caption("Cantonades preses: ") + calibration_.progress());
}

void TrackerCalibrationForm::showColour(MarkerColour colour) {
    colourSwatch_->setStyleSheet(QStringLiteral("background: rgb(%1, %2, %3); border: 1px solid "
                                                "black;")
                                     .arg(colour.r)
                                     .arg(colour.g)
                                     .arg(colour.b));
}

void TrackerCalibrationForm::tell(const QString& text) {
    status_->setText(text);
}

// Text1 holds how long, in seconds, the marker rests on a corner to take it.
double TrackerCalibrationForm::holdSeconds() const {
    return Val(text1_->text());
}

QString TrackerCalibrationForm::caption(const char* catalan) const {
    return TranslateCaption(session_.language(), QString::fromUtf8(catalan));
}

// The mirror flags are written and the mapping rebuilt however the form closes;
// the program takes the tracker back as the user had it, and a camera opened
// only for this form is let go.
void TrackerCalibrationForm::done(int result) {
    ctrlTimer_.stop();
    preview_.StopPreview();
    QString error;
    if (!calibration_.unload(&error) && !error.isEmpty())
        showNotice(parentWidget(), session_.language(), error);
    if (session_.DevicePresent) {
        tablet_.tracker().VSTInicialitza(0);
        if (suspended_)
            tablet_.SetTabletActive(suspendedActive_);
    } else {
        tablet_.tracker().VSTFinalitza();
    }
    suspended_ = false;
    QDialog::done(result);
}

} // namespace mervak
