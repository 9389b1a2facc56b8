#include "framefixture.h"

#include "core/frame.h"
#include "core/session.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QWindow>
#include <QMenu>
#include <QMenuBar>
#include <QToolBar>
#include <QToolButton>

using namespace hb;

namespace {

const QStringList menuItems = {"mnuPageSetup", "mnuPrint",    "mnuPrinterSetup", "mnuBackUp",      "mnuRestore",
                               "mnuExport",    "mnuImport",   "mnuExitProgram",  "mnu_Font",       "mnuSearch",
                               "mnuAddress",   "mnuPhone",    "mnuDetails",      "mnuCustom",      "mnuBirthDates",
                               "mnuLabels",    "mnuAutoDial", "mnuNameYourOwn",  "mnu_Options",    "mnuGettingStarted",
                               "mnuFAQ",       "mnuAbout"};
const QStringList buttonKeys = {"Address", "Phone", "Detail", "Custom", "Birthdays", "Labels", "find", "Print",
                                "Bold",    "Italic", "Left",  "Center", "Right",     "Grid",   "Help"};

// What stays off after a state word: every other item and button is on.
struct EnablingCase {
    const char* state;
    const char* reportType;
    const char* disabledItems;
    const char* disabledButtons;   // the combos count among the buttons
};

std::ostream& operator<<(std::ostream& out, const EnablingCase& c)
{
    return out << c.state << " with ReportType \"" << c.reportType << "\"";
}

constexpr const char* plainItems = "mnuPageSetup mnuPrint mnuPrinterSetup mnu_Font";
constexpr const char* plainButtons = "Print Bold Italic Left Center Right Grid cmbFonts cmbFontSize";
constexpr const char* labelItems = "mnuPageSetup mnuPrint mnuPrinterSetup mnu_Font mnuSearch mnuLabels";
constexpr const char* labelButtons = "Print Bold Italic Left Center Right Grid cmbFonts cmbFontSize find Labels";
constexpr const char* updateItems = "mnuPageSetup mnuPrint mnuPrinterSetup mnuBackUp mnuRestore mnuExport mnuImport "
                                    "mnuExitProgram mnuAddress mnuBirthDates mnuLabels mnuNameYourOwn mnuSearch mnu_Font";
constexpr const char* updateButtons = "find Address Birthdays Labels Print Bold Italic Left Center Right Grid "
                                      "cmbFonts cmbFontSize";

const EnablingCase enablingCases[] = {
    {"Beg", " ", plainItems, plainButtons},        {"Beg", "A", plainItems, plainButtons},
    {"Beg", "P", plainItems, plainButtons},        {"Beg", "D", plainItems, plainButtons},
    {"Beg", "C", plainItems, plainButtons},        {"Beg", "B", plainItems, plainButtons},
    {"Beg", "M", plainItems, plainButtons},        {"Beg", "L", labelItems, labelButtons},
    {"Select", " ", plainItems, plainButtons},     {"Select", "A", plainItems, plainButtons},
    {"Select", "P", plainItems, plainButtons},     {"Select", "D", plainItems, plainButtons},
    {"Select", "C", plainItems, plainButtons},     {"Select", "B", plainItems, plainButtons},
    {"Select", "M", plainItems, plainButtons},     {"Select", "L", labelItems, labelButtons},
    {"Report", " ", "mnuSearch", "find"},
    {"Report", "A", "mnuSearch mnuAddress", "find Address"},
    {"Report", "P", "mnuSearch mnuPhone", "find Phone"},
    {"Report", "D", "mnuSearch mnuDetails", "find Detail"},
    {"Report", "C", "mnuSearch mnuCustom", "find Custom"},
    {"Report", "B", "mnuSearch mnuBirthDates", "find Birthdays"},
    {"Report", "M", "mnuSearch", "find Left Center Right Grid"},
    {"Report", "L", "mnuSearch mnuPageSetup", "find Labels"},
    {"Update", " ", updateItems, updateButtons},   {"Update", "A", updateItems, updateButtons},
    {"Update", "P", updateItems, updateButtons},   {"Update", "D", updateItems, updateButtons},
    {"Update", "C", updateItems, updateButtons},   {"Update", "B", updateItems, updateButtons},
    {"Update", "M", updateItems, updateButtons},   {"Update", "L", updateItems, updateButtons},
};

QStringList words(const char* text) { return QString::fromLatin1(text).split(QLatin1Char(' '), Qt::SkipEmptyParts); }

} // namespace

class ToolbarEnabling : public FrameFixture, public ::testing::WithParamInterface<EnablingCase> {};

TEST_P(ToolbarEnabling, LeavesExactlyTheListedItemsAndButtonsOff)
{
    const EnablingCase& c = GetParam();
    ReportType = QStringLiteral(" ");
    UpdateToolbar(QStringLiteral("Beg"));
    ReportType = QString::fromLatin1(c.reportType);
    UpdateToolbar(QString::fromLatin1(c.state));

    const QStringList offItems = words(c.disabledItems);
    for (const QString& name : menuItems)
        EXPECT_EQ(action(name)->isEnabled(), !offItems.contains(name)) << name.toStdString();
    const QStringList offButtons = words(c.disabledButtons);
    for (const QString& key : buttonKeys)
        EXPECT_EQ(action(key)->isEnabled(), !offButtons.contains(key)) << key.toStdString();
    for (const char* name : {"cmbFonts", "cmbFontSize"})
        EXPECT_EQ(combo(name)->isEnabled(), !offButtons.contains(QString::fromLatin1(name))) << name;
}

INSTANTIATE_TEST_SUITE_P(EveryStateAndReport, ToolbarEnabling, ::testing::ValuesIn(enablingCases));

class FrameTest : public FrameFixture {};

TEST_F(FrameTest, AnUpdateWindowLeavesPhoneDetailsAndCustomAsTheyWere)
{
    ReportType = QStringLiteral("P");
    UpdateToolbar(QStringLiteral("Report"));
    UpdateToolbar(QStringLiteral("Update"));
    EXPECT_FALSE(action(QStringLiteral("mnuPhone"))->isEnabled());
    EXPECT_FALSE(action(QStringLiteral("Phone"))->isEnabled());
    EXPECT_TRUE(action(QStringLiteral("mnuDetails"))->isEnabled());
    EXPECT_TRUE(action(QStringLiteral("Detail"))->isEnabled());
    EXPECT_FALSE(action(QStringLiteral("mnuExitProgram"))->isEnabled());

    UpdateToolbar(QStringLiteral("Select"));
    EXPECT_TRUE(action(QStringLiteral("mnuPhone"))->isEnabled()) << "the menu block turns every report on";
    EXPECT_FALSE(action(QStringLiteral("Phone"))->isEnabled()) << "the plain toolbar block leaves it";
    EXPECT_TRUE(action(QStringLiteral("mnuExitProgram"))->isEnabled());
}

TEST_F(FrameTest, AReportStateSetsThePressedButtonsAndFillsTheFontCombos)
{
    PictureFont() = QFont(QStringLiteral("DejaVu Sans"), 11);
    PictureFont().setItalic(true);
    action(QStringLiteral("Address"))->setChecked(true);
    ReportType = QStringLiteral("D");
    UpdateToolbar(QStringLiteral("Report"));
    EXPECT_FALSE(action(QStringLiteral("Address"))->isChecked());
    EXPECT_TRUE(action(QStringLiteral("Left"))->isChecked());
    EXPECT_FALSE(action(QStringLiteral("Center"))->isChecked());
    EXPECT_TRUE(action(QStringLiteral("Grid"))->isChecked());
    EXPECT_FALSE(action(QStringLiteral("Bold"))->isChecked());
    EXPECT_TRUE(action(QStringLiteral("Italic"))->isChecked());

    QStringList sizes;
    for (int i = 0; i < combo("cmbFontSize")->count(); ++i)
        sizes << combo("cmbFontSize")->itemText(i);
    EXPECT_EQ(sizes, QString::fromLatin1("6 7 8 9 10 11 12 14 15 16 17 18 19 20 21 22 23 24 25 26 27 28 36 48 72")
                         .split(QLatin1Char(' ')));
    EXPECT_EQ(combo("cmbFontSize")->currentText(), QStringLiteral("11"));
    EXPECT_EQ(combo("cmbFonts")->count(), QFontDatabase::families().size());
    EXPECT_EQ(combo("cmbFonts")->currentText(), QStringLiteral("DejaVu Sans"));
    EXPECT_FALSE(ToolbarBusy);

    ReportType = QStringLiteral("M");
    UpdateToolbar(QStringLiteral("Report"));
    EXPECT_FALSE(action(QStringLiteral("Left"))->isChecked());
    EXPECT_FALSE(action(QStringLiteral("Grid"))->isChecked());

    ReportType = QStringLiteral("A");
    UpdateToolbar(QStringLiteral("Report"));
    UpdateToolbar(QStringLiteral("Select"));
    for (const char* key : {"Left", "Grid", "Italic"})
        EXPECT_FALSE(action(QString::fromLatin1(key))->isChecked()) << key;
    EXPECT_EQ(combo("cmbFontSize")->count(), 0);
    EXPECT_EQ(combo("cmbFonts")->count(), 0);
}

TEST_F(FrameTest, TheMenuCarriesEveryItemWithItsCaptionAndShortcut)
{
    struct Line {
        const char* name;
        const char* caption;
        const char* shortcut;
    };
    const std::pair<const char*, std::vector<Line>> menus[] = {
        {"&File", {{"mnuPageSetup", "Page Set&up...", ""}, {"mnuPrint", "&Print", "Ctrl+P"},
                   {"mnuPrinterSetup", "Printer &Setup", ""}, {"mnuDash91", "", ""},
                   {"mnuBackUp", "&Back Up Database...", ""}, {"mnuRestore", "&Restore Database...", ""},
                   {"mnuDash2", "", ""}, {"mnuExport", "&Export Names and Addresses...", ""},
                   {"mnuImport", "&Import Names and Addresses...", ""}, {"mnuDash81", "", ""},
                   {"mnuExitProgram", "E&xit Program", "Ctrl+X"}}},
        {"&Edit", {{"mnu_Font", "F&ont", ""}, {"mnu_dash2", "", ""}, {"mnuSearch", "&Find...", "Ctrl+F"}}},
        {"&Reports", {{"mnuAddress", "&Address", "Ctrl+A"}, {"mnuPhone", "&Phone", ""}, {"mnuDetails", "&Details", ""},
                      {"mnuCustom", "&Custom", ""}, {"mnuBirthDates", "&Birthday", "Ctrl+B"}, {"mnuDash18", "", ""},
                      {"mnuLabels", "&Label Selection", "Ctrl+L"}}},
        {"&Tools", {{"mnuAutoDial", "AutoDial", "Ctrl+D"}, {"mnuDash315", "", ""},
                    {"mnuNameYourOwn", "&Name Address Types...", ""}, {"mnu_dash", "", ""},
                    {"mnu_Options", "&Options...", ""}}},
        {"&Help", {{"mnuGettingStarted", "&Help Topics", "Ctrl+H"}, {"mnuFAQ", "&Frequently Asked Questions", ""},
                   {"mnuDash4", "", ""}, {"mnuAbout", "&About", ""}}},
    };
    const QList<QAction*> bar = frame()->menuBar()->actions();
    ASSERT_EQ(bar.size(), 5);
    for (int m = 0; m < 5; ++m) {
        EXPECT_EQ(bar[m]->text(), QString::fromLatin1(menus[m].first));
        const QList<QAction*> items = bar[m]->menu()->actions();
        ASSERT_EQ(items.size(), static_cast<qsizetype>(menus[m].second.size())) << menus[m].first;
        for (size_t i = 0; i < menus[m].second.size(); ++i) {
            const Line& line = menus[m].second[i];
            EXPECT_EQ(items[i]->objectName(), QString::fromLatin1(line.name));
            EXPECT_EQ(items[i]->isSeparator(), *line.caption == 0) << line.name;
            EXPECT_EQ(items[i]->text(), QString::fromLatin1(line.caption)) << line.name;
            EXPECT_EQ(items[i]->shortcut(), QKeySequence(QString::fromLatin1(line.shortcut))) << line.name;
        }
    }
    EXPECT_TRUE(action(QStringLiteral("mnuGettingStarted"))->shortcuts().contains(QKeySequence(Qt::Key_F1)));
}

TEST_F(FrameTest, TheToolbarHasFifteenButtonsWithTheirTipsAndTheFontCombos)
{
    const std::pair<const char*, const char*> tips[] = {
        {"Address", "Address Report"}, {"Phone", "Phone Report"}, {"Detail", "Detail Report"},
        {"Custom", "Custom Report"},   {"Birthdays", "Birthday Report"}, {"Labels", "Label Selection"},
        {"find", "Search"},            {"Print", "Print"},        {"Bold", "Bold"},
        {"Italic", "Italic"},          {"Left", "Align Left"},    {"Center", "Center"},
        {"Right", "Align Right"},      {"Grid", "Grid Lines"},    {"Help", "Help"}};
    auto* toolbar = control<QToolBar>(*frame(), QStringLiteral("ABToolbar"));
    QStringList keys;
    for (QAction* a : toolbar->actions()) {
        if (!a->isSeparator() && !a->objectName().isEmpty())
            keys << a->objectName();
    }
    QStringList expected;
    for (const auto& [key, tip] : tips) {
        expected << QString::fromLatin1(key);
        EXPECT_EQ(action(QString::fromLatin1(key))->toolTip(), QString::fromLatin1(tip)) << key;
        EXPECT_FALSE(action(QString::fromLatin1(key))->icon().isNull()) << key;
    }
    EXPECT_EQ(keys, expected);
    EXPECT_EQ(action(QStringLiteral("find"))->text(), QStringLiteral("Find"));
    auto* find = qobject_cast<QToolButton*>(toolbar->widgetForAction(action(QStringLiteral("find"))));
    ASSERT_NE(find, nullptr);
    EXPECT_EQ(find->toolButtonStyle(), Qt::ToolButtonTextBesideIcon) << "the one button that shows its caption";
    EXPECT_EQ(combo("cmbFonts")->toolTip(), QStringLiteral("Font"));
    EXPECT_EQ(combo("cmbFontSize")->toolTip(), QStringLiteral("Font Size"));
    EXPECT_EQ(frame()->windowTitle(), QStringLiteral("Quillon Homebook v2.0"));
}

TEST_F(FrameTest, TitlesReachTheWindowSystemWithNothingAdded)
{
    // Qt adds an application display name, when one is set, to every title it hands to the window system;
    // without one, the display name reads as the bare application name.
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
    ASSERT_NE(frame()->windowHandle(), nullptr);
    EXPECT_EQ(frame()->windowHandle()->title(), QStringLiteral("Quillon Homebook v2.0"));
}
