// The controls of the birthday report window and where they stand.

#include "core/handlers.h"
#include "reports/frmbirthdayrpt.h"

#include "core/forms.h"
#include "platform/grid/datagrid.h"
#include "platform/grid/gridcolumn.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QComboBox>
#include <QLabel>
#include <QPushButton>

namespace hb {

namespace {

constexpr int FormWidth = 8640;
constexpr int FormHeight = 7440;
// The grid's margins in the window, in twips: it takes the rest of the window as that is resized.
constexpr int GridLeft = 120;
constexpr int GridTop = 600;
constexpr int GridMargin = 120;

void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

template <class T>
T* named(T* w, const char* name)
{
    w->setObjectName(QString::fromLatin1(name));
    return w;
}

} // namespace

FrmBirthdayRpt::FrmBirthdayRpt()
    : Form(staticFormName(), true), printer_(std::make_unique<QPrinter>(QPrinter::HighResolution))
{
    buildControls();
    connectHandlers();
    if (QWidget* outer = outerWindow(); outer != this)
        outer->adjustSize();
}

FrmBirthdayRpt::~FrmBirthdayRpt() = default;

void FrmBirthdayRpt::buildControls()
{
    setWindowTitle(QStringLiteral("Birthday Report"));
    setMinimumSize(ui::px(FormWidth), ui::px(3000));
    resize(sizeHint());
    Label1 = named(new QLabel(QStringLiteral("Year:"), this), "Label1");
    Label1->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    place(Label1, 120, 150, 540, 315);
    cmbYear = named(new QComboBox(this), "cmbYear");
    place(cmbYear, 720, 150, 1155, 315);
    chkShowDayOfWeek = named(new QCheckBox(QStringLiteral("Show Day of Week"), this), "chkShowDayOfWeek");
    place(chkShowDayOfWeek, 2160, 150, 2040, 315);
    chkShowAge = named(new QCheckBox(QStringLiteral("Show Age"), this), "chkShowAge");
    place(chkShowAge, 4320, 150, 1320, 315);
    for (QCheckBox* box : {chkShowDayOfWeek, chkShowAge})
        box->setChecked(true);
    cmdSelect = named(new QPushButton(QStringLiteral("&Select"), this), "cmdSelect");
    cmdSelect->setToolTip(QStringLiteral("Select From Database"));
    place(cmdSelect, 5880, 120, 1215, 375);
    cmdClose = named(new QPushButton(QStringLiteral("Close"), this), "cmdClose");
    place(cmdClose, 7245, 120, 1215, 375);
    tdbBirthday = named(new grid::DataGrid(this), "tdbBirthday");
    defineColumns();
    tdbBirthday->setAllowUpdate(false);
}

// The divider styles stand as the grid lines' "on" state, which is how the window starts.
void FrmBirthdayRpt::defineColumns()
{
    const int lines = grid::LightGrayLine;
    tdbBirthday->setColumns({{QStringLiteral("Month"), QStringLiteral("Month"), 1700, true, lines},
                             {QStringLiteral("Day"), QStringLiteral("DayOfMonthski"), 800, true, lines},
                             {QStringLiteral("Day of Week"), QStringLiteral("DayOfWeek"), 1700, true, lines},
                             {QStringLiteral("Name"), QStringLiteral("PersonName"), 3300, true, lines},
                             {QStringLiteral("Age"), QStringLiteral("Age"), 1400, true, lines}});
    tdbBirthday->setRowDividerStyle(lines);
}

void FrmBirthdayRpt::connectHandlers()
{
    connectHandler(cmbYear, &QComboBox::currentIndexChanged, this, &FrmBirthdayRpt::cmbYear_Click);
    connectHandler(chkShowDayOfWeek, &QCheckBox::clicked, this, &FrmBirthdayRpt::chkShowDayOfWeek_Click);
    connectHandler(chkShowAge, &QCheckBox::clicked, this, &FrmBirthdayRpt::chkShowAge_Click);
    connectHandler(cmdSelect, &QPushButton::clicked, this, &FrmBirthdayRpt::cmdSelect_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmBirthdayRpt::cmdClose_Click);
}

QSize FrmBirthdayRpt::sizeHint() const { return {ui::px(FormWidth), ui::px(FormHeight)}; }

void FrmBirthdayRpt::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    const int left = ui::px(GridLeft);
    const int top = ui::px(GridTop);
    const int margin = ui::px(GridMargin);
    tdbBirthday->setGeometry(left, top, qMax(0, width() - left - margin), qMax(0, height() - top - margin));
}

// The close box unloads the window without the steps of its Close button.
void FrmBirthdayRpt::closeEvent(QCloseEvent* event)
{
    event->ignore();
    forms::unload(staticFormName());
}

} // namespace hb
