#include "BenchFiles.h"

#include "platform/AtomicFile.h"
#include "platform/Settings.h"
#include "template/TemplateFile.h"

namespace mervak::bench {

namespace {

constexpr int16_t kSheetMiddle = 59; // the left Area ends here, the right one starts after it
constexpr int16_t kSheetEnd = 119;

Area benchArea(int16_t x0, int16_t x1, char key) {
    Area area;
    area.X0 = x0;
    area.Y0 = 1;
    area.X1 = x1;
    area.Y1 = kSheetEnd;
    area.Page = 1;
    area.ActionText = QString(QLatin1Char(key));
    return area;
}

} // namespace

bool writeBenchHome(const QString& homeFolder, const QString& model, const QString& port,
                    QString* error) {
    const QByteArray ini =
        "[Mervak]\r\nModel=" + model.toLatin1() + "\r\nPort=" + port.toLocal8Bit() + "\r\n";
    return writeFileAtomically(settingsFilePath(homeFolder), ini, error);
}

bool writeBenchTemplate(const QString& path, const QString& targetTitle, QString* error) {
    Template bench;
    bench.TxFinestra = targetTitle;
    bench.descripcio = QStringLiteral("Press latency benchmark");
    bench.AppendArea(benchArea(1, kSheetMiddle, kLeftArea.key));
    bench.AppendArea(benchArea(kSheetMiddle + 1, kSheetEnd, kRightArea.key));
    const SaveOutcome outcome = saveTemplate(bench, path);
    if (outcome.error) {
        *error = outcome.error->text(Language::Catalan);
        return false;
    }
    return true;
}

} // namespace mervak::bench
