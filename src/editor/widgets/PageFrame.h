#pragma once

#include "platform/Language.h"

#include <QGroupBox>

class QLineEdit;
class QListWidget;
class QPushButton;
class QRadioButton;

namespace mervak {

// The page frame Frame1: its caption names the operation; llistapag lists the
// page models, nompag holds the model's name ("Pàgina nova" for an empty page),
// the option buttons Option1 choose where a new page goes, and pagboto confirms.
class PageFrame : public QGroupBox {
    Q_OBJECT
public:
    enum class Operation { Open, Save, Paste };

    explicit PageFrame(QWidget* parent = nullptr);

    // Shows the frame for `operation` with the models found; for Open the name
    // is "Pàgina nova" and `before` chooses the insertion before the current page.
    void start(Operation operation, const QStringList& models, Language language,
               bool before = false);
    Operation operation() const { return operation_; }

    // The name typed or chosen; "Pàgina nova" (the Catalan form, whatever the
    // language) when the new, empty page is meant.
    QString nompag() const;
    // The placing code from Option1: 1 before the current page, 2 after it.
    int16_t placingCode() const;

    // Shows the new page's name in `language`.
    void setLanguage(Language language);

    QListWidget* models() const { return llistapag_; }
    QLineEdit* nameField() const { return nompag_; }
    QRadioButton* option(int index) const { return option1_[index]; }
    QPushButton* confirmButton() const { return pagboto_; }

signals:
    void confirmed();
    void cancelled();

private:
    QString newPageCaption() const;

    Operation operation_ = Operation::Open;
    Language language_ = Language::Catalan;
    QListWidget* llistapag_;
    QLineEdit* nompag_;
    QRadioButton* option1_[2];
    QPushButton* pagboto_;
    QPushButton* cancel_;
};

} // namespace mervak
