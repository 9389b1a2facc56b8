#include "platform/dialer/dialprogress.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

namespace hb::dialer {

DialProgress::DialProgress(QWidget* parent) : QDialog(parent)
{
    setObjectName(QStringLiteral("DialProgress"));
    setWindowTitle(QStringLiteral("AutoDial - Dialing"));
    lblNumber = new QLabel(this);
    lblNumber->setObjectName(QStringLiteral("lblNumber"));
    QFont big = lblNumber->font();
    big.setBold(true);
    big.setPointSize(big.pointSize() + 2);
    lblNumber->setFont(big);
    lblStatus = new QLabel(this);
    lblStatus->setObjectName(QStringLiteral("lblStatus"));
    lblStatus->setWordWrap(true);
    lblStatus->setMinimumSize(320, 48);
    lblStatus->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    cmdTalk = new QPushButton(QStringLiteral("&Talk"), this);
    cmdTalk->setObjectName(QStringLiteral("cmdTalk"));
    cmdTalk->setToolTip(QStringLiteral("The handset is up: free the line for it"));
    cmdTalk->setEnabled(false);
    cmdHangUp = new QPushButton(QStringLiteral("&Hang Up"), this);
    cmdHangUp->setObjectName(QStringLiteral("cmdHangUp"));

    auto* buttons = new QHBoxLayout;
    buttons->addStretch();
    buttons->addWidget(cmdTalk);
    buttons->addWidget(cmdHangUp);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(lblNumber);
    layout->addWidget(lblStatus);
    layout->addLayout(buttons);

    connect(cmdTalk, &QPushButton::clicked, this, &QDialog::accept);
    connect(cmdHangUp, &QPushButton::clicked, this, &QDialog::reject);
    connect(&modem_, &ModemDialer::progress, this, &DialProgress::showProgress);
    connect(&modem_, &ModemDialer::finished, this, &DialProgress::showOutcome);
}

bool DialProgress::open(const DialerSettings& settings, QString& failure) { return modem_.open(settings, failure); }

void DialProgress::start(const QString& number)
{
    lblNumber->setText(number);
    modem_.dial(number);
}

void DialProgress::showProgress(const QString& text) { lblStatus->setText(text); }

void DialProgress::showOutcome(ModemDialer::Outcome outcome, const QString& text)
{
    lblStatus->setText(text);
    const bool dialed = outcome == ModemDialer::Outcome::Dialed;
    cmdTalk->setEnabled(dialed);
    cmdHangUp->setText(dialed ? QStringLiteral("&Hang Up") : QStringLiteral("Close"));
    (dialed ? cmdTalk : cmdHangUp)->setDefault(true);
    (dialed ? cmdTalk : cmdHangUp)->setFocus();
}

// Talk, Hang Up, Esc and the close box all end here: the handset or nobody has the line now.
void DialProgress::done(int result)
{
    modem_.hangUp();
    QDialog::done(result);
}

} // namespace hb::dialer
