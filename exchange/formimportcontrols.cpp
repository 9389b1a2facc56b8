#include "exchange/formimport.h"
#include "core/handlers.h"

#include "exchange/importwidgets.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace hb {

namespace {

QRadioButton* option(QGroupBox* frame, const char* name, const char* caption, const char* tip, int top)
{
    auto* o = importui::place(new QRadioButton(QString::fromLatin1(caption), frame), name, 240, top, 3600, 300);
    o->setToolTip(QString::fromLatin1(tip));
    return o;
}

} // namespace

void FormImport::buildControls()
{
    using importui::button;
    using importui::place;
    setFixedSize(ui::px(6840), ui::px(4080));
    Frame2 = place(new QGroupBox(QStringLiteral("Import Data From"), this), "Frame2", 240, 120, 4320, 2310);
    OptionImportHomebook =
        option(Frame2, "OptionImportHomebook", "Homebook", "Import from a comma delimited file", 300);
    OptionImportCD = option(Frame2, "OptionImportCD", "Comma Delimited File", "Import from a comma delimited file", 690);
    OptionImportBK = option(Frame2, "OptionImportBK", "Bracketeer", "Import from Bracketeer files", 1080);
    OptionImportQuillon = option(Frame2, "OptionImportQuillon", "Quillon Sports Software", "Import from Quillon files", 1470);
    OptionImportVCard = option(Frame2, "OptionImportVCard", "vCard", "Import contact cards (*.vcf, *.vcard)", 1860);
    Label3 = place(new QLabel(QStringLiteral("Import file location"), this), "Label3", 240, 2590, 3000, 255);
    TextFileLocation = place(new QLineEdit(this), "TextFileLocation", 240, 2870, 4920, 315);
    TextFileLocation->setToolTip(QStringLiteral("Enter the directory and filename of the file to be imported"));
    CommandBrowse = button(this, "CommandBrowse", "Browse...", "Click to display a file selection window", 5280, 2850);
    LabelType = place(new QLabel(QStringLiteral("Type: "), this), "LabelType", 240, 3430, 720, 255);
    ComboCategory = place(new QComboBox(this), "ComboCategory", 960, 3390, 3600, 315);
    CommandImport = button(this, "CommandImport", "Import", "Click to begin importing", 5280, 240);
    CommandCancel = button(this, "CommandCancel", "Cancel", "Click to cancel the import", 5280, 720);
    CommandHelp = button(this, "CommandHelp", "Help", "Display help", 5280, 1200);
}

void FormImport::connectControls()
{
    connectHandler(OptionImportHomebook, &QRadioButton::clicked, this, &FormImport::OptionImportHomebook_Click);
    connectHandler(OptionImportCD, &QRadioButton::clicked, this, &FormImport::OptionImportCD_Click);
    connectHandler(OptionImportBK, &QRadioButton::clicked, this, &FormImport::OptionImportBK_Click);
    connectHandler(OptionImportQuillon, &QRadioButton::clicked, this, &FormImport::OptionImportQuillon_Click);
    connectHandler(OptionImportVCard, &QRadioButton::clicked, this, &FormImport::OptionImportVCard_Click);
    connectHandler(CommandBrowse, &QPushButton::clicked, this, &FormImport::CommandBrowse_Click);
    connectHandler(CommandImport, &QPushButton::clicked, this, &FormImport::CommandImport_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormImport::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormImport::CommandHelp_Click);
}

} // namespace hb
