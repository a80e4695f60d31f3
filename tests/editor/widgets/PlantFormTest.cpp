#include "editor/widgets/PlantForm.h"

#include "action/MacroCatalogue.h"
#include "support/DialogButtons.h"
#include "support/FakeWindowSystem.h"
#include "support/ModalAnswers.h"
#include "template/Template.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QFileDialog>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <QToolButton>
#include <gtest/gtest.h>

namespace mervak {
namespace {

const MacroCatalogue& catalogue() {
    static const MacroCatalogue c = MacroCatalogue::parse(QStringLiteral(
        "[Programes]\nCalculadora=gnome-calculator\n[Programes: Jocs]\nTux Paint=tuxpaint\n"
        "[Macros]\nIntro={ENTER}\n[Macros: Memòria]\nEscriure la memòria={|RM }\n"));
    return c;
}

Template sampleTemplate() {
    Template t;
    t.TemplateFileName = QStringLiteral("/tmp/classe/animals.mvw");
    t.FitxGraf = QStringLiteral("animals.png");
    t.FitxClip = QStringLiteral("clips");
    t.TxFinestra = QStringLiteral("Calculadora");
    t.Tecles = QStringLiteral("^a");
    t.Ordres = QStringLiteral("gnome-calculator");
    t.FitxDoc = QStringLiteral("guia.txt");
    t.descripcio = QStringLiteral("Animals de la granja");
    t.SoundActive = -1;
    t.sv_idioma = 1;
    t.sv_locutor = 2;
    t.SV_velocitat = 120;
    return t;
}

template <typename W> W* child(const QWidget& form, const char* name) {
    auto* widget = form.findChild<W*>(QString::fromLatin1(name));
    EXPECT_NE(widget, nullptr) << name;
    return widget;
}

QString text(const QWidget& form, const char* name) {
    return child<QLineEdit>(form, name)->text();
}

void replaceText(const QWidget& form, const char* name, const QString& value) {
    QLineEdit* edit = child<QLineEdit>(form, name);
    edit->selectAll();
    QTest::keyClicks(edit, value);
}

TEST(PlantForm, ShowsTheFieldsAndWritesEveryChangedOne) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    QString pathDefault = QStringLiteral("/old");
    PlantForm form(t, windows, catalogue(), Language::Catalan, &pathDefault);
    form.show();
    const struct {
        const char* name;
        QString Template::*field;
        const char* typed;
    } texts[] = {
        {"FitxGraf", &Template::FitxGraf, "fons.jpg"},
        {"FitxClip", &Template::FitxClip, "retalls"},
        {"TxFinestra", &Template::TxFinestra, "Editor"},
        {"Tecles", &Template::Tecles, "{F5}"},
        {"Ordres", &Template::Ordres, "gedit"},
        {"FitxDoc", &Template::FitxDoc, "ajuda.pdf"},
        {"descripcio", &Template::descripcio, "Colors"},
    };
    for (const auto& f : texts) {
        EXPECT_EQ(text(form, f.name), t.*f.field) << f.name;
        replaceText(form, f.name, QString::fromUtf8(f.typed));
    }
    EXPECT_EQ(text(form, "Pathdefault"), "/old");
    replaceText(form, "Pathdefault", "/nou");
    EXPECT_TRUE(child<QCheckBox>(form, "SoundActive")->isChecked());
    EXPECT_EQ(child<QComboBox>(form, "sv_idioma")->currentIndex(), 1);
    EXPECT_EQ(child<QSpinBox>(form, "sv_locutor")->value(), 2);
    EXPECT_EQ(child<QSpinBox>(form, "SV_velocitat")->value(), 120);
    EXPECT_EQ(child<QSpinBox>(form, "SheetWidthMm")->value(), 270) << "the tablet's sheet";
    EXPECT_EQ(child<QSpinBox>(form, "SheetHeightMm")->value(), 190);
    QTest::mouseClick(child<QCheckBox>(form, "SoundActive"), Qt::LeftButton);
    child<QComboBox>(form, "sv_idioma")->setCurrentIndex(0);
    child<QSpinBox>(form, "sv_locutor")->setValue(0);
    child<QSpinBox>(form, "SV_velocitat")->setValue(90);
    child<QSpinBox>(form, "SheetWidthMm")->setValue(297);
    child<QSpinBox>(form, "SheetHeightMm")->setValue(210);

    ASSERT_TRUE(form.applyTo(t, &pathDefault));
    EXPECT_TRUE(t.Modified);
    for (const auto& f : texts)
        EXPECT_EQ(t.*f.field, QString::fromUtf8(f.typed)) << f.name;
    EXPECT_EQ(pathDefault, "/nou");
    EXPECT_EQ(t.SoundActive, 0);
    EXPECT_EQ(t.sv_idioma, 0);
    EXPECT_EQ(t.sv_locutor, 0);
    EXPECT_EQ(t.SV_velocitat, 90);
    EXPECT_EQ(QSize(t.SheetWidthMm, t.SheetHeightMm), QSize(297, 210));
}

TEST(PlantForm, UntouchedFieldsKeepValuesTheControlsCannotShow) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    t.sv_idioma = 7;
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    EXPECT_FALSE(form.applyTo(t, nullptr)) << "nothing changed yet";
    EXPECT_FALSE(t.Modified);
    replaceText(form, "descripcio", "nova");
    ASSERT_TRUE(form.applyTo(t, nullptr));
    EXPECT_EQ(t.sv_idioma, 7);
    EXPECT_EQ(t.descripcio, "nova");
    EXPECT_TRUE(child<QLineEdit>(form, "Pathdefault")->isHidden()) << "no default folder given";
}

TEST(PlantForm, EditAppliesOnAcceptAndNothingOnCancel) {
    const struct {
        const char* button;
        bool edits;
        bool changed;
    } cases[] = {{"Acceptar", true, true}, {"Cancel·lar", true, false}, {"Acceptar", false, false}};
    for (const auto& c : cases) {
        test::FakeWindowSystem windows;
        Template t = sampleTemplate();
        test::answerModals({[&c](QWidget* modal) {
                               auto* form = qobject_cast<PlantForm*>(modal);
                               ASSERT_NE(form, nullptr);
                               if (c.edits)
                                   replaceText(*form, "TxFinestra", "Navegador");
                               test::buttonNamed(form, QString::fromUtf8(c.button))->click();
                           }},
                           [&] {
                               EXPECT_EQ(PlantForm::edit(nullptr, t, windows, catalogue(),
                                                         Language::Catalan, nullptr),
                                         c.changed)
                                   << c.button << c.edits;
                           });
        EXPECT_EQ(t.Modified, c.changed) << c.button << c.edits;
        EXPECT_EQ(t.TxFinestra, c.changed ? "Navegador" : "Calculadora") << c.button << c.edits;
    }
}

TEST(PlantForm, PickersFillOrdresAndInsertIntoTecles) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    auto* programs = child<QComboBox>(form, "programes");
    auto* macros = child<QComboBox>(form, "macros");
    EXPECT_EQ(programs->itemText(1), ">>> ALTRES");
    emit programs->activated(programs->findText("Tux Paint", Qt::MatchContains));
    EXPECT_EQ(text(form, "Ordres"), "tuxpaint");
    EXPECT_EQ(programs->currentIndex(), 0) << "the picker shows its prompt again";
    emit programs->activated(programs->findText("Jocs"));
    EXPECT_EQ(text(form, "Ordres"), "tuxpaint") << "a group title picks nothing";

    auto* tecles = child<QLineEdit>(form, "Tecles");
    tecles->setCursorPosition(1);
    emit macros->activated(macros->findText("Escriure la memòria", Qt::MatchContains));
    EXPECT_EQ(tecles->text(), "^{|RM }a");
    emit macros->activated(0);
    EXPECT_EQ(tecles->text(), "^{|RM }a") << "the prompt row inserts nothing";
}

TEST(PlantForm, OtherProgramIsChosenInAFileDialog) {
    QTemporaryDir dir;
    const QString program = dir.filePath("joc-de-lletres");
    QFile(program).open(QIODevice::WriteOnly);
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    for (const bool choose : {false, true}) {
        test::answerModals({[&](QWidget* modal) {
                               auto* files = qobject_cast<QFileDialog*>(modal);
                               ASSERT_NE(files, nullptr);
                               EXPECT_EQ(files->windowTitle(), "Executar programes");
                               if (choose)
                                   test::chooseInFileDialog(files, program);
                               else
                                   files->reject();
                           }},
                           [&] {
                               emit child<QComboBox>(form, "programes")
                                   ->activated(MacroCatalogue::kOtherProgramRow);
                           });
        EXPECT_EQ(text(form, "Ordres"), choose ? program : t.Ordres) << "chosen " << choose;
    }
}

TEST(PlantForm, PicksTheTargetFromTheOpenWindows) {
    test::FakeWindowSystem windows;
    windows.addWindow("Document sense títol 1 - LibreOffice Writer");
    windows.addWindow("   ");
    windows.addWindow("Dades Inicials"); // the dialog itself
    windows.addWindow("Calculadora");
    Template t;
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    QTest::mouseClick(child<QToolButton>(form, "triaFinestra"), Qt::LeftButton);
    auto* menu = form.findChild<QMenu*>();
    ASSERT_NE(menu, nullptr);
    QStringList titles;
    for (const QAction* action : menu->actions())
        titles.append(action->text());
    EXPECT_EQ(titles, (QStringList{"Document sense títol 1 - LibreOffice Writer", "Calculadora"}));
    menu->actions()[0]->trigger();
    EXPECT_EQ(text(form, "TxFinestra"), "Document sense títol 1 - LibreOffice Writer");

    test::FakeWindowSystem empty;
    PlantForm lonely(t, empty, catalogue(), Language::Spanish, nullptr);
    lonely.showWindowList();
    auto* none = lonely.findChild<QMenu*>();
    ASSERT_EQ(none->actions().size(), 1);
    EXPECT_EQ(none->actions()[0]->text(), "(ninguna ventana)");
    EXPECT_FALSE(none->actions()[0]->isEnabled());
}

TEST(PlantForm, PreviewShowsThePictureFoundBesideTheTemplate) {
    QTemporaryDir dir;
    QImage picture(400, 300, QImage::Format_RGB32);
    picture.fill(Qt::red);
    ASSERT_TRUE(picture.save(dir.filePath("Animals.PNG")));
    Template t;
    t.TemplateFileName = dir.filePath("animals.mvw");
    t.FitxGraf = QStringLiteral("animals.png"); // found whatever its letter case
    test::FakeWindowSystem windows;
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    auto* preview = child<QLabel>(form, "preview");
    const QImage shown = preview->pixmap().toImage();
    ASSERT_FALSE(shown.isNull());
    EXPECT_EQ(shown.width() * 3, shown.height() * 4) << "the picture keeps its shape";
    EXPECT_EQ(shown.pixelColor(shown.width() / 2, shown.height() / 2), QColor(Qt::red));
    replaceText(form, "FitxGraf", "missing.png");
    EXPECT_TRUE(preview->pixmap().isNull());
    EXPECT_EQ(preview->text(), "?");
}

TEST(PlantForm, CaptionsInSpanishWithBothGroupsAligned) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    QString pathDefault;
    PlantForm form(t, windows, catalogue(), Language::Spanish, &pathDefault);
    EXPECT_EQ(form.windowTitle(), "Datos Iniciales");
    EXPECT_EQ(form.findChildren<QGroupBox*>().value(0)->title(), "Lámina");
    ASSERT_NE(test::buttonNamed(&form, "Cancelar"), nullptr);
    QStringList labels;
    for (const QLabel* label : form.findChildren<QLabel*>())
        labels.append(label->text());
    EXPECT_TRUE(labels.contains("Órdenes:")) << labels.join(u'|').toStdString();
    EXPECT_EQ(child<QComboBox>(form, "programes")->itemText(0), ">>> Seleccione un programa");
    for (const QWidget* field : form.findChildren<QWidget*>()) {
        const bool control =
            qobject_cast<const QLineEdit*>(field) || qobject_cast<const QAbstractSpinBox*>(field) ||
            qobject_cast<const QComboBox*>(field) || qobject_cast<const QCheckBox*>(field);
        if (control && !field->objectName().startsWith(QStringLiteral("qt_"))) {
            EXPECT_FALSE(field->toolTip().isEmpty()) << field->objectName().toStdString();
        }
    }
    form.show();
    const auto left = [&](const char* name) {
        return child<QLineEdit>(form, name)->mapTo(&form, QPoint(0, 0)).x();
    };
    EXPECT_EQ(left("FitxGraf"), left("TxFinestra")) << "both groups align";
}

// The sheet's picture, the voice and the speed in words a teacher reads.
TEST(PlantForm, PictureVoiceAndSpeedAreSaidInPlainWords) {
    const struct {
        Language language;
        int speaker;
        int speed;
        const char* voice;
        const char* speedWord;
        const char* picture;
    } cases[] = {
        {Language::Catalan, 1, 60, "català 2 (klatt)", "lenta", "(la imatge de la làmina)"},
        {Language::Spanish, 0, 100, "catalán 1", "normal", "(la imagen de la lámina)"},
        {Language::Catalan, 0, 180, "català 1", "ràpida", "(la imatge de la làmina)"},
    };
    for (const auto& c : cases) {
        test::FakeWindowSystem windows;
        Template t = sampleTemplate();
        t.sv_idioma = 0;
        t.sv_locutor = static_cast<int16_t>(c.speaker);
        t.SV_velocitat = static_cast<int16_t>(c.speed);
        PlantForm form(t, windows, catalogue(), c.language, nullptr, nullptr, [](int16_t) {
            return QStringList{QStringLiteral("catalan"), QStringLiteral("catalan + klatt")};
        });
        EXPECT_EQ(child<QLabel>(form, "sv_locutor_name")->text(), QString::fromUtf8(c.voice));
        EXPECT_EQ(child<QLabel>(form, "SV_velocitat_word")->text(), QString::fromUtf8(c.speedWord));
        EXPECT_EQ(child<QLabel>(form, "FitxGraf_word")->text(), QString::fromUtf8(c.picture));
    }
}

} // namespace
} // namespace mervak
