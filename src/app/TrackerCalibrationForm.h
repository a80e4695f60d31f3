#pragma once

#include "app/CameraPicture.h"
#include "app/TrackerPreview.h"
#include "dispatch/TabletControl.h"
#include "session/Session.h"
#include "tracker/TrackerCalibration.h"

#include <QCheckBox>
#include <QDialog>
#include <QElapsedTimer>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QSpinBox>
#include <QTimer>
#include <array>

namespace mervak {

// The colour tracker's calibration form (UDLL_CALIB): the camera's picture, the
// corners of the sheet taken on it, test mode, the mirror switches, the default
// corners, and the tracker's own settings, the dwell time and the marker's colour.
class TrackerCalibrationForm : public QDialog {
    Q_OBJECT
public:
    TrackerCalibrationForm(Session& session, TabletControl& tablet, QWidget* parent = nullptr);

    // Timer ticks of the corner taking and of test mode.
    static constexpr int kCtrlTimerMs = 100;

protected:
    // Form_Unload, however the form closes.
    void done(int result) override;

private:
    void buildControls();
    QWidget* buildSideColumn();
    void wireControls();

    void startTracker();                          // ull_color_engega
    void restartPreview();                        // webcam
    void startCorners(TrackerCalibration::Entry); // calibrar, chkToggleAlarm
    void stopCorners();
    void releaseTracker();
    void takeStill();
    void setTesting(bool on);            // b_test
    void storeDefaultCorners();          // mides_defecte
    void pollTracker();                  // ctrlTimer
    void onPictureClicked(QPoint point); // Picture1
    void pickColour(QPoint point);
    void setDwell(int ms);
    void afterCornerTaken();
    void askConfirmation();
    void showPoint(std::optional<CameraPoint> point);
    void showCorners();
    void showProgress();
    void showColour(MarkerColour colour);
    void tell(const QString& text);
    double holdSeconds() const;
    QString caption(const char* catalan) const;

    Session& session_;
    TabletControl& tablet_;
    PrivateProfile ini_;
    TrackerCalibration calibration_;
    TrackerPreview preview_;
    QTimer ctrlTimer_;
    QElapsedTimer clock_;
    bool suspendedActive_ = false; // the tablet was on when the calibration took the tracker
    bool suspended_ = false;

    CameraPicture* picture_;
    QLabel* punt_;
    std::array<QLabel*, 4> cornerLabels_{};
    QLabel* progress_;
    QLabel* status_;
    QPushButton* calibrar_;
    QCheckBox* chkToggleAlarm_;
    QPushButton* bTest_;
    QPushButton* midesDefecte_;
    QPushButton* command3_;
    QLineEdit* text1_;
    QPushButton* ullColorEngega_;
    QPushButton* webcam_;
    QCheckBox* invH_;
    QCheckBox* invV_;
    QCheckBox* amagaFons_;
    QSpinBox* dwell_;
    QPushButton* pickColour_;
    QLabel* colourSwatch_;
};

} // namespace mervak
