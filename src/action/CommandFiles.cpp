#include "action/CommandFiles.h"

#include "action/CommandBlock.h"
#include "platform/PathResolver.h"

#include <QFileInfo>

namespace mervak {

QString CommandFiles::resolve(const QString& name, const QString& workingFolder) {
    QString stored = CommandBlock::trimBlanks(name);
    const bool absolute = (stored.size() >= 2 && stored[1] == u':') || stored.startsWith(u'/');
    if (!absolute) {
        while (stored.startsWith(u'\\'))
            stored.remove(0, 1);
    }
    if (stored.isEmpty())
        return {};
    return resolveStoredPath(stored, workingFolder);
}

QString CommandFiles::findTemplate(const QString& name, const QString& workingFolder) {
    const QString stored = CommandBlock::trimBlanks(name);
    if (stored.isEmpty())
        return {};
    const QString found = findCaseInsensitive(toLocalPath(workingFolder + u'\\' + stored));
    return QFileInfo(found).isFile() ? found : QString();
}

} // namespace mervak
