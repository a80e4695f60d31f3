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
    {u"&Iniciar amb la sessió", u"&Iniciar con la sesión"},
    {u"Paraula per tancar:", u"Palabra para cerrar:"},
    {u"Paraula incorrecta", u"Palabra incorrecta"},
    {u"Deseu la plantilla abans d'iniciar-la amb la sessió",
     u"Guarde la plantilla antes de iniciarla con la sesión"},
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
    // Switch scanning.
    {u"&Exploració...", u"&Exploración..."},
    {u"Exploració", u"Exploración"},
    {u"Exploració:", u"Exploración:"},
    {u"Cap", u"Ninguna"},
    {u"Element a element", u"Elemento a elemento"},
    {u"Files i columnes", u"Filas y columnas"},
    {u"Commutadors:", u"Conmutadores:"},
    {u"Un (automàtica)", u"Uno (automática)"},
    {u"Dos (pas a pas)", u"Dos (paso a paso)"},
    {u"Commutador per triar:", u"Conmutador para elegir:"},
    {u"Commutador per avançar:", u"Conmutador para avanzar:"},
    {u"Una tecla (F5, space), boto1 a boto3 o un botó del dispositiu (BTN_TRIGGER)",
     u"Una tecla (F5, space), boto1 a boto3 o un botón del dispositivo (BTN_TRIGGER)"},
    {u"Interval (ms):", u"Intervalo (ms):"},
    {u"Temps afegit al primer (ms):", u"Tiempo añadido al primero (ms):"},
    {u"Voltes abans d'aturar-se (0: mai):", u"Vueltas antes de pararse (0: nunca):"},
    {u"Temps d'acceptació (ms):", u"Tiempo de aceptación (ms):"},
    {u"Pausa després de triar (ms):", u"Pausa después de elegir (ms):"},
    {u"Premuda llarga (ms, 0: cap):", u"Pulsación larga (ms, 0: ninguna):"},
    {u"Premuda llarga:", u"Pulsación larga:"},
    {u"Res", u"Nada"},
    {u"Llegir en veu alta cada element", u"Leer en voz alta cada elemento"},
    {u"Només per a aquesta plantilla", u"Solo para esta plantilla"},
    {u"No es pot fer servir el commutador %1", u"No se puede usar el conmutador %1"},
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
    // The command lines of the program and of mervak-cli: their errors, helps and reports.
    {u"Opció desconeguda: %1", u"Opción desconocida: %1"},
    {u"Aquesta opció no pren cap valor: %1", u"Esta opción no admite ningún valor: %1"},
    {u"Falta el valor després de %1", u"Falta el valor después de %1"},
    {u"Només es pot obrir una plantilla: %1", u"Solo se puede abrir una plantilla: %1"},
    {u"àrea %1: ", u"área %1: "},
    {u" (registre %1)", u" (registro %1)"},
    {u" (línia %1)", u" (línea %1)"},
    {u"és a la pàgina %1, fora de les pàgines de la plantilla (1 a %2)",
     u"está en la página %1, fuera de las páginas de la plantilla (1 a %2)"},
    {u"no té amplada o no té alçada", u"no tiene anchura o no tiene altura"},
    {u"no es troba la imatge de la làmina: ", u"no se encuentra la imagen de la lámina: "},
    {u"el nom de la imatge de la làmina té una coma i no es llegirà sencer: ",
     u"el nombre de la imagen de la lámina tiene una coma y no se leerá entero: "},
    {u"no es troba el fitxer del retall: ", u"no se encuentra el archivo del recorte: "},
    {u"no es troba el fitxer: ", u"no se encuentra el archivo: "},
    {u"el so %1 no sonarà: el nom ha d'acabar exactament en .WAV o .MID",
     u"el sonido %1 no sonará: el nombre debe acabar exactamente en .WAV o .MID"},
    {u"el format MS-DOS no desa el camp ", u"el formato MS-DOS no guarda el campo "},
    {u"el format MS-DOS desa de 1 a 255 pàgines (la plantilla en té %1)",
     u"el formato MS-DOS guarda de 1 a 255 páginas (la plantilla tiene %1)"},
    {u"la coordenada %1 no hi cap i s'ha retallat", u"la coordenada %1 no cabe y se ha recortado"},
    {u"és a la pàgina %1, que el format MS-DOS no pot desar; l'àrea no s'ha desat",
     u"está en la página %1, que el formato MS-DOS no puede guardar; el área no se ha guardado"},
    {u"el format MS-DOS no desa el retall ni els indicadors",
     u"el formato MS-DOS no guarda el recorte ni los indicadores"},
    {u"«%1» no té codi de tecla MS-DOS i no s'ha desat",
     u"«%1» no tiene código de tecla MS-DOS y no se ha guardado"},
    {u"el text de tecles no hi cap; «%1» no s'ha desat",
     u"el texto de teclas no cabe; «%1» no se ha guardado"},
    {u"El nom de sortida ha d'acabar en .mvw o .mvd: ",
     u"El nombre de salida debe acabar en .mvw o .mvd: "},
    {u"Copiat: ", u"Copiado: "},
    {u"La pàgina ha de ser un número de 1 a %1: %2", u"La página debe ser un número de 1 a %1: %2"},
    {u"L'àrea ha de ser un número de 1 a %1: %2", u"El área debe ser un número de 1 a %1: %2"},
    {u"Les cel·les es desen en plantilles .mvw: ", u"Las celdas se guardan en plantillas .mvw: "},
    {u"El símbol ha de ser un codi hexadecimal (1F415): ",
     u"El símbolo debe ser un código hexadecimal (1F415): "},
    {u"No es troba la imatge: ", u"No se encuentra la imagen: "},
    {u"El color ha de ser #RRGGBB: ", u"El color debe ser #RRGGBB: "},
    {u"Àrea ", u"Área "},
    {u"  pàgina ", u"  página "},
    {u"Fitxer: ", u"Archivo: "},
    {u"Versió: ", u"Versión: "},
    {u"Cap problema.", u"Ningún problema."},
    {u"No és una carpeta: ", u"No es una carpeta: "},
    {u"La plantilla només té una pàgina i no es pot eliminar: no s'ha fet res.",
     u"La plantilla solo tiene una página y no se puede eliminar: no se ha hecho nada."},
    {u"Ordre desconeguda: ", u"Orden desconocida: "},
    // Communication boards (Open Board Format) in the editor and in mervak-cli.
    {u"Taulers de comunicació (Open Board)", u"Tableros de comunicación (Open Board)"},
    {u"Desar la plantilla importada", u"Guardar la plantilla importada"},
    {u"Del tauler no s'ha pogut portar:", u"Del tablero no se ha podido traer:"},
    {u"Els altres programes no veuran:", u"Los otros programas no verán:"},
    {u"... i %1 més", u"... y %1 más"},
    {u"El nom de sortida ha d'acabar en .mvw: ", u"El nombre de salida debe acabar en .mvw: "},
    {u"El nom de sortida ha d'acabar en .obz: ", u"El nombre de salida debe acabar en .obz: "},
    {u"Desat: ", u"Guardado: "},
    {u"\n"
     u"Taulers de comunicació (Open Board Format):\n"
     u"  import TAULER.obf|TAULER.obz -o FITXER.mvw\n"
     u"                           fa una plantilla dels taulers, un per pàgina\n"
     u"  export FITXER.mvw -o TAULER.obz\n"
     u"                           desa la plantilla com a taulers, un per pàgina\n",
     u"\n"
     u"Tableros de comunicación (Open Board Format):\n"
     u"  import TABLERO.obf|TABLERO.obz -o ARCHIVO.mvw\n"
     u"                           hace una plantilla de los tableros, uno por página\n"
     u"  export ARCHIVO.mvw -o TABLERO.obz\n"
     u"                           guarda la plantilla como tableros, uno por página\n"},
    {u"Ús: mervak-cli import TAULER.obf|TAULER.obz -o FITXER.mvw\n"
     u"Converteix un tauler (.obf) o un paquet de taulers (.obz) en una\n"
     u"plantilla: cada tauler, una pàgina; cada botó, una àrea amb la seva\n"
     u"imatge, etiqueta i colors, que escriu i diu el seu text; els enllaços\n"
     u"entre taulers, canvis de pàgina. Les imatges es desen a la carpeta\n"
     u"FITXER-imatges, al costat de la plantilla. El que no s'ha pogut portar\n"
     u"es llista i l'estat de sortida és 3.\n",
     u"Uso: mervak-cli import TABLERO.obf|TABLERO.obz -o ARCHIVO.mvw\n"
     u"Convierte un tablero (.obf) o un paquete de tableros (.obz) en una\n"
     u"plantilla: cada tablero, una página; cada botón, un área con su\n"
     u"imagen, etiqueta y colores, que escribe y dice su texto; los enlaces\n"
     u"entre tableros, cambios de página. Las imágenes se guardan en la carpeta\n"
     u"ARCHIVO-imatges, al lado de la plantilla. Lo que no se ha podido traer\n"
     u"se lista y el estado de salida es 3.\n"},
    {u"Ús: mervak-cli export FITXER.mvw -o TAULER.obz\n"
     u"Desa la plantilla com a paquet de taulers (Open Board Format), un\n"
     u"tauler per pàgina, amb les etiquetes, imatges, colors, el que diu\n"
     u"cada àrea i els canvis de pàgina com a enllaços. El text d'accions\n"
     u"sencer hi viatja, i el Mervak el recupera en importar-lo. El que els\n"
     u"altres programes no veuran es llista i l'estat de sortida és 3.\n",
     u"Uso: mervak-cli export ARCHIVO.mvw -o TABLERO.obz\n"
     u"Guarda la plantilla como paquete de tableros (Open Board Format), un\n"
     u"tablero por página, con las etiquetas, imágenes, colores, lo que dice\n"
     u"cada área y los cambios de página como enlaces. El texto de acciones\n"
     u"entero viaja con ellos, y Mervak lo recupera al importarlo. Lo que los\n"
     u"otros programas no verán se lista y el estado de salida es 3.\n"},
    {u"La plantilla passaria de 32767 àrees o pàgines: no s'ha fet res.",
     u"La plantilla pasaría de 32767 áreas o páginas: no se ha hecho nada."},
    {u"--seed vol un nombre enter no negatiu: %1",
     u"--seed necesita un número entero no negativo: %1"},
    {u"--platform vol x11, wayland, portal o auto: %1",
     u"--platform necesita x11, wayland, portal o auto: %1"},
    {u"--key-delay vol els mil·lisegons entre dues tecles, de 0 a %1: %2",
     u"--key-delay necesita los milisegundos entre dos teclas, de 0 a %1: %2"},
    {u"No es troba la carpeta %1", u"No se encuentra la carpeta %1"},
    {u"Falta el text d'accions", u"Falta el texto de acciones"},
    {u"Només hi pot haver un text d'accions; poseu-lo entre cometes si té espais",
     u"Solo puede haber un texto de acciones; póngalo entre comillas si tiene espacios"},
    {u"Ús: mervak [--home CARPETA] [--locked] [--platform NOM] [PLANTILLA]\n"
     u"Obre la PLANTILLA (.mvw o .mvd) i la fa servir amb la tauleta.\n"
     u"\n"
     u"  --home CARPETA  la carpeta de MERVAK.INI i dels models de pàgina; si no\n"
     u"                  s'hi posa, MERVAK_HOME, la carpeta del programa quan hi ha\n"
     u"                  un MERVAK.INI, o $XDG_CONFIG_HOME/mervak\n"
     u"  --locked        per a la sessió d'un alumne: sense els menús d'edició, i\n"
     u"                  tancar demana la paraula del mestre (ParaulaTancar)\n"
     u"  --platform NOM  com s'escriu als altres programes: x11, wayland (sway i\n"
     u"                  altres compositors wlroots), portal (GNOME, KDE) o auto,\n"
     u"                  com la clau Plataforma de MERVAK.INI\n"
     u"  --help          aquesta ajuda\n"
     u"  --version       la versió del programa\n"
     u"  --              acaba les opcions: el que segueix és la plantilla\n",
     u"Uso: mervak [--home CARPETA] [--locked] [--platform NOMBRE] [PLANTILLA]\n"
     u"Abre la PLANTILLA (.mvw o .mvd) y la usa con la tableta.\n"
     u"\n"
     u"  --home CARPETA  la carpeta de MERVAK.INI y de los modelos de página; si no\n"
     u"                  se indica, MERVAK_HOME, la carpeta del programa cuando hay\n"
     u"                  un MERVAK.INI, o $XDG_CONFIG_HOME/mervak\n"
     u"  --locked        para la sesión de un alumno: sin los menús de edición, y\n"
     u"                  cerrar pide la palabra del maestro (ParaulaTancar)\n"
     u"  --platform NOMBRE  cómo se escribe en los otros programas: x11, wayland (sway\n"
     u"                  y otros compositores wlroots), portal (GNOME, KDE) o auto,\n"
     u"                  como la clave Plataforma de MERVAK.INI\n"
     u"  --help          esta ayuda\n"
     u"  --version       la versión del programa\n"
     u"  --              termina las opciones: lo que sigue es la plantilla\n"},
    {u"Ús: mervak-cli [--home CARPETA] ORDRE ...\n"
     u"\n"
     u"Treballa amb plantilles de Mervak (.mvw versions 1 i 2, .mvd de MS-DOS)\n"
     u"i amb els models de pàgina (.mvp) de la carpeta de configuració.\n"
     u"\n"
     u"Ordres:\n"
     u"  info FITXER [--json]     capçalera i totes les àrees\n"
     u"  convert ENTRADA SORTIDA  converteix a .mvw (versió 2) o a .mvd segons SORTIDA\n"
     u"  check FITXER             llista el que cal arreglar\n"
     u"  copy FITXER CARPETA      desa la plantilla en una altra carpeta amb la làmina\n"
     u"                           i els fitxers que nomenen les àrees\n"
     u"  models                   llista els models de pàgina\n"
     u"  page-save FITXER PÀGINA MODEL\n"
     u"  page-insert FITXER PÀGINA MODEL (--before|--after) [--output SORTIDA]\n"
     u"  page-paste FITXER PÀGINA MODEL [--output SORTIDA]\n"
     u"  page-delete FITXER PÀGINA [--output SORTIDA]\n"
     u"  audit FITXER [--json]    llista el que la plantilla faria fora de la seva carpeta\n"
     u"                           (programes, configuració, fitxers) i si és de confiança\n"
     u"  render FITXER --page P -o SORTIDA.png|SORTIDA.pdf [--dpi D]\n"
     u"                           dibuixa una pàgina tal com s'imprimeix\n"
     u"  cell FITXER --page P --area N [--symbol ID | --picture IMATGE] [--label TEXT]\n"
     u"       [--colour #RRGGBB]  canvia la cel·la de l'àrea N de la pàgina P i desa\n"
     u"  action TEXT [--dry-run]  executa un ActionText (escriu a la finestra de destinació\n"
     u"                           o, amb --dry-run, llista els efectes en JSON)\n"
     u"\n"
     u"  --home CARPETA           la carpeta de MERVAK.INI i dels models de pàgina\n"
     u"  --help                   aquesta ajuda; mervak-cli ORDRE --help, la de l'ordre\n"
     u"  --version                la versió\n"
     u"  --                       acaba les opcions (per a un nom o un text que\n"
     u"                           comenci amb \"-\")\n"
     u"\n"
     u"Els missatges són en la llengua de MERVAK.INI (IDIOMA) o, si no n'hi ha, de LANG.\n"
     u"Estat de sortida: 0 correcte; 1 un fitxer no s'ha pogut llegir o escriure;\n"
     u"2 ordre mal escrita o un canvi que la plantilla no admet; 3 fet, però amb avisos\n"
     u"(problemes trobats o dades que el format .mvd no pot desar).\n",
     u"Uso: mervak-cli [--home CARPETA] ORDEN ...\n"
     u"\n"
     u"Trabaja con plantillas de Mervak (.mvw versiones 1 y 2, .mvd de MS-DOS)\n"
     u"y con los modelos de página (.mvp) de la carpeta de configuración.\n"
     u"\n"
     u"Órdenes:\n"
     u"  info ARCHIVO [--json]    cabecera y todas las áreas\n"
     u"  convert ENTRADA SALIDA   convierte a .mvw (versión 2) o a .mvd según SALIDA\n"
     u"  check ARCHIVO            lista lo que hay que arreglar\n"
     u"  copy ARCHIVO CARPETA     guarda la plantilla en otra carpeta con la lámina\n"
     u"                           y los archivos que nombran las áreas\n"
     u"  models                   lista los modelos de página\n"
     u"  page-save ARCHIVO PÁGINA MODELO\n"
     u"  page-insert ARCHIVO PÁGINA MODELO (--before|--after) [--output SALIDA]\n"
     u"  page-paste ARCHIVO PÁGINA MODELO [--output SALIDA]\n"
     u"  page-delete ARCHIVO PÁGINA [--output SALIDA]\n"
     u"  audit ARCHIVO [--json]   lista lo que la plantilla haría fuera de su carpeta\n"
     u"                           (programas, configuración, archivos) y si es de confianza\n"
     u"  render ARCHIVO --page P -o SALIDA.png|SALIDA.pdf [--dpi D]\n"
     u"                           dibuja una página tal como se imprime\n"
     u"  cell ARCHIVO --page P --area N [--symbol ID | --picture IMAGEN] [--label TEXTO]\n"
     u"       [--colour #RRGGBB]  cambia la celda del área N de la página P y guarda\n"
     u"  action TEXTO [--dry-run] ejecuta un ActionText (escribe en la ventana de destino\n"
     u"                           o, con --dry-run, lista los efectos en JSON)\n"
     u"\n"
     u"  --home CARPETA           la carpeta de MERVAK.INI y de los modelos de página\n"
     u"  --help                   esta ayuda; mervak-cli ORDEN --help, la de la orden\n"
     u"  --version                la versión\n"
     u"  --                       termina las opciones (para un nombre o un texto que\n"
     u"                           empiece por \"-\")\n"
     u"\n"
     u"Los mensajes están en el idioma de MERVAK.INI (IDIOMA) o, si no lo hay, de LANG.\n"
     u"Estado de salida: 0 correcto; 1 un archivo no se ha podido leer o escribir;\n"
     u"2 orden mal escrita o un cambio que la plantilla no admite; 3 hecho, pero con avisos\n"
     u"(problemas encontrados o datos que el formato .mvd no puede guardar).\n"},
    {u"Ús: mervak-cli info FITXER [--json]\n"
     u"Mostra la capçalera i cada àrea (pàgina, rectangle, indicadors,\n"
     u"text d'accions). Amb --json, un document JSON amb els noms de camp\n"
     u"del model (l'esquema és al README de l'eina).\n",
     u"Uso: mervak-cli info ARCHIVO [--json]\n"
     u"Muestra la cabecera y cada área (página, rectángulo, indicadores,\n"
     u"texto de acciones). Con --json, un documento JSON con los nombres de campo\n"
     u"del modelo (el esquema está en el README de la herramienta).\n"},
    {u"Ús: mervak-cli convert ENTRADA SORTIDA\n"
     u"Llegeix qualsevol plantilla (.mvw versió 1 o 2, .mvd) i l'escriu en\n"
     u"format .mvw versió 2 o .mvd segons l'extensió de SORTIDA. Si SORTIDA\n"
     u"és en una altra carpeta, s'hi copien la làmina i els fitxers que\n"
     u"nomenen les àrees. El que el format .mvd no pot desar es llista i\n"
     u"l'estat de sortida és 3.\n",
     u"Uso: mervak-cli convert ENTRADA SALIDA\n"
     u"Lee cualquier plantilla (.mvw versión 1 o 2, .mvd) y la escribe en\n"
     u"formato .mvw versión 2 o .mvd según la extensión de SALIDA. Si SALIDA\n"
     u"está en otra carpeta, se copian allí la lámina y los archivos que\n"
     u"nombran las áreas. Lo que el formato .mvd no puede guardar se lista y\n"
     u"el estado de salida es 3.\n"},
    {u"Ús: mervak-cli check FITXER\n"
     u"Llista àrees fora de les pàgines de la plantilla, àrees sense mida,\n"
     u"la imatge de la làmina i els fitxers d'enganxar i de so que no es\n"
     u"troben des de la carpeta de la plantilla, i els sons que no sonaran.\n"
     u"Estat de sortida 3 si hi ha problemes.\n",
     u"Uso: mervak-cli check ARCHIVO\n"
     u"Lista áreas fuera de las páginas de la plantilla, áreas sin tamaño,\n"
     u"la imagen de la lámina y los archivos de pegar y de sonido que no se\n"
     u"encuentran desde la carpeta de la plantilla, y los sonidos que no sonarán.\n"
     u"Estado de salida 3 si hay problemas.\n"},
    {u"Ús: mervak-cli copy FITXER CARPETA\n"
     u"Desa la plantilla (versió 2) a CARPETA amb el mateix nom, hi copia\n"
     u"la imatge de la làmina i els fitxers que nomenen les àrees, i canvia\n"
     u"les referències pel nom de la còpia.\n",
     u"Uso: mervak-cli copy ARCHIVO CARPETA\n"
     u"Guarda la plantilla (versión 2) en CARPETA con el mismo nombre, copia allí\n"
     u"la imagen de la lámina y los archivos que nombran las áreas, y cambia\n"
     u"las referencias por el nombre de la copia.\n"},
    {u"Ús: mervak-cli [--home CARPETA] models\n"
     u"Llista els models de pàgina (.mvp) de la carpeta de configuració.\n",
     u"Uso: mervak-cli [--home CARPETA] models\n"
     u"Lista los modelos de página (.mvp) de la carpeta de configuración.\n"},
    {u"Ús: mervak-cli page-save FITXER PÀGINA MODEL\n"
     u"Desa les àrees de la PÀGINA com a model de pàgina MODEL.\n",
     u"Uso: mervak-cli page-save ARCHIVO PÁGINA MODELO\n"
     u"Guarda las áreas de la PÁGINA como modelo de página MODELO.\n"},
    {u"Ús: mervak-cli page-insert FITXER PÀGINA MODEL (--before|--after) [--output SORTIDA]\n"
     u"Insereix una pàgina abans o després de la PÀGINA i l'omple amb el\n"
     u"MODEL (\"Pàgina nova\" vol dir una pàgina buida). Desa a SORTIDA o,\n"
     u"si no n'hi ha, al mateix FITXER.\n",
     u"Uso: mervak-cli page-insert ARCHIVO PÁGINA MODELO (--before|--after) [--output SALIDA]\n"
     u"Inserta una página antes o después de la PÁGINA y la llena con el\n"
     u"MODELO (\"Pàgina nova\" quiere decir una página vacía). Guarda en SALIDA o,\n"
     u"si no la hay, en el mismo ARCHIVO.\n"},
    {u"Ús: mervak-cli page-paste FITXER PÀGINA MODEL [--output SORTIDA]\n"
     u"Afegeix les àrees del MODEL a la PÀGINA.\n",
     u"Uso: mervak-cli page-paste ARCHIVO PÁGINA MODELO [--output SALIDA]\n"
     u"Añade las áreas del MODELO a la PÁGINA.\n"},
    {u"Ús: mervak-cli audit FITXER [--json]\n"
     u"Llista cada ordre que una plantilla que no és de confiança no fa sense\n"
     u"permís (engegar programes, escriure la configuració, obrir plantilles\n"
     u"o llegir fitxers de fora de la seva carpeta): pàgina, àrea, ordre i el\n"
     u"que nomena, i diu si aquest usuari en té confiança. Estat de sortida 0\n"
     u"si no n'hi ha cap, 3 si n'hi ha.\n",
     u"Uso: mervak-cli audit ARCHIVO [--json]\n"
     u"Lista cada orden que una plantilla que no es de confianza no hace sin\n"
     u"permiso (iniciar programas, escribir la configuración, abrir plantillas\n"
     u"o leer archivos de fuera de su carpeta): página, área, orden y lo que\n"
     u"nombra, y dice si este usuario confía en ella. Estado de salida 0 si\n"
     u"no hay ninguna, 3 si las hay.\n"},
    {u"Ús: mervak-cli page-delete FITXER PÀGINA [--output SORTIDA]\n"
     u"Elimina la PÀGINA i les seves àrees; les pàgines següents baixen un\n"
     u"número. L'única pàgina d'una plantilla no s'elimina (estat de\n"
     u"sortida 2).\n",
     u"Uso: mervak-cli page-delete ARCHIVO PÁGINA [--output SALIDA]\n"
     u"Elimina la PÁGINA y sus áreas; las páginas siguientes bajan un\n"
     u"número. La única página de una plantilla no se elimina (estado de\n"
     u"salida 2).\n"},
    // The symbol library and sheets made from a word list.
    {u"No es pot llegir la biblioteca de símbols: %1",
     u"No se puede leer la biblioteca de símbolos: %1"},
    {u"Símbols d'OpenMoji (openmoji.org), llicència CC BY-SA 4.0; noms dels símbols d'Unicode "
     u"CLDR, llicència Unicode.",
     u"Símbolos de OpenMoji (openmoji.org), licencia CC BY-SA 4.0; nombres de los símbolos de "
     u"Unicode CLDR, licencia Unicode."},
    {u"Anterior", u"Anterior"},
    {u"Següent", u"Siguiente"},
    {u"Cap símbol per a «%1»: la cel·la només té el text.",
     u"Ningún símbolo para «%1»: la celda solo tiene el texto."},
    {u"Sense símbol: %1", u"Sin símbolo: %1"},
    {u"Símbols", u"Símbolos"},
    {u"Escriviu una paraula: gos, casa, menjar...", u"Escriba una palabra: perro, casa, comer..."},
    {u"Sím&bol de la biblioteca...", u"Sím&bolo de la biblioteca..."},
    {u"Làmina de &paraules...", u"Lámina de &palabras..."},
    {u"Làmina de paraules", u"Lámina de palabras"},
    {u"gos gat vaca cavall ovella porc", u"perro gato vaca caballo oveja cerdo"},
    {u"Paraules, separades per espais (o per comes, si n'hi ha de compostes):",
     u"Palabras, separadas por espacios (o por comas, si las hay compuestas):"},
    {u"Marge:", u"Margen:"},
    {u"Separació:", u"Separación:"},
    {u"Fletxes de pàgina anterior i següent", u"Flechas de página anterior y siguiente"},
    {u"%1 paraules, %2 pàgines", u"%1 palabras, %2 páginas"},
    {u"\n"
     u"Símbols i làmines:\n"
     u"  symbols search [--lang ca|es] [--limit N] PARAULES...\n"
     u"                           els símbols de la biblioteca que trobin les\n"
     u"                           PARAULES, el millor primer: codi, tabulació, nom\n"
     u"  sheet --words \"P1 P2 ...\" --rows F --columns C [--lang ca|es] [--nav]\n"
     u"        -o FITXER.mvw      una plantilla amb una cel·la per paraula\n",
     u"\n"
     u"Símbolos y láminas:\n"
     u"  symbols search [--lang ca|es] [--limit N] PALABRAS...\n"
     u"                           los símbolos de la biblioteca que encuentran las\n"
     u"                           PALABRAS, el mejor primero: código, tabulador, nombre\n"
     u"  sheet --words \"P1 P2 ...\" --rows F --columns C [--lang ca|es] [--nav]\n"
     u"        -o ARCHIVO.mvw     una plantilla con una celda por palabra\n"},
    {u"Ús: mervak-cli symbols search [--lang ca|es] [--limit N] PARAULES...\n"
     u"Busca a la biblioteca de símbols i a les carpetes de dibuixos del\n"
     u"mestre (CarpetesDibuixos a MERVAK.INI) i escriu un símbol per línia,\n"
     u"el millor primer: el codi (o el camí del dibuix), una tabulació i el\n"
     u"nom en la llengua triada (la de Mervak si no se'n tria cap). Primer\n"
     u"els noms exactes, després les paraules clau; no compten els accents\n"
     u"ni les majúscules. --limit, 20 si no se'n diu cap.\n",
     u"Uso: mervak-cli symbols search [--lang ca|es] [--limit N] PALABRAS...\n"
     u"Busca en la biblioteca de símbolos y en las carpetas de dibujos del\n"
     u"maestro (CarpetesDibuixos en MERVAK.INI) y escribe un símbolo por línea,\n"
     u"el mejor primero: el código (o la ruta del dibujo), un tabulador y el\n"
     u"nombre en la lengua elegida (la de Mervak si no se elige ninguna).\n"
     u"Primero los nombres exactos, después las palabras clave; no cuentan los\n"
     u"acentos ni las mayúsculas. --limit, 20 si no se indica.\n"},
    {u"Ús: mervak-cli sheet --words \"P1 P2 ...\" --rows F --columns C [--lang ca|es] [--nav] "
     u"-o FITXER.mvw\n"
     u"Fa una plantilla nova amb una pàgina per cada F x C paraules: cada\n"
     u"paraula en una cel·la, en ordre de lectura, amb el seu millor símbol\n"
     u"i el seu nom; en prémer-la escriu la paraula i un espai i la diu.\n"
     u"Les paraules van separades per espais, o per comes o línies si n'hi\n"
     u"ha. --nav reserva a peu de pàgina les àrees de pàgina anterior i\n"
     u"següent. Estat de sortida 3 si alguna paraula no té símbol.\n",
     u"Uso: mervak-cli sheet --words \"P1 P2 ...\" --rows F --columns C [--lang ca|es] [--nav] "
     u"-o ARCHIVO.mvw\n"
     u"Hace una plantilla nueva con una página por cada F x C palabras: cada\n"
     u"palabra en una celda, en orden de lectura, con su mejor símbolo y su\n"
     u"nombre; al pulsarla escribe la palabra y un espacio y la dice.\n"
     u"Las palabras van separadas por espacios, o por comas o líneas si las\n"
     u"hay. --nav reserva al pie de página las áreas de página anterior y\n"
     u"siguiente. Estado de salida 3 si alguna palabra no tiene símbolo.\n"},
    {u"Ús: mervak-cli action TEXT [opcions]\n"
     u"Executa un text d'accions: escriu les tecles a la finestra de destinació i\n"
     u"executa els blocs d'ordres ({|Pagina 2}, {|Espera 1}, {|Mouse M 0 0 }...).\n"
     u"\n"
     u"  --dry-run          no toca res: escriu cada efecte com una línia JSON\n"
     u"  --target TÍTOL     la finestra que rep les tecles (títol exacte o el seu\n"
     u"                     començament, sense distingir majúscules); \"|\" cap\n"
     u"  --register TEXT    el registre de memòria en començar\n"
     u"  --clipboard TEXT   posa el text al porta-retalls abans de començar\n"
     u"  --seed N           llavor de {|Tria}, per repetir les mateixes tries\n"
     u"  --folder CARPETA   la carpeta de treball (la carpeta actual si no n'hi ha)\n"
     u"  --key-delay MS     pausa entre dues tecles, en mil·lisegons (0 per defecte)\n"
     u"  --platform NOM     x11, wayland (sway i altres compositors wlroots), portal\n"
     u"                     (GNOME, KDE) o auto, com la clau Plataforma de MERVAK.INI\n"
     u"  --                 acaba les opcions: action -- \"-5\" escriu -5\n"
     u"\n"
     u"Sense --dry-run cal una pantalla X (DISPLAY) o un escriptori Wayland.\n"
     u"Estat de sortida: 0 correcte; 1 hi ha hagut problemes (notació mal escrita,\n"
     u"finestra o fitxer no trobat, sense pantalla); 2 ordre mal escrita.\n",
     u"Uso: mervak-cli action TEXTO [opciones]\n"
     u"Ejecuta un texto de acciones: escribe las teclas en la ventana de destino y\n"
     u"ejecuta los bloques de órdenes ({|Pagina 2}, {|Espera 1}, {|Mouse M 0 0 }...).\n"
     u"\n"
     u"  --dry-run          no toca nada: escribe cada efecto como una línea JSON\n"
     u"  --target TÍTULO    la ventana que recibe las teclas (título exacto o su\n"
     u"                     comienzo, sin distinguir mayúsculas); \"|\" ninguna\n"
     u"  --register TEXTO   el registro de memoria al empezar\n"
     u"  --clipboard TEXTO  pone el texto en el portapapeles antes de empezar\n"
     u"  --seed N           semilla de {|Tria}, para repetir las mismas elecciones\n"
     u"  --folder CARPETA   la carpeta de trabajo (la carpeta actual si no la hay)\n"
     u"  --key-delay MS     pausa entre dos teclas, en milisegundos (0 por defecto)\n"
     u"  --platform NOMBRE  x11, wayland (sway y otros compositores wlroots), portal\n"
     u"                     (GNOME, KDE) o auto, como la clave Plataforma de MERVAK.INI\n"
     u"  --                 termina las opciones: action -- \"-5\" escribe -5\n"
     u"\n"
     u"Sin --dry-run hace falta una pantalla X (DISPLAY) o un escritorio Wayland.\n"
     u"Estado de salida: 0 correcto; 1 ha habido problemas (notación mal escrita,\n"
     u"ventana o archivo no encontrado, sin pantalla); 2 orden mal escrita.\n"},
    // Webcam tracker calibration form.
    {u"Calibrar", u"Calibrar"},
    {u"Test", u"Test"},
    {u"Inv Vertical", u"Inv Vertical"},
    {u"Mides per defecte", u"Medidas por defecto"},
    {u"Engegar Vistal", u"Iniciar Vistal"},
    {u"Webcam", u"Webcam"},
    // Status line of the main window.
    {u"Tauleta activa a ", u"Tableta activa en "},
    {u"Tauleta Inactiva a ", u"Tableta inactiva en "},
    {u"Cercant la tauleta...", u"Buscando la tableta..."},
    // The tablet's test and calibration dialog.
    {u"Test i calibratge de la tauleta", u"Test y calibrado de la tableta"},
    {u"Model:", u"Modelo:"},
    {u"Port:", u"Puerto:"},
    {u"tauleta, pantalla o pissarra tàctil", u"tableta, pantalla o pizarra táctil"},
    {u"tauleta sèrie", u"tableta serie"},
    {u"joystick", u"joystick"},
    {u"catifa de ball", u"alfombra de baile"},
    {u"Detecció automàtica", u"Detección automática"},
    {u"Un enregistrament...", u"Una grabación..."},
    {u"Enregistrament d'un dispositiu", u"Grabación de un dispositivo"},
    {u"Enregistraments d'evemu (*.evemu *.txt);;Tots els fitxers (*)",
     u"Grabaciones de evemu (*.evemu *.txt);;Todos los archivos (*)"},
    {u"Premeu la làmina per provar la tauleta.", u"Pulse la lámina para probar la tableta."},
    {u"Tauleta trobada. Premeu la làmina per provar-la.",
     u"Tableta encontrada. Pulse la lámina para probarla."},
    {u"Premeu la cantonada superior esquerra de la làmina.",
     u"Pulse la esquina superior izquierda de la lámina."},
    {u"Premeu ara la cantonada inferior dreta de la làmina.",
     u"Pulse ahora la esquina inferior derecha de la lámina."},
    {u"Calibratge desat. Premeu la làmina per provar-lo.",
     u"Calibrado guardado. Pulse la lámina para probarlo."},
    {u"Sense lectura", u"Sin lectura"},
    {u"(premut)", u"(pulsado)"},
    {u"Desbordament numèric", u"Desbordamiento numérico"},
    {u"No hi ha sortida de so: ", u"No hay salida de sonido: "},
    {u"Hi ha edicions no desades a ", u"Hay ediciones no guardadas en "},
    {u". Obriu-lo amb «Obrir ...» i deseu-lo amb un altre nom per recuperar-les.",
     u". Ábralo con «Abrir ...» y guárdelo con otro nombre para recuperarlas."},
    {u"No es pot obrir la pantalla X; sense pantalla, feu servir --dry-run. DISPLAY=",
     u"No se puede abrir la pantalla X; sin pantalla, use --dry-run. DISPLAY="},
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
    {u"Contorns i etiquetes de les àrees", u"Contornos y etiquetas de las áreas"},
    {u"Document PDF", u"Documento PDF"},
    {u"Imatge PNG", u"Imagen PNG"},
    {u"La làmina no cap en aquest paper: ", u"La lámina no cabe en este papel: "},
    {u"No s'ha pogut desar ", u"No se ha podido guardar "},
    // Composing the sheet: cells, page pictures, grids, printing.
    {u"Cel·la", u"Celda"},
    {u"Imatge...", u"Imagen..."},
    {u"Treure la imatge", u"Quitar la imagen"},
    {u"Deixeu-hi anar una imatge", u"Suelte aquí una imagen"},
    {u"Etiqueta:", u"Etiqueta:"},
    {u"Posició:", u"Posición:"},
    {u"A sota de la imatge", u"Debajo de la imagen"},
    {u"A sobre de la imatge", u"Encima de la imagen"},
    {u"Només el text", u"Solo el texto"},
    {u"Sense etiqueta", u"Sin etiqueta"},
    {u"Fons:", u"Fondo:"},
    {u"Persones", u"Personas"},
    {u"Accions", u"Acciones"},
    {u"Descripcions", u"Descripciones"},
    {u"Coses", u"Cosas"},
    {u"Socials", u"Sociales"},
    {u"Preguntes", u"Preguntas"},
    {u"Negacions", u"Negaciones"},
    {u"Sense color", u"Sin color"},
    {u"Altre color...", u"Otro color..."},
    {u"Vora", u"Borde"},
    {u"Color de la vora...", u"Color del borde..."},
    {u"Treure la cel·la", u"Quitar la celda"},
    {u"La imatge de fons d'aquesta pàgina", u"La imagen de fondo de esta página"},
    {u"Imatge de la cel·la", u"Imagen de la celda"},
    {u"El porta-retalls no té cap imatge", u"El portapapeles no tiene ninguna imagen"},
    {u"Subdividir: primer trieu una àrea", u"Subdividir: primero elija un área"},
    {u"Graella de cel·les", u"Cuadrícula de celdas"},
    {u"Graella de cel·les...", u"Cuadrícula de celdas..."},
    {u"En una pàgina nova", u"En una página nueva"},
    {u"A la pàgina actual", u"En la página actual"},
    {u"La mida de la làmina", u"El tamaño de la lámina"},
    {u"Desar la làmina", u"Guardar la lámina"},
    {u"Imprimir...", u"Imprimir..."},
    {u"Imprimir la làmina", u"Imprimir la lámina"},
    {u"La làmina (%1 × %2 mm) no cap en aquest paper: s'imprimiria reduïda i no coincidiria "
     u"amb la tauleta. Voleu imprimir-la igualment?",
     u"La lámina (%1 × %2 mm) no cabe en este papel: se imprimiría reducida y no coincidiría "
     u"con la tableta. ¿Quiere imprimirla igualmente?"},
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
    {u"Escapament", u"Escape"},
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
    // What an ActionText types, and the signs the notation reserves, typed literally.
    {u"El que rebrà l'aplicació", u"Lo que recibirá la aplicación"},
    {u"Signe ~", u"Signo ~"},
    {u"Parèntesi (", u"Paréntesis ("},
    {u"Parèntesi )", u"Paréntesis )"},
    {u"Clau {", u"Llave {"},
    {u"Clau }", u"Llave }"},
    {u"Claudàtor [", u"Corchete ["},
    {u"Claudàtor ]", u"Corchete ]"},
    // Speech and sound: the status line and the window of a file read aloud.
    {u"S'ha perdut la sortida de so: ", u"Se ha perdido la salida de sonido: "},
    {u"No és un fitxer WAV vàlid: ", u"No es un archivo WAV válido: "},
    {u"Format de so no admès (només PCM de 8, 16, 24 o 32 bits), format %1: ",
     u"Formato de sonido no admitido (solo PCM de 8, 16, 24 o 32 bits), formato %1: "},
    {u"No hi ha cap SoundFont General MIDI per a ", u"No hay ningún SoundFont General MIDI para "},
    {u"No és un fitxer MIDI vàlid: ", u"No es un archivo MIDI válido: "},
    {u"Lectura", u"Lectura"},
    {u"Pausa", u"Pausa"},
    {u"Continuar", u"Continuar"},
    {u"Aturar", u"Detener"},
    // The sheet size, the properties' tool tips, the buttons with their access keys.
    {u"Mida de la làmina:", u"Tamaño de la lámina:"},
    {u"La imatge de la làmina que es posa sobre la tauleta",
     u"La imagen de la lámina que se pone sobre la tableta"},
    {u"La carpeta on es busquen els fitxers amb nom relatiu",
     u"La carpeta donde se buscan los archivos con nombre relativo"},
    {u"La carpeta dels dibuixos que enganxen les àrees",
     u"La carpeta de los dibujos que pegan las áreas"},
    {u"Un document per al mestre sobre la plantilla",
     u"Un documento para el maestro sobre la plantilla"},
    {u"Una descripció breu de la plantilla", u"Una descripción breve de la plantilla"},
    {u"L'amplada de la làmina impresa; la de la tauleta és 270 mm",
     u"La anchura de la lámina impresa; la de la tableta es 270 mm"},
    {u"L'alçada de la làmina impresa; la de la tauleta és 190 mm",
     u"La altura de la lámina impresa; la de la tableta es 190 mm"},
    {u"El títol de la finestra que rep les tecles, o el seu començament",
     u"El título de la ventana que recibe las teclas, o su comienzo"},
    {u"Tria una de les finestres obertes", u"Escoge una de las ventanas abiertas"},
    {u"L'ordre que engega l'aplicació", u"La orden que inicia la aplicación"},
    {u"Posa a Ordres un programa de MACROS.INI", u"Pone en Órdenes un programa de MACROS.INI"},
    {u"Les tecles de la plantilla", u"Las teclas de la plantilla"},
    {u"Insereix a Tecles una macro de MACROS.INI", u"Inserta en Teclas una macro de MACROS.INI"},
    {u"Fa sonar els sons i la veu de les àrees", u"Hace sonar los sonidos y la voz de las áreas"},
    {u"L'idioma de la veu", u"El idioma de la voz"},
    {u"La veu que llegeix", u"La voz que lee"},
    {u"La velocitat de lectura", u"La velocidad de lectura"},
    {u"&Sí", u"&Sí"},
    {u"&No", u"&No"},
    {u"&Cancel·lar", u"&Cancelar"},
    // Input devices read from evdev (tablets, touch panels, joysticks, dance pads).
    {u"No hi ha permís per llegir el dispositiu %1. Instal·leu la regla udev de Mervak "
     u"(60-mervak-input.rules) o afegiu l'usuari al grup input, i torneu a entrar a la sessió.",
     u"No hay permiso para leer el dispositivo %1. Instale la regla udev de Mervak "
     u"(60-mervak-input.rules) o añada el usuario al grupo input, y vuelva a entrar en la sesión."},
    {u"El dispositiu %1 no existeix.", u"El dispositivo %1 no existe."},
    {u"No s'ha pogut obrir el dispositiu %1: %2.", u"No se ha podido abrir el dispositivo %1: %2."},
    {u"No es troba connectat cap aparell que serveixi de %1. Comproveu que estigui endollat i "
     u"feu «Test de la tauleta».",
     u"No se encuentra conectado ningún aparato que sirva de %1. Compruebe que esté enchufado y "
     u"haga «Test de la tauleta»."},
    {u"L'aparell %1 (%2) no serveix de %3. Trieu-ne un altre a «Test de la tauleta».",
     u"El aparato %1 (%2) no sirve de %3. Elija otro en «Test de la tauleta»."},
    {u"tauleta USB, pantalla tàctil o pissarra digital",
     u"tableta USB, pantalla táctil o pizarra digital"},
    {u"S'ha perdut el dispositiu %1; es tornarà a fer servir quan es torni a connectar.",
     u"Se ha perdido el dispositivo %1; se volverá a usar cuando se vuelva a conectar."},
    // A teacher's first hour: the start without a tablet, saving, help, sound.
    {u"Aquesta àrea sonaria o parlaria, però «So actiu» està desactivat (menú Plantilla).",
     u"Esta área sonaría o hablaría, pero «Activar sonido» está desactivado (menú Plantilla)."},
    {u"Premeu F12 per fer servir la tauleta virtual a la pantalla, o connecteu la tauleta i feu "
     u"«Test de la tauleta».",
     u"Pulse F12 para usar la tableta virtual en la pantalla, o conecte la tableta y haga «Test "
     u"de la tauleta»."},
    {u"Desa els canvis al fitxer de la plantilla",
     u"Guarda los cambios en el archivo de la plantilla"},
    {u"Desa una còpia de la plantilla amb un altre nom o en una altra carpeta, i continua amb la "
     u"còpia",
     u"Guarda una copia de la plantilla con otro nombre o en otra carpeta, y sigue con la copia"},
    {u"&Obrir la darrera plantilla en iniciar", u"&Abrir la última plantilla al iniciar"},
    {u"Plantilles de Mervak", u"Plantillas de Mervak"},
    {u"Plantilles antigues de MS-DOS", u"Plantillas antiguas de MS-DOS"},
    {u"No es troba la guia %1. Torneu a instal·lar el paquet mervak.",
     u"No se encuentra la guía %1. Vuelva a instalar el paquete mervak."},
    {u"Guia del mestre", u"Guía del maestro"},
    {u"Tauleta virtual", u"Tableta virtual"},
    {u"Pantalla completa a %1 (%2×%3)", u"Pantalla completa en %1 (%2×%3)"},
    {u"Tornar a la finestra", u"Volver a la ventana"},
    {u"català", u"catalán"},
    {u"castellà", u"castellano"},
    {u"lenta", u"lenta"},
    {u"normal", u"normal"},
    {u"ràpida", u"rápida"},
    {u"(la imatge de la làmina)", u"(la imagen de la lámina)"},
    {u", línia %1", u", línea %1"},
    {u"Comproveu que és una plantilla de Mervak (.mvw o .mvd) i, si està malmesa, obriu-ne una "
     u"còpia.",
     u"Compruebe que es una plantilla de Mervak (.mvw o .mvd) y, si está dañada, abra una copia."},
    {u"Actualitzeu Mervak per obrir-la.", u"Actualice Mervak para abrirla."},
    {u"Poseu el fitxer a la carpeta de la plantilla i torneu-la a obrir.",
     u"Ponga el archivo en la carpeta de la plantilla y vuelva a abrirla."},
    {u"Deseu-la en una altra carpeta amb «Desar ...».",
     u"Guárdela en otra carpeta con «Guardar ...»."},
    {u"Poseu-lo a la carpeta de la plantilla.", u"Póngalo en la carpeta de la plantilla."},
    // The tracker's calibration form.
    {u"Prendre punts", u"Tomar puntos"},
    {u"Segons per punt:", u"Segundos por punto:"},
    {u"Imatge de fons", u"Imagen de fondo"},
    {u"Temps de repòs (ms):", u"Tiempo de reposo (ms):"},
    {u"Color de la marca", u"Color de la marca"},
    {u"Cantonades preses: ", u"Esquinas tomadas: "},
    {u"Casella: ", u"Casilla: "},
    {u"Poseu la marca a cada cantonada de la làmina, per ordre: a dalt a l'esquerra, a dalt a "
     u"la dreta, a baix a la dreta i a baix a l'esquerra; o feu clic a cada cantonada.",
     u"Ponga la marca en cada esquina de la lámina, por orden: arriba a la izquierda, arriba a "
     u"la derecha, abajo a la derecha y abajo a la izquierda; o haga clic en cada esquina."},
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
