#include "exchange/csvtablemodel.h"
#include "core/handlers.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/importdates.h"
#include "exchange/importwidgets.h"
#include "exchange/textencoding.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QHeaderView>
#include <QLabel>
#include <QTreeView>

namespace hb {

void FormCommaDelimitedImport::buildControls()
{
    using importui::button;
    using importui::place;
    setFixedSize(ui::px(9600), ui::px(6600));
    LabelSourceFile = place(new QLabel(QStringLiteral("Source File: "), this), "LabelSourceFile", 240, 120, 9120, 255);
    Label1 = place(new QLabel(QStringLiteral("Instructions:  Assign each column of data to a corresponding item in "
                                             "Homebook.  Click on Import to begin the import process."),
                              this),
                   "Label1", 240, 420, 9120, 480);
    Label1->setWordWrap(true);
    LabelAssignData = place(new QLabel(QStringLiteral("Assign Data to Fields"), this), "LabelAssignData", 240, 960,
                            4000, 255);
    model_ = new CsvTableModel(this);
    ListView1 = place(new QTreeView(this), "ListView1", 240, 1260, 9120, 3300);
    ListView1->setModel(model_);
    ListView1->setRootIsDecorated(false);
    ListView1->setUniformRowHeights(true);
    ListView1->setSelectionBehavior(QAbstractItemView::SelectRows);
    ListView1->setToolTip(QStringLiteral(
        "Click on each column you want included in the import and assign it to a field name"));
    ListView1->header()->setSectionsClickable(true);
    ListView1->header()->setSectionsMovable(false);
    ListView1->header()->setStretchLastSection(false);
    connectHandler(ListView1->header(), &QHeaderView::sectionClicked, this,
            [this](int section) { ListView1_ColumnClick(section + 1); });

    Frame1 = place(new QGroupBox(QStringLiteral("Comma Delimited Settings"), this), "Frame1", 240, 4680, 6000, 1680);
    Label2 = place(new QLabel(QStringLiteral("Type:"), Frame1), "Label2", 240, 360, 1080, 255);
    ComboCategory = place(new QComboBox(Frame1), "ComboCategory", 1320, 320, 1800, 315);
    LabelDateOrder = place(new QLabel(QStringLiteral("Dates:"), Frame1), "LabelDateOrder", 240, 800, 1080, 255);
    ComboDateOrder = place(new QComboBox(Frame1), "ComboDateOrder", 1320, 760, 1800, 315);
    ComboDateOrder->setToolTip(QStringLiteral("The order of day, month and year in the dates of the file"));
    ComboDateOrder->addItems(importdates::orderNames());
    CheckSkip1stRow = place(new QCheckBox(QStringLiteral("Skip 1st Row"), Frame1), "CheckSkip1stRow", 240, 1240, 2880, 300);
    CheckSkip1stRow->setToolTip(QStringLiteral("Check to skip the 1st row of data.  You may need this if the column "
                                               "names are included in the file."));
    LabelDelimiter = place(new QLabel(QStringLiteral("Delimiter:"), Frame1), "LabelDelimiter", 3300, 360, 960, 255);
    ComboDelimiter = place(new QComboBox(Frame1), "ComboDelimiter", 4320, 320, 1500, 315);
    ComboDelimiter->setToolTip(QStringLiteral("The character that separates the columns of the file"));
    const QStringList delimiters = csv::delimiterNames();
    for (int i = 0; i < delimiters.size(); ++i)
        ComboDelimiter->addItem(delimiters[i], int(csv::Delimiters[i]));
    LabelEncoding = place(new QLabel(QStringLiteral("Encoding:"), Frame1), "LabelEncoding", 3300, 800, 960, 255);
    ComboEncoding = place(new QComboBox(Frame1), "ComboEncoding", 4320, 760, 1500, 315);
    ComboEncoding->setToolTip(QStringLiteral("The character set the file is written in"));
    ComboEncoding->addItems(csv::encodingNames());

    CommandImport = button(this, "CommandImport", "Import", "Begin the import process", 6600, 5160);
    CommandCancel = button(this, "CommandCancel", "Cancel", "Cancel the import", 7920, 5160);
    CommandHelp = button(this, "CommandHelp", "Help", "Display help", 7920, 5700);
    connectHandler(ComboDelimiter, &QComboBox::activated, this, &FormCommaDelimitedImport::ComboDelimiter_Click);
    connectHandler(ComboEncoding, &QComboBox::activated, this, &FormCommaDelimitedImport::ComboEncoding_Click);
    connectHandler(CommandImport, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandImport_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandHelp_Click);
}

} // namespace hb
