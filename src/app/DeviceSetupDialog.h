#pragma once

#include "dispatch/DeviceSetup.h"
#include "dispatch/TabletControl.h"
#include "editor/widgets/SheetView.h"
#include "session/Session.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QLabel;
class QPushButton;

namespace mervak {

// The tablet's test and calibration: the teacher chooses the model and the port,
// tests the device with a live readout of where it is pressed (and the Area
// there), and calibrates an absolute device by pressing the sheet's corners.
// The device restarts with every change; while the dialog is open its presses
// reach the readout only.
class DeviceSetupDialog : public QDialog {
    Q_OBJECT
public:
    // `sheet` is the current page as the pupil sees it.
    DeviceSetupDialog(Session& session, TabletControl& tablet, const QList<SheetArea>& areas,
                      const QImage& picture, QSizeF sheetMm, QWidget* parent = nullptr);
    ~DeviceSetupDialog() override;

private:
    void buildModels();
    void buildPorts();
    void choosePort(int index);
    void test();
    void calibrate();
    void mirrorChanged();
    void restartDevice(const QString& catalanWhenReady);
    void onStartFinished(bool present);
    void onTouchedDown(QPoint reading);
    void showReading();
    void updateButtons();
    void say(const QString& catalan);
    QString caption(const QString& catalan) const;

    Session& session_;
    TabletControl& tablet_;
    DeviceSetup setup_;
    QList<SheetArea> areas_;
    PressPoint pointer_;
    PressPoint press_;
    QString whenReady_; // what to say once the device has restarted
    bool restarting_ = false;
    QComboBox* model_;
    QComboBox* port_;
    QPushButton* test_;
    QPushButton* calibrate_;
    QCheckBox* mirrorX_;
    QCheckBox* mirrorY_;
    QLabel* readout_;
    QLabel* status_;
    SheetView* sheet_;
};

} // namespace mervak
