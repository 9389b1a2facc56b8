#include "addressrpt_fixture.h"
#include "printcapture.h"

#include <QFile>
#include <QProcess>
#include <QRegularExpression>
#include <QTemporaryDir>

#include <algorithm>

using namespace hb;

namespace {

// A word of a printed page as pdftotext finds it, in points from the paper's top left corner.
struct Word {
    int page = 0;
    double left = 0, top = 0, right = 0, bottom = 0;
    QString text;
};

QList<Word> pdfWords(const QString& pdf)
{
    QProcess process;
    process.start(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), pdf, QStringLiteral("-")});
    if (!process.waitForFinished(60000) || process.exitCode() != 0) {
        ADD_FAILURE() << "pdftotext could not read " << pdf.toStdString();
        return {};
    }
    const QString html = QString::fromUtf8(process.readAllStandardOutput());
    static const QRegularExpression pageOrWord(
        QStringLiteral("<page |<word xMin=\"([\\d.]+)\" yMin=\"([\\d.]+)\" xMax=\"([\\d.]+)\" yMax=\"([\\d.]+)\">([^<]*)</word>"));
    QList<Word> words;
    int page = 0;
    for (auto it = pageOrWord.globalMatch(html); it.hasNext();) {
        const auto m = it.next();
        if (m.captured(0).startsWith(QLatin1String("<page"))) {
            ++page;
            continue;
        }
        words.append({page, m.captured(1).toDouble(), m.captured(2).toDouble(), m.captured(3).toDouble(),
                      m.captured(4).toDouble(), m.captured(5)});
    }
    return words;
}

QList<Word> onPage(const QList<Word>& words, int page)
{
    QList<Word> found;
    std::copy_if(words.cbegin(), words.cend(), std::back_inserter(found), [page](const Word& w) { return w.page == page; });
    return found;
}

// The words of the line nearest the top (or the bottom) of a page.
QList<Word> edgeLine(const QList<Word>& page, bool top)
{
    if (page.isEmpty())
        return {};
    const auto edge = std::minmax_element(page.cbegin(), page.cend(), [](const Word& a, const Word& b) { return a.top < b.top; });
    const double y = top ? edge.first->top : edge.second->top;
    QList<Word> line;
    std::copy_if(page.cbegin(), page.cend(), std::back_inserter(line), [y](const Word& w) { return std::abs(w.top - y) < 2; });
    std::sort(line.begin(), line.end(), [](const Word& a, const Word& b) { return a.left < b.left; });
    return line;
}

struct PaperCase {
    const char* name;
    int paperCode;   // 1 Letter, 9 A4
    bool landscape;
    double margin;   // inches, on every side
};

std::ostream& operator<<(std::ostream& out, const PaperCase& c) { return out << c.name; }

} // namespace

// Reports printed to PDF on the paper and margins in force, their texts found where they lie.
class PaperWidthTest : public AddressReportFixture {
protected:
    QString printReport(const char* menu, int columns, const PaperCase& paper)
    {
        SetNOption(50, columns);
        for (int option = 200; option <= 203; ++option)
            SetNOption(option, int(paper.margin * 1000));
        Printer().setPageOrientation(paper.landscape ? QPageLayout::Landscape : QPageLayout::Portrait);
        ListingDefinition(columns, !paper.landscape).printer.paperSize = paper.paperCode;
        const QByteArray keep = qgetenv("HB_REPORT_PDF_DIR");
        const QString path = (keep.isEmpty() ? scratch.path() : QString::fromLocal8Bit(keep)) + QLatin1Char('/')
                             + QString::fromLatin1(menu) + QStringLiteral("-%1col-%2.pdf").arg(columns).arg(QLatin1String(paper.name));
        QFile::remove(path);
        EXPECT_NE(open(menu), nullptr);
        PrintCapture capture;
        capture.toPdf(path);
        dialogs().answerPrinter(true);
        EXPECT_TRUE(trigger(QStringLiteral("Print")));
        return path;
    }
    static QSizeF paperPoints(const PaperCase& paper)
    {
        const QSizeF size = QPageSize::size(paper.paperCode == 9 ? QPageSize::A4 : QPageSize::Letter, QPageSize::Point);
        return paper.landscape ? size.transposed() : size;
    }
    void addPhoneListings()
    {
        for (int i = 100; i < 160; ++i) {
            addListing({i, QStringLiteral("The Featherstonehaugh Family %1").arg(i), QStringLiteral("Featherstonehaugh%1").arg(i), 0,
                        {{QStringLiteral("Address1"), QStringLiteral("%1 Long Avenue North").arg(i)},
                         {QStringLiteral("Phone"), QStringLiteral("(555) 249-%1").arg(i + 1500)},
                         {QStringLiteral("Email"), QStringLiteral("family.featherstonehaugh%1@example.org").arg(i)}}});
        }
    }

    QTemporaryDir scratch;
};

class PageWideSectionsTest : public PaperWidthTest, public ::testing::WithParamInterface<PaperCase> {};

TEST_P(PageWideSectionsTest, TitleRuleAndFooterSpanThePrintableWidth)
{
    const PaperCase paper = GetParam();
    addPhoneListings();
    const QString pdf = printReport("mnuAddress", 3, paper);
    const QSizeF size = paperPoints(paper);
    const double left = paper.margin * 72, right = size.width() - paper.margin * 72;
    const QList<Word> page = onPage(pdfWords(pdf), 1);
    ASSERT_FALSE(page.isEmpty());

    const QList<Word> title = edgeLine(page, true);
    ASSERT_FALSE(title.isEmpty());
    EXPECT_NEAR((title.first().left + title.last().right) / 2, size.width() / 2, 2.0) << "the title stands centred";
    const QList<Word> footer = edgeLine(page, false);
    ASSERT_GE(footer.size(), 2);
    EXPECT_NEAR(footer.first().left, left, 2.0) << "the date starts at the left margin";
    EXPECT_NEAR(footer.last().right, right, 2.0) << "the page number ends at the right margin";
    double widest = 0;
    for (const Word& w : page) {
        EXPECT_GE(w.left, left - 1) << w.text.toStdString();
        EXPECT_LE(w.right, right + 1) << w.text.toStdString();
        widest = std::max(widest, w.right);
    }
    EXPECT_GT(widest, right - (right - left) / 3) << "the third column is printed";

    // The rule under the title is a line, not a word: it is read from the page's layout.
    const report::ReportLayout* layout = shown()->viewer().layout();
    ASSERT_NE(layout, nullptr);
    const auto& objects = layout->page(1).objects;
    const auto rule = std::find_if(objects.cbegin(), objects.cend(), [](const report::PlacedObject& o) { return o.name == QLatin1String("Line1"); });
    ASSERT_NE(rule, objects.cend());
    EXPECT_NEAR(rule->rect.left() / 20.0, left, 1.0);
    EXPECT_NEAR((rule->rect.right() + 1) / 20.0, right, 1.0);
}

INSTANTIATE_TEST_SUITE_P(Papers, PageWideSectionsTest,
                         ::testing::Values(PaperCase{"LetterPortraitHalfInch", 1, false, 0.5},
                                           PaperCase{"LetterPortraitInchAndHalf", 1, false, 1.5},
                                           PaperCase{"LetterLandscapeHalfInch", 1, true, 0.5},
                                           PaperCase{"LetterLandscapeInchAndHalf", 1, true, 1.5},
                                           PaperCase{"A4PortraitHalfInch", 9, false, 0.5},
                                           PaperCase{"A4PortraitInchAndHalf", 9, false, 1.5},
                                           PaperCase{"A4LandscapeHalfInch", 9, true, 0.5},
                                           PaperCase{"A4LandscapeInchAndHalf", 9, true, 1.5}),
                         [](const auto& info) { return std::string(info.param.name); });

TEST_F(PaperWidthTest, ThreeColumnPhoneReportsKeepPhonesAndNamesWhole)
{
    addPhoneListings();
    for (const PaperCase paper : {PaperCase{"A4Landscape", 9, true, 1.0}, PaperCase{"LetterPortrait", 1, false, 1.0}}) {
        const QList<Word> words = pdfWords(printReport("mnuPhone", 3, paper));
        int whole = 0, split = 0;
        for (qsizetype i = 0; i < words.size(); ++i) {
            if (words.at(i).text != QLatin1String("(555)"))
                continue;
            const bool sameLine = i + 1 < words.size() && words.at(i + 1).text.startsWith(QLatin1String("249-"))
                                  && std::abs(words.at(i + 1).top - words.at(i).top) < 2;
            ++(sameLine ? whole : split);
        }
        EXPECT_EQ(whole, 60) << paper.name;
        EXPECT_EQ(split, 0) << paper.name;
        const auto names = std::count_if(words.cbegin(), words.cend(), [](const Word& w) { return w.text == QLatin1String("Featherstonehaugh"); });
        EXPECT_EQ(names, 60) << paper.name << ": every name word whole";
        forms::unload(QStringLiteral("frmAddressRpt"));
    }
}

TEST_F(PaperWidthTest, ThreeColumnCustomReportsKeepPhonesAndAddressesWhole)
{
    addPhoneListings();
    for (int option = 12; option <= 26; ++option)
        SetNOption(option, 1);
    const QList<Word> words = pdfWords(printReport("mnuCustom", 3, PaperCase{"A4Landscape", 9, true, 1.0}));
    const auto mails = std::count_if(words.cbegin(), words.cend(), [](const Word& w) {
        return w.text.startsWith(QLatin1String("family.featherstonehaugh")) && w.text.endsWith(QLatin1String("@example.org"));
    });
    EXPECT_EQ(mails, 60) << "every e-mail address on one line";
    int split = 0;
    for (qsizetype i = 0; i + 1 < words.size(); ++i) {
        if (words.at(i).text == QLatin1String("(555)") && std::abs(words.at(i + 1).top - words.at(i).top) >= 2)
            ++split;
    }
    EXPECT_EQ(split, 0);
}
