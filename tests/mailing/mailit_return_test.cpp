// The preview shown again, and what its buttons and the frame do then: "Return to Selections" and back,
// the Layout dialog's choices, Choose Fields, and the windows it opens.

#include "labels_fixture.h"

#include "../reports/printcapture.h"
#include "framecentre.h"

#include "core/options.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QMdiSubWindow>
#include <QTemporaryDir>

using namespace hb;

class MailItReturnTest : public LabelsFixture {
protected:
    FrmMailIt* preview(const QString& piece = QStringLiteral("5160 - Address"))
    {
        addListings();
        PieceName = piece;
        labels = labelsWithFirstType();
        EXPECT_NE(labels, nullptr);
        click(*labels, QStringLiteral("cmdPrint"));
        return forms::loaded<FrmMailIt>();
    }
    static QAction* action(const char* name) { return control<QAction>(*FrmMDI::instance(), QString::fromLatin1(name)); }

    FrmLabels* labels = nullptr;
};

TEST_F(MailItReturnTest, APreviewShownAgainAfterReturnToSelectionsPrintsAndHasPageSetup)
{
    FrmMailIt* w = preview();
    ASSERT_NE(w, nullptr);
    click(*w, QStringLiteral("CommandSelect"));
    EXPECT_EQ(ReportType, QStringLiteral("L"));
    click(*labels, QStringLiteral("cmdPrint"));
    ASSERT_EQ(forms::loaded<FrmMailIt>(), w) << "the same window, shown again";
    EXPECT_EQ(ReportType, QStringLiteral("M"));
    EXPECT_TRUE(action("mnuPageSetup")->isEnabled());
    EXPECT_TRUE(action("Print")->isEnabled());
    EXPECT_EQ(action("mnuPrint")->shortcut(), QKeySequence(QStringLiteral("Ctrl+P")));
    for (const char* key : {"Left", "Grid"})
        EXPECT_FALSE(action(key)->isChecked()) << key;

    QTemporaryDir dir;
    const struct { const char* how; std::function<void()> print; } ways[] = {
        {"File > Print", [] { action("mnuPrint")->trigger(); }},
        {"the toolbar", [] { action("Print")->trigger(); }}};
    for (const auto& way : ways) {
        PrintCapture capture;
        capture.toPdf(dir.filePath(QStringLiteral("again.pdf")));
        dialogs().answerPrinter(true);
        EXPECT_TRUE(guarded(way.print));
        EXPECT_EQ(capture.printersChosen(), 1) << way.how;
        EXPECT_EQ(pdfPages(dir.filePath(QStringLiteral("again.pdf"))), 1) << way.how;
        QFile::remove(dir.filePath(QStringLiteral("again.pdf")));
    }
}

TEST_F(MailItReturnTest, TheLayoutDialogTurnsTheStampAndTheReturnAddressOnAndOffOnAnEnvelope)
{
    SetNOption(6, 1);
    SetNOption(7, 0);
    FrmMailIt* w = preview(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    ASSERT_NE(w, nullptr);
    auto tickAndOk = [this, w](std::initializer_list<const char*> boxes) {
        dialogs().onModal([boxes](QWidget& d) {
            for (const char* name : boxes)
                QTest::mouseClick(control<QCheckBox>(d, QString::fromLatin1(name)), Qt::LeftButton, {}, QPoint(6, 6));
            control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
        });
        click(*w, QStringLiteral("CommandLayout"));
    };
    tickAndOk({"chkItem3"});
    EXPECT_EQ(int(GetNOption(7)), 1) << "the stamp ticked";
    EXPECT_TRUE(w->ezLabel().item(FrmMailIt::StampItem).visible);
    EXPECT_EQ(int(GetNOption(6)), 1);
    tickAndOk({"chkItem2", "chkItem3"});
    EXPECT_EQ(int(GetNOption(6)), 0) << "the return address cleared";
    EXPECT_EQ(int(GetNOption(7)), 0);
    EXPECT_FALSE(w->ezLabel().item(FrmMailIt::ReturnAddressItem).visible);
}

TEST_F(MailItReturnTest, ChooseFieldsKeepsTheMaximisedPreviewAndItsWindowsOpenCentred)
{
    FrmMailIt* w = preview(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    ASSERT_NE(w, nullptr);
    auto* sub = qobject_cast<QMdiSubWindow*>(w->outerWindow());
    ASSERT_NE(sub, nullptr);
    sub->showMaximized();
    QCoreApplication::processEvents();
    const QRect whole = sub->geometry();
    const struct { const char* button; const char* window; const char* close; } opened[] = {
        {"CommandCustomize", "FormCustomizeReport", "CommandOk"}, {"CommandRetAddr", "FormRetAddr", "CommandCancel"}};
    for (const auto& o : opened) {
        QPoint at, centre;
        dialogs().onModal([&](QWidget& d) {
            EXPECT_EQ(d.objectName(), QLatin1String(o.window));
            at = d.pos();
            centre = centredInFrame(d);
            click(d, QString::fromLatin1(o.close));
        });
        click(*w, QString::fromLatin1(o.button));
        EXPECT_EQ(at, centre) << o.window;
        EXPECT_NE(centre, QPoint(0, 0)) << o.window;
        EXPECT_TRUE(sub->isMaximized()) << "after " << o.button;
        EXPECT_EQ(sub->geometry(), whole) << "after " << o.button;
    }
    QPoint at, centre;
    dialogs().onModal([&](QWidget& d) {
        at = d.pos();
        centre = centredInFrame(d);
        click(d, QStringLiteral("CommandCancel"));
    });
    ASSERT_TRUE(guarded([] { action("mnu_Options")->trigger(); }));
    EXPECT_EQ(at, centre) << "the options over the preview";
}
