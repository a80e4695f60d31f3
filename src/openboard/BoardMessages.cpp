#include "openboard/BoardMessages.h"

#include <QStringList>
#include <QStringView>

namespace mervak {

namespace {

struct Texts {
    QStringView catalan;
    QStringView spanish;
};

QString pick(Language language, Texts texts, const QStringList& arguments) {
    return withArguments(language == Language::Spanish ? texts.spanish : texts.catalan, arguments);
}

Texts errorTexts(BoardError::Kind kind) {
    using K = BoardError::Kind;
    switch (kind) {
    case K::CannotRead:
        return {u"No s'ha pogut llegir el tauler %1: %2",
                u"No se ha podido leer el tablero %1: %2"};
    case K::CannotWrite:
        return {u"No s'ha pogut desar %1: %2", u"No se ha podido guardar %1: %2"};
    case K::NotJson:
        return {u"El tauler %1 no és JSON vàlid (posició %3): %2",
                u"El tablero %1 no es JSON válido (posición %3): %2"};
    case K::NotObject:
        return {u"El tauler %1 no és un objecte JSON%3", u"El tablero %1 no es un objeto JSON%3"};
    case K::MissingField:
        return {u"Al tauler %1 hi falta el camp %3", u"En el tablero %1 falta el campo %3"};
    case K::WrongType:
        return {u"Al tauler %1, el camp %3 hauria de ser de tipus %2",
                u"En el tablero %1, el campo %3 debería ser de tipo %2"};
    case K::BadNumber:
        return {u"Al tauler %1, el camp %3 té un valor que no serveix: %2",
                u"En el tablero %1, el campo %3 tiene un valor que no sirve: %2"};
    case K::GridTooLarge:
        return {u"Al tauler %1, %3 té més caselles de les que diu la graella (%2)",
                u"En el tablero %1, %3 tiene más casillas de las que dice la cuadrícula (%2)"};
    case K::NotZip:
        return {u"El paquet %1 no és un fitxer .obz (zip) vàlid: %2",
                u"El paquete %1 no es un archivo .obz (zip) válido: %2"};
    case K::NoBoard:
        return {u"El paquet %1 no conté cap tauler .obf",
                u"El paquete %1 no contiene ningún tablero .obf"};
    case K::MissingEntry:
        return {u"%1 nomena %2, que no és dins del paquet",
                u"%1 nombra %2, que no está dentro del paquete"};
    case K::UnknownFileType:
        return {u"%1 no és un tauler .obf ni un paquet .obz",
                u"%1 no es un tablero .obf ni un paquete .obz"};
    case K::TooManyAreas:
        return {u"Els taulers de %1 tenen més de 32767 botons: no caben en una plantilla",
                u"Los tableros de %1 tienen más de 32767 botones: no caben en una plantilla"};
    }
    return {};
}

Texts noteTexts(BoardNote::Kind kind) {
    using K = BoardNote::Kind;
    switch (kind) {
    case K::PictureOnline:
        return {u"%1, «%2»: la imatge és a Internet i no s'ha baixat (%3)",
                u"%1, «%2»: la imagen está en Internet y no se ha descargado (%3)"};
    case K::PictureSymbolSet:
        return {u"%1, «%2»: la imatge és d'un conjunt de símbols de llicència (%3) i no s'ha "
                u"pogut portar",
                u"%1, «%2»: la imagen es de un conjunto de símbolos con licencia (%3) y no se ha "
                u"podido traer"};
    case K::PictureMissing:
        return {u"%1, «%2»: no es troba la imatge %3", u"%1, «%2»: no se encuentra la imagen %3"};
    case K::PictureUnreadable:
        return {u"%1, «%2»: la imatge no es pot llegir (%3)",
                u"%1, «%2»: la imagen no se puede leer (%3)"};
    case K::SoundNotCarried:
        return {u"%1, «%2»: el so gravat no s'ha portat; es llegeix el text en veu alta",
                u"%1, «%2»: el sonido grabado no se ha traído; se lee el texto en voz alta"};
    case K::LinkOutside:
        return {u"%1, «%2»: porta a un tauler que no és al paquet (%3)",
                u"%1, «%2»: lleva a un tablero que no está en el paquete (%3)"};
    case K::ActionNotCarried:
        return {u"%1, «%2»: l'acció %3 no té equivalent al Mervak",
                u"%1, «%2»: la acción %3 no tiene equivalente en Mervak"};
    case K::EmptySlotId:
        return {u"%1: la graella nomena el botó %3, que no existeix; la casella queda buida",
                u"%1: la cuadrícula nombra el botón %3, que no existe; la casilla queda vacía"};
    case K::ColourUnknown:
        return {u"%1, «%2»: no s'entén el color %3", u"%1, «%2»: no se entiende el color %3"};
    case K::AreaOffPage:
        return {u"L'àrea %3 és en una pàgina que la plantilla no té: no s'ha exportat",
                u"El área %3 está en una página que la plantilla no tiene: no se ha exportado"};
    case K::SymbolNotFound:
        return {u"%1, «%2»: no es troba el símbol %3 a la biblioteca",
                u"%1, «%2»: no se encuentra el símbolo %3 en la biblioteca"};
    case K::PictureNotFound:
        return {u"%1, «%2»: no es troba la imatge %3", u"%1, «%2»: no se encuentra la imagen %3"};
    case K::PageBackground:
        return {u"%1: la imatge de fons de la pàgina (%3) no es pot posar en un tauler",
                u"%1: la imagen de fondo de la página (%3) no se puede poner en un tablero"};
    }
    return {};
}

} // namespace

QString boardErrorText(Language language, const BoardError& error) {
    QString where = error.where;
    if (error.kind == BoardError::Kind::NotObject && !where.isEmpty())
        where = u' ' + where;
    return pick(language, errorTexts(error.kind), {error.file, error.detail, where});
}

QString boardNoteText(Language language, const BoardNote& note) {
    return pick(language, noteTexts(note.kind), {note.board, note.subject, note.detail});
}

} // namespace mervak
