#include "../reports/addressrpt_fixture.h"
#include "framecentre.h"

#include "platform/ui/tabstrip.h"
#include "reports/frmbirthdayrpt.h"
#include "tools/formoptions.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGroupBox>
#include <QTabBar>

using namespace hb;

namespace {

const int OptionNumbers[] = {6, 7, 8, 100, 101, 102};

// The options window over a started program with the listing reports' data in place.
class OptionsWindowTest : public AddressReportFixture {
protected:
    void withOptions(const std::function<void(QWidget&)>& script)
    {
        dialogs().onModal(script);
        EXPECT_TRUE(guarded([] { action(QStringLiteral("mnu_Options"))->trigger(); }));
        EXPECT_EQ(forms::loaded<FormOptions>(), nullptr) << "every way out unloads the window";
    }
    static QAction* action(const QString& name) { return control<QAction>(*FrmMDI::instance(), name); }
    static QCheckBox* box(QWidget& w, const char* name) { return control<QCheckBox>(w, QString::fromLatin1(name)); }
    static void press(QWidget& w, const char* name)
    {
        QTest::mouseClick(control<QWidget>(w, QString::fromLatin1(name)), Qt::LeftButton);
    }
    // On the box itself: a wide check box takes clicks only on its mark and its caption.
    static void tick(QWidget& w, const char* name)
    {
        QCheckBox* b = box(w, name);
        QTest::mouseClick(b, Qt::LeftButton, {}, QPoint(6, b->height() / 2));
    }
    static void chooseTab(QWidget& w, int index)
    {
        QTabBar* bar = control<ui::TabStrip>(w, QStringLiteral("TabStrip1"))->tabBar();
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(index).center());
    }
    static QList<double> stored()
    {
        QList<double> values;
        for (int number : OptionNumbers)
            values << GetNOption(number);
        return values;
    }
    static bool visible(QWidget& w, const char* frame) { return control<QGroupBox>(w, QString::fromLatin1(frame))->isVisible(); }
};

TEST_F(OptionsWindowTest, OnlyAOneTicksABoxAndOkWritesEveryBoxBack)
{
    const double values[] = {1, -1, 2, 1, 0, 5};
    for (int i = 0; i < 6; ++i)
        SetNOption(OptionNumbers[i], values[i]);
    withOptions([](QWidget& w) {
        const char* names[] = {"CheckDisplayReturn", "CheckDisplayStamp", "CheckDisplayBarcode",
                               "CheckDate",          "CheckNameIndex",    "CheckPageNumber"};
        const bool ticked[] = {true, false, false, true, false, false};
        for (int i = 0; i < 6; ++i)
            EXPECT_EQ(box(w, names[i])->isChecked(), ticked[i]) << names[i];
        chooseTab(w, 1);
        tick(w, "CheckDisplayStamp");
        press(w, "CommandOk");
    });
    EXPECT_EQ(stored(), (QList<double>{1, 1, 0, 1, 0, 0})) << "-1, 2 and 5 show as clear and are written as 0";
}

TEST_F(OptionsWindowTest, TheTabsShowTheirOwnFrameCentredOnThePanel)
{
    withOptions([](QWidget& w) {
        auto* strip = control<ui::TabStrip>(w, QStringLiteral("TabStrip1"));
        EXPECT_EQ(strip->selectedKey(), QStringLiteral("reports"));
        EXPECT_TRUE(visible(w, "FrameReportSettings"));
        EXPECT_FALSE(visible(w, "FrameEnvelopeSettings"));
        EXPECT_TRUE(visible(w, "FrameGeneralSettings"));
        keepPicture(&w, QStringLiteral("FormOptions-reports"));
        for (const char* frame : {"FrameReportSettings", "FrameEnvelopeSettings"}) {
            const QRect placed = control<QGroupBox>(w, QString::fromLatin1(frame))->geometry();
            EXPECT_LE(std::abs(placed.center().x() - strip->clientRect().center().x()), 1) << frame;
            EXPECT_LE(std::abs(placed.center().y() - strip->clientRect().center().y()), 1) << frame;
        }
        chooseTab(w, 1);
        EXPECT_EQ(strip->selectedKey(), QStringLiteral("envelopes"));
        EXPECT_FALSE(visible(w, "FrameReportSettings"));
        EXPECT_TRUE(visible(w, "FrameEnvelopeSettings"));
        keepPicture(&w, QStringLiteral("FormOptions-envelopes"));
        chooseTab(w, 0);
        EXPECT_TRUE(visible(w, "FrameReportSettings"));
        QTest::keyClick(&w, Qt::Key_Escape);
    });
}

TEST_F(OptionsWindowTest, CancelAndTheCloseBoxWriteNothingAndHelpKeepsTheWindow)
{
    SetNOption(7, 2);
    const QList<double> before = stored();
    withOptions([](QWidget& w) {
        tick(w, "CheckDate");
        chooseTab(w, 1);
        tick(w, "CheckDisplayReturn");
        tick(w, "CheckDisplayStamp");
        press(w, "CommandCancel");
    });
    EXPECT_EQ(stored(), before);
    withOptions([](QWidget& w) {
        tick(w, "CheckDisplayBarcode");
        press(w, "CommandHelp");
        EXPECT_TRUE(w.isVisible()) << "Help leaves the window up";
        w.close();
    });
    EXPECT_EQ(stored(), before);
}

TEST_F(OptionsWindowTest, OkWithAListingReportUpReloadsItWithItsNewFooter)
{
    FrmAddressRpt* before = open("mnuPhone");
    ASSERT_NE(before, nullptr);
    EXPECT_FALSE(hidden(*before, "Field23"));
    EXPECT_TRUE(allText(*before).contains(QStringLiteral("11/22/2026")));
    withOptions([](QWidget& w) {
        tick(w, "CheckDate");
        tick(w, "CheckPageNumber");
        press(w, "CommandOk");
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FrmAddressRpt* after = shown();
    ASSERT_NE(after, nullptr);
    EXPECT_EQ(ReportType, QStringLiteral("P"));
    EXPECT_TRUE(hidden(*after, "Field23"));
    EXPECT_TRUE(hidden(*after, "Field1"));
    EXPECT_FALSE(hidden(*after, "Field5"));
    EXPECT_FALSE(allText(*after).contains(QStringLiteral("11/22/2026")));
    EXPECT_TRUE(ReturnToListings);

    ASSERT_TRUE(guarded([&] { QTest::mouseClick(control<QWidget>(*after, QStringLiteral("cmdClose")), Qt::LeftButton); }));
    EXPECT_EQ(shown(), nullptr);
    EXPECT_TRUE(IsFormLoaded("frmAddressBook")) << "closing the reloaded report still brings the listings back";
}

TEST_F(OptionsWindowTest, OkWithTheBirthdayReportUpLeavesItAlone)
{
    ASSERT_TRUE(trigger(QStringLiteral("mnuBirthDates")));
    FrmBirthdayRpt* report = forms::loaded<FrmBirthdayRpt>();
    ASSERT_NE(report, nullptr);
    auto* years = control<QComboBox>(*report, QStringLiteral("cmbYear"));
    ASSERT_TRUE(guarded([&] { QTest::keyClick(years, Qt::Key_Down); }));
    const QString year = years->currentText();
    ASSERT_EQ(year, QStringLiteral("2027"));
    withOptions([](QWidget& w) {
        tick(w, "CheckDate");
        press(w, "CommandOk");
    });
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_EQ(forms::loaded<FrmBirthdayRpt>(), report);
    EXPECT_EQ(years->currentText(), year);
    EXPECT_EQ(ReportType, QStringLiteral("B"));
    EXPECT_EQ(shown(), nullptr);
    EXPECT_EQ(GetNOption(100), 0);
}

} // namespace

TEST_F(OptionsWindowTest, TheOptionsAndTheReturnAddressOpenCentredInTheFrame)
{
    QList<QPoint> at, centre;
    withOptions([&](QWidget& w) {
        at << w.pos();
        centre << centredInFrame(w);
        chooseTab(w, 1);
        dialogs().onModal([&](QWidget& address) {
            EXPECT_EQ(address.objectName(), QStringLiteral("FormRetAddr"));
            at << address.pos();
            centre << centredInFrame(address);
            press(address, "CommandCancel");
        });
        press(w, "CommandRetAddr");
        press(w, "CommandCancel");
    });
    ASSERT_EQ(at.size(), 2);
    EXPECT_EQ(at, centre);
    EXPECT_FALSE(centre.contains(QPoint(0, 0)));
}
