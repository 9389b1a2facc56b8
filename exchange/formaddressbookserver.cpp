#include "exchange/formaddressbookserver.h"

#include "core/handlers.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/session.h"
#include "exchange/serverpassword.h"
#include "platform/ui/listbox.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>

namespace hb {
namespace {

const QString Title = QStringLiteral("Address Book Server");

}  // namespace

FormAddressBookServer::FormAddressBookServer() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2570"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(Title);
    buildControls();
    connectHandler(CommandFind, &QPushButton::clicked, this, &FormAddressBookServer::CommandFind_Click);
    connectHandler(CommandAll, &QPushButton::clicked, this, &FormAddressBookServer::CommandAll_Click);
    connectHandler(CommandOK, &QPushButton::clicked, this, &FormAddressBookServer::CommandOK_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormAddressBookServer::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormAddressBookServer::CommandHelp_Click);
}

FormAddressBookServer::~FormAddressBookServer() = default;

void FormAddressBookServer::formLoad()
{
    CenterForm(*this);
    settings_ = cardsync::serverSettings();
    TextAddress->setText(settings_.address);
    TextUser->setText(settings_.user);
    CheckSyncAtStart->setChecked(settings_.syncAtStart);
    CheckSyncAtEnd->setChecked(settings_.syncAtEnd);
    {
        ui::ListBox::Filling filling(ListTypes);
        for (int i = 1; i <= RoofTypeCount; ++i) {
            const int index = ListTypes->addItem(RoofTypeNames.value(i).trimmed(), RoofTypeNumbers.value(i));
            // A first setup offers every type.
            ListTypes->setSelected(index, !settings_.configured() || settings_.types.contains(RoofTypeNumbers.value(i)));
        }
    }
    if (settings_.configured()) {
        const int index = ListBooks->addItem(settings_.bookName, 0);
        ListBooks->setListIndex(index);
        books_ = {{settings_.bookUrl, settings_.bookName}};
        QPointer<FormAddressBookServer> self(this);
        cardsync::passwords().read(cardsync::passwordKey(settings_.user, settings_.address), [self](std::optional<QString> password) {
            if (self && password && self->TextPassword->text().isEmpty())
                self->TextPassword->setText(*password);
        });
    }
}

void FormAddressBookServer::CommandFind_Click()
{
    if (TextAddress->text().trimmed().isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter the server's address!"), MsgWarning, Title);
        TextAddress->setFocus();
        return;
    }
    // The account may be the one whose answer is running this (a certificate just trusted).
    if (account_)
        account_->deleteLater();
    account_ = new carddav::DavAccount({TextAddress->text().trimmed(), TextUser->text().trimmed(), TextPassword->text(),
                                        settings_.trustedFingerprints},
                                       this);
    LabelStatus->setText(QStringLiteral("Looking for address books on the server..."));
    CommandFind->setEnabled(false);
    ui::windows().setBusy(true);
    account_->findAddressBooks([this](QVector<carddav::AddressBook> books, carddav::DavError error) {
        ui::windows().setBusy(false);
        CommandFind->setEnabled(true);
        if (error.ok())
            showBooks(books);
        else
            findFailed(error);
    });
}

void FormAddressBookServer::showBooks(const QVector<carddav::AddressBook>& books)
{
    books_ = books;
    ListBooks->clearList();
    int chosen = 0;
    for (const carddav::AddressBook& book : books) {
        const int index = ListBooks->addItem(book.name, ListBooks->listCount());
        if (book.url == settings_.bookUrl)
            chosen = index;
    }
    if (books.isEmpty()) {
        LabelStatus->setText(QStringLiteral("The server has no address book for this user."));
        return;
    }
    ListBooks->setListIndex(chosen);
    LabelStatus->setText(books.size() == 1 ? QStringLiteral("1 address book found.")
                                           : QStringLiteral("%1 address books found.").arg(books.size()));
}

// A certificate the program does not know is shown with its fingerprint; trusting it is the user's choice,
// kept for this server.
void FormAddressBookServer::findFailed(const carddav::DavError& error)
{
    LabelStatus->clear();
    if (error.kind != carddav::DavError::Kind::Tls) {
        ui::msgBox(error.text, MsgWarning, Title);
        return;
    }
    const QString question = QStringLiteral("%1\n\nIts fingerprint (SHA-256) is:\n%2\n\nTrust this certificate for this server?")
                                 .arg(error.text, error.fingerprint);
    if (ui::msgBox(question, ui::MsgYesNoButtons | ui::MsgIconExclamation | ui::MsgDefaultButton2, Title) != ui::AnswerYes)
        return;
    settings_.trustedFingerprints << error.fingerprint;
    CommandFind_Click();
}

void FormAddressBookServer::CommandAll_Click()
{
    ListTypes->setAllSelected(true);
}

void FormAddressBookServer::CommandOK_Click()
{
    const int book = ListBooks->listIndex();
    if (book < 0 || book >= books_.size()) {
        ui::msgBox(QStringLiteral("Must choose an address book! Find Address Books lists those of the server."), MsgWarning, Title);
        CommandFind->setFocus();
        return;
    }
    if (ListTypes->selectedCount() == 0) {
        ui::msgBox(QStringLiteral("Must select at least one address type!"), MsgWarning, Title);
        ListTypes->setFocus();
        return;
    }
    settings_.address = TextAddress->text().trimmed();
    settings_.user = TextUser->text().trimmed();
    settings_.bookUrl = books_.at(book).url;
    settings_.bookName = books_.at(book).name;
    settings_.types = ListTypes->selectedData();
    settings_.syncAtStart = CheckSyncAtStart->isChecked();
    settings_.syncAtEnd = CheckSyncAtEnd->isChecked();
    cardsync::saveServerSettings(settings_);
    // Where no keyring takes it, the password is asked for at each sync.
    if (!TextPassword->text().isEmpty())
        cardsync::passwords().write(cardsync::passwordKey(settings_.user, settings_.address), TextPassword->text(), [](bool) {});
    setFormVisible(false);
}

void FormAddressBookServer::CommandCancel_Click()
{
    setFormVisible(false);
}

void FormAddressBookServer::CommandHelp_Click()
{
    ShowHelpTopic(QStringLiteral("2570"));
}

}  // namespace hb
