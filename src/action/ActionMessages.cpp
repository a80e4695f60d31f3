#include "action/ActionMessages.h"

#include <QStringView>
#include <algorithm>
#include <iterator>

namespace mervak {

namespace {

constexpr int kOwnText = -1;

// A row either has its own texts or starts with a numbered message and adds
// its first argument, as the program's other file messages do.
struct MessageRow {
    ActionProblem problem;
    int number;
    QStringView catalan;
    QStringView spanish;
};

constexpr MessageRow kRows[] = {
    {ActionProblem::KeysNotRead, kOwnText,
     u"No es poden escriure les tecles \"%1\": %2 al caràcter %3",
     u"No se pueden escribir las teclas \"%1\": %2 en el carácter %3"},
    {ActionProblem::UnknownKeyName, kOwnText, u"hi ha un nom de tecla desconegut \"{%1}\"",
     u"hay un nombre de tecla desconocido \"{%1}\""},
    {ActionProblem::BadRepeatCount, kOwnText,
     u"hi ha un nombre de repeticions incorrecte a \"{%1}\"",
     u"hay un número de repeticiones incorrecto en \"{%1}\""},
    {ActionProblem::UnclosedBrace, kOwnText, u"hi ha una \"{\" que no es tanca",
     u"hay una \"{\" que no se cierra"},
    {ActionProblem::UnclosedGroup, kOwnText, u"hi ha un \"(\" que no es tanca",
     u"hay un \"(\" que no se cierra"},
    {ActionProblem::UnopenedGroup, kOwnText, u"hi ha un \")\" sense cap \"(\" abans",
     u"hay un \")\" sin ningún \"(\" delante"},
    {ActionProblem::KeysNotTyped, kOwnText, u"No s'han pogut escriure les tecles: %1",
     u"No se han podido escribir las teclas: %1"},
    {ActionProblem::NoWindow, kOwnText,
     u"No hi ha cap finestra amb el títol \"%1\": no s'ha escrit \"%2\". Obriu aquest "
     u"programa, o corregiu l'Aplicació a Plantilla > Dades inicials.",
     u"No hay ninguna ventana con el título \"%1\": no se ha escrito \"%2\". Abrid ese "
     u"programa, o corregid la Aplicación en Plantilla > Datos iniciales."},
    {ActionProblem::NoTargetWindow, kOwnText,
     u"No hi ha cap finestra de destinació: no s'ha escrit \"%1\". Feu clic al programa on "
     u"s'ha d'escriure, o poseu-ne el títol a l'Aplicació de Plantilla > Dades inicials.",
     u"No hay ninguna ventana de destino: no se ha escrito \"%1\". Haced clic en el programa "
     u"donde se debe escribir, o poned su título en la Aplicación de Plantilla > Datos iniciales."},
    {ActionProblem::NotActivated, kOwnText,
     u"No s'ha pogut activar la finestra \"%1\": no s'ha escrit \"%2\". Torneu-ho a "
     u"provar; si passa sempre, feu clic a la finestra abans de prémer.",
     u"No se ha podido activar la ventana \"%1\": no se ha escrito \"%2\". Volved a "
     u"probarlo; si pasa siempre, haced clic en la ventana antes de pulsar."},
    {ActionProblem::OwnWindow, kOwnText,
     u"La finestra \"%1\" és del Mervak: no s'hi ha escrit \"%2\". Poseu a l'Aplicació de "
     u"Plantilla > Dades inicials el títol del programa de l'alumne.",
     u"La ventana \"%1\" es de Mervak: no se ha escrito \"%2\". Poned en la Aplicación "
     u"de Plantilla > Datos iniciales el título del programa del alumno."},
    {ActionProblem::TargetGone, kOwnText,
     u"La finestra de destinació ja no hi és: no s'ha enganxat res. Torneu a obrir el "
     u"programa i premeu de nou.",
     u"La ventana de destino ya no existe: no se ha pegado nada. Volved a abrir el "
     u"programa y pulsad de nuevo."},
    {ActionProblem::NestingTooDeep, kOwnText,
     u"Les ordres s'imbriquen més de %1 nivells: la resta del text no s'ha executat",
     u"Las órdenes se anidan más de %1 niveles: el resto del texto no se ha ejecutado"},
    {ActionProblem::NumberOutOfRange, kOwnText,
     u"Hi ha un nombre fora de límits a \"%1}\": l'ordre no s'ha executat",
     u"Hay un número fuera de límites en \"%1}\": la orden no se ha ejecutado"},
    {ActionProblem::MouseOutOfRange, kOwnText,
     u"Hi ha un nombre fora de límits a l'ordre del ratolí \"%1\"",
     u"Hay un número fuera de límites en la orden del ratón \"%1\""},
    {ActionProblem::WaitOutOfRange, kOwnText, u"El compte d'espera %1 és fora de límits",
     u"La cuenta de espera %1 está fuera de límites"},
    {ActionProblem::ProgramNotStarted, kOwnText, u"No s'ha pogut engegar \"%1\"",
     u"No se ha podido iniciar \"%1\""},
    {ActionProblem::NoDisplayNamed, kOwnText,
     u"no s'ha indicat cap pantalla X (la variable DISPLAY és buida)",
     u"no se ha indicado ninguna pantalla X (la variable DISPLAY está vacía)"},
    {ActionProblem::DisplayNotOpened, kOwnText, u"no es pot obrir la pantalla X \"%1\"",
     u"no se puede abrir la pantalla X \"%1\""},
    {ActionProblem::DisplayLost, kOwnText, u"s'ha perdut la connexió amb la pantalla X",
     u"se ha perdido la conexión con la pantalla X"},
    {ActionProblem::NoKeyboardMap, kOwnText,
     u"no es pot llegir el mapa del teclat (el servidor X no té l'extensió XKB)",
     u"no se puede leer el mapa del teclado (el servidor X no tiene la extensión XKB)"},
    {ActionProblem::KeyNotTypeable, kOwnText, u"%1 no es pot escriure amb cap teclat",
     u"%1 no se puede escribir con ningún teclado"},
    {ActionProblem::NoFreeKeycode, kOwnText, u"no queda cap codi de tecla lliure per a %1",
     u"no queda ningún código de tecla libre para %1"},
    {ActionProblem::NoModifierKey, kOwnText, u"cap tecla del teclat no dona el modificador %1",
     u"ninguna tecla del teclado da el modificador %1"},
    {ActionProblem::CompositorNotReached, kOwnText,
     u"no es pot connectar amb el compositor Wayland \"%1\"",
     u"no se puede conectar con el compositor Wayland \"%1\""},
    {ActionProblem::NoVirtualKeyboard, kOwnText,
     u"el compositor Wayland no ofereix cap teclat virtual (proveu --platform portal)",
     u"el compositor Wayland no ofrece ningún teclado virtual (pruebe --platform portal)"},
    {ActionProblem::RemoteControlRefused, kOwnText,
     u"l'escriptori no ha permès el control remot del teclat",
     u"el escritorio no ha permitido el control remoto del teclado"},
    {ActionProblem::FileNotFound, 15, {}, {}},
    {ActionProblem::FileNotRead, 3, {}, {}},
    {ActionProblem::NotationError, kOwnText, u"Al caràcter %2 %1", u"En el carácter %2 %1"},
    {ActionProblem::NotTrusted, kOwnText, u"La plantilla no és de confiança: no s'ha fet \"%1\"",
     u"La plantilla no es de confianza: no se ha hecho \"%1\""},
};

static_assert(std::size(kRows) == static_cast<std::size_t>(ActionProblem::NotTrusted) + 1,
              "one row for every problem");

QString textOf(Language language, const MessageRow& row) {
    if (row.number != kOwnText)
        return Message(language, row.number) + QStringLiteral("%1");
    return (language == Language::Spanish ? row.spanish : row.catalan).toString();
}

// A status line stays readable when an Area's whole paragraph could not be typed;
// the end is kept too, as it holds a file's name.
QString shortened(const QString& argument) {
    constexpr qsizetype kHead = 50;
    constexpr qsizetype kTail = 29;
    if (argument.size() <= kHead + 1 + kTail)
        return argument;
    return argument.left(kHead) + QChar(u'…') + argument.right(kTail);
}

QString filled(const QString& text, const QStringList& arguments) {
    QStringList shortArguments;
    for (const QString& argument : arguments)
        shortArguments.append(shortened(argument));
    return withArguments(text, shortArguments);
}

ActionProblem problemOf(SendKeysError::Kind kind) {
    switch (kind) {
    case SendKeysError::Kind::UnknownKeyName:
        return ActionProblem::UnknownKeyName;
    case SendKeysError::Kind::BadRepeatCount:
        return ActionProblem::BadRepeatCount;
    case SendKeysError::Kind::UnclosedBrace:
        return ActionProblem::UnclosedBrace;
    case SendKeysError::Kind::UnclosedGroup:
        return ActionProblem::UnclosedGroup;
    case SendKeysError::Kind::UnopenedGroup:
        return ActionProblem::UnopenedGroup;
    }
    return ActionProblem::UnclosedBrace;
}

ActionProblem problemOf(TypingError::Reason reason) {
    switch (reason) {
    case TypingError::Reason::NoDisplayNamed:
        return ActionProblem::NoDisplayNamed;
    case TypingError::Reason::DisplayNotOpened:
        return ActionProblem::DisplayNotOpened;
    case TypingError::Reason::DisplayLost:
        return ActionProblem::DisplayLost;
    case TypingError::Reason::NoKeyboardMap:
        return ActionProblem::NoKeyboardMap;
    case TypingError::Reason::KeyNotTypeable:
        return ActionProblem::KeyNotTypeable;
    case TypingError::Reason::NoFreeKeycode:
        return ActionProblem::NoFreeKeycode;
    case TypingError::Reason::NoModifierKey:
        return ActionProblem::NoModifierKey;
    case TypingError::Reason::CompositorNotReached:
        return ActionProblem::CompositorNotReached;
    case TypingError::Reason::NoVirtualKeyboard:
        return ActionProblem::NoVirtualKeyboard;
    case TypingError::Reason::RemoteControlRefused:
        return ActionProblem::RemoteControlRefused;
    }
    return ActionProblem::DisplayLost;
}

// A character with its code, since it may not show ("\"é\" (U+00E9)"); a named key
// in the notation ("{F13}").
QString keyName(const KeyStroke& stroke) {
    if (stroke.key != Key::Character)
        return SendKeysParser::notation(KeyStroke{stroke.key, 0, {}});
    const QString code = QString::number(static_cast<uint>(stroke.character), 16).toUpper();
    return QStringLiteral("\"%1\" (U+%2)")
        .arg(QString::fromUcs4(&stroke.character, 1), code.rightJustified(4, u'0'));
}

} // namespace

QString actionMessage(Language language, ActionProblem problem, const QStringList& arguments) {
    const auto row = std::find_if(std::begin(kRows), std::end(kRows),
                                  [problem](const MessageRow& r) { return r.problem == problem; });
    return filled(textOf(language, *row), arguments);
}

QString keysErrorMessage(Language language, const SendKeysError& error, const QString& keys) {
    const QString what = actionMessage(language, problemOf(error.kind), {error.detail});
    return actionMessage(language, ActionProblem::KeysNotRead,
                         {keys, what, QString::number(error.position + 1)});
}

QString notationErrorMessage(Language language, const SendKeysError& error) {
    const QString what = actionMessage(language, problemOf(error.kind), {error.detail});
    return actionMessage(language, ActionProblem::NotationError,
                         {what, QString::number(error.position + 1)});
}

QString typingErrorMessage(Language language, const TypingError& error) {
    const bool aboutKey = error.reason == TypingError::Reason::KeyNotTypeable ||
                          error.reason == TypingError::Reason::NoFreeKeycode;
    const QString what = actionMessage(language, problemOf(error.reason),
                                       {aboutKey ? keyName(error.stroke) : error.detail});
    return actionMessage(language, ActionProblem::KeysNotTyped, {what});
}

} // namespace mervak
