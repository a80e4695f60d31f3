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
    return pick(language, "S'ha perdut la connexió amb la tauleta (%1)",
                "Se ha perdido la conexión con la tableta (%1)")
        .arg(port);
}

QString noAnswerText(Language language, const QString& port) {
    return pick(language, "La tauleta del port %1 no respon.",
                "La tableta del puerto %1 no responde.")
        .arg(port);
}

QString wrongAnswerText(Language language, const QString& port) {
    return pick(language, "El dispositiu del port %1 no ha respost com una tauleta EASY.",
                "El dispositivo del puerto %1 no ha respondido como una tableta EASY.")
        .arg(port);
}

QString notTabletText(Language language, const QString& port) {
    return pick(language, "El dispositiu del port %1 no s'identifica com una tauleta EASY.",
                "El dispositivo del puerto %1 no se identifica como una tableta EASY.")
        .arg(port);
}

QString noTabletFoundText(Language language, int portsTried) {
    return pick(language, "No s'ha trobat cap tauleta EASY als ports sèrie (%1 provats).",
                "No se ha encontrado ninguna tableta EASY en los puertos serie (%1 probados).")
        .arg(portsTried);
}

} // namespace mervak
