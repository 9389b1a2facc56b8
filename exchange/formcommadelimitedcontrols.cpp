#include "exchange/csvtablemodel.h"
#include "core/handlers.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/importwidgets.h"

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
    ListView1 = place(new QTreeView(this), "ListView1", 240, 1260, 9120, 3600);
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

    Frame1 = place(new QGroupBox(QStringLiteral("Comma Delimited Settings"), this), "Frame1", 240, 5040, 6000, 1320);
    Label2 = place(new QLabel(QStringLiteral("Type:"), Frame1), "Label2", 240, 360, 720, 255);
    ComboCategory = place(new QComboBox(Frame1), "ComboCategory", 960, 320, 3600, 315);
    CheckSkip1stRow = place(new QCheckBox(QStringLiteral("Skip 1st Row"), Frame1), "CheckSkip1stRow", 240, 800, 3000, 300);
    CheckSkip1stRow->setToolTip(QStringLiteral("Check to skip the 1st row of data.  You may need this if the column "
                                               "names are included in the file."));

    CommandImport = button(this, "CommandImport", "Import", "Begin the import process", 6600, 5160);
    CommandCancel = button(this, "CommandCancel", "Cancel", "Cancel the import", 7920, 5160);
    CommandHelp = button(this, "CommandHelp", "Help", "Display help", 7920, 5700);
    connectHandler(CommandImport, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandImport_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormCommaDelimitedImport::CommandHelp_Click);
}

} // namespace hb
