// What comes out of the printer: each piece on its own paper, every typed line of text on its own line;
// read back from the PDF (MediaBox, pdftotext -bbox) and through the CUPS PDF queue.

#include "labels_fixture.h"
#include "piece_pdf.h"
#include "cupsqueue.h"


#include "core/options.h"

#include <QDateTime>
#include <QPlainTextEdit>
#include <QProcess>
#include <QTemporaryDir>

using namespace hb;

namespace {

// The top of the first word that reads so; NaN when there is none.
double topOf(const QVector<PdfWord>& all, const QString& text)
{
    const PdfWord* w = pdfWord(all, text);
    return w ? w->y : std::nan("");
}

} // namespace

class PiecePaperTest : public LabelsFixture {
protected:
    // The labels of the first type in the preview on a piece, printed through File > Print to a PDF file.
    QString printToPdf(const QString& piece, const QString& name = QStringLiteral("pieces.pdf"))
    {
        FrmMailIt* w = preview(piece);
        EXPECT_NE(w, nullptr);
        const QString pdf = dir.filePath(name);
        printThroughMenu(PrintTo::PdfFile, pdf, withDefaultPaper);
        return pdf;
    }
    FrmMailIt* preview(const QString& piece)
    {
        if (!forms::loaded<FrmLabels>()) {
            PieceName = piece;
            FrmLabels* labels = labelsWithFirstType();
            EXPECT_NE(labels, nullptr);
            click(*labels, QStringLiteral("cmdPrint"));
        }
        return forms::loaded<FrmMailIt>();
    }
    // The print dialog accepted as it comes: it has put the paper of the printer (A4 here) in the place
    // of the piece's own, keeping the orientation.
    static bool withDefaultPaper(QPrinter& printer)
    {
        printer.setPageSize(QPageSize(QPageSize::A4));
        return true;
    }
    QTemporaryDir dir;
};

TEST_F(PiecePaperTest, EnvelopesAndCardsPrintToPdfOnPaperOfTheirOwnSize)
{
    addListings();
    const struct { QString piece, box; } cases[] = {
        {QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"), QStringLiteral("684 x 297")},
        {QStringLiteral("4 x 6 - Post Card"), QStringLiteral("432 x 288")},
        {QStringLiteral("4 1/4 x 5 1/2 - Note Card, folded"), QStringLiteral("612 x 396")},
        {QStringLiteral("4 1/4 x 5 1/2 - Note Card, flat"), QStringLiteral("306 x 396")}};
    for (const auto& c : cases) {
        const QString pdf = printToPdf(c.piece, c.box + QStringLiteral(".pdf"));
        EXPECT_EQ(pdfMediaBoxes(pdf), QStringList(3, c.box)) << c.piece.toStdString();
        EXPECT_EQ(pdfWords(pdf).value(0).text, QStringLiteral("Ann")) << c.piece.toStdString();
        click(*forms::loaded<FrmMailIt>(), QStringLiteral("CommandClose"));
    }
}

TEST_F(PiecePaperTest, AReturnAddressTypedWithEnterPrintsAsThreeLines)
{
    addListings();
    SetNOption(6, 1);
    FrmMailIt* w = preview(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    ASSERT_NE(w, nullptr);
    dialogs().onModal([](QWidget& d) {
        auto* text = control<QPlainTextEdit>(d, QStringLiteral("Text1"));
        text->setFocus();
        text->selectAll();
        QTest::keyClicks(text, QStringLiteral("Jane Doe"));
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("1 Test Lane"));
        QTest::keyClick(text, Qt::Key_Return);
        QTest::keyClicks(text, QStringLiteral("Springfield, IL 62701"));
        click(d, QStringLiteral("CommandOk"));
    });
    click(*w, QStringLiteral("CommandRetAddr"));
    ASSERT_EQ(GetMemoOption(1), QStringLiteral("Jane Doe\n1 Test Lane\nSpringfield, IL 62701")) << "stored as typed";
    const QVector<PdfWord> all = pdfWords(printToPdf(QString()));
    const double jane = topOf(all, QStringLiteral("Jane")), lane = topOf(all, QStringLiteral("Lane")),
                 springfield = topOf(all, QStringLiteral("Springfield,"));
    EXPECT_LT(jane, lane);
    EXPECT_LT(lane, springfield);
    EXPECT_NEAR(lane - jane, springfield - lane, 0.5) << "three lines, one under the other";
    EXPECT_TRUE(std::isnan(topOf(all, QStringLiteral("Doe1")))) << "no two lines run together";
}

TEST_F(PiecePaperTest, NotesWithLineFeedsPrintOnLinesOfTheirOwnOnLabels)
{
    addListing({1, QStringLiteral("Ann Able"), QStringLiteral("Able"), 0,
                {{QStringLiteral("Notes"), QStringLiteral("Gate code 12\nRing twice\r\nBack door")}}});
    for (int i = 313; i <= 326; ++i)
        SetNOption(i, i == 313 || i == 320 ? 1 : 0);
    const QVector<PdfWord> all = pdfWords(printToPdf(QStringLiteral("5160 - Address")));
    const double tops[] = {topOf(all, QStringLiteral("Ann")), topOf(all, QStringLiteral("Gate")),
                           topOf(all, QStringLiteral("Ring")), topOf(all, QStringLiteral("Back"))};
    for (int i = 1; i < 4; ++i)
        EXPECT_GT(tops[i], tops[i - 1] + 3) << "line " << i;
}

TEST_F(PiecePaperTest, AnEnvelopeAndAPostCardReachThePrinterOnTheirOwnPaperFedShortEdgeFirst)
{
    const QString reason = startCupsPdfQueue();
    if (!reason.isEmpty())
        GTEST_SKIP() << "CUPS cannot print here: " << reason.toStdString();
    addListings();
    const struct { QString piece, box; } cases[] = {
        {QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"), QStringLiteral("297 x 684")},
        {QStringLiteral("4 x 6 - Post Card"), QStringLiteral("288 x 432")}};
    for (const auto& c : cases) {
        FrmMailIt* w = preview(c.piece);
        ASSERT_NE(w, nullptr);
        const QDateTime since = QDateTime::currentDateTime().addSecs(-1);
        printThroughMenu(PrintTo::Queue, CupsPdfQueue, withDefaultPaper);
        const QString pdf = cupsPdfOutput(c.piece, since);
        ASSERT_FALSE(pdf.isEmpty()) << "no output of " << c.piece.toStdString();
        EXPECT_EQ(pdfMediaBoxes(pdf), QStringList(3, c.box)) << c.piece.toStdString();
        QFile::remove(pdf);
        click(*w, QStringLiteral("CommandClose"));
    }
}
