#include "sheet/PageRender.h"
#include "sheet/ReadingGrid.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QRandomGenerator>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace mervak;

namespace {

// A symbol about as busy as a library one: filled and outlined shapes.
QByteArray symbolSvg() {
    QByteArray svg = "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 72 72'>"
                     "<circle cx='36' cy='36' r='30' fill='#fcea2b' stroke='#000' "
                     "stroke-width='2'/>";
    for (int i = 0; i < 40; ++i)
        svg += QStringLiteral("<path d='M%1 %2 q 6 -8 12 0 t 12 0' fill='none' stroke='#000' "
                              "stroke-width='2' stroke-linecap='round'/>")
                   .arg(10 + i % 5 * 8)
                   .arg(14 + i / 5 * 6)
                   .toUtf8();
    return svg + "</svg>";
}

// A page of a teacher's sheet: a photograph under twelve cells, each with a
// symbol, a label and a colour.
struct Sheet {
    QTemporaryDir dir;
    Template t;
    PictureFiles files;

    Sheet() {
        QFile svg(dir.filePath(QStringLiteral("symbol.svg")));
        svg.open(QIODevice::WriteOnly);
        svg.write(symbolSvg());
        svg.close();
        QImage photo(2400, 1700, QImage::Format_RGB32);
        auto* random = QRandomGenerator::global();
        for (int y = 0; y < photo.height(); ++y)
            for (int x = 0; x < photo.width(); ++x)
                photo.setPixel(x, y, qRgb(x / 10 % 256, y / 7 % 256, random->bounded(256)));
        photo.save(dir.filePath(QStringLiteral("fons.jpg")));
        t.setPagePicture(1, QStringLiteral("fons.jpg"));
        const QString words[] = {QStringLiteral("gos"),    QStringLiteral("gat"),
                                 QStringLiteral("vaca"),   QStringLiteral("cavall"),
                                 QStringLiteral("ovella"), QStringLiteral("porc")};
        for (Area a : readingOrderGrid(t, {3, 4, 10, 5}, 1)) {
            a.ActionText = words[t.AreaCount() % 6] + u' ';
            a.Cell->Picture = QStringLiteral("symbol:1F415");
            a.Cell->Background = 0xFFEB3BU;
            t.AppendArea(a);
        }
        const QString symbol = dir.filePath(QStringLiteral("symbol.svg"));
        files = {dir.path(), [symbol](const QString&) { return symbol; }};
    }
};

void RenderPageAt300Dpi(benchmark::State& state) {
    const Sheet sheet;
    const QSize size = sheetPixels(sheet.t, 300);
    for (auto _ : state)
        benchmark::DoNotOptimize(renderPageImage(sheet.t, 1, size, sheet.files));
    state.SetLabel(QStringLiteral("%1 x %2 px").arg(size.width()).arg(size.height()).toStdString());
}
BENCHMARK(RenderPageAt300Dpi)->Unit(benchmark::kMillisecond);

void RenderPagePdf(benchmark::State& state) {
    const Sheet sheet;
    for (auto _ : state)
        benchmark::DoNotOptimize(renderPagesPdf(sheet.t, {1}, sheet.files, Language::Catalan));
}
BENCHMARK(RenderPagePdf)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
