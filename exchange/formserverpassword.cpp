#include "exchange/formserverpassword.h"

#include "core/handlers.h"
#include "core/helpers.h"
#include "platform/ui/twips.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace hb {

FormServerPassword::FormServerPassword() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    SetHelpContext(*this, QStringLiteral("2570"));
    setWindowTitle(QStringLiteral("Address Book Server Password"));
    setFixedSize(ui::px(5160), ui::px(1860));
    LabelAccount = ui::placed(new QLabel(this), QStringLiteral("LabelAccount"), 240, 180, 4680, 510);
    LabelAccount->setWordWrap(true);
    TextPassword = ui::placed(new QLineEdit(this), QStringLiteral("TextPassword"), 240, 780, 4680, 315);
    TextPassword->setEchoMode(QLineEdit::Password);
    CommandOK = ui::placed(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("CommandOK"), 2400, 1320, 1200, 375);
    CommandOK->setDefault(true);
    CommandCancel = ui::placed(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("CommandCancel"), 3720, 1320, 1200, 375);
    connectHandler(CommandOK, &QPushButton::clicked, this, &FormServerPassword::CommandOK_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormServerPassword::CommandCancel_Click);
}

void FormServerPassword::formLoad() { CenterForm(*this); }

void FormServerPassword::setAccount(const QString& user, const QString& address)
{
    LabelAccount->setText(QStringLiteral("The password of %1 on %2:").arg(user, address));
    TextPassword->clear();
    TextPassword->setFocus();
    Tag.clear();
}

QString FormServerPassword::password() const
{
    return TextPassword->text();
}

void FormServerPassword::CommandOK_Click()
{
    Tag = QStringLiteral("ok");
    setFormVisible(false);
}

void FormServerPassword::CommandCancel_Click()
{
    Tag.clear();
    setFormVisible(false);
}

}  // namespace hb
