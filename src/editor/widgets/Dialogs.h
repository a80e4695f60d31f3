#pragma once

#include "platform/Language.h"

#include <QString>
#include <QStringList>

class QWidget;

namespace mervak {

// Message boxes and file dialogs whose every text is in the program's language
// (the toolkit's own button texts would be English).

enum class SaveAnswer { Save, Discard, Cancel };

// Message 5, "El fitxer ha estat modificat. Voleu enregistrar-lo?", with the
// buttons "Sí", "No" and, when `canCancel`, "Cancel·lar", each with its access
// key (Alt+S, Alt+N, Alt+C).
SaveAnswer askToSaveChanges(QWidget* parent, Language language, bool canCancel = true);

// Message `number` with the critical icon and the buttons "Acceptar" and
// "Cancel·lar"; true when accepted.
bool confirmCritical(QWidget* parent, Language language, int number);

// A message box with one "Acceptar" button, opened without waiting.
void showNotice(QWidget* parent, Language language, const QString& text, bool critical = false);

// One filter of a file dialog: its Catalan name and its patterns.
struct FileFilter {
    QString catalanName;
    QStringList patterns; // matched without regard to letter case
};

// The file chosen to open (empty when cancelled), in a dialog titled with the
// Catalan caption `title`.
QString chooseFileToOpen(QWidget* parent, Language language, const QString& title,
                         const QList<FileFilter>& filters, const QString& folder);

// The name chosen to save under (empty when cancelled); `defaultSuffix` is added
// to a name typed without one. `selectedFilter` receives the chosen filter's index.
QString chooseFileToSave(QWidget* parent, Language language, const QString& title,
                         const QList<FileFilter>& filters, const QString& startPath,
                         const QString& defaultSuffix, int* selectedFilter = nullptr);

} // namespace mervak
