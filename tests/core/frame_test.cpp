#include "framefixture.h"

#include "core/frame.h"
#include "core/session.h"

#include <QFontDatabase>
#include <QGuiApplication>
#include <QWindow>

using namespace hb;

namespace {

const QStringList menuItems = {"mnuPageSetup", "mnuPrint",    "mnuPrinterSetup", "mnuBackUp",      "mnuRestore",
                               "mnuExport",    "mnuImport",   "mnuExitProgram",  "mnu_Font",       "mnuSearch",
                               "mnuAddress",   "mnuPhone",    "mnuDetails",      "mnuCustom",      "mnuBirthDates",
                               "mnuLabels",    "mnuAutoDial", "mnuNameYourOwn",  "mnu_Options",    "mnuGettingStarted",
                               "mnuFAQ",       "mnuAbout",    "mnuExportVCards", "mnuExportBirthdays"};
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
                                    "mnuExportVCards mnuExportBirthdays mnuExitProgram mnuAddress mnuBirthDates mnuLabels mnuNameYourOwn "
                                    "mnuAddressBookServer mnuSyncNow mnuSearch mnu_Font";
constexpr const char* updateButtons = "find Address Birthdays Labels Print Bold Italic Left Center Right Grid "
                                      "cmbFonts cmbFontSize";

// Beg, Select and Update leave the same items off whatever the report; Report differs for each.
std::vector<EnablingCase> enablingCases()
{
    std::vector<EnablingCase> cases;
    for (const char* type : {" ", "A", "P", "D", "C", "B", "M", "L"}) {
        const bool labels = *type == 'L';
        cases.push_back({"Beg", type, labels ? labelItems : plainItems, labels ? labelButtons : plainButtons});
        cases.push_back({"Select", type, labels ? labelItems : plainItems, labels ? labelButtons : plainButtons});
        cases.push_back({"Update", type, updateItems, updateButtons});
    }
    const EnablingCase reports[] = {
        {"Report", " ", "mnuSearch", "find"},
        {"Report", "A", "mnuSearch mnuAddress", "find Address"},
        {"Report", "P", "mnuSearch mnuPhone", "find Phone"},
        {"Report", "D", "mnuSearch mnuDetails", "find Detail"},
        {"Report", "C", "mnuSearch mnuCustom", "find Custom"},
        {"Report", "B", "mnuSearch mnuBirthDates", "find Birthdays"},
        {"Report", "M", "mnuSearch", "find Left Center Right Grid"},
        {"Report", "L", "mnuSearch mnuPageSetup", "find Labels"},
    };
    cases.insert(cases.end(), std::begin(reports), std::end(reports));
    return cases;
}

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

INSTANTIATE_TEST_SUITE_P(EveryStateAndReport, ToolbarEnabling, ::testing::ValuesIn(enablingCases()));

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

TEST_F(FrameTest, TheMenuItemsCarryTheirShortcuts)
{
    const std::pair<const char*, const char*> keys[] = {
        {"mnuPrint", "Ctrl+P"}, {"mnuExitProgram", "Ctrl+X"},     {"mnuSearch", "Ctrl+F"},     {"mnuAddress", "Ctrl+A"},
        {"mnuBirthDates", "Ctrl+B"}, {"mnuLabels", "Ctrl+L"},     {"mnuAutoDial", "Ctrl+D"},   {"mnuGettingStarted", "Ctrl+H"},
        {"mnuPhone", ""}, {"mnuPageSetup", ""}};
    for (const auto& [name, key] : keys)
        EXPECT_EQ(action(QString::fromLatin1(name))->shortcut(), QKeySequence(QString::fromLatin1(key))) << name;
    EXPECT_TRUE(action(QStringLiteral("mnuGettingStarted"))->shortcuts().contains(QKeySequence(Qt::Key_F1)));
}

TEST_F(FrameTest, TitlesReachTheWindowSystemWithNothingAdded)
{
    // Qt adds an application display name, when one is set, to every title it hands to the window system;
    // without one, the display name reads as the bare application name.
    EXPECT_EQ(QGuiApplication::applicationDisplayName(), QCoreApplication::applicationName());
    ASSERT_NE(frame()->windowHandle(), nullptr);
    EXPECT_EQ(frame()->windowHandle()->title(), QStringLiteral("Quillon Homebook v2.0"));
}
