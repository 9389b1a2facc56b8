// Before paper is used: the labels whose text had to be made smaller or was cut, and the listings chosen
// twice, listed above the page; a click on an entry shows the label's page.

#include "labels_fixture.h"

#include "core/options.h"

#include <QDialogButtonBox>
#include <QListWidget>

using namespace hb;

class PieceChecksTest : public LabelsFixture {
protected:
    static QStringList entries(FrmMailIt& w)
    {
        auto* list = control<QListWidget>(w, QStringLiteral("lstCheck"));
        QStringList result;
        for (int i = 0; i < list->count(); ++i)
            result << list->item(i)->text();
        return result;
    }
    static bool checked(FrmMailIt& w)
    {
        for (int i = 0; i < 500 && w.ezLabel().checking(); ++i)
            QCoreApplication::processEvents();
        return !w.ezLabel().checking();
    }
};

TEST_F(PieceChecksTest, ShrunkCutAndRepeatedLabelsAreListedAndAClickShowsTheirPage)
{
    addListings();
    for (int i = 1; i <= 30; ++i)
        addListing({100 + i, QStringLiteral("Filler %1").arg(i, 2, 10, QLatin1Char('0'))});
    QStringList notes;
    for (int i = 1; i <= 14; ++i)
        notes << QStringLiteral("Note line %1").arg(i);
    addListing({40, QStringLiteral("Yves Notes"), QStringLiteral("Yyy"), 0, {{QStringLiteral("Notes"), notes.join(QLatin1Char('\n'))}}});
    addListing({41, QStringLiteral("Zed Featherstonehaugh-Cholmondeley-Marjoribanks"), QStringLiteral("Zzz"), 0});
    for (int i = 313; i <= 326; ++i)
        SetNOption(i, i == 313 || i == 314 || i == 320 ? 1 : 0);
    PieceName = QStringLiteral("5160 - Address");
    FrmLabels* labels = labelsWithFirstType();
    ASSERT_NE(labels, nullptr);
    clickRow(list(*labels, "lstLabels"), 0);
    click(*labels, QStringLiteral("cmdDuplicate"));
    click(*labels, QStringLiteral("cmdPrint"));
    FrmMailIt* w = forms::loaded<FrmMailIt>();
    ASSERT_NE(w, nullptr);
    ASSERT_TRUE(checked(*w));
    EXPECT_EQ(entries(*w), (QStringList{QStringLiteral("Label 2: same listing as label 1"), QStringLiteral("Label 35: text cut"),
                                        QStringLiteral("Label 36: text made smaller")}));
    EXPECT_TRUE(control<QListWidget>(*w, QStringLiteral("lstCheck"))->isVisible());
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 1 of 2"));
    clickRow(control<QListWidget>(*w, QStringLiteral("lstCheck")), 2);
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 2 of 2"));
    keepPicture(w, QStringLiteral("preview-checks"));
    clickRow(control<QListWidget>(*w, QStringLiteral("lstCheck")), 0);
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 1 of 2"));

    // A larger label leaves room: only the repeated listing is left.
    dialogs().onModal([](QWidget& d) {
        QTest::keyClicks(control<QLineEdit>(d, QStringLiteral("txtSearch")), QStringLiteral("#10 - Envelope"));
        clickRow(control<QListWidget>(d, QStringLiteral("lstPieces")), 0);
        control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
    });
    click(*w, QStringLiteral("CommandPiece"));
    ASSERT_TRUE(checked(*w));
    EXPECT_EQ(entries(*w), QStringList{QStringLiteral("Label 2: same listing as label 1")});
}
