#include "editor/widgets/Dialogs.h"

#include "editor/widgets/Captions.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPushButton>

namespace mervak {

namespace {

const QString kTitle = QStringLiteral("MERVAK");

QString caption(Language language, const char* catalan) {
    return TranslateCaption(language, QString::fromUtf8(catalan));
}

// "*.mvw" matches "A.MVW" too: both cases are listed, as the dialog's own
// matching follows the file system's case.
QString filterText(Language language, const FileFilter& filter) {
    QStringList patterns;
    for (const QString& pattern : filter.patterns) {
        patterns.append(pattern.toLower());
        if (pattern.toUpper() != pattern.toLower())
            patterns.append(pattern.toUpper());
    }
    patterns.removeDuplicates();
    return TranslateCaption(language, filter.catalanName) + QStringLiteral(" (") +
           patterns.join(u' ') + u')';
}

QFileDialog* fileDialog(QWidget* parent, Language language, const QString& title,
                        const QList<FileFilter>& filters) {
    auto* dialog = new QFileDialog(parent, TranslateCaption(language, title));
    dialog->setOption(QFileDialog::DontUseNativeDialog);
    QStringList texts;
    for (const FileFilter& filter : filters)
        texts.append(filterText(language, filter));
    dialog->setNameFilters(texts);
    dialog->setLabelText(QFileDialog::LookIn, caption(language, "Carpeta:"));
    dialog->setLabelText(QFileDialog::FileName, caption(language, "Nom del fitxer:"));
    dialog->setLabelText(QFileDialog::FileType, caption(language, "Tipus:"));
    dialog->setLabelText(QFileDialog::Reject, caption(language, "Cancel·lar"));
    return dialog;
}

QString run(QFileDialog* dialog, int* selectedFilter) {
    QString chosen;
    if (dialog->exec() == QDialog::Accepted && !dialog->selectedFiles().isEmpty())
        chosen = dialog->selectedFiles().first();
    if (selectedFilter)
        *selectedFilter = dialog->nameFilters().indexOf(dialog->selectedNameFilter());
    delete dialog;
    return chosen;
}

} // namespace

SaveAnswer askToSaveChanges(QWidget* parent, Language language, bool canCancel) {
    QMessageBox box(QMessageBox::Question, kTitle, Message(language, Msg::SaveChanges),
                    QMessageBox::NoButton, parent);
    QPushButton* yes = box.addButton(caption(language, "&Sí"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(caption(language, "&No"), QMessageBox::NoRole);
    QPushButton* cancel =
        canCancel ? box.addButton(caption(language, "&Cancel·lar"), QMessageBox::RejectRole)
                  : nullptr;
    box.setDefaultButton(yes);
    box.setEscapeButton(cancel ? static_cast<QAbstractButton*>(cancel) : no);
    box.exec();
    if (box.clickedButton() == yes)
        return SaveAnswer::Save;
    if (box.clickedButton() == no)
        return SaveAnswer::Discard;
    return SaveAnswer::Cancel;
}

bool confirmCritical(QWidget* parent, Language language, int number) {
    QMessageBox box(QMessageBox::Critical, kTitle, Message(language, number), QMessageBox::NoButton,
                    parent);
    QPushButton* ok = box.addButton(caption(language, "Acceptar"), QMessageBox::AcceptRole);
    QPushButton* cancel = box.addButton(caption(language, "Cancel·lar"), QMessageBox::RejectRole);
    box.setDefaultButton(cancel);
    box.setEscapeButton(cancel);
    box.exec();
    return box.clickedButton() == ok;
}

void showNotice(QWidget* parent, Language language, const QString& text, bool critical) {
    auto* box = new QMessageBox(critical ? QMessageBox::Critical : QMessageBox::Warning, kTitle,
                                text, QMessageBox::NoButton, parent);
    box->addButton(caption(language, "Acceptar"), QMessageBox::AcceptRole);
    box->setAttribute(Qt::WA_DeleteOnClose);
    box->open();
}

QString chooseFileToOpen(QWidget* parent, Language language, const QString& title,
                         const QList<FileFilter>& filters, const QString& folder) {
    QFileDialog* dialog = fileDialog(parent, language, title, filters);
    dialog->setAcceptMode(QFileDialog::AcceptOpen);
    dialog->setFileMode(QFileDialog::ExistingFile);
    dialog->setLabelText(QFileDialog::Accept, caption(language, "Obrir"));
    dialog->setDirectory(folder);
    return run(dialog, nullptr);
}

QString chooseFileToSave(QWidget* parent, Language language, const QString& title,
                         const QList<FileFilter>& filters, const QString& startPath,
                         const QString& defaultSuffix, int* selectedFilter) {
    QFileDialog* dialog = fileDialog(parent, language, title, filters);
    dialog->setAcceptMode(QFileDialog::AcceptSave);
    dialog->setLabelText(QFileDialog::Accept, caption(language, "Desar"));
    dialog->setDefaultSuffix(defaultSuffix);
    if (QFileInfo(startPath).isDir())
        dialog->setDirectory(startPath);
    else
        dialog->selectFile(startPath);
    return run(dialog, selectedFilter);
}

} // namespace mervak
