#include "mailing/formretaddr.h"
#include "core/handlers.h"

#include "core/helpers.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/session.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"
#include "platform/ui/buttons.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QPlainTextEdit>
#include <QPushButton>

namespace hb {


FormRetAddr::FormRetAddr() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2527"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Set Return Address"));
    setFixedSize(ui::px(5600), ui::px(3600));
    Text1 = ui::placed(new QPlainTextEdit(this), "Text1", 120, 120, 5340, 2200);
    CheckReturnAddress = ui::placed(new QCheckBox(QStringLiteral("&Display Return Address"), this), "CheckReturnAddress",
                               120, 2440, 3200, 315);
    CommandFont = ui::placed(new QPushButton(QStringLiteral("&Font"), this), "CommandFont", 120, 3000, 1200, 375);
    CommandOk = ui::placed(new QPushButton(QStringLiteral("&Ok"), this), "CommandOk", 1500, 3000, 1200, 375);
    CommandCancel = ui::placed(new QPushButton(QStringLiteral("&Cancel"), this), "CommandCancel", 2880, 3000, 1200, 375);
    CommandHelp = ui::placed(new QPushButton(QStringLiteral("&Help"), this), "CommandHelp", 4260, 3000, 1200, 375);
    connectHandler(CommandFont, &QPushButton::clicked, this, &FormRetAddr::CommandFont_Click);
    connectHandler(CommandOk, &QPushButton::clicked, this, &FormRetAddr::CommandOk_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormRetAddr::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormRetAddr::CommandHelp_Click);
}

void FormRetAddr::formLoad()
{
    CenterForm(*this);
    QFont font = Text1->font();
    LoadFont(1, font);
    Text1->setFont(font);
    Text1->setPlainText(GetMemoOption(1));
    CheckReturnAddress->setChecked(int(GetNOption(6)) == 1);
}

// Shown in the box only; stored at OK.
void FormRetAddr::CommandFont_Click()
{
    QFont font = Text1->font();
    ui::windows().chooseFont(font);
    Text1->setFont(font);
}

void FormRetAddr::CommandOk_Click()
{
    SaveFont(1, Text1->font());
    SetMemoOption(1, Text1->toPlainText());
    SetNOption(6, ui::checkValue(*CheckReturnAddress));
    if (ReportType == QLatin1String("L") || ReportType == QLatin1String("M")) {
        if (FrmMailIt* preview = forms::loaded<FrmMailIt>()) {
            preview->ezLabel().setRedraw(false);
            LoadFont(1, preview->ezLabel().item(FrmMailIt::ReturnAddressItem).font);
            preview->RefreshEZLabel();
            preview->ezLabel().setRedraw(true);
        }
    }
    forms::unload(formName());
}

void FormRetAddr::CommandCancel_Click() { forms::unload(formName()); }
void FormRetAddr::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2527")); }

} // namespace hb
