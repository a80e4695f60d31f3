#pragma once

#include "action/ActionRunner.h"
#include "action/SoundSwitch.h"
#include "action/Speech.h"
#include "app/DocumentController.h"
#include "app/EditorAssembly.h"
#include "app/FocusAfterDialogs.h"
#include "app/HelpWindow.h"
#include "app/MainWindow.h"
#include "app/ReaderWindow.h"
#include "app/ScanningController.h"
#include "app/TrustQuestion.h"
#include "app/VirtualTablet.h"
#include "dispatch/PressDispatcher.h"
#include "dispatch/TabletControl.h"
#include "dispatch/TargetTracker.h"
#include "editor/RecoveryFile.h"
#include "editor/widgets/EditorController.h"
#include "editor/widgets/SheetExport.h"
#include "platform/Autostart.h"
#include "platform/NoRegistry.h"
#include "platform/SingleInstance.h"
#include "platform/audio/AudioOutput.h"
#include "platform/audio/AudioSound.h"
#include "platform/audio/EspeakEngine.h"
#include "platform/audio/MidiPlayer.h"
#include "platform/backends/PlatformBackends.h"
#include "platform/qt/QtClipboard.h"
#include "platform/qt/QtProgramLauncher.h"
#include "platform/qt/SystemClock.h"
#include "platform/x11/X11SwitchGrab.h"
#include "platform/x11/X11TopKeeper.h"
#include "session/Session.h"

#include <QObject>
#include <QTimer>
#include <memory>

namespace mervak {

// The running program: owns the program-wide state, the platform backends, the
// device, the timers and the windows, and wires them together. The editor and
// the file commands are controllers of their own.
class Application : public QObject {
    Q_OBJECT
public:
    // `arguments` excludes the program name; `homeFolder` holds MERVAK.INI;
    // `locked` starts a pupil's session.
    // `platform` is the command line's choice of the backend that types.
    Application(const QStringList& arguments, const QString& homeFolder, bool locked = false,
                PlatformKind platform = PlatformKind::Automatic);
    ~Application() override;

    // Brings the program up; false when it must end at once (a second copy).
    bool start();

    EditorController& editor() { return assembly_->editor(); }
    DocumentController& document() { return assembly_->document(); }

private:
    void readConfiguration();
    void startSound();
    void applyTemplateSpeech();
    void onDeviceStartFinished(bool present);
    void openFromCommandLine();
    void showTabletState(bool active, const QString& caption);
    void setReopenLast(bool on);
    void showHelp();
    void wireWindow();
    void wireEditor();
    void wireRunner();
    void wireTrust();
    void judgeTemplate(const QString& file);
    void wireScanning();
    void editScanning();

    void translate();
    void chooseLanguage(Language language);
    void refreshVirtualTablet();
    void refreshSheetIcon();
    void editProperties();
    void calibrateTracker();
    void testTablet();
    void activateTarget();
    QString targetTitle() const;
    bool isOwnWindow(WindowId window) const;
    void showVirtualTablet(bool shown);
    void keepVirtualTabletPlace();
    void setStatus(const QString& text);
    void quit();
    bool teacherConfirmsClose();
    void setStartAtLogin(bool on);
    void closeAtOnce();
    void closeProgram();

    SingleInstance instance_;
    QStringList arguments_;
    Session session_;
    SheetExportOptions exportOptions_;
    bool sheetIcon_ = false; // "Icona làmina"
    bool openedFromCommandLine_ = false;
    bool locked_ = false;
    bool testingTablet_ = false; // the test dialog says itself why a device did not start
    Autostart autostart_;

    std::unique_ptr<PlatformBackends> backends_;
    KeyboardOutput& keyboard_;
    PointerOutput& pointer_;
    WindowSystem& windows_;
    QtClipboard clipboard_;
    QtProgramLauncher launcher_;
    SystemClock clock_;
    AudioOutput audio_;
    MidiPlayer midi_;
    AudioSound sound_;
    EspeakEngine speechEngine_;
    Speech speech_;
    SoundSwitch soundSwitch_;
    NoRegistry registry_;

    std::unique_ptr<ActionRunner> runner_;
    std::unique_ptr<PressDispatcher> dispatcher_;
    std::unique_ptr<TabletControl> tablet_;
    RecoveryFile recovery_;
    QString startupNotice_;
    TargetTracker targetTracker_;
    MainWindow window_;
    VirtualTablet virtualTablet_;
    ReaderWindow reader_;
    TrustQuestion trustQuestion_;
    HelpWindow help_;
    FocusAfterDialogs focusAfterDialogs_;
    std::unique_ptr<EditorAssembly> assembly_;
    QTimer timer2_;
    QTimer layoutReturn_;
    X11SwitchGrab switchGrab_;
    // Through XWayland only: keeps the virtual tablet above Mervak's other windows.
    std::unique_ptr<X11TopKeeper> tabletKeeper_;
    std::unique_ptr<ScanningController> scanning_;
};

} // namespace mervak
