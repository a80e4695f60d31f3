// mervak-camscene: writes a YUV4MPEG2 video of a camera over a sheet in
// perspective, with a red marker resting on the given cells of the 0..120 sheet
// grid in turn and taken out of view between them, and prints the [WEBCAM]
// corner keys that match the video:
//   mervak-camscene OUT.y4m [--fps N] [--hold FRAMES] [--gap FRAMES] COL,ROW...

#include "camscene/CameraScene.h"
#include "tracker/FrameSource.h"

#include <QCommandLineParser>
#include <QCoreApplication>
#include <cstdio>

using namespace mervak;

namespace {

constexpr double kGrid = 120;

std::optional<cv::Point2d> parseCell(const QString& text) {
    const QStringList parts = text.split(u',');
    bool okX = false;
    bool okY = false;
    const double x = parts.value(0).toDouble(&okX);
    const double y = parts.value(1).toDouble(&okY);
    if (parts.size() != 2 || !okX || !okY)
        return std::nullopt;
    return cv::Point2d(x * kFrameWidth / kGrid, y * kFrameHeight / kGrid);
}

} // namespace

int main(int argc, char** argv) {
    QCoreApplication app(argc, argv);
    QCommandLineParser parser;
    parser.setApplicationDescription(QStringLiteral("Writes a synthetic tracker video."));
    parser.addHelpOption();
    parser.addOptions({{QStringLiteral("fps"), QStringLiteral("Frame rate."), QStringLiteral("N"),
                        QStringLiteral("15")},
                       {QStringLiteral("hold"), QStringLiteral("Frames on each cell."),
                        QStringLiteral("FRAMES"), QStringLiteral("15")},
                       {QStringLiteral("gap"), QStringLiteral("Frames without a marker."),
                        QStringLiteral("FRAMES"), QStringLiteral("15")}});
    parser.addPositionalArgument(QStringLiteral("out"), QStringLiteral("The .y4m file."));
    parser.addPositionalArgument(QStringLiteral("cells"), QStringLiteral("COL,ROW of 0..120."));
    parser.process(app);
    QStringList args = parser.positionalArguments();
    if (args.isEmpty())
        parser.showHelp(2);
    const scene::Scene scene;
    scene::Y4mWriter writer(args.takeFirst(), parser.value(QStringLiteral("fps")).toInt());
    if (!writer.isOpen()) {
        std::fprintf(stderr, "mervak-camscene: cannot write the video\n");
        return 1;
    }
    const int hold = parser.value(QStringLiteral("hold")).toInt();
    const int gap = parser.value(QStringLiteral("gap")).toInt();
    const cv::Mat empty = scene::renderFrame(scene, std::nullopt);
    for (const QString& cell : args) {
        const std::optional<cv::Point2d> sheet = parseCell(cell);
        if (!sheet) {
            std::fprintf(stderr, "mervak-camscene: %s is not COL,ROW\n", qPrintable(cell));
            return 2;
        }
        for (int i = 0; i < gap; ++i)
            writer.write(empty);
        const cv::Mat frame = scene::renderFrame(scene, scene::toCamera(scene, *sheet));
        for (int i = 0; i < hold; ++i)
            writer.write(frame);
    }
    for (int i = 0; i < gap; ++i)
        writer.write(empty);
    for (int k = 0; k < 4; ++k)
        std::printf("x%d=%d\ny%d=%d\n", k + 1, int(std::lround(scene.corners[k].x)), k + 1,
                    int(std::lround(scene.corners[k].y)));
    return 0;
}
