#include "editor/CommandCatalogue.h"

#include <QDir>
#include <QFileInfo>
#include <QtGlobal>

namespace mervak {

namespace {

QStringList path(std::initializer_list<const char*> captions) {
    QStringList list;
    for (const char* caption : captions)
        list.append(QString::fromUtf8(caption));
    return list;
}

CommandEntry entry(std::initializer_list<const char*> captions, const char* text,
                   const char* placeholder = "", CommandFile file = CommandFile::None) {
    return {path(captions), QString::fromUtf8(text), QString::fromUtf8(placeholder), file};
}

constexpr const char* kKeys = "Seqüències de tecles";
constexpr const char* kFunctionKeys = "Tecles de funció";
constexpr const char* kMemory = "Memòria";
constexpr const char* kMouse = "Ratolí";
constexpr const char* kLeft = "Botó esquerra";
constexpr const char* kRight = "Botó dret";

QList<CommandEntry> keyEntries() {
    QList<CommandEntry> keys = {
        entry({kKeys, "Retorn"}, "{ENTER}"),
        entry({kKeys, "Tabulador"}, "{TAB}"),
        entry({kKeys, "Retrocés"}, "{BS}"),
        entry({kKeys, "Suprimir"}, "{DEL}"),
        entry({kKeys, "Escapament"}, "{ESC}"),
        entry({kKeys, "Inici"}, "{HOME}"),
        entry({kKeys, "Fi"}, "{END}"),
        entry({kKeys, "Re Pàg"}, "{PGUP}"),
        entry({kKeys, "Av Pàg"}, "{PGDN}"),
        entry({kKeys, "Fletxa amunt"}, "{UP}"),
        entry({kKeys, "Fletxa avall"}, "{DOWN}"),
        entry({kKeys, "Fletxa esquerra"}, "{LEFT}"),
        entry({kKeys, "Fletxa dreta"}, "{RIGHT}"),
    };
    for (int n = 1; n <= 12; ++n) {
        const QString name = QStringLiteral("F%1").arg(n);
        keys.append({{QString::fromUtf8(kKeys), QString::fromUtf8(kFunctionKeys), name},
                     u'{' + name + u'}',
                     {},
                     CommandFile::None});
    }
    keys += {
        entry({kKeys, "Majúscules i una tecla"}, "+x", "x"),
        entry({kKeys, "Control i una tecla"}, "^x", "x"),
        entry({kKeys, "Alt i una tecla"}, "%x", "x"),
        entry({kKeys, "Signe +"}, "{+}"),
        entry({kKeys, "Signe %"}, "{%}"),
        entry({kKeys, "Signe ^"}, "{^}"),
        entry({kKeys, "Signe ~"}, "{~}"),
        entry({kKeys, "Parèntesi ("}, "{(}"),
        entry({kKeys, "Parèntesi )"}, "{)}"),
        entry({kKeys, "Clau {"}, "{{}"),
        entry({kKeys, "Clau }"}, "{}}"),
        entry({kKeys, "Claudàtor ["}, "{[}"),
        entry({kKeys, "Claudàtor ]"}, "{]}"),
    };
    return keys;
}

// A page change most often leads to the page after the one being edited.
CommandEntry nextPageEntry() {
    CommandEntry page = entry({"Canvi de pàgina"}, "{|Pagina %1}");
    page.nextPage = true;
    return page;
}

QList<CommandEntry> buildEntries() {
    QList<CommandEntry> entries = keyEntries();
    entries += {
        entry({"Retard"}, "{|Espera 1}", "1"),
        entry({"Executar programes"}, "{|Executa %1}", "", CommandFile::Program),
        entry({"Escoltar sons"}, "{|Sona %1}", "", CommandFile::Sound),
        entry({"Llegir un text"}, "{|Llegir text}", "text"),
        entry({"Llegir un fitxer"}, "{|Llegeix /I:c /L:1 /V:100 /F:%1}", "",
              CommandFile::SpeechText),
        entry({"Enganxar un dibuix"}, "{|Enganxa %1}", "", CommandFile::Picture),
        entry({"Enganxar un text"}, "{|Enganxa %1}", "", CommandFile::Text),
        entry({kMemory, "Posa a memòria"}, "{|CM }{|M+ valor}", "valor"),
        entry({kMemory, "Suma memòria"}, "{|M+ 1}", "1"),
        entry({kMemory, "Resta memòria"}, "{|M- 1}", "1"),
        entry({kMemory, "Recupera de memòria"}, "{|RM }"),
        entry({kMemory, "Esborra memòria"}, "{|CM }"),
        entry({kMemory, "Si memòria és ..."}, "{|SIM valor {cert} {fals}}", "valor"),
        entry({kMemory, "Recupera Text Carpeta  Windows"}, "{|RCW }"),
        entry({"Tria "}, "{|Tria [a#b#c]}", "a#b#c"),
        nextPageEntry(),
        entry({"Canvi de plantilla"}, "{|Carrega %1}", "", CommandFile::Template),
    };
#ifndef Q_OS_LINUX
    entries.append(
        entry({"Registre"}, "{|Reg [HKEY_CURRENT_USER\\Software\\Mervak]nom=valor}", "nom=valor"));
#endif
    entries += {
        entry({"Tancar"}, "{|Tancar}"),
        // Level blocks do nothing when pressed; switch scanning follows them.
        entry({"Exploració nivell anterior"}, "{|Nivell -1}"),
        entry({"Exploració nivell inicial"}, "{|Nivell 0}"),
        entry({kMouse, "Moure's a..."}, "{|Mouse M x y }", "x"),
        entry({kMouse, "Amunt"}, "{|Mouse A n}", "n"),
        entry({kMouse, "Avall"}, "{|Mouse R n}", "n"),
        entry({kMouse, "Dreta"}, "{|Mouse D n}", "n"),
        entry({kMouse, "Esquerra"}, "{|Mouse E n}", "n"),
        entry({kMouse, kLeft, "Clic esquerra"}, "{|Mouse CE}"),
        entry({kMouse, kLeft, "Doble clic esquerra"}, "{|Mouse 2CE}"),
        entry({kMouse, kLeft, "Punxar i arrosegar esquerra"}, "{|Mouse PE x y }", "x"),
        entry({kMouse, kLeft, "Aixecar botó esquerra"}, "{|Mouse AE}"),
        entry({kMouse, kRight, "Clic dret"}, "{|Mouse CD}"),
        entry({kMouse, kRight, "Doble clic dret"}, "{|Mouse 2CD}"),
        entry({kMouse, kRight, "Punxar i arrosegar dret"}, "{|Mouse PD x y }", "x"),
        entry({kMouse, kRight, "Aixecar botó dret"}, "{|Mouse AD}"),
    };
    return entries;
}

QString withUpperSuffix(const QString& name) {
    const qsizetype dot = name.lastIndexOf(u'.');
    const qsizetype slash = std::max(name.lastIndexOf(u'/'), name.lastIndexOf(u'\\'));
    if (dot <= slash)
        return name;
    return name.left(dot) + name.mid(dot).toUpper();
}

bool isInside(const QString& relative) {
    return !relative.startsWith(QStringLiteral("..")) && !QDir::isAbsolutePath(relative);
}

} // namespace

const QList<CommandEntry>& commandEntries() {
    static const QList<CommandEntry> entries = buildEntries();
    return entries;
}

QString commandText(const CommandEntry& entry, const QString& storedFileName, int currentPage) {
    if (entry.nextPage)
        return QString(entry.text)
            .replace(QStringLiteral("%1"), commandPlaceholder(entry, currentPage));
    if (entry.file == CommandFile::None)
        return entry.text;
    return QString(entry.text).replace(QStringLiteral("%1"), storedFileName);
}

QString commandPlaceholder(const CommandEntry& entry, int currentPage) {
    return entry.nextPage ? QString::number(currentPage + 1) : entry.placeholder;
}

QString storedFileName(const QString& chosenPath, const QString& workingFolder, CommandFile kind) {
    const QString absolute = QFileInfo(chosenPath).absoluteFilePath();
    QString name = absolute;
    if (!workingFolder.isEmpty()) {
        const QString relative = QDir(workingFolder).relativeFilePath(absolute);
        // A Template change always names its file from the working folder.
        if (isInside(relative) || kind == CommandFile::Template)
            name = QString(relative).replace(u'/', u'\\');
    }
    return kind == CommandFile::Sound ? withUpperSuffix(name) : name;
}

} // namespace mervak
