#pragma once

#include "platform/Language.h"

#include <QTextBrowser>

namespace mervak {

// The teacher's guide in the interface language: `folder`/guia.md in Catalan,
// guia.es.md in Spanish (the Catalan one when that is missing).
QString guidePath(const QString& folder, Language language);

// A window that shows the teacher's guide, pictures included, beside the
// program; links to other sites open in the browser.
class HelpWindow : public QTextBrowser {
    Q_OBJECT
public:
    explicit HelpWindow(QWidget* parent = nullptr);

    // Shows the Markdown file `path`; false when it cannot be read.
    bool showGuide(const QString& path, Language language);
};

} // namespace mervak
