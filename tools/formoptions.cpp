#include "tools/formoptions.h"
#include "core/handlers.h"

#include "platform/ui/buttons.h"
#include "platform/ui/windowkeys.h"
#include "core/helpers.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/tabstrip.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QCloseEvent>
#include <QGroupBox>
#include <QPushButton>

namespace hb {

void CenterObject(const ui::TabStrip& container, QWidget& object)
{
    object.setGeometry(ui::centeredIn(container.clientRect(), object.size()));
}

FormOptions::FormOptions() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2320"));
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    buildControls();
    connectHandlers();
}

void FormOptions::buildControls()
{
    setWindowTitle(QStringLiteral("Options"));
    setFixedSize(ui::px(5400), ui::px(4080));
    TabStrip1 = ui::placed(new ui::TabStrip(this), QStringLiteral("TabStrip1"), 120, 120, 5160, 2400);
    TabStrip1->addTab(QStringLiteral("reports"), QStringLiteral("Reports"), QStringLiteral("Report Options"));
    TabStrip1->addTab(QStringLiteral("envelopes"), QStringLiteral("Envelopes/Postcards"),
                      QStringLiteral("Envelope and Postcard Options"));
    buildFrames();
    CommandOk = ui::pushButton(this, "CommandOk", "&Ok", 1440, 3540, 1200);
    CommandOk->setDefault(true);
    CommandCancel = ui::pushButton(this, "CommandCancel", "&Cancel", 2760, 3540, 1200);
    CommandHelp = ui::pushButton(this, "CommandHelp", "&Help", 4080, 3540, 1200);
}

void FormOptions::buildFrames()
{
    FrameReportSettings = ui::placed(new QGroupBox(QStringLiteral("Display Report Footer"), this),
        QStringLiteral("FrameReportSettings"), 0, 0, 3000, 1500);
    CheckDate = ui::checkBox(FrameReportSettings, "CheckDate", "Date", 240, 360, 2520);
    CheckNameIndex = ui::checkBox(FrameReportSettings, "CheckNameIndex", "Name Index", 240, 720, 2520);
    CheckPageNumber = ui::checkBox(FrameReportSettings, "CheckPageNumber", "Page Number", 240, 1080, 2520);

    FrameEnvelopeSettings = ui::placed(new QGroupBox(QStringLiteral("Envelope Settings"), this),
        QStringLiteral("FrameEnvelopeSettings"), 0, 0, 3840, 1620);
    CheckDisplayReturn =
        ui::checkBox(FrameEnvelopeSettings, "CheckDisplayReturn", "Display &Return Address", 240, 360, 3360);
    CheckDisplayStamp =
        ui::checkBox(FrameEnvelopeSettings, "CheckDisplayStamp", "Display &Stamp Placeholder", 240, 720, 3360);
    CommandRetAddr = ui::pushButton(FrameEnvelopeSettings, "CommandRetAddr", "Set Return Address...", 240, 1080, 2400);

    // Labels and envelopes alike: it stays in view whichever tab is up.
    FrameGeneralSettings = ui::placed(new QGroupBox(QStringLiteral("Label and Envelope Settings"), this),
        QStringLiteral("FrameGeneralSettings"), 120, 2640, 5160, 720);
    CheckDisplayBarcode = ui::checkBox(FrameGeneralSettings, "CheckDisplayBarcode", "Display &Barcode", 240, 300, 3360);
}

void FormOptions::connectHandlers()
{
    connectHandler(TabStrip1, &ui::TabStrip::click, this, &FormOptions::TabStrip1_Click);
    connectHandler(CommandOk, &QPushButton::clicked, this, &FormOptions::CommandOk_Click);
    connectHandler(CommandCancel, &QPushButton::clicked, this, &FormOptions::CommandCancel_Click);
    connectHandler(CommandRetAddr, &QPushButton::clicked, this, &FormOptions::CommandRetAddr_Click);
    connectHandler(CommandHelp, &QPushButton::clicked, this, &FormOptions::CommandHelp_Click);
}

void FormOptions::formLoad()
{
    CenterForm(*this);
    const std::pair<int, QCheckBox*> boxes[] = {{6, CheckDisplayReturn}, {7, CheckDisplayStamp},
                                                {8, CheckDisplayBarcode}, {100, CheckDate},
                                                {101, CheckNameIndex},   {102, CheckPageNumber}};
    for (const auto& [number, box] : boxes)
        box->setChecked(GetNOption(number) == 1);
    CenterObject(*TabStrip1, *FrameEnvelopeSettings);
    CenterObject(*TabStrip1, *FrameReportSettings);
    TabStrip1_Click();
}

void FormOptions::TabStrip1_Click()
{
    FrameEnvelopeSettings->hide();
    FrameReportSettings->hide();
    if (TabStrip1->selectedIndex() == 1)
        FrameReportSettings->show();
    else
        FrameEnvelopeSettings->show();
}

void FormOptions::CommandOk_Click()
{
    SetNOption(6, ui::checkValue(*CheckDisplayReturn));
    SetNOption(7, ui::checkValue(*CheckDisplayStamp));
    SetNOption(8, ui::checkValue(*CheckDisplayBarcode));
    SetNOption(100, ui::checkValue(*CheckDate));
    SetNOption(101, ui::checkValue(*CheckNameIndex));
    SetNOption(102, ui::checkValue(*CheckPageNumber));
    const QString type = ReportType.trimmed();
    if (type == QLatin1String("A") || type == QLatin1String("D") || type == QLatin1String("P") ||
        type == QLatin1String("C")) {
        ReturnToListings = false;
        ReloadReport();
    } else if (type == QLatin1String("M") || type == QLatin1String("L")) {
        reloadMailPiecePreview();
    }
    forms::unload(staticFormName());
}

// What FormRetAddr stored stays: it writes its own options.
void FormOptions::CommandCancel_Click() { forms::unload(staticFormName()); }

void FormOptions::CommandRetAddr_Click() { showReturnAddress(); }

void FormOptions::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2320")); }

void FormOptions::keyPressEvent(QKeyEvent* event)
{
    if (!ui::pressWindowButton(event, CommandOk, CommandCancel))
        Form::keyPressEvent(event);
}

void FormOptions::closeEvent(QCloseEvent* event)
{
    event->accept();
    forms::unload(staticFormName());
}

} // namespace hb
