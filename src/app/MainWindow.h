#pragma once

#include "app/SheetView.h"
#include "platform/Language.h"

#include <QLabel>
#include <QMainWindow>
#include <QToolButton>

class QAction;
class QMenu;

namespace mervak {

// The main window as the running program needs it: the sheet of the current page,
// the tablet button and status captions, the page counter and the menus. It shows
// what it is told and reports what the user asks for; it decides nothing.
class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(QWidget* parent = nullptr);

    SheetView* sheet() const { return sheet_; }

    // Sets every caption from its Catalan form through the language tables.
    void translate(Language language);

    void setTabletState(bool active, const QString& caption);
    void setStatusCaption(const QString& text);
    void setPageCounter(const QString& text);
    void setModelPicture(const QPixmap& picture);
    void setSoundChecked(bool checked);
    void setVirtualTabletChecked(bool checked);

    // Closes without asking again: the controller has decided to end.
    void closeForGood();

signals:
    void newRequested();
    void openRequested();
    void saveRequested();
    void saveAsRequested();
    void quitRequested();
    void languageChosen(Language language);
    void soundToggled(bool on);
    void virtualTabletToggled(bool shown);
    void activateTargetRequested();
    void tabletButtonClicked();
    void previousPageRequested();
    void nextPageRequested();
    void aboutRequested();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void buildMenus();
    void buildStatusArea();
    QAction* addCaptioned(QMenu* menu, const QString& catalan);
    QMenu* addCaptionedMenu(const QString& catalan);

    SheetView* sheet_;
    QToolButton* tabletButton_ = nullptr;
    QLabel* modelPicture_ = nullptr;
    QLabel* tabletCaption_ = nullptr; // MsgTaulAct
    QLabel* statusCaption_ = nullptr; // Label1
    QLabel* pageCounter_ = nullptr;   // MsgPagina
    QToolButton* previousPage_ = nullptr;
    QToolButton* nextPage_ = nullptr;
    QAction* sound_ = nullptr;
    QAction* virtualTablet_ = nullptr;
    QAction* catalan_ = nullptr;
    QAction* spanish_ = nullptr;
    QList<QPair<QObject*, QString>> captioned_; // every widget or action with its Catalan caption
    bool closing_ = false;
};

} // namespace mervak
