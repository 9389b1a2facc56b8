#include "labels_fixture.h"

#include "core/options.h"
#include "core/misc.h"
#include "core/formdebug.h"
#include "mailing/formretaddr.h"
#include "platform/label/sheetpicture.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QComboBox>
#include <QListWidget>
#include <QPlainTextEdit>
#include <QPushButton>

using namespace hb;

class MailItTest : public LabelsFixture {
protected:
    void addLabelRow(int number, const QString& name, int roof = 0, const QString& a1 = QString(),
                     const QString& city = QString())
    {
        DB.execute(QStringLiteral("insert into RptLabels (LabelNumber, NameOnLabel, Address1, Address2, citystatezip, RoofNumber) "
                                  "values (%1, '%2', '%3', '', '%4', %5)")
                       .arg(number).arg(DoubleQuotes(name), a1, city).arg(roof));
    }
    void addLabelRows(int count)
    {
        for (int i = 1; i <= count; ++i)
            addLabelRow(i, QStringLiteral("Name %1").arg(i));
    }

    FrmMailIt* load(const QString& piece = QStringLiteral("5160 - Address"))
    {
        PieceName = piece;
        EXPECT_TRUE(guarded([] { forms::get<FrmMailIt>().LoadMailIt(); }));
        return forms::loaded<FrmMailIt>();
    }

    static QString buttons(QWidget& w)
    {
        QString s;
        for (const char* b : {"CommandFirstPage", "CommandPreviousPage", "CommandNextPage", "CommandLastPage"})
            s += enabled(w, b) ? QLatin1Char('1') : QLatin1Char('0');
        return s;
    }
    static QString data(FrmMailIt& w, int piece) { return w.ezLabel().pieces().value(piece); }

    static void setPieceFields(std::initializer_list<int> on)
    {
        for (int i = 313; i <= 326; ++i)
            SetNOption(i, 0);
        for (int i : on)
            SetNOption(i, 1);
    }
};

TEST_F(MailItTest, PieceTextFollowsEachFieldOptionWithAndWithoutIndividuals)
{
    addListing({7, QStringLiteral("The Lee Family"), QStringLiteral("Lee"), 0,
                {{QStringLiteral("Phone"), QStringLiteral("555-1000")}, {QStringLiteral("Cell"), QStringLiteral("555-2000")},
                 {QStringLiteral("Fax"), QStringLiteral("555-3000")}, {QStringLiteral("Email"), QStringLiteral("lee@x.org")},
                 {QStringLiteral("Anniversary"), QDate(1990, 6, 2)}, {QStringLiteral("Notes"), QStringLiteral("Say \"hi\"")},
                 {QStringLiteral("Zip"), QStringLiteral("97301")}}});
    addListing({8, QStringLiteral("Lone"), QString(), 0});
    addPerson(7, 70, QStringLiteral("Kim"), QStringLiteral("Lee"), QDate(1980, 3, 4),
              {{QStringLiteral("work"), QStringLiteral("Acme")}, {QStringLiteral("WorkPhone"), QStringLiteral("555-4000")},
               {QStringLiteral("Email"), QStringLiteral("kim@x.org")}, {QStringLiteral("Notes"), QStringLiteral("Kim note")}});
    addLabelRow(1, QStringLiteral("The \"Lee\" Family"), 7, QStringLiteral("1 Oak St"), QStringLiteral("Salem, OR  97301"));
    addLabelRow(2, QStringLiteral("Lone"), 8);
    addPerson(7, 69, QStringLiteral("Al"), QStringLiteral("Lee"));   // stored after Kim: listed after Kim
    addLabelRow(3, QStringLiteral(" "));
    addLabelRow(4, QStringLiteral("Gone"), 99);   // its listing was deleted after the list was made

    const struct { int option; QString line; } cases[] = {
        {313, QStringLiteral("The 'Lee' Family\r")}, {314, QStringLiteral("1 Oak St\rSalem, OR  97301\r")},
        {315, QStringLiteral("Phone: 555-1000\r")}, {316, QStringLiteral("Cell: 555-2000\r")},
        {317, QStringLiteral("Fax: 555-3000\r")}, {318, QStringLiteral("lee@x.org\r")},
        {319, QStringLiteral("Imp Date: 6/2/1990\r")}, {320, QStringLiteral("Say 'hi'\r")},
        {321, QStringLiteral("  Kim Lee\r  Al Lee\r")}, {322, QStringLiteral("  Acme\r")}, {323, QStringLiteral("  Phone: 555-4000\r")},
        {324, QStringLiteral("  DOB: 3/4/1980\r")}, {325, QStringLiteral("  kim@x.org\r")}, {326, QStringLiteral("  Kim note\r")}};
    for (const auto& c : cases) {
        setPieceFields({c.option});
        FrmMailIt* w = load();
        ASSERT_NE(w, nullptr);
        EXPECT_EQ(data(*w, 0), QStringLiteral("thedata^") + c.line) << c.option;
        const QString lone = c.option == 313 ? QStringLiteral("Lone\r") : QString();
        EXPECT_EQ(data(*w, 1), QStringLiteral("thedata^") + lone) << "a listing without individuals, option " << c.option;
        const QString gone = c.option == 313 ? QStringLiteral("Gone\r") : QString();
        EXPECT_EQ(data(*w, 3), QStringLiteral("thedata^") + gone) << "a label whose listing is gone, option " << c.option;
    }
    setPieceFields({});
    FrmMailIt* w = load();
    EXPECT_EQ(w->ezLabel().pieces(), QStringList(4, QStringLiteral("thedata^"))) << "all off: empty pieces keep their place";
    EXPECT_FALSE(w->ezLabel().items().barcode.visible);
}

TEST_F(MailItTest, ChooseFieldsStoresThePieceFieldsAndReloadsThePieces)
{
    addListing({7, QStringLiteral("The Lee Family"), QStringLiteral("Lee"), 0, {{QStringLiteral("Phone"), QStringLiteral("555-1000")}}});
    addLabelRow(1, QStringLiteral("The Lee Family"), 7, QStringLiteral("1 Oak St"), QStringLiteral("Salem, OR  97301"));
    setPieceFields({313});
    SetNOption(15, 1);   // the report's own choice of the phone
    FrmMailIt* w = load();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(data(*w, 0), QStringLiteral("thedata^The Lee Family\r"));
    dialogs().onModal([](QWidget& d) {
        auto box = [&](int i) { return control<QCheckBox>(d, QStringLiteral("Checkitem_%1").arg(i)); };
        EXPECT_EQ(d.windowTitle(), QStringLiteral("Customize Label/Envelope"));
        EXPECT_FALSE(box(12)->isVisibleTo(&d));
        EXPECT_TRUE(box(13)->isChecked());
        EXPECT_FALSE(box(15)->isChecked()) << "the pieces' own choices, not the report's";
        // On the tick box itself: the box is wider than its caption, and a click beside the caption is no click.
        for (int i : {13, 14, 15})
            QTest::mouseClick(box(i), Qt::LeftButton, {}, QPoint(8, box(i)->height() / 2));

        QTest::mouseClick(control<QPushButton>(d, QStringLiteral("CommandOk")), Qt::LeftButton);
    });
    QTest::mouseClick(control<QPushButton>(*w, QStringLiteral("CommandCustomize")), Qt::LeftButton);
    EXPECT_EQ(int(GetNOption(313)), 0);
    EXPECT_EQ(int(GetNOption(314)), 1);
    EXPECT_EQ(int(GetNOption(315)), 1);
    EXPECT_EQ(int(GetNOption(15)), 1);
    ASSERT_EQ(w->ezLabel().pieces().size(), 1);
    EXPECT_EQ(data(*w, 0), QStringLiteral("thedata^1 Oak St\rSalem, OR  97301\rPhone: 555-1000\r"));
}

TEST_F(MailItTest, PagingOfAThirtyUpSheetAndItsButtons)
{
    const struct { int labels; QString first, last; } cases[] = {
        {1, QStringLiteral("Page 1 of 1"), QStringLiteral("Page 1 of 1")},
        {30, QStringLiteral("Page 1 of 1"), QStringLiteral("Page 1 of 1")},
        {31, QStringLiteral("Page 1 of 2"), QStringLiteral("Page 2 of 2")},
        {3000, QStringLiteral("Page 1 of 100"), QStringLiteral("Page 100 of 100")}};
    for (const auto& c : cases) {
        DB.execute(QStringLiteral("delete from RptLabels"));
        addLabelRows(c.labels);
        FrmMailIt* w = load();
        ASSERT_NE(w, nullptr);
        EXPECT_EQ(text(*w, "LabelPagenofn"), c.first);
        EXPECT_EQ(buttons(*w), c.labels > 30 ? QStringLiteral("0011") : QStringLiteral("0000")) << c.labels;
        QTest::mouseClick(control<QPushButton>(*w, QStringLiteral("CommandLastPage")), Qt::LeftButton);
        EXPECT_EQ(text(*w, "LabelPagenofn"), c.last);
        if (c.labels > 30) {
            EXPECT_EQ(buttons(*w), QStringLiteral("1100"));
            QTest::mouseClick(control<QPushButton>(*w, QStringLiteral("CommandPreviousPage")), Qt::LeftButton);
            EXPECT_EQ(text(*w, "LabelPagenofn"), c.labels == 31 ? c.first : QStringLiteral("Page 99 of 100"));
            QTest::mouseClick(control<QPushButton>(*w, QStringLiteral("CommandFirstPage")), Qt::LeftButton);
            QTest::mouseClick(control<QPushButton>(*w, QStringLiteral("CommandNextPage")), Qt::LeftButton);
            EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 2 of %1").arg(c.labels == 31 ? 2 : 100));
        }
    }
}

TEST_F(MailItTest, PageTopRowsRunFromHalfAnInchUpToHalfAnInchDown)
{
    addLabelRows(1);
    FrmMailIt* w = load();
    auto* combo = control<QComboBox>(*w, QStringLiteral("cmbPageTop"));
    ASSERT_EQ(combo->count(), 21);
    EXPECT_EQ(combo->itemText(0), QStringLiteral("Up .50 Inches"));
    EXPECT_EQ(combo->itemText(9), QStringLiteral("Up .05 Inches"));
    EXPECT_EQ(combo->itemText(10), QStringLiteral("Adjust Print 0"));
    EXPECT_EQ(combo->itemText(11), QStringLiteral("Down .05 Inches"));
    EXPECT_EQ(combo->itemText(20), QStringLiteral("Down .50 Inches"));
    EXPECT_EQ(combo->currentIndex(), 10);
    const struct { int row; float inches; } picks[] = {{4, 0.30f}, {10, 0.0f}, {20, -0.50f}};
    for (const auto& p : picks) {
        combo->setFocus();
        QTest::keyClick(combo, Qt::Key_Home);
        for (int i = 0; i < p.row; ++i)
            QTest::keyClick(combo, Qt::Key_Down);
        EXPECT_EQ(combo->currentIndex(), p.row);
        EXPECT_NEAR(w->ezLabel().pageTop, p.inches, 1e-6);
    }
}

TEST_F(MailItTest, AnEnvelopeShowsReturnAddressAndStampAsTheOptionsSay)
{
    SetMemoOption(1, QStringLiteral("Me\r1 My St"));
    SetNOption(6, 1);
    SetNOption(7, 0);
    addLabelRows(2);
    FrmMailIt* w = load();
    auto* retAddr = control<QPushButton>(*w, QStringLiteral("CommandRetAddr"));
    EXPECT_FALSE(retAddr->isVisible());
    EXPECT_FALSE(w->ezLabel().item(FrmMailIt::ReturnAddressItem).visible);

    // The piece dialog: search, pick the row with the mouse, OK.
    dialogs().onModal([&](QWidget& d) {
        QTest::keyClicks(control<QLineEdit>(d, QStringLiteral("txtSearch")), QStringLiteral("#10 - Envelope"));
        auto* pieces = control<QListWidget>(d, QStringLiteral("lstPieces"));
        ASSERT_EQ(pieces->count(), 1);
        clickRow(pieces, 0);
        EXPECT_FALSE(control<QLabel>(d, QStringLiteral("lblSize"))->text().isEmpty());
        keepPicture(&d, QStringLiteral("piece-dialog"));
        control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
    });
    click(*w, QStringLiteral("CommandPiece"));
    EXPECT_EQ(PieceName, QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    EXPECT_TRUE(retAddr->isVisible());
    EXPECT_TRUE(w->ezLabel().item(FrmMailIt::ReturnAddressItem).visible);
    EXPECT_EQ(w->ezLabel().item(FrmMailIt::ReturnAddressItem).text, QStringLiteral("Me\r1 My St"));
    EXPECT_FALSE(w->ezLabel().item(FrmMailIt::StampItem).visible);
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 1 of 2"));
    keepPicture(w, QStringLiteral("preview-envelope"));

    dialogs().onModal([&](QWidget& d) {
        QTest::keyClicks(control<QLineEdit>(d, QStringLiteral("txtSearch")), QStringLiteral("5163 - Shipping"));
        clickRow(control<QListWidget>(d, QStringLiteral("lstPieces")), 0);
        control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
    });
    click(*w, QStringLiteral("CommandPiece"));
    EXPECT_FALSE(retAddr->isVisible());
    EXPECT_FALSE(w->ezLabel().item(FrmMailIt::ReturnAddressItem).visible);
}

TEST_F(MailItTest, AStoredPieceThatIsGoneFallsBackToTheDefaultWithALineInTheDebugLog)
{
    addLabelRows(1);
    PieceName = QStringLiteral("Gone 123 - Vanished");
    ASSERT_TRUE(guarded([] { forms::get<FrmMailIt>().LoadMailIt(); }));
    EXPECT_TRUE(dialogs().messages().empty()) << "the preview has no messages of its own";
    FormDebug* debug = forms::loaded<FormDebug>();
    ASSERT_NE(debug, nullptr);
    EXPECT_TRUE(control<QPlainTextEdit>(*debug, QStringLiteral("TextDebug"))->toPlainText().contains(
        QLatin1String("Gone 123 - Vanished")));
    EXPECT_EQ(forms::loaded<FrmMailIt>()->ezLabel().piecename(), QStringLiteral("5264 - Shipping"));
    EXPECT_EQ(PieceName, QStringLiteral("5264 - Shipping"));
}

TEST_F(MailItTest, LayoutChangesAreKeptForTheNextSession)
{
    addLabelRows(1);
    FrmMailIt* w = load();
    dialogs().onModal([&](QWidget& d) {
        QTest::mouseClick(control<QCheckBox>(d, QStringLiteral("chkItem3")), Qt::LeftButton);
        auto* left = control<QDoubleSpinBox>(d, QStringLiteral("txtItem1_0"));
        left->setFocus();
        left->selectAll();
        QTest::keyClicks(left, QStringLiteral("2.5"));
        EXPECT_DOUBLE_EQ(left->value(), 2.5);
        // Dragged far to the right and up on the drawing, the box stops at the edges of the piece.
        auto* picture = control<label::SheetPicture>(d, QStringLiteral("picPiece"));
        const QPoint from = picture->pointAt({0.025 + 0.46, 0.04 + 0.46}).toPoint();
        QTest::mousePress(picture, Qt::LeftButton, {}, from);
        QTest::mouseMove(picture, from + QPoint(40, -10));
        EXPECT_GT(left->value(), 2.5);
        QTest::mouseMove(picture, from + QPoint(400, -100));
        QTest::mouseRelease(picture, Qt::LeftButton, {}, from + QPoint(400, -100));
        EXPECT_DOUBLE_EQ(left->value(), 8.0) << "a box 92% wide";
        EXPECT_DOUBLE_EQ(control<QDoubleSpinBox>(d, QStringLiteral("txtItem1_1"))->value(), 0.0);
        keepPicture(&d, QStringLiteral("layout-dialog"));
        control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
    });
    click(*w, QStringLiteral("CommandLayout"));
    EXPECT_EQ(int(GetNOption(7)), 0) << "a label piece: the stamp stays hidden and its option off";
    const QString stored = GetMemoOption(2);
    EXPECT_FALSE(stored.isEmpty());
    forms::unload(FrmMailIt::staticFormName());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    FrmMailIt* again = load();
    EXPECT_NEAR(again->ezLabel().item(FrmMailIt::AddressItem).box.x(), 0.08, 1e-9);
    EXPECT_NEAR(again->ezLabel().item(FrmMailIt::AddressItem).box.y(), 0.0, 1e-9);
    EXPECT_FALSE(again->ezLabel().item(FrmMailIt::StampItem).visible);
}

TEST_F(MailItTest, ReturnAddressWindowStoresOnlyOnOk)
{
    SetMemoOption(1, QStringLiteral("Old"));
    SetNOption(6, 0);
    FontRecord before;
    LoadFontRecord(1, before);
    ReportType = QStringLiteral(" ");
    dialogs().answerFont(false);
    dialogs().onModal([&](QWidget& d) {
        EXPECT_EQ(d.windowTitle(), QStringLiteral("Set Return Address"));
        EXPECT_EQ(control<QPlainTextEdit>(d, QStringLiteral("Text1"))->toPlainText(), QStringLiteral("Old"));
        click(d, QStringLiteral("CommandFont"));
        control<QPlainTextEdit>(d, QStringLiteral("Text1"))->setPlainText(QStringLiteral("Changed"));
        click(d, QStringLiteral("CommandCancel"));
    });
    ui::showModal(forms::get<FormRetAddr>());
    EXPECT_EQ(GetMemoOption(1), QStringLiteral("Old"));

    QFont chosen(QStringLiteral("DejaVu Serif"), 14);
    dialogs().answerFont(true, chosen);
    dialogs().onModal([&](QWidget& d) {
        click(d, QStringLiteral("CommandFont"));
        auto* text1 = control<QPlainTextEdit>(d, QStringLiteral("Text1"));
        text1->selectAll();
        QTest::keyClicks(text1, QStringLiteral("Me"));
        QTest::mouseClick(control<QCheckBox>(d, QStringLiteral("CheckReturnAddress")), Qt::LeftButton);
        click(d, QStringLiteral("CommandOk"));
    });
    ui::showModal(forms::get<FormRetAddr>());
    EXPECT_EQ(GetMemoOption(1), QStringLiteral("Me"));
    EXPECT_EQ(int(GetNOption(6)), 1);
    FontRecord after;
    ASSERT_TRUE(LoadFontRecord(1, after));
    EXPECT_EQ(after.name, QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(after.size, 14);
}
