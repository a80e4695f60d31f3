#include "template/TemplateCheck.h"

#include "platform/PathResolver.h"
#include "template/FileReferences.h"

#include <QFileInfo>

namespace mervak {

namespace {

bool resolves(const QString& stored, const QString& folder) {
    return QFileInfo(findCaseInsensitive(resolveStoredPath(stored, folder))).isFile();
}

bool playable(const QString& name) {
    return name.endsWith(QStringLiteral(".WAV")) || name.endsWith(QStringLiteral(".MID"));
}

void checkHeader(const Template& t, const QString& folder, QList<TemplateProblem>& problems) {
    if (t.FitxGraf.isEmpty())
        return;
    if (t.FitxGraf.contains(u','))
        problems.append({TemplateProblem::Kind::SheetImageComma, 0, t.FitxGraf});
    if (!resolves(t.FitxGraf, folder))
        problems.append({TemplateProblem::Kind::SheetImageMissing, 0, t.FitxGraf});
}

void checkArea(const Template& t, int16_t i, const QString& folder,
               QList<TemplateProblem>& problems) {
    using Kind = TemplateProblem::Kind;
    const Area& a = t.area(i);
    if (a.Page < 1 || a.Page > t.PageCount)
        problems.append({Kind::PageOutOfRange, i, QString::number(a.Page)});
    if (a.X0 == a.X1 || a.Y0 == a.Y1)
        problems.append({Kind::ZeroSize, i, {}});
    if (!a.Clip.isEmpty() && !resolves(a.Clip, folder))
        problems.append({Kind::ClipMissing, i, a.Clip});
    for (const FileReference& reference : fileReferences(a.ActionText)) {
        const bool sound = reference.keyword.startsWith(u'S');
        if (sound && !playable(reference.name))
            problems.append({Kind::SoundNotPlayable, i, reference.name});
        if (!resolves(reference.name, folder))
            problems.append({Kind::FileMissing, i, reference.name});
    }
}

} // namespace

QList<TemplateProblem> checkTemplate(const Template& t, const QString& folder) {
    QList<TemplateProblem> problems;
    checkHeader(t, folder, problems);
    for (int i = 1; i <= t.AreaCount(); ++i)
        checkArea(t, i, folder, problems);
    return problems;
}

} // namespace mervak
