#include "exchange/formcolumnselect.h"
#include "core/handlers.h"

#include "core/helpers.h"
#include "core/misc.h"
#include "exchange/importwidgets.h"
#include "platform/ui/listbox.h"

namespace hb {

FormColumnSelect::FormColumnSelect() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2555"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Column Assignment"));
    setFixedSize(ui::px(3960), ui::px(3720));
    ListItems = importui::place(new ui::ListBox(this), "ListItems", 240, 240, 3480, 2700);
    CommandOk = importui::button(this, "CommandOk", "&OK", "Accept selection", 240, 3120, 1080);
    CommandCancel = importui::button(this, "CommandCancel", "&Cancel", "Cancel selection", 1440, 3120, 1080);
    CommandHelp = importui::button(this, "CommandHelp", "&Help", "Display help", 2640, 3120, 1080);
    connectHandler(ListItems, &ui::ListBox::doubleClick, this, &FormColumnSelect::CommandOk_Click);
    connectHandler(CommandOk, &QPushButton::clicked, this, &FormColumnSelect::CommandOk_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormColumnSelect::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormColumnSelect::CommandHelp_Click);
}

void FormColumnSelect::formLoad() { CenterForm(*this); }

void FormColumnSelect::CommandOk_Click()
{
    Tag = QStringLiteral("1");
    setFormVisible(false);
}

void FormColumnSelect::CommandCancel_Click()
{
    Tag = QStringLiteral("2");
    setFormVisible(false);
}

void FormColumnSelect::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2555")); }

} // namespace hb
