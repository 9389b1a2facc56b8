#include "reports/formpagesetup.h"

#include "core/handlers.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/session.h"
#include "platform/ui/onelinebox.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"
#include "reports/frmaddressrpt.h"

#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>

namespace hb {

using ui::placed;

namespace {

bool isNumeric(const QString& text, double* value)
{
    bool ok = false;
    *value = QLocale::c().toDouble(text.trimmed(), &ok);
    return ok;
}

} // namespace

FormPageSetup::FormPageSetup() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2460"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Page Setup"));
    buildControls();
    connectHandler(CommandOk, &QPushButton::clicked, this, &FormPageSetup::CommandOk_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormPageSetup::CommandCancel_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormPageSetup::CommandHelp_Click);
}

void FormPageSetup::buildControls()
{
    setFixedSize(ui::px(4200), ui::px(2900));
    Frame1 = placed(new QGroupBox(QStringLiteral("Page Margins"), this), QStringLiteral("Frame1"), 120, 120, 3960, 2040);
    const struct { QLabel** label; const char* labelName; const char* caption; QLineEdit** box; const char* boxName;
                   int left; int top; } fields[] = {
        {&Label2, "Label2", "Top", &TextTopMargin, "TextTopMargin", 240, 300},
        {&Label5, "Label5", "Bottom", &TextBottomMargin, "TextBottomMargin", 2040, 300},
        {&Label4, "Label4", "Left", &TextLeftMargin, "TextLeftMargin", 240, 1140},
        {&Label3, "Label3", "Right", &TextRightMargin, "TextRightMargin", 2040, 1140},
    };
    for (const auto& f : fields) {
        *f.label = placed(new QLabel(QString::fromLatin1(f.caption), Frame1), QString::fromLatin1(f.labelName), f.left,
                          f.top, 1500, 255);
        *f.box = placed(new QLineEdit(Frame1), QString::fromLatin1(f.boxName), f.left, f.top + 280, 1500, 315);
        ui::keepOneLine(*f.box);
    }
    CommandOk = placed(new QPushButton(QStringLiteral("Ok"), this), QStringLiteral("CommandOk"), 120, 2340, 1200, 375);
    CommandCancel = placed(new QPushButton(QStringLiteral("&Cancel"), this), QStringLiteral("CommandCancel"), 1500,
                           2340, 1200, 375);
    CommandHelp = placed(new QPushButton(QStringLiteral("&Help"), this), QStringLiteral("CommandHelp"), 2880, 2340, 1200,
                         375);
}

void FormPageSetup::formLoad()
{
    CenterForm(*this);
    TextTopMargin->setText(QString::number(GetMargin(200)));
    TextBottomMargin->setText(QString::number(GetMargin(201)));
    TextLeftMargin->setText(QString::number(GetMargin(202)));
    TextRightMargin->setText(QString::number(GetMargin(203)));
}

void FormPageSetup::CommandOk_Click()
{
    QLineEdit* boxes[] = {TextTopMargin, TextBottomMargin, TextLeftMargin, TextRightMargin};
    double values[4] = {};
    bool failed = false;
    for (int i = 0; i < 4; ++i) {
        if (!isNumeric(boxes[i]->text(), &values[i])) {
            failed = true;
            boxes[i]->setFocus();
        }
    }
    if (failed) {
        ui::msgBox(QStringLiteral("The margins must be numeric values"), ui::MsgOkOnly, QStringLiteral("Error"));
        return;
    }
    setFormVisible(false);
    ReturnToListings = false;
    for (int i = 0; i < 4; ++i)
        SetMargin(200 + i, values[i]);
    UnloadForms();
    forms::get<FrmAddressRpt>();
    ReturnToListings = true;
    forms::unload(staticFormName());
}

void FormPageSetup::CommandCancel_Click() { forms::unload(staticFormName()); }

void FormPageSetup::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2460")); }

} // namespace hb
