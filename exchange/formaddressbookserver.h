#pragma once

#include "core/forms.h"
#include "exchange/serversettings.h"
#include "platform/carddav/davaccount.h"

class QCheckBox;
class QLabel;
class QLineEdit;
class QPushButton;

namespace hb {

namespace ui {
class ListBox;
}

// "Address Book Server": where the book syncs. The user gives the server's address, a user name and a
// password, finds the address books there and chooses one, and the address types that take part. OK keeps
// the choice in the book and the password in the keyring; Cancel keeps nothing. Either hides the window.
class FormAddressBookServer : public Form {
    Q_OBJECT
public:
    FormAddressBookServer();
    ~FormAddressBookServer() override;
    static QString staticFormName() { return QStringLiteral("FormAddressBookServer"); }

    void formLoad() override;

    void CommandFind_Click();
    void CommandAll_Click();
    void CommandOK_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    void buildControls();
    void showBooks(const QVector<carddav::AddressBook>& books);
    void findFailed(const carddav::DavError& error);

    cardsync::ServerSettings settings_;
    QVector<carddav::AddressBook> books_;
    carddav::DavAccount* account_ = nullptr;

    QLineEdit *TextAddress, *TextUser, *TextPassword;
    QLabel* LabelStatus;
    ui::ListBox *ListBooks, *ListTypes;
    QCheckBox *CheckSyncAtStart, *CheckSyncAtEnd;
    QPushButton *CommandFind, *CommandAll, *CommandOK, *CommandCancel, *CommandHelp;
};

}  // namespace hb
