#include "reports/frmbirthdayrpt.h"

#include "core/frame.h"
#include "core/frmmdi.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/grid/datagrid.h"
#include "platform/grid/gridcolumn.h"
#include "platform/ui/windowservice.h"
#include "reports/birthdayrows.h"
#include "reports/frmselect.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>

namespace hb {

namespace {

constexpr int FirstYear = 1900;
constexpr int LastYear = 2077;
constexpr int BirthdayFont = 7;
constexpr int BirthdayTitleOption = 9;

// The column widths in twips, by column index.
constexpr int ColumnWidths[] = {1700, 800, 1700, 3300, 1400};

void DoEvents() { QCoreApplication::processEvents(); }

} // namespace

void FrmBirthdayRpt::formLoad()
{
    SelectedYear = static_cast<qint16>(clock::today().year());
    CenterForm(*this);
    SetCaption();
    fillYears();
    YearLoading = true;
    SetYear();
    YearLoading = false;
    SetFramePointer(11);
    for (int i = 1; i <= RoofTypeCount; ++i)
        RoofTypeSelected[i] = true;
    birthday::clearRows();
    // Every birthday report starts with everybody, whatever the last selection was.
    birthday::selectEverybody();
    setFormVisible(true);
    DoEvents();
    Format();
    Compute();
    // The grid reads the table once it is filled; before that it would show the rows of the last run.
    requeryData1();
    LoadFont(BirthdayFont, PictureFont());
    if (FrmMDI* frame = FrmMDI::instance())
        frame->UpdateFontControls();
    GridLinesOn = true;
    tdbBirthday->setAllowUpdate(false);
    SetFramePointer(0);
}

// The items are added without a click, as a list box fills.
void FrmBirthdayRpt::fillYears()
{
    const QSignalBlocker quiet(cmbYear);
    cmbYear->clear();
    for (int year = FirstYear; year <= LastYear; ++year)
        cmbYear->addItem(QString::number(year), year);
    cmbYear->setCurrentIndex(-1);
}

void FrmBirthdayRpt::requeryData1() { tdbBirthday->setRows(birthday::readRows()); }

void FrmBirthdayRpt::Compute()
{
    tdbBirthday->setCaption(GetReportTitle());
    birthday::computeRows(SelectedYear);
    QFont font = tdbBirthday->gridFont();
    LoadFont(BirthdayFont, font);
    tdbBirthday->setGridFont(font);
}

void FrmBirthdayRpt::Format()
{
    for (int col = 0; col < int(std::size(ColumnWidths)); ++col)
        tdbBirthday->setColumnWidthTwips(col, ColumnWidths[col]);
}

void FrmBirthdayRpt::SetCaption()
{
    const QString caption = birthday::captionFor(SelectedYear);
    tdbBirthday->setCaption(caption);
    SetSOption(BirthdayTitleOption, caption);
}

void FrmBirthdayRpt::SetYear()
{
    for (int i = 0; i < cmbYear->count(); ++i) {
        if (cmbYear->itemData(i).toInt() == SelectedYear) {
            cmbYear->setCurrentIndex(i);
            return;
        }
    }
}

void FrmBirthdayRpt::GridLines()
{
    GridLinesOn = !GridLinesOn;
    const int style = GridLinesOn ? grid::LightGrayLine : grid::NoDividers;
    tdbBirthday->setRowDividerStyle(style);
    for (int col = 0; col <= 4; ++col)
        tdbBirthday->setColumnDividerStyle(col, style);
}

void FrmBirthdayRpt::cmbYear_Click()
{
    if (YearLoading)
        return;
    SetFramePointer(11);
    SelectedYear = static_cast<qint16>(cmbYear->currentData().toInt());
    birthday::clearRows();
    DoEvents();
    Compute();
    requeryData1();
    SetCaption();
    SetFramePointer(0);
}

// The columns hide on screen and on paper alike; the rows stay as they are.
void FrmBirthdayRpt::chkShowDayOfWeek_Click()
{
    tdbBirthday->setColumnVisible(QStringLiteral("DayOfWeek"), chkShowDayOfWeek->isChecked());
}

void FrmBirthdayRpt::chkShowAge_Click()
{
    tdbBirthday->setColumnVisible(QStringLiteral("Age"), chkShowAge->isChecked());
}

void FrmBirthdayRpt::cmdSelect_Click()
{
    SelectionCancelled = false;
    ui::showModal(forms::get<FrmSelect>());
    if (SelectionCancelled)
        return;
    tdbBirthday->setCaption(GetReportTitle());
    SetFramePointer(11);
    birthday::clearRows();
    requeryData1();
    DoEvents();
    Compute();
    requeryData1();
    SetFramePointer(0);
}

void FrmBirthdayRpt::cmdClose_Click()
{
    forms::unload(staticFormName());
    showAddressBook();
}

} // namespace hb
