#include "exchange/formimport.h"

#include "addressbook/frmaddressbook.h"
#include "core/frame.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/importdriver.h"
#include "exchange/importwindows.h"
#include "platform/files.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QDir>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QMap>
#include <QRadioButton>

namespace hb {

namespace {

QMap<QString, QString>& lastFolders()
{
    static QMap<QString, QString> folders;
    return folders;
}

} // namespace

QString importStartFolder(const QString& source)
{
    return lastFolders().value(source, QDir::homePath() + QLatin1Char('/'));
}

void rememberImportFolder(const QString& source, const QString& file)
{
    lastFolders()[source] = QFileInfo(file).absolutePath() + QLatin1Char('/');
}

void forgetImportFolders() { lastFolders().clear(); }

FormImport::FormImport() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2550"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Import"));
    buildControls();
    connectControls();
}

void FormImport::formLoad()
{
    OptionImportCD->setChecked(true);
    OptionImportCD_Click();
    for (int i = 1; i <= RoofTypeCount; ++i)
        ComboCategory->addItem(RoofTypeNames.value(i), int(RoofTypeNumbers.value(i)));
    ComboCategory->setCurrentIndex(0);
}

void FormImport::formUnload()
{
    if (auto* listings = forms::loaded<FrmAddressBook>())
        listings->InitializePage();
}

bool FormImport::homebookChosen() const { return OptionImportHomebook->isChecked(); }

QString FormImport::currentSource() const
{
    for (QRadioButton* option : {OptionImportCD, OptionImportBK, OptionImportQuillon, OptionImportHomebook, OptionImportVCard}) {
        if (option->isChecked())
            return option->objectName();
    }
    return OptionImportCD->objectName();
}

// The original defaults were folders of the first platform; here every source starts in the user's home
// folder, or in the folder last used for it.
void FormImport::sourceChosen(const QString& source, bool typeShown)
{
    TextFileLocation->setText(importStartFolder(source));
    LabelType->setVisible(typeShown);
    ComboCategory->setVisible(typeShown);
}

void FormImport::OptionImportHomebook_Click() { sourceChosen(OptionImportHomebook->objectName(), false); }
void FormImport::OptionImportCD_Click() { sourceChosen(OptionImportCD->objectName(), true); }
void FormImport::OptionImportBK_Click() { sourceChosen(OptionImportBK->objectName(), true); }
// The type goes to the cards that name no category.
void FormImport::OptionImportVCard_Click() { sourceChosen(OptionImportVCard->objectName(), true); }

// The sports products leave no known place on this platform: the text stays as it was.
void FormImport::OptionImportQuillon_Click()
{
    LabelType->setVisible(true);
    ComboCategory->setVisible(true);
}

void FormImport::CommandBrowse_Click()
{
    static const QMap<QString, QString> filters = {
        {QStringLiteral("OptionImportCD"), QStringLiteral("Comma Delimited Files (*.txt *.csv)")},
        {QStringLiteral("OptionImportBK"), QStringLiteral("Bracketeer Files (*.brk)")},
        {QStringLiteral("OptionImportQuillon"), QStringLiteral("Quillon Files (*.mdb)")},
        {QStringLiteral("OptionImportHomebook"), QStringLiteral("Homebook Files (*.mdb)")},
        {QStringLiteral("OptionImportVCard"), QStringLiteral("vCard Files (*.vcf *.vcard)")}};
    const QString source = currentSource();
    const QString text = TextFileLocation->text().trimmed();
    QString start = text.isEmpty() ? AppPath : text;
    if (!text.isEmpty() && !IsDirectoryThere(text))
        start = SplitPath(text, QStringLiteral("dir"));
    // All Files heads the list; the source's own filter is the one in force.
    const QString chosen = ui::windows().openFileName(QStringLiteral("Browse for Files"), start,
                                                      QStringLiteral("All Files (*);;") + filters.value(source),
                                                      filters.value(source));
    if (chosen.isEmpty())
        return;
    TextFileLocation->setText(QDir::toNativeSeparators(chosen));
    rememberImportFolder(source, chosen);
}

void FormImport::CommandImport_Click()
{
    if (!files::isFileThere(TextFileLocation->text())) {
        ui::msgBox(QStringLiteral("The file listed does not exist.  Please choose a valid file name."),
                   ui::MsgOkCancelButtons, QStringLiteral("File Error"));
        return;
    }
    ImportTypeNumber = ComboCategory->currentData().toInt();
    runSource();
    rebuildListings();
}

void FormImport::runSource()
{
    if (OptionImportCD->isChecked()) {
        Tag = TextFileLocation->text();
        auto& window = forms::get<FormCommaDelimitedImport>();
        if (window.refused())
            forms::unload(FormCommaDelimitedImport::staticFormName());
        else
            ui::showModal(window);
        if (Tag == QLatin1String("complete"))
            forms::unload(staticFormName());
    } else if (OptionImportBK->isChecked()) {
        ImportBK();
    } else if (OptionImportHomebook->isChecked()) {
        ImportHB();
    } else if (OptionImportQuillon->isChecked()) {
        ImportQuillon();
    } else if (OptionImportVCard->isChecked()) {
        ImportVCard();
    }
}

// New types may have come in with the listings, and the listings window shows them all afresh.
void FormImport::rebuildListings()
{
    setFormVisible(false);
    importwindows::unloadImportWindows();
    LoadRoofTypes();
    forms::unload(FrmAddressBook::staticFormName());
    showAddressBook();
    UpdateToolbar(QStringLiteral("Select"));
}

void FormImport::CommandCancel_Click()
{
    setFormVisible(false);
    UpdateToolbar(QStringLiteral("Select"));
    showAddressBook();
    forms::unload(staticFormName());
}

void FormImport::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2550")); }

} // namespace hb
