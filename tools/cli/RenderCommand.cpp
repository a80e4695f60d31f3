#include "CliText.h"
#include "SheetCommands.h"
#include "SheetPictures.h"
#include "platform/AtomicFile.h"
#include "platform/HomeFolder.h"
#include "sheet/PageRender.h"
#include "template/TemplateFile.h"

#include <QCommandLineParser>

namespace mervak::cli {

namespace {

constexpr double kDefaultDpi = 150;
constexpr double kLargestDpi = 1200;

struct RenderRequest {
    QString file;
    int page = 0;
    QString output;
    double dpi = kDefaultDpi;
};

// The request, or an empty file name after the usage was printed.
RenderRequest parse(const QStringList& arguments, CommandContext& c, int* status) {
    QCommandLineParser parser;
    const QCommandLineOption page(QStringLiteral("page"), QString(), QStringLiteral("P"));
    const QCommandLineOption output(QStringLiteral("o"), QString(), QStringLiteral("OUT"));
    const QCommandLineOption dpi(QStringLiteral("dpi"), QString(), QStringLiteral("D"));
    const QCommandLineOption help({QStringLiteral("h"), QStringLiteral("help")}, QString());
    parser.addOptions({page, output, dpi, help});
    *status = kUsage;
    if (const auto error =
            parseCommandLine(parser, QStringList{QStringLiteral("render")} + arguments)) {
        c.err << error->text(language()) << '\n';
        return {};
    }
    if (parser.isSet(help)) {
        c.out << commandHelp(QStringLiteral("render"));
        *status = kSuccess;
        return {};
    }
    RenderRequest request;
    bool pageOk = false;
    bool dpiOk = true;
    request.page = parser.value(page).toInt(&pageOk);
    request.output = parser.value(output);
    if (parser.isSet(dpi))
        request.dpi = parser.value(dpi).toDouble(&dpiOk);
    const QString suffix = request.output.section(u'.', -1).toLower();
    if (parser.positionalArguments().size() != 1 || !pageOk ||
        (suffix != QLatin1String("png") && suffix != QLatin1String("pdf")) || !dpiOk ||
        request.dpi < 10 || request.dpi > kLargestDpi) {
        c.err << commandHelp(QStringLiteral("render"));
        return {};
    }
    request.file = parser.positionalArguments().constFirst();
    return request;
}

} // namespace

int runRender(const QStringList& arguments, CommandContext& c) {
    int status = kUsage;
    const RenderRequest request = parse(arguments, c, &status);
    if (request.file.isEmpty())
        return status;
    Template t;
    const OpenOutcome opened = openTemplate(t, request.file);
    if (opened.error) {
        c.err << errorText(*opened.error, request.file) << '\n';
        return kFailure;
    }
    if (request.page < 1 || request.page > t.PageCount) {
        c.err << text(QStringLiteral("La pàgina ha de ser un número de 1 a %1: %2"))
                     .arg(t.PageCount)
                     .arg(request.page)
              << '\n';
        return kUsage;
    }
    const auto page = static_cast<int16_t>(request.page);
    const bool pdf = request.output.endsWith(QLatin1String(".pdf"), Qt::CaseInsensitive);
    const QByteArray bytes = pdf ? renderPagesPdf(t, {page}, picturesOf(t), language())
                                 : pngBytes(renderPageImage(t, page, sheetPixels(t, request.dpi),
                                                            picturesOf(t), {false, language()}));
    QString why = pdf ? QStringLiteral("PDF") : QStringLiteral("PNG");
    if (bytes.isEmpty() || !writeFileAtomically(request.output, bytes, &why)) {
        c.err << text(QStringLiteral("No s'ha pogut desar ")) << request.output << ": " << why
              << '\n';
        return kFailure;
    }
    return kSuccess;
}

} // namespace mervak::cli
