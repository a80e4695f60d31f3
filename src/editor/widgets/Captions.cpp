#include "editor/widgets/Captions.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QLibraryInfo>
#include <QMenu>
#include <QTranslator>
#include <QWidget>

namespace mervak {

namespace {

constexpr const char* kCaption = "mervakCaption";
constexpr const char* kToolTip = "mervakToolTip";
constexpr const char* kWindowTitle = "mervakWindowTitle";

void show(QObject* object, const QString& text) {
    if (auto* action = qobject_cast<QAction*>(object))
        action->setText(text);
    else if (auto* menu = qobject_cast<QMenu*>(object))
        menu->setTitle(text);
    else if (auto* button = qobject_cast<QAbstractButton*>(object))
        button->setText(text);
    else if (auto* label = qobject_cast<QLabel*>(object))
        label->setText(text);
    else if (auto* group = qobject_cast<QGroupBox*>(object))
        group->setTitle(text);
}

void showToolTip(QObject* object, const QString& text) {
    if (auto* action = qobject_cast<QAction*>(object))
        action->setToolTip(text);
    else if (auto* widget = qobject_cast<QWidget*>(object))
        widget->setToolTip(text);
}

void translateObject(QObject* object, Language language) {
    const QVariant caption = object->property(kCaption);
    if (caption.isValid())
        show(object, TranslateCaption(language, caption.toString()));
    const QVariant tip = object->property(kToolTip);
    if (tip.isValid())
        showToolTip(object, TranslateCaption(language, tip.toString()));
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return;
    const QVariant title = object->property(kWindowTitle);
    if (title.isValid())
        widget->setWindowTitle(TranslateCaption(language, title.toString()));
}

// One translator for the program's run, loaded again at each switch.
void useToolkitLanguage(Language language) {
    static QTranslator* translator = nullptr;
    if (!translator)
        translator = new QTranslator(QCoreApplication::instance());
    QCoreApplication::removeTranslator(translator);
    const QString name =
        language == Language::Spanish ? QStringLiteral("qt_es") : QStringLiteral("qt_ca");
    if (translator->load(name, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
        QCoreApplication::installTranslator(translator);
}

} // namespace

void setCaption(QObject* object, const QString& catalan, Language language) {
    object->setProperty(kCaption, catalan);
    show(object, TranslateCaption(language, catalan));
}

void setToolTipCaption(QObject* object, const QString& catalan, Language language) {
    object->setProperty(kToolTip, catalan);
    showToolTip(object, TranslateCaption(language, catalan));
}

void setWindowCaption(QWidget* window, const QString& catalan, Language language) {
    window->setProperty(kWindowTitle, catalan);
    window->setWindowTitle(TranslateCaption(language, catalan));
}

void TranslateForm(QWidget* form, Language language) {
    translateObject(form, language);
    for (QObject* child : form->findChildren<QObject*>())
        translateObject(child, language);
}

void translateAllWindows(Language language) {
    useToolkitLanguage(language);
    for (QWidget* window : QApplication::topLevelWidgets())
        TranslateForm(window, language);
}

QString translateCounter(Language language, const QString& catalanCounter) {
    const QString whole = TranslateCaption(language, catalanCounter);
    if (whole != catalanCounter || language == Language::Catalan)
        return whole;
    const qsizetype blank = catalanCounter.indexOf(u' ');
    if (blank < 0)
        return catalanCounter;
    return catalanCounter.left(blank) + TranslateCaption(language, catalanCounter.mid(blank));
}

} // namespace mervak
