#include "reports/formcustomizereport.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/buttons.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QGroupBox>
#include <QPushButton>

namespace hb {

using ui::placed;

namespace {

constexpr int First = 12;
constexpr int Last = 26;

} // namespace

FormCustomizeReport::FormCustomizeReport() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2199"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Customize Report"));
    buildControls();
    connectHandler(CommandOk, &QPushButton::clicked, this, &FormCustomizeReport::CommandOk_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormCustomizeReport::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormCustomizeReport::CommandHelp_Click);
}

void FormCustomizeReport::buildControls()
{
    setFixedSize(ui::px(5400), ui::px(4500));
    static const char* const captions[] = {"Display Phone next to name", "Name", "Address", "Phone", "Cell", "Fax",
                                           "Email", "Important Date", "Notes", "Name", "Work", "Phone", "Birth Date",
                                           "Email", "Notes"};
    Frame1 = placed(new QGroupBox(QStringLiteral("Listing Options"), this), QStringLiteral("Frame1"), 120, 540, 2500, 2520);
    Frame2 = placed(new QGroupBox(QStringLiteral("Individual Options"), this), QStringLiteral("Frame2"), 2760, 540, 2500,
                    2040);
    for (int i = First; i <= Last; ++i) {
        QWidget* parent = i == 12 ? static_cast<QWidget*>(this) : i <= 20 ? Frame1 : Frame2;
        const int row = i == 12 ? 0 : i <= 20 ? i - 13 : i - 21;
        const int top = i == 12 ? 120 : 260 + row * 280;
        Checkitem[size_t(i - First)] = placed(new QCheckBox(QString::fromLatin1(captions[i - First]), parent),
                                              QStringLiteral("Checkitem_%1").arg(i), 120, top, 2800, 270);
    }
    CommandOk = placed(new QPushButton(QStringLiteral("Ok"), this), QStringLiteral("CommandOk"), 600, 3840, 1200, 375);
    CommandCancel = placed(new QPushButton(QStringLiteral("&Cancel"), this), QStringLiteral("CommandCancel"), 2100,
                           3840, 1200, 375);
    CommandHelp = placed(new QPushButton(QStringLiteral("&Help"), this), QStringLiteral("CommandHelp"), 3600, 3840, 1200,
                         375);
}

QCheckBox* FormCustomizeReport::checkItem(int index) const
{
    return index >= First && index <= Last ? Checkitem[size_t(index - First)] : nullptr;
}

int FormCustomizeReport::optionOffset() const { return CustomizeTarget == QLatin1String("report") ? 0 : 300; }

void FormCustomizeReport::formLoad()
{
    CenterForm(*this);
    const int d = optionOffset();
    for (int i = First; i <= Last; ++i)
        checkItem(i)->setChecked(int(GetNOption(i + d)) == 1);
}

void FormCustomizeReport::CommandOk_Click()
{
    const int d = optionOffset();
    for (int i = First; i <= Last; ++i)
        SetNOption(i + d, ui::checkValue(*checkItem(i)));
    SetFramePointer(11);
    setFormVisible(false);
    QCoreApplication::processEvents();
    if (d != 0) {
        reloadMailPiecePreview();
    } else {
        ReturnToListings = false;
        ReloadReport();
    }
    SetFramePointer(0);
}

void FormCustomizeReport::CommandCancel_Click() { forms::unload(staticFormName()); }

void FormCustomizeReport::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2199")); }

} // namespace hb
