#pragma once

#include "platform/Language.h"

#include <QString>

class QObject;
class QWidget;

namespace mervak {

// Widgets keep their Catalan caption as a key, so that switching the language
// translates them again both ways. Understood: QAction (text), QMenu (title),
// QAbstractButton (text), QLabel (text), QGroupBox (title); the window title of
// a top-level widget is kept apart with setWindowCaption().

// Remembers `catalan` as the caption of `object` and shows it in `language`.
void setCaption(QObject* object, const QString& catalan, Language language = Language::Catalan);

// Remembers `catalan` as the tool tip of `object` (a widget or an action) and
// shows it in `language`.
void setToolTipCaption(QObject* object, const QString& catalan,
                       Language language = Language::Catalan);

// Remembers `catalan` as the window title of `window` and shows it in `language`.
void setWindowCaption(QWidget* window, const QString& catalan,
                      Language language = Language::Catalan);

// Shows every remembered caption of `form` and of everything inside it in
// `language`: the form's own window title, its widgets, menus and actions.
void TranslateForm(QWidget* form, Language language);

// Every top-level window of the program, open dialogs included, and the
// toolkit's own texts (file dialogs, context menus, standard buttons) from
// Qt's Catalan or Spanish translations where they are installed.
void translateAllWindows(Language language);

// The area and page counters ("2/5 àrees", "----- pàgines") in `language`: the
// whole text when the dictionary knows it, else the number and its translated noun.
QString translateCounter(Language language, const QString& catalanCounter);

} // namespace mervak
