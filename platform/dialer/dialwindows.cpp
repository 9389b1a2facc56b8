#include "platform/dialer/dialwindows.h"

#include "platform/dialer/callnumber.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSerialPortInfo>
#include <QSpinBox>
#include <QVBoxLayout>
#include <algorithm>

namespace hb::dialer {

namespace {

QDialogButtonBox* okCancel(QDialog* dialog)
{
    auto* box = new QDialogButtonBox(dialog);
    box->addButton(QStringLiteral("OK"), QDialogButtonBox::AcceptRole)->setObjectName(QStringLiteral("cmdOK"));
    box->addButton(QStringLiteral("Cancel"), QDialogButtonBox::RejectRole)->setObjectName(QStringLiteral("cmdCancel"));
    QObject::connect(box, &QDialogButtonBox::accepted, dialog, &QDialog::accept);
    QObject::connect(box, &QDialogButtonBox::rejected, dialog, &QDialog::reject);
    return box;
}

template <class T>
T* named(T* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QString portText(const QSerialPortInfo& info)
{
    const QString about = info.description().isEmpty() ? info.manufacturer() : info.description();
    return about.isEmpty() ? info.systemLocation() : QStringLiteral("%1 - %2").arg(info.systemLocation(), about);
}

} // namespace

QString desktopLineText() { return QStringLiteral("Telephone links of the desktop (softphone or paired mobile phone)"); }

DialUsingWindow::DialUsingWindow(const DialerSettings& settings, QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("DialUsing"));
    setWindowTitle(QStringLiteral("Dial Using"));
    cmbLine = named(new QComboBox(this), "cmbLine");
    cmbLine->setEditable(true);
    cmbLine->setInsertPolicy(QComboBox::NoInsert);
    cmbLine->setMinimumWidth(380);
    cmbLine->addItem(desktopLineText(), QString());
    for (const QSerialPortInfo& info : QSerialPortInfo::availablePorts())
        cmbLine->addItem(portText(info), info.systemLocation());
    int current = cmbLine->findData(settings.port);
    if (current < 0) {
        cmbLine->addItem(settings.port, settings.port);
        current = cmbLine->count() - 1;
    }
    cmbLine->setCurrentIndex(current);

    auto* layout = new QVBoxLayout(this);
    layout->addWidget(new QLabel(QStringLiteral("Place calls through:"), this));
    layout->addWidget(cmbLine);
    layout->addWidget(new QLabel(QStringLiteral("A modem's port that is not listed can be typed in, such as "
                                                "/dev/ttyS0."),
                                 this));
    layout->addWidget(okCancel(this));
}

QString DialUsingWindow::port() const
{
    const QString text = cmbLine->currentText().trimmed();
    const int item = cmbLine->findText(text);
    return item >= 0 ? cmbLine->itemData(item).toString() : text;
}

DialPropertiesWindow::DialPropertiesWindow(const DialerSettings& settings, QWidget* parent)
    : QDialog(parent), settings_(settings)
{
    setObjectName(QStringLiteral("DialProperties"));
    setWindowTitle(QStringLiteral("Dialing Properties"));
    cmbSpeed = named(new QComboBox(this), "cmbSpeed");
    for (int speed : {1200, 2400, 9600, 19200, 38400, 57600, 115200})
        cmbSpeed->addItem(QString::number(speed), speed);
    const int speed = cmbSpeed->findData(settings.speed);
    cmbSpeed->setCurrentIndex(speed >= 0 ? speed : cmbSpeed->findData(9600));
    optTone = named(new QRadioButton(QStringLiteral("&Tone"), this), "optTone");
    optPulse = named(new QRadioButton(QStringLiteral("&Pulse"), this), "optPulse");
    (settings.pulse ? optPulse : optTone)->setChecked(true);
    txtPrefix = named(new QLineEdit(settings.prefix, this), "txtPrefix");
    txtPrefix->setToolTip(QStringLiteral("Dialed first, such as 9, for an outside line; a comma waits two seconds"));
    txtInit = named(new QLineEdit(settings.initString, this), "txtInit");
    spnWait = named(new QSpinBox(this), "spnWait");
    spnWait->setRange(1, 300);
    spnWait->setSuffix(QStringLiteral(" seconds"));
    spnWait->setValue(settings.waitSeconds);
    cmbCountry = named(new QComboBox(this), "cmbCountry");
    QList<QPair<QString, QString>> countries;
    for (const QString& code : homeCountries())
        countries.append({countryName(code), code});
    std::sort(countries.begin(), countries.end());
    for (const auto& [name, code] : countries)
        cmbCountry->addItem(QStringLiteral("%1 (%2)").arg(name, code), code);
    cmbCountry->setCurrentIndex(std::max(0, cmbCountry->findData(settings.homeCountry)));
    cmbCountry->setToolTip(QStringLiteral("How numbers written without a country code are read"));

    auto* dialing = new QHBoxLayout;
    dialing->addWidget(optTone);
    dialing->addWidget(optPulse);
    dialing->addStretch();
    auto* form = new QFormLayout;
    form->addRow(QStringLiteral("Port &speed:"), cmbSpeed);
    form->addRow(QStringLiteral("Dialing:"), dialing);
    form->addRow(QStringLiteral("Outside line &prefix:"), txtPrefix);
    form->addRow(QStringLiteral("&Init string:"), txtInit);
    form->addRow(QStringLiteral("&Wait for the modem:"), spnWait);
    form->addRow(QStringLiteral("&Home country:"), cmbCountry);
    auto* layout = new QVBoxLayout(this);
    layout->addLayout(form);
    layout->addWidget(okCancel(this));
}

DialerSettings DialPropertiesWindow::settings() const
{
    DialerSettings result = settings_;
    result.speed = cmbSpeed->currentData().toInt();
    result.pulse = optPulse->isChecked();
    result.prefix = txtPrefix->text().trimmed();
    result.initString = txtInit->text().trimmed();
    result.waitSeconds = spnWait->value();
    result.homeCountry = cmbCountry->currentData().toString();
    return result;
}

} // namespace hb::dialer
