#pragma once

#include <QList>
#include <QString>

namespace mervak {

// A file named inside an ActionText: the argument of an "{|Enganxa name}" or
// "{|Sona name}" block (Spanish keywords too, any case). Arguments that are
// computed by inner blocks are not file names and are not listed.
struct FileReference {
    QString keyword; // upper case: ENGANXA, ENGANCHA, SONA or SUENA; EXECUTA for programs
    qsizetype start = 0;
    qsizetype length = 0; // the argument without its surrounding blanks
    QString name;
};

QList<FileReference> fileReferences(const QString& actionText);

// The programs "{|Executa program arguments}" blocks start: the first word of
// the argument, or the name between its leading quotes. Names the system finds
// on its search path are among them; telling them apart is the caller's part.
QList<FileReference> programReferences(const QString& actionText);

// The text with each reference's argument replaced by `names` (same order and
// count; the references in the order they stand in the text).
QString withReferenceNames(QString actionText, const QList<FileReference>& references,
                           const QStringList& names);

} // namespace mervak
