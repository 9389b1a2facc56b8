#include "tools/formoptions.h"
#include "core/handlers.h"

#include "addressbook/windowkeys.h"
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

namespace {

void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

template <class T>
T* named(T* widget, const char* name)
{
    widget->setObjectName(QString::fromLatin1(name));
    return widget;
}

QCheckBox* check(QWidget* parent, const char* name, const char* caption, int left, int top, int width)
{
    auto* box = named(new QCheckBox(QString::fromLatin1(caption), parent), name);
    place(box, left, top, width, 285);
    return box;
}

QPushButton* button(QWidget* parent, const char* name, const char* caption, int left, int top, int width)
{
    auto* b = named(new QPushButton(QString::fromLatin1(caption), parent), name);
    place(b, left, top, width, 375);
    return b;
}

} // namespace

void showOptions() { ui::showModal(forms::get<FormOptions>()); }

void CenterObject(const ui::TabStrip& container, QWidget& object)
{
    object.setGeometry(ui::centeredIn(container.clientRect(), object.size()));
}

FormOptions::FormOptions() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    buildControls();
    connectHandlers();
}

void FormOptions::buildControls()
{
    setWindowTitle(QStringLiteral("Options"));
    setFixedSize(ui::px(5400), ui::px(4080));
    TabStrip1 = named(new ui::TabStrip(this), "TabStrip1");
    place(TabStrip1, 120, 120, 5160, 2400);
    TabStrip1->addTab(QStringLiteral("reports"), QStringLiteral("Reports"), QStringLiteral("Report Options"));
    TabStrip1->addTab(QStringLiteral("envelopes"), QStringLiteral("Envelopes/Postcards"),
                      QStringLiteral("Envelope and Postcard Options"));
    buildFrames();
    CommandOk = button(this, "CommandOk", "&Ok", 1440, 3540, 1200);
    CommandOk->setDefault(true);
    CommandCancel = button(this, "CommandCancel", "&Cancel", 2760, 3540, 1200);
    CommandHelp = button(this, "CommandHelp", "&Help", 4080, 3540, 1200);
}

void FormOptions::buildFrames()
{
    FrameReportSettings = named(new QGroupBox(QStringLiteral("Display Report Footer"), this), "FrameReportSettings");
    place(FrameReportSettings, 0, 0, 3000, 1500);
    CheckDate = check(FrameReportSettings, "CheckDate", "Date", 240, 360, 2520);
    CheckNameIndex = check(FrameReportSettings, "CheckNameIndex", "Name Index", 240, 720, 2520);
    CheckPageNumber = check(FrameReportSettings, "CheckPageNumber", "Page Number", 240, 1080, 2520);

    FrameEnvelopeSettings = named(new QGroupBox(QStringLiteral("Envelope Settings"), this), "FrameEnvelopeSettings");
    place(FrameEnvelopeSettings, 0, 0, 3840, 1620);
    CheckDisplayReturn = check(FrameEnvelopeSettings, "CheckDisplayReturn", "Display &Return Address", 240, 360, 3360);
    CheckDisplayStamp = check(FrameEnvelopeSettings, "CheckDisplayStamp", "Display &Stamp Placeholder", 240, 720, 3360);
    CommandRetAddr = button(FrameEnvelopeSettings, "CommandRetAddr", "Set Return Address...", 240, 1080, 2400);

    // Labels and envelopes alike: it stays in view whichever tab is up.
    FrameGeneralSettings = named(new QGroupBox(QStringLiteral("Label and Envelope Settings"), this), "FrameGeneralSettings");
    place(FrameGeneralSettings, 120, 2640, 5160, 720);
    CheckDisplayBarcode = check(FrameGeneralSettings, "CheckDisplayBarcode", "Display &Barcode", 240, 300, 3360);
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
    SetNOption(6, *CheckDisplayReturn);
    SetNOption(7, *CheckDisplayStamp);
    SetNOption(8, *CheckDisplayBarcode);
    SetNOption(100, *CheckDate);
    SetNOption(101, *CheckNameIndex);
    SetNOption(102, *CheckPageNumber);
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
    if (!pressWindowButton(event, CommandOk, CommandCancel))
        Form::keyPressEvent(event);
}

void FormOptions::closeEvent(QCloseEvent* event)
{
    event->accept();
    forms::unload(staticFormName());
}

} // namespace hb
