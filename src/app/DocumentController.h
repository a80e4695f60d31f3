#pragma once

#include "app/MainWindow.h"
#include "editor/RecentFiles.h"
#include "session/Session.h"
#include "sheet/PictureFiles.h"
#include "template/Template.h"

#include <QObject>
#include <functional>

namespace mervak {

// The open Template as a file: New, Open, Save, Save as, the recent files, a
// Template dropped on the window or named by a CARREGA command, and the window
// title. Whatever would lose unsaved changes asks first (message 5).
class DocumentController : public QObject {
    Q_OBJECT
public:
    struct Context {
        Session& session; // its WorkingFolder moves to the folder of each Template opened
        // The views show the Template again; `another` when it is no longer the
        // one edited before (new, opened), so that its undo is not offered.
        std::function<void(bool another)> templateReplaced;
        std::function<void(const QString&)> showStatus;
    };

    DocumentController(Context context, MainWindow& window, QObject* parent = nullptr);

    void newTemplate();
    void openWithDialog();
    // A recent file, a dropped file or a CARREGA command: asks first.
    void openFile(const QString& path);
    // Opens without asking (the command line at start).
    bool open(const QString& path);
    // Both show the save dialog; false when nothing was saved.
    bool save();
    bool saveAs();

    // Asks about unsaved changes: true when the caller may go on (saved, or
    // the changes are to be dropped). Without `canCancel` there is no way back.
    bool mayDiscardChanges(bool canCancel = true);

    // The window title in the present language.
    QString title() const;
    void refreshTitle();
    void refreshRecentFiles();

    // The symbol library, for the page pictures a composed Template saves beside it.
    void setSymbolFiles(SymbolFileLookup symbols) { symbols_ = std::move(symbols); }

private:
    bool saveWithDialog(bool saveAs);
    struct SaveOutcome write(const QString& path, bool saveAs);
    void reportSave(const struct SaveOutcome& outcome);
    void remember(const QString& path);

    Context context_;
    MainWindow& window_;
    RecentFiles recent_;
    SymbolFileLookup symbols_;
};

} // namespace mervak
