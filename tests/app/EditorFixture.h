#pragma once

#include "app/EditorAssembly.h"
#include "editor/widgets/EditorController.h"
#include "support/ModalAnswers.h"
#include "support/TestAreas.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryDir>
#include <QTimer>
#include <functional>
#include <gtest/gtest.h>

namespace mervak::test {

// The main window with the editor and file controllers, as the program wires
// them, over a Template in memory and a home folder of its own.
class EditorFixture : public ::testing::Test {
protected:
    EditorFixture();

    // Switches the language of every open window, as the language menu does.
    void switchLanguage(Language to);

    // The area under the sheet view's point given in sheet units.
    QPointF widgetPoint(QPointF sheetUnits) const;
    // A left-button drag on the sheet from one point to another, in sheet units.
    void dragOnSheet(QPointF from, QPointF to);
    void clickOnSheet(QPointF at);

    // Runs `answer` on the one modal dialog `open` shows (see answerModals).
    void whenModal(const ModalAnswer& answer, const std::function<void()>& open);

    SheetRect rectAt(int16_t index) const { return rectOf(tmpl.area(index)); }

    QTemporaryDir home;
    Session session{home.path()};
    Template& tmpl{session.tmpl};
    QString& workingFolder{session.workingFolder()};
    Language& language{session.settings.language};
    int beeps = 0;
    QStringList ran;
    QString status;
    MainWindow window;
    EditorAssembly assembly;
    EditorController& editor{assembly.editor()};
    DocumentController& document{assembly.document()};
};

} // namespace mervak::test
