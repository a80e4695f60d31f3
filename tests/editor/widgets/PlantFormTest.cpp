#include "editor/widgets/PlantForm.h"

#include "action/MacroCatalogue.h"
#include "support/FakeWindowSystem.h"
#include "support/TestFiles.h"
#include "template/Template.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QFile>
#include <QFileDialog>
#include <QGroupBox>
#include <QImage>
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

void clickButton(const QWidget& form, const char* name) {
    QTest::mouseClick(child<QPushButton>(form, name), Qt::LeftButton);
}

PlantForm* openForm() {
    for (QWidget* widget : QApplication::topLevelWidgets())
        if (auto* form = qobject_cast<PlantForm*>(widget); form && form->isVisible())
            return form;
    return nullptr;
}

QStringList visibleCaptions(const QWidget& form) {
    QStringList captions{form.windowTitle()};
    for (const QLabel* label : form.findChildren<QLabel*>())
        captions.append(label->text());
    for (const QAbstractButton* button : form.findChildren<QAbstractButton*>())
        captions.append(button->text());
    for (const QGroupBox* box : form.findChildren<QGroupBox*>())
        captions.append(box->title());
    return captions;
}

TEST(PlantForm, ShowsTheTemplateFields) {
    test::FakeWindowSystem windows;
    const Template t = sampleTemplate();
    const QString pathDefault = QStringLiteral("/home/mestre/plantilles");
    PlantForm form(t, windows, catalogue(), Language::Catalan, &pathDefault);
    const struct {
        const char* name;
        QString expected;
    } fields[] = {
        {"FitxGraf", t.FitxGraf},     {"Pathdefault", pathDefault}, {"FitxClip", t.FitxClip},
        {"TxFinestra", t.TxFinestra}, {"Tecles", t.Tecles},         {"Ordres", t.Ordres},
        {"FitxDoc", t.FitxDoc},       {"descripcio", t.descripcio},
    };
    for (const auto& f : fields)
        EXPECT_EQ(text(form, f.name), f.expected) << f.name;
    EXPECT_TRUE(child<QCheckBox>(form, "SoundActive")->isChecked());
    EXPECT_EQ(child<QComboBox>(form, "sv_idioma")->currentIndex(), 1);
    EXPECT_EQ(child<QSpinBox>(form, "sv_locutor")->value(), 2);
    EXPECT_EQ(child<QSpinBox>(form, "SV_velocitat")->value(), 120);
}

TEST(PlantForm, AcceptWritesEveryChangedField) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    QString pathDefault = QStringLiteral("/old");
    PlantForm form(t, windows, catalogue(), Language::Catalan, &pathDefault);
    form.show();
    replaceText(form, "FitxGraf", "fons.jpg");
    replaceText(form, "Pathdefault", "/nou");
    replaceText(form, "FitxClip", "retalls");
    replaceText(form, "TxFinestra", "Editor");
    replaceText(form, "Tecles", "{F5}");
    replaceText(form, "Ordres", "gedit");
    replaceText(form, "FitxDoc", "ajuda.pdf");
    replaceText(form, "descripcio", "Colors \"primaris\"");
    QTest::mouseClick(child<QCheckBox>(form, "SoundActive"), Qt::LeftButton);
    child<QComboBox>(form, "sv_idioma")->setCurrentIndex(0);
    child<QSpinBox>(form, "sv_locutor")->setValue(0);
    child<QSpinBox>(form, "SV_velocitat")->setValue(90);
    clickButton(form, "Acceptar");
    ASSERT_EQ(form.result(), QDialog::Accepted);

    ASSERT_TRUE(form.applyTo(t, &pathDefault));
    EXPECT_TRUE(t.Modified);
    EXPECT_EQ(t.FitxGraf, "fons.jpg");
    EXPECT_EQ(pathDefault, "/nou");
    EXPECT_EQ(t.FitxClip, "retalls");
    EXPECT_EQ(t.TxFinestra, "Editor");
    EXPECT_EQ(t.Tecles, "{F5}");
    EXPECT_EQ(t.Ordres, "gedit");
    EXPECT_EQ(t.FitxDoc, "ajuda.pdf");
    EXPECT_EQ(t.descripcio, "Colors \"primaris\"");
    EXPECT_EQ(t.SoundActive, 0);
    EXPECT_EQ(t.sv_idioma, 0);
    EXPECT_EQ(t.sv_locutor, 0);
    EXPECT_EQ(t.SV_velocitat, 90);
}

TEST(PlantForm, UntouchedFieldsKeepValuesTheControlsCannotShow) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    t.sv_idioma = 7;
    t.SV_velocitat = 5000;
    t.sv_locutor = -3;
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    EXPECT_FALSE(form.applyTo(t, nullptr)) << "nothing changed yet";
    EXPECT_FALSE(t.Modified);
    replaceText(form, "descripcio", "nova");
    ASSERT_TRUE(form.applyTo(t, nullptr));
    EXPECT_EQ(t.sv_idioma, 7);
    EXPECT_EQ(t.SV_velocitat, 5000);
    EXPECT_EQ(t.sv_locutor, -3);
    EXPECT_EQ(t.descripcio, "nova");
    EXPECT_TRUE(child<QLineEdit>(form, "Pathdefault")->isHidden()) << "no default folder given";
}

TEST(PlantForm, EditAppliesOnAcceptAndNothingOnCancel) {
    const struct {
        const char* name;
        const char* button;
        bool edits;
        bool changed;
    } cases[] = {
        {"accept after an edit", "Acceptar", true, true},
        {"cancel after an edit", "Cancellar", true, false},
        {"accept with no edit", "Acceptar", false, false},
    };
    for (const auto& c : cases) {
        test::FakeWindowSystem windows;
        Template t = sampleTemplate();
        QString pathDefault = QStringLiteral("/p");
        bool driven = false;
        QTimer::singleShot(0, [&] {
            PlantForm* form = openForm();
            ASSERT_NE(form, nullptr) << c.name;
            if (c.edits)
                replaceText(*form, "TxFinestra", "Navegador");
            clickButton(*form, c.button);
            driven = true;
        });
        const bool changed =
            PlantForm::edit(nullptr, t, windows, catalogue(), Language::Catalan, &pathDefault);
        EXPECT_TRUE(driven) << c.name;
        EXPECT_EQ(changed, c.changed) << c.name;
        EXPECT_EQ(t.Modified, c.changed) << c.name;
        EXPECT_EQ(t.TxFinestra, c.changed ? "Navegador" : "Calculadora") << c.name;
        EXPECT_EQ(pathDefault, "/p") << c.name;
    }
}

TEST(PlantForm, PickersFillOrdresAndInsertIntoTecles) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    PlantForm form(t, windows, catalogue(), Language::Catalan, nullptr);
    form.show();
    auto* programs = child<QComboBox>(form, "programes");
    auto* macros = child<QComboBox>(form, "macros");
    EXPECT_EQ(programs->itemText(0), ">>> tria un programa");
    EXPECT_EQ(programs->itemText(1), ">>> ALTRES");
    EXPECT_EQ(macros->itemText(0), ">>> Tria una macro");

    const int tuxPaint = programs->findText("Tux Paint", Qt::MatchContains);
    ASSERT_GT(tuxPaint, 1);
    emit programs->activated(tuxPaint);
    EXPECT_EQ(text(form, "Ordres"), "tuxpaint");
    EXPECT_EQ(programs->currentIndex(), 0) << "the picker shows its prompt again";

    const int jocs = programs->findText("Jocs");
    ASSERT_GT(jocs, 1);
    emit programs->activated(jocs);
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
        QTimer::singleShot(0, [&] {
            QFileDialog* files = nullptr;
            for (int tries = 0; !files && tries < 200; ++tries) {
                files = form.findChild<QFileDialog*>();
                if (!files || !files->isVisible()) {
                    files = nullptr;
                    QTest::qWait(10);
                }
            }
            ASSERT_NE(files, nullptr);
            EXPECT_EQ(files->windowTitle(), "Executar programes");
            files->selectFile(program);
            if (choose)
                static_cast<QDialog*>(files)->accept(); // public as a QDialog
            else
                files->reject();
        });
        emit child<QComboBox>(form, "programes")->activated(MacroCatalogue::kOtherProgramRow);
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

TEST(PlantForm, CaptionsInSpanishAndBackToCatalan) {
    test::FakeWindowSystem windows;
    Template t = sampleTemplate();
    QString pathDefault;
    PlantForm form(t, windows, catalogue(), Language::Spanish, &pathDefault);
    const QStringList spanish = visibleCaptions(form);
    for (const char* caption :
         {"Datos Iniciales",
          "Carátula:", "Directorio:", "Cargar archivo en la carpeta:", "Documentación:", "Ver",
          "Descripción:", "Aplicación:", "Órdenes:", "Teclas:", "&Activar sonido",
          "Síntesis de voz UPCTV", "Voz", "Velocidad", "Aceptar", "Cancelar",
          "Ventanas abiertas...", "Lámina", "Programación"})
        EXPECT_TRUE(spanish.contains(QString::fromUtf8(caption))) << caption;
    EXPECT_EQ(child<QComboBox>(form, "programes")->itemText(0), ">>> Seleccione un programa");
    EXPECT_EQ(child<QComboBox>(form, "programes")->itemText(1), ">>> OTROS");
    EXPECT_EQ(child<QComboBox>(form, "macros")->itemText(0), ">>> Seleccione una macro");

    form.translate(Language::Catalan);
    const QStringList catalan = visibleCaptions(form);
    for (const char* caption : {"Dades Inicials", "Caràtula:", "Descripció:", "Acceptar",
                                "Cancel·lar", "&So actiu", "Finestres obertes..."})
        EXPECT_TRUE(catalan.contains(QString::fromUtf8(caption))) << caption;
    EXPECT_EQ(child<QComboBox>(form, "programes")->itemText(0), ">>> tria un programa");
    EXPECT_EQ(text(form, "Tecles"), t.Tecles) << "translating keeps what was typed";
}

} // namespace
} // namespace mervak
