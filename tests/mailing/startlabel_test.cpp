// A partly used sheet: the run starts at a position picked on a drawing of the sheet, the next run is
// offered the position after the last label used, per sheet and across sessions; and the outlines of the
// labels printed on plain paper for a test.

#include "labels_fixture.h"
#include "piece_pdf.h"


#include "mailing/startpositions.h"
#include "platform/label/catalogue.h"
#include "platform/label/sheetpicture.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QSpinBox>
#include <QTemporaryDir>

using namespace hb;

class StartLabelTest : public LabelsFixture {
protected:
    void SetUp() override
    {
        LabelsFixture::SetUp();
        addListings();
    }
    FrmMailIt* preview(const QString& piece = QStringLiteral("5160 - Address"))
    {
        PieceName = piece;
        FrmLabels* labels = labelsWithFirstType();
        EXPECT_NE(labels, nullptr);
        click(*labels, QStringLiteral("cmdPrint"));
        return forms::loaded<FrmMailIt>();
    }
    QString print(const QString& name)
    {
        const QString pdf = dir.filePath(name);
        printThroughMenu(PrintTo::PdfFile, pdf);
        return pdf;
    }
    // Picks a position on the drawing of the sheet with the mouse; gives back the place the dialog named.
    QString startAt(FrmMailIt& w, int position)
    {
        QString place;
        dialogs().onModal([&](QWidget& d) {
            auto* picture = control<label::SheetPicture>(d, QStringLiteral("picSheet"));
            QTest::mouseClick(picture, Qt::LeftButton, {}, picture->positionCentre(position).toPoint());
            EXPECT_EQ(control<QSpinBox>(d, QStringLiteral("spnStart"))->value(), position);
            place = control<QLabel>(d, QStringLiteral("lblPlace"))->text();
            keepPicture(&d, QStringLiteral("start-at-label"));
            control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
        });
        click(w, QStringLiteral("CommandStartAt"));
        return place;
    }
    static QString caption(FrmMailIt& w) { return control<QPushButton>(w, QStringLiteral("CommandStartAt"))->text(); }
    QTemporaryDir dir;
};

TEST_F(StartLabelTest, StartAtLabelSevenOfA5160PutsTheFirstLabelInRowThreeAndTheNextRunAfterTheLast)
{
    const label::Sheet* sheet = label::SheetCatalogue::shared().find(QStringLiteral("5160 - Address"));
    ASSERT_NE(sheet, nullptr);
    FrmMailIt* w = preview();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 1"));
    const QVector<PdfWord> fresh = pdfWords(print(QStringLiteral("fresh.pdf")));
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 4")) << "three labels used";

    EXPECT_EQ(startAt(*w, 7), QStringLiteral("Row 3, column 1"));
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 7"));
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 1 of 1"));
    const QVector<PdfWord> used = pdfWords(print(QStringLiteral("used.pdf")));
    const PdfWord *before = pdfWord(fresh, QStringLiteral("Ann")), *after = pdfWord(used, QStringLiteral("Ann"));
    ASSERT_TRUE(before && after);
    const QPointF step = label::pieceOrigin(*sheet, 6) - label::pieceOrigin(*sheet, 0);
    EXPECT_NEAR(after->x - before->x, step.x(), 0.05);
    EXPECT_NEAR(after->y - before->y, step.y(), 0.05) << "two rows of one inch down";
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 10"));

    // Another sheet keeps its own place; this one is offered again in the next session.
    click(*w, QStringLiteral("CommandClose"));
    EXPECT_EQ(storedStartPosition(QStringLiteral("5160 - Address")), 10);
    EXPECT_EQ(storedStartPosition(QStringLiteral("5163 - Shipping")), 1);
    FrmMailIt* again = preview();
    ASSERT_NE(again, nullptr);
    EXPECT_EQ(caption(*again), QStringLiteral("Start at Label 10"));
}

TEST_F(StartLabelTest, ARunThatFillsPastTheSheetEndsOnTheNextAndPagesCountTheUsedPositions)
{
    storeStartPosition(QStringLiteral("5160 - Address"), 29);
    FrmMailIt* w = preview();
    ASSERT_NE(w, nullptr);
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 29"));
    EXPECT_EQ(text(*w, "LabelPagenofn"), QStringLiteral("Page 1 of 2")) << "two labels on the first sheet, one on the next";
    const QString pdf = print(QStringLiteral("over.pdf"));
    EXPECT_EQ(pdfPages(pdf), 2);
    EXPECT_NE(pdfWord(pdfWords(pdf, 2), QStringLiteral("Cy")), nullptr);
    EXPECT_EQ(caption(*w), QStringLiteral("Start at Label 2"));
}

TEST_F(StartLabelTest, PrintOutlinesDrawsTheEdgesOfEveryLabelOnThePaper)
{
    const label::Sheet* sheet = label::SheetCatalogue::shared().find(QStringLiteral("5160 - Address"));
    ASSERT_NE(sheet, nullptr);
    FrmMailIt* w = preview();
    ASSERT_NE(w, nullptr);
    // The left edge of the last label of the sheet, half way down: no text there.
    const QRectF last = label::pieceRect(*sheet, 29);
    const QPointF edge(last.left(), last.center().y());
    EXPECT_GT(pdfDarkestAround(print(QStringLiteral("plain.pdf")), edge, dir.filePath(QStringLiteral("plain"))), 250);
    auto* outlines = control<QCheckBox>(*w, QStringLiteral("chkOutlines"));
    QTest::mouseClick(outlines, Qt::LeftButton, {}, QPoint(6, outlines->height() / 2));
    ASSERT_TRUE(outlines->isChecked());
    EXPECT_LT(pdfDarkestAround(print(QStringLiteral("outlined.pdf")), edge, dir.filePath(QStringLiteral("outlined"))), 230);
}
