#pragma once

#include "platform/Language.h"
#include "scanning/ScanSettings.h"

#include <QDialog>

class QCheckBox;
class QComboBox;
class QFormLayout;
class QLineEdit;
class QSpinBox;

namespace mervak {

// The scanning settings, for the pupil (MERVAK.INI) or for this Template only.
class ScanningDialog : public QDialog {
    Q_OBJECT
public:
    ScanningDialog(const ScanSettings& settings, bool templateOnly, Language language,
                   QWidget* parent = nullptr);

    ScanSettings settings() const;
    // The settings go into the Template, not MERVAK.INI.
    bool templateOnly() const;

private:
    QSpinBox* addNumber(const char* catalan, int value, int least);

    Language language_;
    ScanSettings initial_;
    QComboBox* mode_;
    QComboBox* switches_;
    QLineEdit* advance_;
    QLineEdit* select_;
    QSpinBox* interval_ = nullptr;
    QSpinBox* firstExtra_ = nullptr;
    QSpinBox* loops_ = nullptr;
    QSpinBox* acceptance_ = nullptr;
    QSpinBox* pause_ = nullptr;
    QSpinBox* longPressMs_ = nullptr;
    QComboBox* longPress_;
    QCheckBox* speak_;
    QCheckBox* templateOnly_;
    QFormLayout* form_;
};

} // namespace mervak
