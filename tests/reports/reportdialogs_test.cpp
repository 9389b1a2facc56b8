#include "addressrpt_fixture.h"
#include "printcapture.h"
#include "framecentre.h"
#include "../core/helpfolder.h"

#include "core/routes.h"
#include "reports/formcustomizereport.h"
#include "reports/formpagesetup.h"
#include "reports/frmselectprinter.h"

#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>

using namespace hb;

class ReportDialogsTest : public AddressReportFixture {
protected:
    static QCheckBox* item(QWidget& w, int index)
    {
        return control<QCheckBox>(w, QStringLiteral("Checkitem_%1").arg(index));
    }
    static void setMargins(QWidget& w, const char* top, const char* bottom, const char* left, const char* right)
    {
        control<QLineEdit>(w, QStringLiteral("TextTopMargin"))->setText(QString::fromLatin1(top));
        control<QLineEdit>(w, QStringLiteral("TextBottomMargin"))->setText(QString::fromLatin1(bottom));
        control<QLineEdit>(w, QStringLiteral("TextLeftMargin"))->setText(QString::fromLatin1(left));
        control<QLineEdit>(w, QStringLiteral("TextRightMargin"))->setText(QString::fromLatin1(right));
    }
};

TEST_F(ReportDialogsTest, CustomizeStoresTheFieldsAndReloadsTheReport)
{
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 1);
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    dialogs().onModal([](QWidget& window) {
        EXPECT_TRUE(item(window, 12)->isVisibleTo(&window));
        EXPECT_TRUE(item(window, 13)->isChecked());
        item(window, 13)->setChecked(false);
        click(window, QStringLiteral("CommandOk"));
    });
    ASSERT_TRUE(guarded([&] { click(*w, QStringLiteral("CommandCustomize")); }));
    EXPECT_EQ(GetNOption(13), 0);
    EXPECT_EQ(GetNOption(14), 1);
    ASSERT_NE(shown(), nullptr);
    EXPECT_TRUE(shown()->report().object(QStringLiteral("Field2"))->suppress);
    EXPECT_FALSE(allText(*shown()).contains(QStringLiteral("Adams Bakery")));
}

TEST_F(ReportDialogsTest, TheLabelTargetKeepsItsOwnChoices)
{
    SetNOption(13, 1);
    SetNOption(313, 0);
    CustomizeTarget = QStringLiteral("label");
    dialogs().onModal([](QWidget& window) {
        EXPECT_FALSE(item(window, 13)->isChecked());
        item(window, 12)->setChecked(true);
        item(window, 14)->setChecked(true);
        click(window, QStringLiteral("CommandOk"));
    });
    ASSERT_TRUE(guarded([] {
        auto& customize = forms::get<FormCustomizeReport>();
        customize.checkItem(12)->setVisible(false);
        ui::showModal(customize);
    }));
    EXPECT_EQ(GetNOption(312), 1);
    EXPECT_EQ(GetNOption(314), 1);
    EXPECT_EQ(GetNOption(13), 1);
    forms::unload(FormCustomizeReport::staticFormName());
    CustomizeTarget = QStringLiteral("report");
    dialogs().onModal([](QWidget& window) {
        EXPECT_TRUE(item(window, 13)->isChecked());
        click(window, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(guarded([] { ui::showModal(forms::get<FormCustomizeReport>()); }));
}

TEST_F(ReportDialogsTest, PageSetupStoresThousandthsAndOpensTheReportAnew)
{
    ASSERT_NE(open("mnuAddress"), nullptr);
    SetNOption(200, 1250);
    dialogs().onModal([](QWidget& window) {
        EXPECT_EQ(control<QLineEdit>(window, QStringLiteral("TextTopMargin"))->text(), QStringLiteral("1.25"));
        setMargins(window, ".5", "-2", "0.75", "1");
        click(window, QStringLiteral("CommandOk"));
    });
    ASSERT_TRUE(trigger(QStringLiteral("mnuPageSetup")));
    EXPECT_EQ(GetNOption(200), 500);
    EXPECT_EQ(GetNOption(202), 750);
    EXPECT_EQ(GetMargin(201), 1.0) << "a negative margin reads as one inch";
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->report().topMargin, 720);
    EXPECT_EQ(forms::loaded<FormPageSetup>(), nullptr);
}

TEST_F(ReportDialogsTest, EachDialogsHelpOpensItsOwnTopic)
{
    copyHelpInto(programDir());
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    const struct {
        QString dialog, topic;
        std::function<bool()> route;
    } cases[] = {
        {QStringLiteral("FormPageSetup"), QStringLiteral("page-setup.html"), [this] { return trigger(QStringLiteral("mnuPageSetup")); }},
        {QStringLiteral("FormCustomizeReport"), QStringLiteral("custom-report.html"), [this, w] { return guarded([w] { click(*w, QStringLiteral("CommandCustomize")); }); }}};
    for (const auto& c : cases) {
        dialogs().onModal([&](QWidget& window) {
            EXPECT_EQ(window.objectName(), c.dialog);
            QTest::mouseClick(control<QPushButton>(window, QStringLiteral("CommandHelp")), Qt::LeftButton);
            EXPECT_EQ(shownHelpPage(), c.topic);
            click(window, QStringLiteral("CommandCancel"));
        });
        ASSERT_TRUE(c.route());
        hideHelp();
    }
    EXPECT_TRUE(dialogs().messages().empty());
}

TEST_F(ReportDialogsTest, TwoBadMarginsGiveOneMessageAndTheFocusToTheLater)
{
    ASSERT_NE(open("mnuAddress"), nullptr);
    dialogs().answer(ui::AnswerOk);
    dialogs().onModal([](QWidget& window) {
        window.activateWindow();
        setMargins(window, "abc", "1", "x", "1");
        click(window, QStringLiteral("CommandOk"));
        EXPECT_EQ(window.focusWidget(), control<QLineEdit>(window, QStringLiteral("TextLeftMargin")));
        EXPECT_TRUE(window.isVisible());
        click(window, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(trigger(QStringLiteral("mnuPageSetup")));
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("The margins must be numeric values"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Error"));
    EXPECT_EQ(lastMessage().style, 0);
}

TEST_F(ReportDialogsTest, SelectPrinterStaysUpWithoutPrintersAndClosesOnAChoice)
{
    auto previous = FrmSelectPrinter::printerNames;
    FrmSelectPrinter::printerNames = [] { return QStringList(); };
    dialogs().onModal([](QWidget& window) {
        click(window, QStringLiteral("cmdOK"));
        EXPECT_TRUE(window.isVisible()) << "the window stays";
        click(window, QStringLiteral("cmdCancel"));
    });
    ASSERT_TRUE(guarded([] { showSelectPrinter(); }));
    EXPECT_EQ(forms::loaded<FrmSelectPrinter>(), nullptr);
    FrmSelectPrinter::printerNames = [] { return QStringList{QStringLiteral("Office"), QStringLiteral("PDF")}; };
    dialogs().onModal([](QWidget& window) {
        auto* list = control<QComboBox>(window, QStringLiteral("cmbPrinter"));
        EXPECT_EQ(list->count(), 2);
        chooseEntry(list, 1);
        click(window, QStringLiteral("cmdOK"));
    });
    ASSERT_TRUE(guarded([] { showSelectPrinter(); }));
    FrmSelectPrinter::printerNames = previous;
    EXPECT_EQ(forms::loaded<FrmSelectPrinter>(), nullptr);
}

TEST_F(ReportDialogsTest, PrinterSetupToLandscapeMovesTheReportToTheLandscapeDefinition)
{
    ASSERT_NE(open("mnuAddress"), nullptr);
    PrintCapture capture;
    capture.chooseLandscape();
    bool shownMeanwhile = false;
    dialogs().scriptPrinter([&](QPrinter&) { return shownMeanwhile = shown() && shown()->isVisible(); });
    ASSERT_TRUE(trigger(QStringLiteral("mnuPrinterSetup")));
    EXPECT_TRUE(shownMeanwhile);
    EXPECT_EQ(capture.printersChosen(), 1);
    EXPECT_FALSE(PrinterIsPortrait());
    ASSERT_NE(shown(), nullptr);
    EXPECT_EQ(shown()->report().name, QStringLiteral("lAddress1Col"));
    EXPECT_EQ(ListingDefinition(3, false).printer.paperOrientation, 2);
    EXPECT_TRUE(shown()->isVisible());
}

TEST_F(ReportDialogsTest, CustomizeAndPageSetupOpenCentredInTheFrame)
{
    FrmAddressRpt* w = open("mnuCustom");
    ASSERT_NE(w, nullptr);
    const struct {
        const char* dialog;
        std::function<bool()> route;
    } cases[] = {{"FormPageSetup", [this] { return trigger(QStringLiteral("mnuPageSetup")); }},
                 {"FormCustomizeReport", [this, w] { return guarded([w] { click(*w, QStringLiteral("CommandCustomize")); }); }}};
    for (const auto& c : cases) {
        QPoint at, centre;
        dialogs().onModal([&](QWidget& window) {
            EXPECT_EQ(window.objectName(), QLatin1String(c.dialog));
            at = window.pos();
            centre = centredInFrame(window);
            click(window, QStringLiteral("CommandCancel"));
        });
        ASSERT_TRUE(c.route()) << c.dialog;
        EXPECT_EQ(at, centre) << c.dialog;
        EXPECT_NE(centre, QPoint(0, 0)) << c.dialog;
    }
}
