#include "platform/Language.h"

#include <QHash>
#include <QStringView>
#include <iterator>

namespace mervak {

namespace {

struct CaptionPair {
    QStringView catalan;
    QStringView spanish;
};

// Catalan caption -> Spanish caption. Captions that read the same in both
// languages are listed too, so that the list names every caption of the forms.
// "Pegar un dijo" and "Raton" are kept as the users have always seen them.
constexpr CaptionPair kCaptions[] = {
    // Main window menus and buttons.
    {u" Imp.P", u" Imp.P"},
    {u"%", u"%"},
    {u"&Activar aplicació", u"&Activar aplicación"},
    {u"&Afegir", u"&Añadir"},
    {u"&Ajuda", u"&Ayuda"},
    {u"&Àrea", u"&Área"},
    {u"&Dades inicials", u"&Datos iniciales"},
    {u"&Desar", u"&Guardar"},
    {u"&Desar ...", u"&Guardar ..."},
    {u"&Desfer", u"&Deshacer"},
    {u"&Dibuixar", u"&Dibujar"},
    {u"&Eliminar", u"&Eliminar"},
    {u"&Fitxers", u"&Archivos"},
    {u"&Índex de l'ajuda", u"&Índice de la ayuda"},
    {u"&Làmina", u"&Lámina"},
    {u"&Nou", u"&Nuevo"},
    {u"&Obrir ...", u"&Abrir ..."},
    {u"&Opcions", u"&Opciones"},
    {u"&Pàgina", u"&Página"},
    {u"&Plantilla", u"&Plantilla"},
    {u"&Quant al Mervak...", u"&Acerca de Mervak..."},
    {u"&So actiu", u"&Activar sonido"},
    {u"&Sortir", u"&Salir"},
    {u"&Subdividir", u"&Subdividir"},
    {u"&Test de la tauleta", u"&Test de la tauleta"},
    {u"+", u"+"},
    {u"-", u"-"},
    {u"<", u"<"},
    // Dialogs and the command menus of the editor.
    {u"Aixecar botó dret", u"Soltar botón derecho"},
    {u"Aixecar botó esquerra", u"Soltar botón izquierdo"},
    {u"Ajuda...", u"Ayuda..."},
    {u"Anul·lació", u"Anulación"},
    {u"Aplicació:", u"Aplicación:"},
    {u"Àrea &Màxima", u"Área &Máxima"},
    {u"Automàtica", u"Automática"},
    {u"Botó dret", u"Botón derecho"},
    {u"Botó esquerra", u"Botón izquierdo"},
    {u"Calibrar Vistal", u"Calibrar Vistal"},
    {u"Canvi de plantilla", u"Cambio de plantilla"},
    {u"Caràtula:", u"Carátula:"},
    {u"Carregar fitxer a la carpeta:", u"Cargar archivo en la carpeta:"},
    {u"Carregar macros", u"Cargar macros"},
    {u"Clic dret", u"Clic derecho"},
    {u"Clic esquerra", u"Clic izquierdo"},
    {u"Columnes:", u"Columnas:"},
    {u"Configuració automàtica", u"Configuración automática"},
    {u"Configuracio i test", u"Configuración y test"},
    {u"Dades Inicials", u"Datos Iniciales"},
    {u"Desar &làmina", u"Guardar &lámina"},
    {u"Desar mini-làmina", u"Guardar mini-lámina"},
    {u"Descripció:", u"Descripción:"},
    {u"Directori", u"Directorio"},
    {u"Doble clic dret", u"Doble clic derecho"},
    {u"Doble clic esquerra", u"Doble clic izquierdo"},
    {u"Documentació:", u"Documentación:"},
    {u"Dreta", u"Derecha"},
    {u"Editar MERVAK.INI", u"Editar MERVAK.INI"},
    {u"En&ganxar", u"&Pegar"},
    {u"Enganxar un dibuix", u"Pegar un dijo"},
    {u"Enganxar un text", u"Pegar un texto"},
    {u"Esborra memòria", u"Borra memoria"},
    {u"Escoltar sons", u"Escuchar sonidos"},
    {u"Esquerra", u"Izquierda"},
    {u"Executar programes", u"Ejecutar programas"},
    {u"Exploració nivell anterior", u"Exploración nivel anterior"},
    {u"Exploració nivell inicial", u"Exploración nivel inicial"},
    {u"Fi", u"Fin"},
    {u"Finalitzar Aplicació", u"Finalizar Aplicación"},
    {u"Fitxer inicial:", u"Archivo inicial:"},
    {u"Fitxer...", u"Archivo..."},
    {u"Fitxers Gràfics", u"Archivos Gráficos"},
    {u"Gràfic", u"Gráfico"},
    {u"Icona làmina", u"Icono lámina"},
    {u"Inserir abans", u"Insertar antes"},
    {u"Inserir després", u"Insertar después"},
    {u"Inv Horitzontal", u"Inv Horizontal"},
    {u"Llegir un text", u"Leer un texto"},
    {u"Memòria", u"Memoria"},
    {u"Models de pagina", u"Modelos de página"},
    {u"Moure's a...", u"Moverse a..."},
    {u"Ordres", u"Órdenes"},
    {u"Pícsels", u"Puntos"},
    {u"Posa a memòria", u"Pon en memoria"},
    {u"Programació", u"Programación"},
    {u"Punxar i arrosegar dret", u"Pinchar y arrastrar derecho"},
    {u"Punxar i arrosegar esquerra", u"Pinchar y arrastrar izquierdo"},
    {u"Ratolí", u"Raton"},
    {u"Recupera de memòria", u"Recupera de memoria"},
    {u"Recupera Text Carpeta  Windows", u"Recupera Texto Portapapeles Windows"},
    {u"Repetició de lectures", u"Repetición de lecturas"},
    {u"Resta memòria", u"Resta memoria"},
    {u"Retard", u"Retardo"},
    {u"Retrocedir", u"Retroceder"},
    {u"Seqüències de tecles", u"Secuencias de teclas"},
    {u"Si memòria és ...", u"Si memoria es ..."},
    {u"Síntesis de veu UPCTV", u"Síntesis de voz UPCTV"},
    {u"Subdividir l'àrea", u"Subdividir el área"},
    {u"Suma memòria", u"Suma memoria"},
    {u"Tancar", u"Cerrar"},
    {u"Tancar tot", u"Cerrar todo"},
    {u"Teclat &auxiliar", u"Teclado &auxiliar"},
    {u"Tecles a enviar:", u"Teclas a enviar:"},
    {u"Tecles:", u"Teclas:"},
    {u"Temps", u"Segundos"},
    {u"Tria ", u"Escoge "},
    {u"Velocitat", u"Velocidad"},
    {u"Veu", u"Voz"},
    {u"Veure", u"Ver"},
    {u"Veure la Caràtula", u"Ver la Carátula"},
    {u"Veure la documentació", u"Ver la documentación"},
    // The page frame: its operation captions and the name of an empty page.
    {u"Obrir models de pàgina", u"Abrir modelos de página"},
    {u"Desar models de pàgina", u"Guardar modelos de página"},
    {u"Enganxar models de pàgina", u"Pegar modelos de página"},
    {u"Pàgina nova", u"Página nueva"},
    {u">", u">"},
    // Area and page counters: the start and empty captions, and the suffixes
    // written after "n/m".
    {u"0/0 àrees", u"0/0 áreas"},
    {u"0/0 pàgines", u"0/0 páginas"},
    {u"----- àrees", u"----- áreas"},
    {u"----- pàgines", u"----- páginas"},
    {u" àrees", u" áreas"},
    {u" pàgines", u" páginas"},
    {u"(Sense nom)", u"(Sin nombre)"},
    // Grid subdivision dialog and common buttons.
    {u"Files:", u"Filas:"},
    {u"Acceptar", u"Aceptar"},
    {u"Cancel·lar", u"Cancelar"},
    // Command menu entries the list above lacks.
    {u"Amunt", u"Arriba"},
    {u"Avall", u"Abajo"},
    {u"Registre", u"Registro"},
    {u"Llegir un fitxer", u"Leer un archivo"},
    // Language menu.
    {u"&Idioma", u"&Idioma"},
    {u"Català", u"Català"},
    {u"Español", u"Español"},
    // Webcam tracker calibration form.
    {u"Calibrar", u"Calibrar"},
    {u"Test", u"Test"},
    {u"Inv Vertical", u"Inv Vertical"},
    {u"Mides per defecte", u"Medidas por defecto"},
    {u"Engegar Vistal", u"Iniciar Vistal"},
    {u"Webcam", u"Webcam"},
    {u"Amagar fons", u"Ocultar fondo"},
    // Status line of the main window.
    {u"Tauleta activa a ", u"Tauleta activa en "},
    {u"Tauleta Inactiva a ", u"Tauleta Inactiva en "},
    {u"Cercant la tauleta...", u"Buscando la tauleta..."},
    {u"Desbordament numèric", u"Desbordamiento numérico"},
    {u"No hi ha sortida de so: ", u"No hay salida de sonido: "},
    {u"Hi ha edicions no desades a ", u"Hay ediciones no guardadas en "},
    {u"Massa pulsacions en espera: s'ha descartat la més antiga",
     u"Demasiadas pulsaciones en espera: se ha descartado la más antigua"},
    // Template properties dialog.
    {u"Làmina", u"Lámina"},
    {u"Directori:", u"Directorio:"},
    {u"Ordres:", u"Órdenes:"},
    {u"Idioma:", u"Idioma:"},
    {u"Finestres obertes...", u"Ventanas abiertas..."},
    {u"(cap finestra)", u"(ninguna ventana)"},
    {u"Tots els fitxers", u"Todos los archivos"},
    // Printing the sheet and saving its thumbnail.
    {u"Desar la làmina en PDF", u"Guardar la lámina en PDF"},
    {u"Pàgines:", u"Páginas:"},
    {u"Pàgina actual", u"Página actual"},
    {u"Totes les pàgines", u"Todas las páginas"},
    {u"Paper:", u"Papel:"},
    {u"Mida de la tauleta:", u"Tamaño de la tableta:"},
    {u"Contorns i etiquetes de les àrees", u"Contornos y etiquetas de las áreas"},
    {u"Document PDF", u"Documento PDF"},
    {u"Imatge PNG", u"Imagen PNG"},
    {u"La tauleta no cap en aquest paper: ", u"La tableta no cabe en este papel: "},
    {u"No s'ha pogut desar ", u"No se ha podido guardar "},
    // The editor: menus, panel, page frame, dialogs and the command menu.
    {u"Fitxers &recents", u"Archivos &recientes"},
    {u"&Veure", u"&Ver"},
    {u"Ajustar a la finestra", u"Ajustar a la ventana"},
    {u"Ampliar", u"Ampliar"},
    {u"Reduir", u"Reducir"},
    {u"Àrea anterior", u"Área anterior"},
    {u"Àrea següent", u"Área siguiente"},
    {u"Pàgina anterior", u"Página anterior"},
    {u"Pàgina següent", u"Página siguiente"},
    {u"Provar", u"Probar"},
    {u"Executa les tecles a l'aplicació", u"Ejecuta las teclas en la aplicación"},
    {u"Sí", u"Sí"},
    {u"No", u"No"},
    {u"Obrir", u"Abrir"},
    {u"Desar", u"Guardar"},
    {u"Carpeta:", u"Carpeta:"},
    {u"Nom del fitxer:", u"Nombre del archivo:"},
    {u"Tipus:", u"Tipo:"},
    {u"Fitxers de text", u"Archivos de texto"},
    {u"Carregar el fitxer de plantilla", u"Cargar el archivo de plantilla"},
    {u"Enregistrar el fitxer de plantilla", u"Guardar el archivo de plantilla"},
    {u"Canvi de pàgina", u"Cambio de página"},
    {u"Tecles de funció", u"Teclas de función"},
    {u"Retorn", u"Intro"},
    {u"Tabulador", u"Tabulador"},
    {u"Retrocés", u"Retroceso"},
    {u"Suprimir", u"Suprimir"},
    {u"Escapada", u"Escape"},
    {u"Inici", u"Inicio"},
    {u"Re Pàg", u"Re Pág"},
    {u"Av Pàg", u"Av Pág"},
    {u"Fletxa amunt", u"Flecha arriba"},
    {u"Fletxa avall", u"Flecha abajo"},
    {u"Fletxa esquerra", u"Flecha izquierda"},
    {u"Fletxa dreta", u"Flecha derecha"},
    {u"Majúscules i una tecla", u"Mayúsculas y una tecla"},
    {u"Control i una tecla", u"Control y una tecla"},
    {u"Alt i una tecla", u"Alt y una tecla"},
    {u"Signe +", u"Signo +"},
    {u"Signe %", u"Signo %"},
    {u"Signe ^", u"Signo ^"},
};

const QHash<QString, QString>& spanishCaptions() {
    static const QHash<QString, QString> dictionary = [] {
        QHash<QString, QString> pairs;
        for (const auto& pair : kCaptions)
            pairs.insert(pair.catalan.toString(), pair.spanish.toString());
        return pairs;
    }();
    return dictionary;
}

} // namespace

QString TranslateCaption(Language language, const QString& catalanCaption) {
    if (language != Language::Spanish)
        return catalanCaption;
    return spanishCaptions().value(catalanCaption, catalanCaption);
}

QStringList captionKeys() {
    QStringList keys;
    keys.reserve(std::size(kCaptions));
    for (const auto& pair : kCaptions)
        keys.append(pair.catalan.toString());
    return keys;
}

} // namespace mervak
