#include "platform/Language.h"

#include <QStringView>
#include <algorithm>
#include <iterator>

namespace mervak {

namespace {

struct MessageRow {
    int number;
    QStringView catalan;
    QStringView spanish;
};

// Texts that several numbers share within one table.
constexpr char16_t kCaImageFailed[] = u"No es pot activar el fitxer de l'imatge";
constexpr char16_t kCaBadFormat[] = u"Format incorrecte";
constexpr char16_t kEsBadFormat[] = u"Formato incorrecto";
constexpr char16_t kCaReadError[] = u"Error en llegir el fitxer ";
constexpr char16_t kCaModified[] = u"El fitxer ha estat modificat. Voleu enregistrar-lo?";
constexpr char16_t kCaAccept[] = u"ACCEPTAR";
constexpr char16_t kCaCalibrationDone[] = u"Calibrat acabat?";
constexpr char16_t kCaPressTopLeft[] = u"Prem contínuament la cantonada superior esquerra";
constexpr char16_t kEsPressTopLeft[] = u"Pulse continuamente la esquina superior izquierda";

// The About box text of the sibling drawing program: a lone carriage return first,
// then lines separated by CR LF.
constexpr char16_t kCaAbout[] = u"\r    Dravon v 2.01 \r\n"
                                u"    Equip de desenvolupament de Mervak\r\n"
                                u"    Teclat de làmina per a qualsevol programa\r\n"
                                u"    març de 2002";
constexpr char16_t kEsAbout[] = u"\r    Dravon v 2.01 \r\n"
                                u"    Equipo de desarrollo de Mervak\r\n"
                                u"    Teclado de lámina para cualquier programa\r\n"
                                u"    març de 2005";

// Sorted by number. The Spanish side keeps its Catalan words and misspellings
// ("archico", "Queire", "RECULAR", "tauleta") as the users have always seen them.
constexpr MessageRow kMessages[] = {
    {0, u"Enganxar Dibuix", u"Pegar Dibujo"},
    {1, kCaImageFailed, u"No se puede activar el archico de la imagen"},
    {2, kCaBadFormat, kEsBadFormat},
    {3, kCaReadError, u"Error en leer el archivo "},
    {4, u"Dravon ja s'està executant!", u"Dravon ja se está ejecutando!"},
    {5, kCaModified, u"Se ha modificado archivo. Queire guardarlo?"},
    {6, kCaAbout, kEsAbout},
    {7, u"Quant a Dravon", u"Acerca de Dravon"},
    {8, u"Merda ", u"Merda "},
    {9, u"Espera ", u"Espera "},
    {10, u"Nivell ", u"Nivel "},
    {11, u">>> tria un programa", u">>> Seleccione un programa"},
    {12, u">>> ALTRES", u">>> OTROS"},
    {13, u">>> Tria una macro", u">>> Seleccione una macro"},
    {14, u"Teniu instal·lada una versió de Dravon anterior que no reconeix aquets format de fitxer",
     u"Tiene instalada una versión no actualizada de Dravon que no reconoce est formato de "
     u"archivo"},
    {15, u"Dravon no troba el fitxer ", u"Dravon no encuentra el archivo "},
    {16, u"AVANÇAR", u"AVANZAR"},
    {17, u"RECULAR", u"RECULAR"},
    {18, u"DRETA", u"DERECHA"},
    {19, u"ESQUERRA", u"IZQUIERDA"},
    {20, kCaAccept, u"ACCEPTAR"},
    {21, u"Aquesta opció no està disponible", u"Esta opción no está disponible"},
    {39, u"Fitxers de gràfics", u"Ficheros de gráficos"},
    {40, u"Fitxers de so", u"Ficheros de sonido"},
    {41, u"Exercicis Brindo", u"Ejercicios Brindo"},
    {42, u"Animacions (Flash AVI)", u"Animaciones (Flash AVI)"},
    {43, u"Fitxers estalvi de pantalles", u"Ficheros salvapantallas"},
    {44, u"Tots els fitxers", u"Todos los ficheros"},
    {72, u"No s'ha pogut  iniciar l'Vistal", u"Non se pudo iniciar el  Vistal"},
    {73, u"No s'ha calibrat l'Vistal", u"Vistal non está calibrado."},
    {74, kCaCalibrationDone, u"¿Calibrado finalizado?"},
    {101, kCaAccept, u"ACEPTAR"},
    {102, kCaBadFormat, kEsBadFormat},
    {103, kCaReadError, u"Error en leer el fichero "},
    {104, u"Error", u"Error"},
    {105, kCaCalibrationDone, u"Calibrado correcto?"},
    {106, u"Vistal  ja s'està executant!", u"Vistal  ya se está ejecutando!"},
    {107, u"Segur que vol eliminar aquesta pàgina", u"Seguro que quiere eliminar esta página"},
    {108, u"Mervak ja s'està executant!", u"Mervak ya se está ejecutando!"},
    {109, kCaModified, u"El fichero ha sido modificado. Quieres guardarlo?"},
    {110, kCaImageFailed, u"No se puede activar el fichero de la imagen"},
    {111, kCaPressTopLeft, kEsPressTopLeft},
    {112, u"Tauleta ja està calibrada.", u"Tauleta ya está calibrada."},
    {113, u"No es localitza la tauleta", u"No se localitza la tauleta"},
    {114, u"Tinc problemes per calibrar la tauleta", u"Tengo problemas para calibrar la tauleta"},
    {115, kCaPressTopLeft, kEsPressTopLeft},
    {116, u"Aquesta opció encara no està disponible però es modificarà el fitxer MERVAK.INI",
     u"Esta opción aún no está disponible pero se modificará el fichero MERVAK.INI"},
};

static_assert(std::is_sorted(std::begin(kMessages), std::end(kMessages),
                             [](const MessageRow& a, const MessageRow& b) {
                                 return a.number < b.number;
                             }),
              "messages are looked up by binary search");

} // namespace

QString Message(Language language, int number) {
    const auto row = std::lower_bound(
        std::begin(kMessages), std::end(kMessages), number,
        [](const MessageRow& candidate, int wanted) { return candidate.number < wanted; });
    if (row == std::end(kMessages) || row->number != number)
        return {};
    return (language == Language::Spanish ? row->spanish : row->catalan).toString();
}

QString withArguments(QStringView text, const QStringList& arguments) {
    QString result;
    for (qsizetype i = 0; i < text.size(); ++i) {
        const qsizetype index = i + 1 < text.size() ? text[i + 1].digitValue() - 1 : -1;
        if (text[i] == u'%' && index >= 0 && index < arguments.size()) {
            result += arguments[index];
            ++i;
        } else {
            result += text[i];
        }
    }
    return result;
}

} // namespace mervak
