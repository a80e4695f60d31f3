#pragma once

#include "editor/widgets/AreaPanel.h"
#include "editor/widgets/EditorActions.h"
#include "editor/widgets/PageFrame.h"
#include "editor/widgets/SheetPane.h"
#include "platform/Language.h"

#include <QLabel>
#include <QMainWindow>
#include <QToolButton>

class QAction;
class QMenu;
class QToolBar;

namespace mervak {

// The main window: the sheet of the current page with its coordinate bars, the
// editor's side panel and page frame, the menus, the tablet button and status
// captions. It shows what it is told and reports what the user asks for; the
// controllers decide.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);

    SheetPane* sheetPane() const { return pane_; }
    SheetView* sheet() const { return pane_->sheet(); }
    AreaPanel* panel() const { return panel_; }
    PageFrame* pageFrame() const { return frame_; }
    const EditorActions& editorActions() const { return editor_; }
    QMenu* filesMenu() const { return files_; }

    // Shows every caption in the language, from its Catalan form.
    void translate(Language language);

    void setTabletState(bool active, const QString& caption);
    void setStatusCaption(const QString& text);
    void setModelPicture(const QPixmap& picture);
    void setSoundChecked(bool checked);
    void setVirtualTabletChecked(bool checked);
    void setRecentFiles(const QStringList& paths);
    void setStartAtLoginChecked(bool checked);
    // The tracker's calibration is offered only when the model is the colour tracker.
    void setTrackerCalibrationShown(bool shown);

    // A pupil's session: the menus, tools and panel that edit or open Templates
    // go, their shortcuts with them; the sheet, the tablet, the view and the
    // options that serve pressing stay.
    void lock();

    // Closes without asking again: the controller has decided to end.
    void closeForGood();

signals:
    void newRequested();
    void openRequested();
    void saveRequested();
    void saveAsRequested();
    void recentFileChosen(const QString& path);
    void templateDropped(const QString& path);
    void quitRequested();
    void languageChosen(Language language);
    void soundToggled(bool on);
    void virtualTabletToggled(bool shown);
    void startAtLoginToggled(bool on);
    void activateTargetRequested();
    void tabletButtonClicked();
    void tabletTestRequested();
    void aboutRequested();
    void propertiesRequested();
    void trackerCalibrationRequested();
    void exportSheetRequested();
    void thumbnailRequested();
    void printSheetRequested();
    void sheetIconToggled(bool on);

protected:
    void closeEvent(QCloseEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dropEvent(QDropEvent* event) override;

private:
    void buildMenus();
    void buildFilesMenu();
    void buildAreaMenu();
    void buildPageMenu();
    void buildTemplateMenus();
    void buildViewMenu();
    void buildOptionsMenu();
    void buildToolBar();
    void buildStatusArea();
    QAction* addCaptioned(QMenu* menu, const QString& catalan,
                          const QKeySequence& shortcut = QKeySequence());
    QMenu* addCaptionedMenu(const QString& catalan);

    SheetPane* pane_;
    AreaPanel* panel_;
    PageFrame* frame_;
    EditorActions editor_;
    QMenu* files_ = nullptr;
    QMenu* recent_ = nullptr;
    QList<QMenu*> editingMenus_;
    QToolBar* toolBar_ = nullptr;
    QAction* startAtLogin_ = nullptr;
    QAction* trackerCalibration_ = nullptr;
    QToolButton* tabletButton_ = nullptr;
    QAction* tabletTest_ = nullptr; // also the tablet button's context menu
    QLabel* modelPicture_ = nullptr;
    QLabel* tabletCaption_ = nullptr; // MsgTaulAct
    QLabel* statusCaption_ = nullptr; // Label1
    QAction* sound_ = nullptr;
    QAction* virtualTablet_ = nullptr;
    QAction* catalan_ = nullptr;
    QAction* spanish_ = nullptr;
    bool closing_ = false;
};

} // namespace mervak
