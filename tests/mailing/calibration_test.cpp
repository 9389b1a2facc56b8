// The calibration of a printer: entered in the unit of the user's choice, kept per printer in the book,
// applied to what goes to that printer and never to a PDF file unless set for PDF files.

#include "labels_fixture.h"
#include "piece_pdf.h"

#include "../reports/printcapture.h"
#include "cupsqueue.h"

#include "core/options.h"
#include "mailing/calibrations.h"

#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QTemporaryDir>

using namespace hb;

class CalibrationTest : public LabelsFixture {
protected:
    void SetUp() override
    {
        LabelsFixture::SetUp();
        addListings();
        PieceName = QStringLiteral("5160 - Address");
        FrmLabels* labels = labelsWithFirstType();
        ASSERT_NE(labels, nullptr);
        click(*labels, QStringLiteral("cmdPrint"));
        w = forms::loaded<FrmMailIt>();
        ASSERT_NE(w, nullptr);
    }
    static void type(QAbstractSpinBox* box, const QString& text)
    {
        box->setFocus();
        box->selectAll();
        QTest::keyClicks(box, text);
        QTest::keyClick(box, Qt::Key_Tab);
    }
    // The dialog: the printer and the unit chosen from their lists by key, the four numbers typed.
    void calibrate(const QString& printer, const QString& unit, const QStringList& numbers, bool ok = true)
    {
        dialogs().onModal([=](QWidget& d) {
            auto choose = [&](const char* name, const QString& entry) {
                auto* box = control<QComboBox>(d, QString::fromLatin1(name));
                box->setFocus();
                const int row = box->findText(entry);
                ASSERT_GE(row, 0) << entry.toStdString();
                QTest::keyClick(box, Qt::Key_Home);
                for (int i = 0; i < row; ++i)
                    QTest::keyClick(box, Qt::Key_Down);
            };
            choose("cmbPrinter", printer);
            choose("cmbUnit", unit);
            const char* boxes[] = {"spnOffsetX", "spnOffsetY", "spnScaleX", "spnScaleY"};
            for (int i = 0; i < 4; ++i)
                type(control<QDoubleSpinBox>(d, QString::fromLatin1(boxes[i])), numbers[i]);
            keepPicture(&d, QStringLiteral("printer-calibration"));
            control<QDialogButtonBox>(d, QString())->button(ok ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel)->click();
        });
        click(*w, QStringLiteral("CommandCalibrate"));
    }
    // Each print starts on a fresh sheet, as a print moves the start on past the labels it used.
    void startAtOne()
    {
        dialogs().onModal([](QWidget& d) {
            type(control<QAbstractSpinBox>(d, QStringLiteral("spnStart")), QStringLiteral("1"));
            control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Ok)->click();
        });
        click(*w, QStringLiteral("CommandStartAt"));
    }
    QString printToFile(const QString& name)
    {
        startAtOne();
        const QString pdf = dir.filePath(name);
        printThroughMenu(PrintTo::PdfFile, pdf);
        return pdf;
    }
    // Printed to the CUPS PDF queue; the words of the first page that came out.
    QVector<PdfWord> printToQueue()
    {
        startAtOne();
        const QDateTime since = QDateTime::currentDateTime().addSecs(-1);
        printThroughMenu(PrintTo::Queue, CupsPdfQueue);
        const QString pdf = cupsPdfOutput(w->ezLabel().piecename(), since);
        EXPECT_FALSE(pdf.isEmpty()) << "nothing came out of the queue";
        const QVector<PdfWord> result = pdfWords(pdf);
        QFile::remove(pdf);
        return result;
    }
    FrmMailIt* w = nullptr;
    QTemporaryDir dir;
};

TEST_F(CalibrationTest, AnOffsetAndAScaleMoveEveryWordOnThePrinterAndNoneInAPdfFile)
{
    const QString reason = startCupsPdfQueue();
    if (!reason.isEmpty())
        GTEST_SKIP() << "CUPS cannot print here: " << reason.toStdString();
    const QVector<PdfWord> fileBefore = pdfWords(printToFile(QStringLiteral("before.pdf")));
    const QVector<PdfWord> printerBefore = printToQueue();
    ASSERT_GE(printerBefore.size(), 10);

    calibrate(CupsPdfQueue, QStringLiteral("mm"), {QStringLiteral("1.5"), QStringLiteral("-2"), QStringLiteral("101"),
                                                   QStringLiteral("101")});
    const label::Calibration kept = storedCalibration(CupsPdfQueue);
    EXPECT_NEAR(kept.dx, 1.5 * 72 / 25.4, 1e-9);
    EXPECT_NEAR(kept.dy, -2.0 * 72 / 25.4, 1e-9);
    EXPECT_DOUBLE_EQ(kept.sx, 1.01);
    EXPECT_DOUBLE_EQ(kept.sy, 1.01);
    EXPECT_TRUE(storedCalibration(QString()).isIdentity()) << "PDF files are left alone";

    // The queue's back end writes the page again on a grid of its own, which puts a word up to a fifth of
    // a point (0.07 mm) away; a PDF file follows to a hundredth (the test below).
    const QVector<PdfWord> printerAfter = printToQueue();
    ASSERT_EQ(printerAfter.size(), printerBefore.size());
    double worst = 0;
    for (int i = 0; i < printerBefore.size(); ++i) {
        const QPointF expected = kept.map({printerBefore[i].x, printerBefore[i].y});
        EXPECT_EQ(printerAfter[i].text, printerBefore[i].text);
        worst = std::max({worst, std::abs(printerAfter[i].x - expected.x()), std::abs(printerAfter[i].y - expected.y())});
    }
    EXPECT_LT(worst, 0.25) << "points from where the calibration puts the words";
    const QVector<PdfWord> fileAfter = pdfWords(printToFile(QStringLiteral("after.pdf")));
    ASSERT_EQ(fileAfter.size(), fileBefore.size());
    for (int i = 0; i < fileBefore.size(); ++i) {
        EXPECT_DOUBLE_EQ(fileAfter[i].x, fileBefore[i].x);
        EXPECT_DOUBLE_EQ(fileAfter[i].y, fileBefore[i].y);
    }
}

TEST_F(CalibrationTest, EachPrinterKeepsItsOwnValuesInTheBookAndCancelKeepsNothing)
{
    calibrate(QStringLiteral("(PDF files)"), QStringLiteral("in"),
              {QStringLiteral("0.1"), QStringLiteral("0.05"), QStringLiteral("99.5"), QStringLiteral("100")});
    const label::Calibration pdf = storedCalibration(QString());
    EXPECT_NEAR(pdf.dx, 7.2, 1e-9);
    EXPECT_NEAR(pdf.dy, 3.6, 1e-9);
    EXPECT_DOUBLE_EQ(pdf.sx, 0.995);
    calibrate(QStringLiteral("(PDF files)"), QStringLiteral("in"),
              {QStringLiteral("0.5"), QStringLiteral("0.5"), QStringLiteral("100"), QStringLiteral("100")}, false);
    EXPECT_NEAR(storedCalibration(QString()).dx, 7.2, 1e-9) << "cancelled";

    // Asked for, PDF files follow their calibration: every word moves by the offset and the scale.
    const label::Calibration asked{7.2, 3.6, 1.01, 0.99};
    storeCalibration(QString(), asked);
    const QVector<PdfWord> moved = pdfWords(printToFile(QStringLiteral("moved.pdf")));
    storeCalibration(QString(), {});
    const QVector<PdfWord> plain = pdfWords(printToFile(QStringLiteral("plain.pdf")));
    ASSERT_EQ(moved.size(), plain.size());
    ASSERT_FALSE(plain.isEmpty());
    for (int i = 0; i < plain.size(); ++i) {
        const QPointF expected = asked.map({plain[i].x, plain[i].y});
        EXPECT_NEAR(moved[i].x, expected.x(), 0.06) << plain[i].text.toStdString();
        EXPECT_NEAR(moved[i].y, expected.y(), 0.06) << plain[i].text.toStdString();
    }
    EXPECT_EQ(GetMemoOption(CalibrationsMemo), QString()) << "no line is kept for a calibration of none";
}

TEST_F(CalibrationTest, TheAlignmentPageHasTheSheetsOutlinesAndACrossHairInTheMiddleOfEachLabel)
{
    const QString pdf = dir.filePath(QStringLiteral("alignment.pdf"));
    dialogs().onModal([&](QWidget& d) {
        PrintCapture capture;
        capture.toPdf(pdf);
        dialogs().answerPrinter(true);
        click(d, QStringLiteral("cmdAlignmentPage"));
        EXPECT_EQ(capture.printersChosen(), 1);
        control<QDialogButtonBox>(d, QString())->button(QDialogButtonBox::Cancel)->click();
    });
    click(*w, QStringLiteral("CommandCalibrate"));
    EXPECT_EQ(pdfMediaBoxes(pdf), QStringList{QStringLiteral("612 x 792")});
    const label::Sheet& sheet = w->ezLabel().sheet();
    for (int i : {0, 29}) {
        const QRectF r = label::pieceRect(sheet, i);
        EXPECT_LT(pdfDarkestAround(pdf, r.center(), dir.filePath(QStringLiteral("a"))), 128) << "cross-hair " << i;
        EXPECT_LT(pdfDarkestAround(pdf, QPointF(r.left(), r.center().y() + 12), dir.filePath(QStringLiteral("b"))), 230)
            << "outline " << i;
        EXPECT_GT(pdfDarkestAround(pdf, r.center() + QPointF(30, 12), dir.filePath(QStringLiteral("c"))), 250)
            << "nothing else " << i;
    }
}
