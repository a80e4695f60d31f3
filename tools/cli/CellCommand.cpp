#include "CliText.h"
#include "SheetCommands.h"
#include "SheetPictures.h"
#include "platform/HomeFolder.h"
#include "sheet/Composition.h"
#include "sheet/SheetStyle.h"
#include "template/TemplateFile.h"

#include <QCommandLineParser>
#include <QFileInfo>
#include <QRegularExpression>

namespace mervak::cli {

namespace {

// What the command line asks of the cell; unset options leave it as it is.
struct CellRequest {
    QString file;
    int page = 0;
    int area = 0;
    std::optional<QString> picture;
    std::optional<QString> label;
    std::optional<QString> colour;
};

std::optional<CellRequest> parse(const QStringList& arguments, CommandContext& c, int* status) {
    QCommandLineParser parser;
    const auto option = [](const char* name) {
        return QCommandLineOption(QString::fromLatin1(name), QString(), QStringLiteral("value"));
    };
    const QCommandLineOption page = option("page"), area = option("area"),
                             symbol = option("symbol"), picture = option("picture"),
                             label = option("label"), colour = option("colour");
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    parser.addOptions({page, area, symbol, picture, label, colour, help});
    *status = kUsage;
    if (const auto error =
            parseCommandLine(parser, QStringList{QStringLiteral("cell")} + arguments)) {
        c.err << error->text(language()) << '\n';
        return std::nullopt;
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(QStringLiteral("cell"));
        *status = kSuccess;
        return std::nullopt;
    }
    CellRequest request;
    bool pageOk = false;
    bool areaOk = false;
    request.page = parser.value(page).toInt(&pageOk);
    request.area = parser.value(area).toInt(&areaOk);
    if (parser.positionalArguments().size() != 1 || !pageOk || !areaOk ||
        (parser.isSet(symbol) && parser.isSet(picture))) {
        c.err << commandHelp(QStringLiteral("cell"));
        return std::nullopt;
    }
    request.file = parser.positionalArguments().constFirst();
    if (parser.isSet(symbol))
        request.picture = symbolReference(parser.value(symbol).toUpper());
    if (parser.isSet(picture))
        request.picture = QFileInfo(parser.value(picture)).absoluteFilePath();
    if (parser.isSet(label))
        request.label = parser.value(label);
    if (parser.isSet(colour))
        request.colour = parser.value(colour);
    return request;
}

// A problem with what was asked, in words; empty when the request can be done.
QString problemWith(const CellRequest& r, const Template& t) {
    static const QRegularExpression hexcode(QStringLiteral("^symbol:[0-9A-F]+(-[0-9A-F]+)*$"));
    if (!r.file.endsWith(QLatin1String(".mvw"), Qt::CaseInsensitive))
        return text(QStringLiteral("Les cel·les es desen en plantilles .mvw: ")) + r.file;
    if (r.page < 1 || r.page > t.PageCount)
        return text(QStringLiteral("La pàgina ha de ser un número de 1 a %1: %2"))
            .arg(t.PageCount)
            .arg(r.page);
    const int areas = t.countAreasOfPage(static_cast<int16_t>(r.page));
    if (r.area < 1 || r.area > areas)
        return text(QStringLiteral("L'àrea ha de ser un número de 1 a %1: %2"))
            .arg(areas)
            .arg(r.area);
    if (r.picture && isSymbolReference(*r.picture) && !hexcode.match(*r.picture).hasMatch())
        return text(QStringLiteral("El símbol ha de ser un codi hexadecimal (1F415): ")) +
               symbolHexcode(*r.picture);
    if (r.picture && !isSymbolReference(*r.picture) && !QFileInfo(*r.picture).isFile())
        return text(QStringLiteral("No es troba la imatge: ")) + *r.picture;
    if (r.colour && !colourFromText(*r.colour))
        return text(QStringLiteral("El color ha de ser #RRGGBB: ")) + *r.colour;
    return {};
}

void apply(const CellRequest& r, Template& t) {
    t.beginComposing();
    const int16_t index = t.areasOfPage(static_cast<int16_t>(r.page)).at(r.area - 1);
    Area& area = t.area(index);
    if (!area.Cell) {
        area.Cell = AreaCell{};
        area.Cell->Border = kDefaultBorder;
    }
    if (r.picture)
        area.Cell->Picture = *r.picture;
    if (r.label)
        area.Cell->Label = *r.label;
    if (r.colour)
        area.Cell->Background = colourFromText(*r.colour);
    t.Modified = true;
}

} // namespace

int runCell(const QStringList& arguments, CommandContext& c) {
    int status = kUsage;
    const auto request = parse(arguments, c, &status);
    if (!request)
        return status;
    Template t;
    const OpenOutcome opened = openTemplate(t, request->file);
    if (opened.error) {
        c.err << errorText(*opened.error, request->file) << '\n';
        return kFailure;
    }
    if (const QString problem = problemWith(*request, t); !problem.isEmpty()) {
        c.err << problem << '\n';
        return kUsage;
    }
    apply(*request, t);
    const SaveOutcome saved =
        saveWithPageImages(t, t.TemplateFileName, false, picturesOf(t).symbolFile);
    if (saved.error) {
        c.err << errorText(*saved.error, t.TemplateFileName) << '\n';
        return kFailure;
    }
    return kSuccess;
}

} // namespace mervak::cli
