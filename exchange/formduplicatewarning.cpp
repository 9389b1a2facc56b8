#include "exchange/formduplicatewarning.h"
#include "core/handlers.h"

#include "core/helpers.h"
#include "core/misc.h"
#include "exchange/importwidgets.h"

#include <QCheckBox>
#include <QLabel>

namespace hb {

FormDuplicateWarning::FormDuplicateWarning() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2560"));
    using importui::button;
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Duplicate Warning"));
    setFixedSize(ui::px(6600), ui::px(2700));
    LabelWarningText = importui::place(new QLabel(this), "LabelWarningText", 240, 180, 6120, 1020);
    LabelWarningText->setWordWrap(true);
    LabelWarningText->setAlignment(Qt::AlignLeft | Qt::AlignTop);
    CheckDoAlways = importui::place(new QCheckBox(QStringLiteral("&Do this for every duplicate"), this),
                                    "CheckDoAlways", 240, 1320, 4000, 300);
    CheckDoAlways->setToolTip(QStringLiteral("Choose this if you want to add or skip all remaining records"));
    CommandAdd = button(this, "CommandAdd", "&Add New", "Add the data even though it's a duplicate", 240, 1800);
    CommandReplace = button(this, "CommandReplace", "&Replace", "Add the data even though it's a duplicate", 1560, 1800);
    Commandskip = button(this, "Commandskip", "&Skip", "Skip this record", 2880, 1800);
    CommandStopImporting =
        button(this, "CommandStopImporting", "Stop &Importing", "Stop the import process", 4200, 1800, 1320);
    CommandHelp = button(this, "CommandHelp", "&Help", "Display help", 5640, 1800, 720);
    connectHandler(CommandAdd, &QPushButton::clicked, this, &FormDuplicateWarning::CommandAdd_Click);
    connectHandler(CommandReplace, &QPushButton::clicked, this, &FormDuplicateWarning::CommandReplace_Click);
    connectHandler(Commandskip, &QPushButton::clicked, this, &FormDuplicateWarning::Commandskip_Click);
    connectHandler(CommandStopImporting, &QPushButton::clicked, this, &FormDuplicateWarning::CommandStopImporting_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormDuplicateWarning::CommandHelp_Click);
}

void FormDuplicateWarning::formLoad() { CenterForm(*this); }

void FormDuplicateWarning::setWarning(const QString& text)
{
    LabelWarningText->setText(text);
    Tag.clear();
}

void FormDuplicateWarning::answer(const QString& once, const QString& always)
{
    Tag = CheckDoAlways->isChecked() ? always : once;
    setFormVisible(false);
}

void FormDuplicateWarning::CommandAdd_Click() { answer(QStringLiteral("add"), QStringLiteral("addall")); }
void FormDuplicateWarning::CommandReplace_Click() { answer(QStringLiteral("replace"), QStringLiteral("replaceall")); }
void FormDuplicateWarning::Commandskip_Click() { answer(QStringLiteral("skip"), QStringLiteral("skipall")); }
void FormDuplicateWarning::CommandStopImporting_Click()
{
    answer(QStringLiteral("cancelimport"), QStringLiteral("cancelimport"));
}
void FormDuplicateWarning::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2560")); }

} // namespace hb
