#pragma once

#include "platform/dialer/dialersettings.h"

#include <QDialog>

class QComboBox;
class QLineEdit;
class QPushButton;
class QRadioButton;
class QSpinBox;

namespace hb::dialer {

// The choice of line: the desktop's handler of tel: links, or a modem on one of the serial ports the system
// has. A port the system does not list (some adapters are not announced) can be typed in.
class DialUsingWindow : public QDialog {
    Q_OBJECT
public:
    explicit DialUsingWindow(const DialerSettings& settings, QWidget* parent = nullptr);
    // Empty for the desktop's handler.
    QString port() const;

private:
    QComboBox* cmbLine;
};

// How the modem dials, and the country whose numbers need no country code.
class DialPropertiesWindow : public QDialog {
    Q_OBJECT
public:
    explicit DialPropertiesWindow(const DialerSettings& settings, QWidget* parent = nullptr);
    DialerSettings settings() const;

private:
    DialerSettings settings_;
    QComboBox* cmbSpeed;
    QRadioButton* optTone;
    QRadioButton* optPulse;
    QLineEdit* txtPrefix;
    QLineEdit* txtInit;
    QSpinBox* spnWait;
    QComboBox* cmbCountry;
};

// The text of the desktop's line in the choice of lines.
QString desktopLineText();

} // namespace hb::dialer
