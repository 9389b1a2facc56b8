#include "labels_fixture.h"


#include <QPageRanges>
#include <QProcess>
#include <QTemporaryDir>

#include <optional>

using namespace hb;

namespace {

QString pdfInfo(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdfinfo"), {pdf});
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

QString pdfText(const QString& pdf)
{
    QProcess p;
    p.start(QStringLiteral("pdftotext"), {QStringLiteral("-layout"), pdf, QStringLiteral("-")});
    p.waitForFinished(60000);
    return QString::fromUtf8(p.readAllStandardOutput());
}

} // namespace

class MailItPrintTest : public LabelsFixture {
protected:
    // The labels of the first type through "&Print Preview", then the frame's Print, the dialog answered
    // with a PDF file.
    QString printThroughTheFrame(const QString& piece, std::optional<QPageRanges> pages = std::nullopt)
    {
        addListings();
        PieceName = piece;
        FrmLabels* w = labelsWithFirstType();
        EXPECT_NE(w, nullptr);
        click(*w, QStringLiteral("cmdPrint"));
        const QString pdf = dir.filePath(QStringLiteral("pieces.pdf"));
        printThroughMenu(PrintTo::PdfFile, pdf, [pages](QPrinter& printer) {
            if (pages) {
                printer.setPrintRange(QPrinter::PageRange);
                printer.setPageRanges(*pages);
            }
            return true;
        });
        return pdf;
    }
    QTemporaryDir dir;
};

TEST_F(MailItPrintTest, TheFramesPrintPutsEveryLabelOnTheSheet)
{
    const QString pdf = printThroughTheFrame(QStringLiteral("5160 - Address"));
    const QString info = pdfInfo(pdf);
    EXPECT_TRUE(info.contains(QLatin1String("Pages:           1"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QLatin1String("612 x 792 pts"))) << info.toStdString();
    const QString text = pdfText(pdf);
    for (const char* word : {"Ann Able", "Apt 5", "Salem, OR 97301", "Cy Cole"})
        EXPECT_TRUE(text.contains(QLatin1String(word))) << word;
}

TEST_F(MailItPrintTest, EnvelopesPrintOneAPageOnEnvelopePaperLyingAcross)
{
    const QString pdf = printThroughTheFrame(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    const QString info = pdfInfo(pdf);
    EXPECT_TRUE(info.contains(QLatin1String("Pages:           3"))) << info.toStdString();
    EXPECT_TRUE(info.contains(QLatin1String("684 x 297 pts"))) << info.toStdString();
}

TEST_F(MailItPrintTest, ThePrintDialogKnowsThePagesAndPrintsOnlyTheRangeChosen)
{
    QPageRanges lastTwo;
    lastTwo.addRange(2, 3);
    const QString pdf = printThroughTheFrame(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"), lastTwo);
    EXPECT_EQ(dialogs().printDialogPages(), QList<int>{3});
    EXPECT_TRUE(pdfInfo(pdf).contains(QLatin1String("Pages:           2"))) << pdfInfo(pdf).toStdString();
    const QString text = pdfText(pdf);
    EXPECT_FALSE(text.contains(QLatin1String("Ann Able"))) << "the first envelope is not printed";
    EXPECT_TRUE(text.contains(QLatin1String("Bob Baker")));
    EXPECT_TRUE(text.contains(QLatin1String("Cy Cole")));
}
