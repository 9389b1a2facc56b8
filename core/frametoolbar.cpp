// The frame's toolbar and the enabling of menu and toolbar by the state of the work.

#include "core/frameicons.h"
#include "core/framerules.h"
#include "core/frmmdi.h"
#include "core/handlers.h"
#include "core/session.h"

#include <QAction>
#include <QActionGroup>
#include <QComboBox>
#include <QFontDatabase>
#include <QLineEdit>
#include <QToolBar>
#include <QToolButton>

namespace hb {

namespace {

enum class Kind { Plain, Radio, Toggle, Group };

struct ButtonDef {
    const char* key;
    const char* tip;
    Kind kind = Kind::Plain;
    bool groupEnds = false;   // a separator follows
};

const ButtonDef toolbarButtons[] = {
    {"Address", "Address Report", Kind::Radio}, {"Phone", "Phone Report"}, {"Detail", "Detail Report"},
    {"Custom", "Custom Report"}, {"Birthdays", "Birthday Report"}, {"Labels", "Label Selection", Kind::Plain, true},
    {"find", "Search", Kind::Plain, true}, {"Print", "Print", Kind::Plain, true},
    {"Bold", "Bold", Kind::Toggle}, {"Italic", "Italic", Kind::Toggle, true},
    {"Left", "Align Left", Kind::Group}, {"Center", "Center", Kind::Group}, {"Right", "Align Right", Kind::Group, true},
    {"Grid", "Grid Lines", Kind::Toggle, true}, {"Help", "Help"},
};

// The button of each report.
const struct {
    char type;
    const char* key;
} reportButtons[] = {{'A', "Address"}, {'P', "Phone"}, {'D', "Detail"}, {'C', "Custom"}, {'B', "Birthdays"}, {'L', "Labels"}};

} // namespace

QAction* FrmMDI::button(const char* key) const { return buttons_.value(QString::fromLatin1(key)); }

void FrmMDI::buildToolbar()
{
    ABToolbar = addToolBar(QStringLiteral("Toolbar"));
    ABToolbar->setObjectName(QStringLiteral("ABToolbar"));
    ABToolbar->setMovable(false);
    ABToolbar->setIconSize(QSize(24, 24));
    auto* alignment = new QActionGroup(ABToolbar);
    for (const ButtonDef& def : toolbarButtons) {
        const QString key = QString::fromLatin1(def.key);
        QAction* action = ABToolbar->addAction(toolbarIcon(key), QString::fromLatin1(def.tip));
        action->setObjectName(key);
        action->setToolTip(QString::fromLatin1(def.tip));
        action->setCheckable(def.kind != Kind::Plain);
        if (def.kind == Kind::Group)
            alignment->addAction(action);
        buttons_.insert(key, action);
        if (def.groupEnds)
            ABToolbar->addSeparator();
        if (key == QLatin1String("Print"))
            buildFontCombos();
    }
    // The one button with a caption.
    button("find")->setText(QStringLiteral("Find"));
    if (auto* find = qobject_cast<QToolButton*>(ABToolbar->widgetForAction(button("find"))))
        find->setToolButtonStyle(Qt::ToolButtonTextBesideIcon);
    connectHandler(ABToolbar, &QToolBar::actionTriggered, this,
            [this](QAction* pressed) { ABToolbar_ButtonClick(pressed->objectName()); });
}

void FrmMDI::buildFontCombos()
{
    cmbFonts = new QComboBox(ABToolbar);
    cmbFonts->setObjectName(QStringLiteral("cmbFonts"));
    cmbFonts->setToolTip(QStringLiteral("Font"));
    cmbFonts->setMinimumContentsLength(18);
    cmbFonts->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    ABToolbar->addWidget(cmbFonts);
    cmbFontSize = new QComboBox(ABToolbar);
    cmbFontSize->setObjectName(QStringLiteral("cmbFontSize"));
    cmbFontSize->setToolTip(QStringLiteral("Font Size"));
    cmbFontSize->setEditable(true);
    cmbFontSize->setInsertPolicy(QComboBox::NoInsert);
    cmbFontSize->setMinimumContentsLength(3);
    cmbFontSize->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    // Enter applies a typed size; the box itself would only take sizes of its list.
    cmbFontSize->lineEdit()->installEventFilter(this);
    ABToolbar->addWidget(cmbFontSize);
    ABToolbar->addSeparator();
    // The user's choices only; what the program sets in the combos raises nothing.
    connectHandler(cmbFonts, &QComboBox::activated, this, [this] { cmbFonts_Click(); });
    connectHandler(cmbFontSize, &QComboBox::activated, this, [this] { cmbFontSize_Click(); });
}

// The keys are compared in the order of the original dispatch; "FAQ" has no button, and "Left", "Center",
// "Right" and "Grid" only change their own pressed state.
void FrmMDI::ABToolbar_ButtonClick(const QString& key)
{
    if (key == QLatin1String("Labels"))
        mnuLabels_Click();
    else if (key == QLatin1String("Birthdays"))
        mnuBirthDates_Click();
    else if (key == QLatin1String("Address"))
        mnuAddress_Click();
    else if (key == QLatin1String("Phone"))
        mnuPhone_Click();
    else if (key == QLatin1String("Detail"))
        mnuDetails_Click();
    else if (key == QLatin1String("Custom"))
        mnuCustom_Click();
    else if (key == QLatin1String("Help"))
        mnuGettingStarted_Click();
    else if (key == QLatin1String("FAQ"))
        mnuFAQ_Click();
    else if (key == QLatin1String("Bold"))
        toolbarBold();
    else if (key == QLatin1String("Italic"))
        toolbarItalic();
    else if (key == QLatin1String("find"))
        mnuSearch_Click();
    else if (key == QLatin1String("Print"))
        toolbarPrint();
}

void FrmMDI::toolbarPrint()
{
    if (Route print = toolbarPrintRoute(ReportType))
        print();
}

void FrmMDI::UpdateToolbar(const QString& state)
{
    if (state == QLatin1String("Report")) {
        menuBlock(state);
        reportToolbarBlock();
    } else if (state == QLatin1String("Update")) {
        updateMenuBlock();
        plainToolbarBlock(state);
    } else {
        menuBlock(state);
        plainToolbarBlock(state);
    }
}

void FrmMDI::menuBlock(const QString& state)
{
    const std::pair<char, QAction*> reportItems[] = {
        {'A', mnuAddress}, {'P', mnuPhone}, {'D', mnuDetails}, {'C', mnuCustom}, {'B', mnuBirthDates}};
    for (const auto& [type, item] : reportItems)
        item->setEnabled(true);
    const bool labels = ReportType == QLatin1String("L");
    if (state == QLatin1String("Report")) {
        mnuPageSetup->setEnabled(!labels);
        for (const auto& [type, item] : reportItems) {
            if (ReportType == QLatin1Char(type))
                item->setEnabled(false);
        }
        for (QAction* item : {mnuLabels, mnuPrint, mnuPrinterSetup})
            item->setEnabled(true);
        mnuSearch->setEnabled(false);
        button("find")->setEnabled(false);
    } else {
        for (QAction* item : {mnuPageSetup, mnuPrint, mnuPrinterSetup})
            item->setEnabled(false);
        mnuAddress->setEnabled(true);
        mnuBirthDates->setEnabled(true);
        for (QAction* item : {mnuSearch, button("find"), mnuLabels})
            item->setEnabled(!labels);
    }
    for (QAction* item : {mnuBackUp, mnuRestore, mnuExport, mnuImport, mnuExportVCards, mnuExportBirthdays,
                          mnuExitProgram, mnuNameYourOwn, mnuAddressBookServer, mnuSyncNow})
        item->setEnabled(true);
}

// Phone, details and custom keep their state while an update window is up.
void FrmMDI::updateMenuBlock()
{
    for (QAction* item : {mnuPageSetup, mnuPrint, mnuPrinterSetup, mnuBackUp, mnuRestore, mnuExport, mnuImport,
                          mnuExportVCards, mnuExportBirthdays, mnuExitProgram, mnuAddress, mnuBirthDates, mnuLabels, mnuNameYourOwn,
                          mnuAddressBookServer, mnuSyncNow, mnuSearch, button("find")})
        item->setEnabled(false);
}

void FrmMDI::reportToolbarBlock()
{
    for (const char* key : {"Address", "Birthdays", "Labels"})
        button(key)->setChecked(false);
    for (const auto& [type, key] : reportButtons)
        button(key)->setEnabled(ReportType != QLatin1Char(type));

    button("Print")->setChecked(false);
    button("Print")->setEnabled(true);
    for (const char* key : {"Bold", "Italic", "Center", "Right"})
        button(key)->setChecked(false);
    mnu_Font->setEnabled(true);
    button("Bold")->setEnabled(true);
    button("Italic")->setEnabled(true);

    const bool layoutButtons = ReportType != QLatin1String("M");
    button("Left")->setChecked(layoutButtons);
    for (const char* key : {"Left", "Center", "Right"})
        button(key)->setEnabled(layoutButtons);
    button("Grid")->setChecked(layoutButtons);
    button("Grid")->setEnabled(layoutButtons);

    fillFontCombos();
    ToolbarBusy = true;
    UpdateFontControls();
    ToolbarBusy = false;
}

void FrmMDI::plainToolbarBlock(const QString& state)
{
    for (const char* key : {"Address", "Birthdays", "Labels"})
        button(key)->setChecked(false);
    if (state == QLatin1String("Update")) {
        for (const char* key : {"Address", "Birthdays", "Labels"})
            button(key)->setEnabled(false);
    } else {
        button("Address")->setEnabled(true);
        button("Birthdays")->setEnabled(true);
        button("Labels")->setEnabled(ReportType != QLatin1String("L"));
    }
    for (const char* key : {"Print", "Bold", "Italic", "Left", "Center", "Right", "Grid"}) {
        button(key)->setChecked(false);
        button(key)->setEnabled(false);
    }
    mnu_Font->setEnabled(false);
    cmbFontSize->clear();
    cmbFontSize->setEnabled(false);
    cmbFonts->clear();
    cmbFonts->setPlaceholderText(QString());
    cmbFonts->setEnabled(false);
}

} // namespace hb
