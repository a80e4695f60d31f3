#include "editor/UndoSnapshot.h"

#include "template/FileAccess.h"
#include "template/MvwWriter.h"
#include "template/TemplateFile.h"

#include <QDir>

namespace mervak {

UndoSnapshot::UndoSnapshot(QString homeFolder) : homeFolder_(std::move(homeFolder)) {}

QString UndoSnapshot::snapshotPath() const {
    return QDir(homeFolder_).filePath(QStringLiteral("tmp.bin"));
}

std::optional<TemplateError> UndoSnapshot::run(Template& t, Mode mode) {
    return mode == Mode::Undo ? undo(t) : take(t);
}

std::optional<TemplateError> UndoSnapshot::take(const Template& t) {
    auto error = writeFileBytes(snapshotPath(), writeMvw(t));
    canUndo_ = !error;
    return error;
}

std::optional<TemplateError> UndoSnapshot::undo(Template& t) {
    QByteArray bytes;
    if (auto error = readFileBytes(snapshotPath(), bytes))
        return error;
    const QString copy = QDir(homeFolder_).filePath(QStringLiteral("tmp.mvw"));
    if (auto error = writeFileBytes(copy, bytes))
        return error;
    Template restored;
    if (auto error = loadTemplateFile(copy, restored))
        return error;
    restored.TemplateFileName = t.TemplateFileName;
    t = std::move(restored);
    canUndo_ = false;
    return std::nullopt;
}

} // namespace mervak
