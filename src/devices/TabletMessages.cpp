#include "devices/TabletMessages.h"

namespace mervak {

namespace {

QString pick(Language language, const char* catalan, const char* spanish) {
    return QString::fromUtf8(language == Language::Spanish ? spanish : catalan);
}

QString openReason(Language language, OpenFailure failure) {
    switch (failure) {
    case OpenFailure::NotFound:
        return pick(language, "el port no existeix", "el puerto no existe");
    case OpenFailure::NoPermission:
        return pick(language, "no hi ha permís per obrir-lo (cal ser del grup dialout)",
                    "no hay permiso para abrirlo (hay que ser del grupo dialout)");
    case OpenFailure::Busy:
        return pick(language, "el port està ocupat per un altre programa",
                    "el puerto está ocupado por otro programa");
    case OpenFailure::NotSerial:
        return pick(language, "no és un port sèrie", "no es un puerto serie");
    case OpenFailure::None:
    case OpenFailure::Other:
        break;
    }
    return pick(language, "error desconegut", "error desconocido");
}

} // namespace

QString openFailedText(Language language, const QString& port, OpenFailure failure) {
    return pick(language, "No s'ha pogut obrir el port %1: %2.",
                "No se ha podido abrir el puerto %1: %2.")
        .arg(port, openReason(language, failure));
}

QString portLostText(Language language, const QString& port) {
    return pick(language,
                "S'ha perdut la connexió amb la tauleta (%1). Comproveu el cable i feu «Test de "
                "la tauleta».",
                "Se ha perdido la conexión con la tableta (%1). Compruebe el cable y haga «Test de "
                "la tauleta».")
        .arg(port);
}

QString noAnswerText(Language language, const QString& port) {
    return pick(language,
                "La tauleta del port %1 no respon. Comproveu que està endollada i engegada, i feu "
                "«Test de la tauleta».",
                "La tableta del puerto %1 no responde. Compruebe que está enchufada y encendida, y "
                "haga «Test de la tauleta».")
        .arg(port);
}

QString wrongAnswerText(Language language, const QString& port) {
    return pick(language,
                "L'aparell del port %1 no ha respost com una tauleta sèrie. Trieu el port de la "
                "tauleta a «Test de la tauleta».",
                "El aparato del puerto %1 no ha respondido como una tableta serie. Elija el puerto "
                "de la tableta en «Test de la tauleta».")
        .arg(port);
}

QString notTabletText(Language language, const QString& port) {
    return pick(language,
                "L'aparell del port %1 no s'identifica com una tauleta sèrie. Trieu el port de la "
                "tauleta a «Test de la tauleta».",
                "El aparato del puerto %1 no se identifica como una tableta serie. Elija el puerto "
                "de la tableta en «Test de la tauleta».")
        .arg(port);
}

QString noTabletFoundText(Language language, int portsTried) {
    return pick(language,
                "No s'ha trobat cap tauleta sèrie als ports sèrie (%1 provats). Comproveu que està "
                "endollada i engegada, i feu «Test de la tauleta».",
                "No se ha encontrado ninguna tableta serie en los puertos serie (%1 probados). "
                "Compruebe que está enchufada y encendida, y haga «Test de la tauleta».")
        .arg(portsTried);
}

} // namespace mervak
