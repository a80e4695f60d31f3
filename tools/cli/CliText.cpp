#include "CliText.h"

#include "platform/PrivateProfile.h"
#include "platform/Settings.h"

#include <QFileInfo>
#include <QHash>

namespace mervak::cli {

namespace {

Language& chosenLanguage() {
    static Language chosen = Language::Catalan;
    return chosen;
}

QString areaPrefix(int16_t area) {
    return text(QStringLiteral("àrea %1: ")).arg(area);
}

QString where(const TemplateError& error, const QString& path) {
    if (error.line <= 0)
        return {};
    const bool binary = path.endsWith(QStringLiteral(".mvd"), Qt::CaseInsensitive);
    return text(binary ? QStringLiteral(" (registre %1)") : QStringLiteral(" (línia %1)"))
        .arg(error.line);
}

} // namespace

Language chooseLanguage(const QString& homeFolder, const QString& lang) {
    const QString settings = settingsFilePath(homeFolder);
    if (QFileInfo::exists(settings))
        return readSettings(PrivateProfile(settings)).language;
    return lang.startsWith(QLatin1String("es")) ? Language::Spanish : Language::Catalan;
}

void setLanguage(Language language) {
    chosenLanguage() = language;
}

Language language() {
    return chosenLanguage();
}

QString text(const QString& catalan) {
    return TranslateCaption(language(), catalan);
}

QString errorText(const TemplateError& error, const QString& path) {
    QString message = error.text(language());
    if (error.argument.isEmpty())
        message += QStringLiteral(": ") + path;
    message += where(error, path);
    if (error.message == TemplateMessage::GeneralError && !error.detail.isEmpty())
        message += QStringLiteral(" [") + error.detail + u']';
    return message;
}

QString problemText(const TemplateProblem& problem, int16_t pageCount) {
    using K = TemplateProblem::Kind;
    const QString area = areaPrefix(problem.area);
    switch (problem.kind) {
    case K::PageOutOfRange:
        return area + text(QStringLiteral("és a la pàgina %1, fora de les pàgines de la "
                                          "plantilla (1 a %2)"))
                          .arg(problem.text)
                          .arg(pageCount);
    case K::ZeroSize:
        return area + text(QStringLiteral("no té amplada o no té alçada"));
    case K::SheetImageMissing:
        return text(QStringLiteral("no es troba la imatge de la làmina: ")) + problem.text;
    case K::SheetImageComma:
        return text(QStringLiteral("el nom de la imatge de la làmina té una coma i no es "
                                   "llegirà sencer: ")) +
               problem.text;
    case K::ClipMissing:
        return area + text(QStringLiteral("no es troba el fitxer del retall: ")) + problem.text;
    case K::FileMissing:
        return area + text(QStringLiteral("no es troba el fitxer: ")) + problem.text;
    case K::SoundNotPlayable:
        return area + text(QStringLiteral("el so %1 no sonarà: el nom ha d'acabar exactament "
                                          "en .WAV o .MID"))
                          .arg(problem.text);
    }
    return {};
}

QString lossText(const MvdLoss& loss) {
    using K = MvdLoss::Kind;
    const QString area = areaPrefix(loss.area);
    switch (loss.kind) {
    case K::HeaderField:
        return text(QStringLiteral("el format MS-DOS no desa el camp ")) + loss.text;
    case K::PageCountCut:
        return text(QStringLiteral("el format MS-DOS desa de 1 a 255 pàgines (la plantilla en "
                                   "té %1)"))
            .arg(loss.text);
    case K::CoordinateCut:
        return area +
               text(QStringLiteral("la coordenada %1 no hi cap i s'ha retallat")).arg(loss.text);
    case K::PageOutOfRange:
        return area + text(QStringLiteral("és a la pàgina %1, que el format MS-DOS no pot "
                                          "desar; l'àrea no s'ha desat"))
                          .arg(loss.text);
    case K::ClipNotStored:
        return area + text(QStringLiteral("el format MS-DOS no desa el retall ni els indicadors"));
    case K::KeysNotStored:
        return area + text(QStringLiteral("«%1» no té codi de tecla MS-DOS i no s'ha desat"))
                          .arg(loss.text);
    case K::KeyTextCut:
        return area + text(QStringLiteral("el text de tecles no hi cap; «%1» no s'ha desat"))
                          .arg(loss.text);
    }
    return {};
}

QString generalHelp() {
    return text(QStringLiteral(
               "Ús: mervak-cli [--home CARPETA] ORDRE ...\n"
               "\n"
               "Treballa amb plantilles de Mervak (.mvw versions 1 i 2, .mvd de MS-DOS)\n"
               "i amb els models de pàgina (.mvp) de la carpeta de configuració.\n"
               "\n"
               "Ordres:\n"
               "  info FITXER [--json]     capçalera i totes les àrees\n"
               "  convert ENTRADA SORTIDA  converteix a .mvw (versió 2) o a .mvd segons SORTIDA\n"
               "  check FITXER             llista el que cal arreglar\n"
               "  copy FITXER CARPETA      desa la plantilla en una altra carpeta amb la làmina\n"
               "                           i els fitxers que nomenen les àrees\n"
               "  models                   llista els models de pàgina\n"
               "  page-save FITXER PÀGINA MODEL\n"
               "  page-insert FITXER PÀGINA MODEL (--before|--after) [--output SORTIDA]\n"
               "  page-paste FITXER PÀGINA MODEL [--output SORTIDA]\n"
               "  page-delete FITXER PÀGINA [--output SORTIDA]\n"
               "  audit FITXER [--json]    llista el que la plantilla faria fora de la seva "
               "carpeta\n"
               "                           (programes, configuració, fitxers) i si és de "
               "confiança\n"
               "  render FITXER --page P -o SORTIDA.png|SORTIDA.pdf [--dpi D]\n"
               "                           dibuixa una pàgina tal com s'imprimeix\n"
               "  cell FITXER --page P --area N [--symbol ID | --picture IMATGE] [--label TEXT]\n"
               "       [--colour #RRGGBB]  canvia la cel·la de l'àrea N de la pàgina P i desa\n"
               "  action TEXT [--dry-run]  executa un ActionText (escriu a la finestra de "
               "destinació\n"
               "                           o, amb --dry-run, llista els efectes en JSON)\n"
               "\n"
               "  --home CARPETA           la carpeta de MERVAK.INI i dels models de pàgina\n"
               "  --help                   aquesta ajuda; mervak-cli ORDRE --help, la de l'ordre\n"
               "  --version                la versió\n"
               "  --                       acaba les opcions (per a un nom o un text que\n"
               "                           comenci amb \"-\")\n"
               "\n"
               "Els missatges són en la llengua de MERVAK.INI (IDIOMA) o, si no n'hi ha, de LANG.\n"
               "Estat de sortida: 0 correcte; 1 un fitxer no s'ha pogut llegir o escriure;\n"
               "2 ordre mal escrita o un canvi que la plantilla no admet; 3 fet, però amb avisos\n"
               "(problemes trobats o dades que el format .mvd no pot desar).\n")) +
           text(QStringLiteral(
               "\n"
               "Símbols i làmines:\n"
               "  symbols search [--lang ca|es] [--limit N] PARAULES...\n"
               "                           els símbols de la biblioteca que trobin les\n"
               "                           PARAULES, el millor primer: codi, tabulació, nom\n"
               "  sheet --words \"P1 P2 ...\" --rows F --columns C [--lang ca|es] [--nav]\n"
               "        -o FITXER.mvw      una plantilla amb una cel·la per paraula\n")) +
           text(QStringLiteral(
               "\n"
               "Taulers de comunicació (Open Board Format):\n"
               "  import TAULER.obf|TAULER.obz -o FITXER.mvw\n"
               "                           fa una plantilla dels taulers, un per pàgina\n"
               "  export FITXER.mvw -o TAULER.obz\n"
               "                           desa la plantilla com a taulers, un per pàgina\n"));
}

QString commandHelp(const QString& command) {
    static const QHash<QString, QString> help = {
        {QStringLiteral("info"),
         QStringLiteral("Ús: mervak-cli info FITXER [--json]\n"
                        "Mostra la capçalera i cada àrea (pàgina, rectangle, indicadors,\n"
                        "text d'accions). Amb --json, un document JSON amb els noms de camp\n"
                        "del model (l'esquema és al README de l'eina).\n")},
        {QStringLiteral("convert"),
         QStringLiteral("Ús: mervak-cli convert ENTRADA SORTIDA\n"
                        "Llegeix qualsevol plantilla (.mvw versió 1 o 2, .mvd) i l'escriu en\n"
                        "format .mvw versió 2 o .mvd segons l'extensió de SORTIDA. Si SORTIDA\n"
                        "és en una altra carpeta, s'hi copien la làmina i els fitxers que\n"
                        "nomenen les àrees. El que el format .mvd no pot desar es llista i\n"
                        "l'estat de sortida és 3.\n")},
        {QStringLiteral("check"),
         QStringLiteral("Ús: mervak-cli check FITXER\n"
                        "Llista àrees fora de les pàgines de la plantilla, àrees sense mida,\n"
                        "la imatge de la làmina i els fitxers d'enganxar i de so que no es\n"
                        "troben des de la carpeta de la plantilla, i els sons que no sonaran.\n"
                        "Estat de sortida 3 si hi ha problemes.\n")},
        {QStringLiteral("copy"),
         QStringLiteral("Ús: mervak-cli copy FITXER CARPETA\n"
                        "Desa la plantilla (versió 2) a CARPETA amb el mateix nom, hi copia\n"
                        "la imatge de la làmina i els fitxers que nomenen les àrees, i canvia\n"
                        "les referències pel nom de la còpia.\n")},
        {QStringLiteral("models"),
         QStringLiteral("Ús: mervak-cli [--home CARPETA] models\n"
                        "Llista els models de pàgina (.mvp) de la carpeta de configuració.\n")},
        {QStringLiteral("page-save"),
         QStringLiteral("Ús: mervak-cli page-save FITXER PÀGINA MODEL\n"
                        "Desa les àrees de la PÀGINA com a model de pàgina MODEL.\n")},
        {QStringLiteral("page-insert"),
         QStringLiteral("Ús: mervak-cli page-insert FITXER PÀGINA MODEL (--before|--after) "
                        "[--output SORTIDA]\n"
                        "Insereix una pàgina abans o després de la PÀGINA i l'omple amb el\n"
                        "MODEL (\"Pàgina nova\" vol dir una pàgina buida). Desa a SORTIDA o,\n"
                        "si no n'hi ha, al mateix FITXER.\n")},
        {QStringLiteral("page-paste"),
         QStringLiteral("Ús: mervak-cli page-paste FITXER PÀGINA MODEL [--output SORTIDA]\n"
                        "Afegeix les àrees del MODEL a la PÀGINA.\n")},
        {QStringLiteral("audit"),
         QStringLiteral("Ús: mervak-cli audit FITXER [--json]\n"
                        "Llista cada ordre que una plantilla que no és de confiança no fa sense\n"
                        "permís (engegar programes, escriure la configuració, obrir plantilles\n"
                        "o llegir fitxers de fora de la seva carpeta): pàgina, àrea, ordre i el\n"
                        "que nomena, i diu si aquest usuari en té confiança. Estat de sortida 0\n"
                        "si no n'hi ha cap, 3 si n'hi ha.\n")},
        {QStringLiteral("symbols"),
         QStringLiteral("Ús: mervak-cli symbols search [--lang ca|es] [--limit N] PARAULES...\n"
                        "Busca a la biblioteca de símbols i a les carpetes de dibuixos del\n"
                        "mestre (CarpetesDibuixos a MERVAK.INI) i escriu un símbol per línia,\n"
                        "el millor primer: el codi (o el camí del dibuix), una tabulació i el\n"
                        "nom en la llengua triada (la de Mervak si no se'n tria cap). Primer\n"
                        "els noms exactes, després les paraules clau; no compten els accents\n"
                        "ni les majúscules. --limit, 20 si no se'n diu cap.\n")},
        {QStringLiteral("sheet"),
         QStringLiteral("Ús: mervak-cli sheet --words \"P1 P2 ...\" --rows F --columns C "
                        "[--lang ca|es] [--nav] -o FITXER.mvw\n"
                        "Fa una plantilla nova amb una pàgina per cada F x C paraules: cada\n"
                        "paraula en una cel·la, en ordre de lectura, amb el seu millor símbol\n"
                        "i el seu nom; en prémer-la escriu la paraula i un espai i la diu.\n"
                        "Les paraules van separades per espais, o per comes o línies si n'hi\n"
                        "ha. --nav reserva a peu de pàgina les àrees de pàgina anterior i\n"
                        "següent. Estat de sortida 3 si alguna paraula no té símbol.\n")},
        {QStringLiteral("import"),
         QStringLiteral("Ús: mervak-cli import TAULER.obf|TAULER.obz -o FITXER.mvw\n"
                        "Converteix un tauler (.obf) o un paquet de taulers (.obz) en una\n"
                        "plantilla: cada tauler, una pàgina; cada botó, una àrea amb la seva\n"
                        "imatge, etiqueta i colors, que escriu i diu el seu text; els enllaços\n"
                        "entre taulers, canvis de pàgina. Les imatges es desen a la carpeta\n"
                        "FITXER-imatges, al costat de la plantilla. El que no s'ha pogut portar\n"
                        "es llista i l'estat de sortida és 3.\n")},
        {QStringLiteral("export"),
         QStringLiteral("Ús: mervak-cli export FITXER.mvw -o TAULER.obz\n"
                        "Desa la plantilla com a paquet de taulers (Open Board Format), un\n"
                        "tauler per pàgina, amb les etiquetes, imatges, colors, el que diu\n"
                        "cada àrea i els canvis de pàgina com a enllaços. El text d'accions\n"
                        "sencer hi viatja, i el Mervak el recupera en importar-lo. El que els\n"
                        "altres programes no veuran es llista i l'estat de sortida és 3.\n")},
        {QStringLiteral("page-delete"),
         QStringLiteral("Ús: mervak-cli page-delete FITXER PÀGINA [--output SORTIDA]\n"
                        "Elimina la PÀGINA i les seves àrees; les pàgines següents baixen un\n"
                        "número. L'única pàgina d'una plantilla no s'elimina (estat de\n"
                        "sortida 2).\n")},
        {QStringLiteral("render"),
         QStringLiteral("Ús: mervak-cli render FITXER --page P -o SORTIDA.png|SORTIDA.pdf "
                        "[--dpi D]\n"
                        "Dibuixa la pàgina P tal com s'imprimeix: la imatge de fons, les\n"
                        "cel·les de les àrees i, si usa símbols de la biblioteca, la línia\n"
                        "de crèdit. Un PNG té D punts per polzada (150 si no es diu, fins a\n"
                        "1200); un PDF té la mida de la làmina en mil·límetres, marques a\n"
                        "les cantonades, les etiquetes com a text i els símbols com a dibuix.\n")},
        {QStringLiteral("cell"),
         QStringLiteral("Ús: mervak-cli cell FITXER.mvw --page P --area N [--symbol ID | "
                        "--picture IMATGE]\n"
                        "       [--label TEXT] [--colour #RRGGBB]\n"
                        "Canvia la cel·la de l'àrea N de la pàgina P (el número que mostra\n"
                        "l'editor): el símbol de la biblioteca (el seu codi, com 1F415) o una\n"
                        "imatge, l'etiqueta (buida: el que l'àrea escriu o diu) i el color de\n"
                        "fons. Desa la plantilla i, al costat, una imatge PNG de cada pàgina\n"
                        "(FitxGraf nomena la de la pàgina 1).\n")},
    };
    return text(help.value(command));
}

} // namespace mervak::cli
