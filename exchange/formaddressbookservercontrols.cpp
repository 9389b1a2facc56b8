#include "exchange/formaddressbookserver.h"

#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace hb {
namespace {

QLabel* caption(QWidget* parent, const char* name, const char* text, QWidget* buddy, int left, int top, int width)
{
    auto* label = ui::placed(new QLabel(QString::fromUtf8(text), parent), QString::fromLatin1(name), left, top, width, 255);
    label->setBuddy(buddy);
    return label;
}

}  // namespace

// The server and its account on the left, what takes part on the right; the buttons along the bottom.
void FormAddressBookServer::buildControls()
{
    setFixedSize(ui::px(7800), ui::px(5520));
    TextAddress = ui::placed(new QLineEdit(this), QStringLiteral("TextAddress"), 120, 390, 3900, 315);
    TextAddress->setPlaceholderText(QStringLiteral("dav.example.org"));
    TextAddress->setToolTip(QStringLiteral("The server's address, or only its host name"));
    caption(this, "LabelAddress", "Server &address:", TextAddress, 120, 120, 3900);
    TextUser = ui::placed(new QLineEdit(this), QStringLiteral("TextUser"), 120, 1050, 1860, 315);
    caption(this, "LabelUser", "&User name:", TextUser, 120, 780, 1860);
    TextPassword = ui::placed(new QLineEdit(this), QStringLiteral("TextPassword"), 2160, 1050, 1860, 315);
    TextPassword->setEchoMode(QLineEdit::Password);
    caption(this, "LabelPassword", "&Password:", TextPassword, 2160, 780, 1860);
    CommandFind = ui::placed(new QPushButton(QStringLiteral("&Find Address Books"), this), QStringLiteral("CommandFind"),
                             120, 1500, 2100, 375);
    CommandFind->setToolTip(QStringLiteral("Ask the server for the address books of this user"));
    ListBooks = ui::placed(new ui::ListBox(this), QStringLiteral("ListBooks"), 120, 2310, 3900, 1830);
    caption(this, "LabelBooks", "Address &book to sync with:", ListBooks, 120, 2040, 3900);
    LabelStatus = ui::placed(new QLabel(this), QStringLiteral("LabelStatus"), 120, 4260, 7560, 255);

    ListTypes = ui::placed(new ui::ListBox(this, false, ui::ListBox::Multi), QStringLiteral("ListTypes"), 4260, 390, 3420, 2400);
    caption(this, "LabelTypes", "Address &types that take part:", ListTypes, 4260, 120, 3420);
    CommandAll = ui::placed(new QPushButton(QStringLiteral("A&ll"), this), QStringLiteral("CommandAll"), 4260, 2880, 1200, 375);
    CheckSyncAtStart = ui::placed(new QCheckBox(QStringLiteral("Sync when the program &starts"), this),
                                  QStringLiteral("CheckSyncAtStart"), 4260, 3390, 3420, 315);
    CheckSyncAtEnd = ui::placed(new QCheckBox(QStringLiteral("Sync when the program &ends"), this),
                                QStringLiteral("CheckSyncAtEnd"), 4260, 3750, 3420, 315);

    CommandOK = ui::placed(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("CommandOK"), 3780, 4920, 1200, 375);
    CommandOK->setDefault(true);
    CommandCancel = ui::placed(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("CommandCancel"), 5130, 4920, 1200, 375);
    CommandHelp = ui::placed(new QPushButton(QStringLiteral("&Help"), this), QStringLiteral("CommandHelp"), 6480, 4920, 1200, 375);
}

}  // namespace hb
