#include "platform/label/catalogue.h"
#include "platform/label/labelcontrol.h"
#include "platform/label/pagerenderer.h"

#include <QFile>
#include <QPrinter>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <gtest/gtest.h>

using namespace hb::label;

namespace {

struct Word {
    QString text;
    QRectF box;
};

// The words of a PDF with their boxes in points, as pdftotext -bbox reports them.
QVector<Word> pdfWords(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    p.waitForFinished(60000);
    const QString html = QString::fromUtf8(p.readAllStandardOutput());
    static const QRegularExpression word(QStringLiteral(
        "<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)</word>"));
    QVector<Word> words;
    for (auto m = word.globalMatch(html); m.hasNext();) {
        const auto w = m.next();
        const QPointF tl(w.captured(1).toDouble(), w.captured(2).toDouble());
        words.append({w.captured(5), QRectF(tl, QPointF(w.captured(3).toDouble(), w.captured(4).toDouble()))});
    }
    return words;
}

bool havePdfToText() { return QProcess::execute(QStringLiteral("pdftotext"), {QStringLiteral("-v")}) == 0; }

class LabelEngine : public ::testing::Test {
protected:
    void SetUp() override
    {
        control.setPiecename(QStringLiteral("5160 - Address"));
        control.item(1).text = QStringLiteral("<<thedata>>");
    }

    void addPieces(int count)
    {
        for (int i = 1; i <= count; ++i) {
            control.pieceData = QStringLiteral("thedata^Name%1 Person\r%2 Long Street Name\rSpringfield, IL  62701")
                                    .arg(i, 2, 10, QLatin1Char('0')).arg(100 + i);
            control.addPiece();
        }
    }

    QString printPdf(const QString& file)
    {
        const QString path = dir.filePath(file);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        control.applySheetTo(printer);
        control.printPiecesOn(printer);
        // To look at the pages: HB_LABEL_PDF_DIR keeps a copy.
        if (const QByteArray keep = qgetenv("HB_LABEL_PDF_DIR"); !keep.isEmpty())
            QFile::copy(path, QString::fromLocal8Bit(keep) + QLatin1Char('/') + file);
        return path;
    }

    SheetCatalogue catalogue{QString()};
    LabelControl control{nullptr, &catalogue};
    QTemporaryDir dir;
};

} // namespace

TEST(PieceItemsText, MergeFieldTakesTheValueOfItsField)
{
    EXPECT_EQ(mergePieceData(QStringLiteral("<<thedata>>"), QStringLiteral("thedata^A\rB")), QStringLiteral("A\rB"));
    EXPECT_EQ(mergePieceData(QStringLiteral("To: <<TheData>>"), QStringLiteral("thedata^Bob")), QStringLiteral("To: Bob"));
    EXPECT_EQ(mergePieceData(QStringLiteral("<<thedata>>"), QStringLiteral("thedata^")), QString());
    EXPECT_EQ(mergePieceData(QStringLiteral("Plain"), QStringLiteral("thedata^X")), QStringLiteral("Plain"));
}

// A stored layout that does not parse leaves the items as they are (its round trip is a window test).
TEST(PieceItemsText, BadLayoutTextChangesNothing)
{
    PieceItems a = PieceItems::defaults();
    a.item(3).visible = true;
    const QString before = a.layoutText();
    a.readLayoutText(QStringLiteral("1,2,3"));
    EXPECT_EQ(a.layoutText(), before);
}

TEST(TextFit, TextThatFitsKeepsItsSizeAndLongTextShrinksToTheLimit)
{
    QFont font(QStringLiteral("DejaVu Sans"));
    font.setPointSizeF(10);
    EXPECT_DOUBLE_EQ(fittedPointSize({QStringLiteral("Ann Lee")}, font, 180, 60), 10.0);
    const double smaller = fittedPointSize({QStringLiteral("A rather long name of a household here")}, font, 150, 60);
    EXPECT_LT(smaller, 10.0);
    EXPECT_GE(smaller, MinimumTextPoints);
    EXPECT_DOUBLE_EQ(fittedPointSize({QString(200, QLatin1Char('W'))}, font, 150, 60), MinimumTextPoints);
}

TEST_F(LabelEngine, EveryAddressOfAFullSheetLandsInsideItsLabel)
{
    if (!havePdfToText())
        GTEST_SKIP() << "pdftotext is missing";
    addPieces(30);
    const QVector<Word> words = pdfWords(printPdf(QStringLiteral("5160.pdf")));
    static const QRegularExpression name(QStringLiteral("^Name(\\d\\d)$"));
    int checked = 0, inside = 0;
    for (const Word& w : words) {
        for (int i = 0; i < 30; ++i)
            inside += pieceRect(control.sheet(), i).contains(w.box);
        const auto m = name.match(w.text);
        if (!m.hasMatch())
            continue;
        const QRectF label = pieceRect(control.sheet(), m.captured(1).toInt() - 1);
        EXPECT_TRUE(label.contains(w.box)) << w.text.toStdString() << " outside its label";
        ++checked;
    }
    EXPECT_EQ(checked, 30);
    EXPECT_EQ(words.size(), 30 * 9);
    EXPECT_EQ(inside, words.size()) << "every word of every address inside a label";
}

TEST_F(LabelEngine, PageTopMovesThePrintedPageUpByItsInches)
{
    if (!havePdfToText())
        GTEST_SKIP() << "pdftotext is missing";
    addPieces(3);
    const QVector<Word> level = pdfWords(printPdf(QStringLiteral("level.pdf")));
    control.pageTop = 0.25f;
    const QVector<Word> up = pdfWords(printPdf(QStringLiteral("up.pdf")));
    ASSERT_EQ(level.size(), up.size());
    ASSERT_FALSE(level.isEmpty());
    for (int i = 0; i < level.size(); ++i) {
        EXPECT_NEAR(level[i].box.top() - up[i].box.top(), 18.0, 0.2) << level[i].text.toStdString();
        EXPECT_NEAR(level[i].box.left(), up[i].box.left(), 0.01);
    }
}

TEST_F(LabelEngine, AnEnvelopeCarriesTheReturnAddressTopLeftAndTheAddressInTheMiddle)
{
    if (!havePdfToText())
        GTEST_SKIP() << "pdftotext is missing";
    control.setPiecename(QStringLiteral("No Such Sheet"));
    EXPECT_EQ(control.piecename(), QStringLiteral("5160 - Address")) << "an unknown name keeps the sheet";
    control.setPiecename(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    control.item(2).text = QStringLiteral("Sender Smith\r1 Home Road\rHometown, ST  11111");
    control.item(2).visible = true;
    control.item(3).text.clear();   // the stamp: a box to stick it in
    control.item(3).visible = true;
    addPieces(2);
    const QVector<Word> words = pdfWords(printPdf(QStringLiteral("envelope.pdf")));
    const double w = 9.5 * 72, h = 4.125 * 72;
    int senders = 0, addressees = 0;
    for (const Word& word : words) {
        if (word.text == QLatin1String("Sender")) {
            ++senders;
            EXPECT_LT(word.box.left(), w / 10);
            EXPECT_LT(word.box.bottom(), h / 2);
        } else if (word.text.startsWith(QLatin1String("Name0"))) {
            ++addressees;
            EXPECT_GT(word.box.left(), w / 4);
            EXPECT_LT(word.box.right(), w * 3 / 4);
            EXPECT_GT(word.box.top(), h / 4);
            EXPECT_LT(word.box.bottom(), h * 3 / 4);
        }
    }
    EXPECT_EQ(senders, 2) << "one envelope a page";
    EXPECT_EQ(addressees, 2);
}
