#include "platform/label/catalogue.h"
#include "platform/label/templatereader.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <gtest/gtest.h>

using namespace hb::label;

namespace {

constexpr double inch = 72.0;
constexpr double mm = 72.0 / 25.4;

void expectOrigin(const Sheet& sheet, int index, double x, double y)
{
    const QPointF p = pieceOrigin(sheet, index);
    EXPECT_NEAR(p.x(), x, 0.01) << sheet.name().toStdString() << " piece " << index;
    EXPECT_NEAR(p.y(), y, 0.01) << sheet.name().toStdString() << " piece " << index;
}

TemplateRead read(const char* xml)
{
    TemplateRead result;
    readTemplates(QByteArray(xml), QStringLiteral("test.xml"), standardPaperSizes(), result);
    resolveAliases(result);
    return result;
}

} // namespace

TEST(SheetGeometry, LengthsInEveryUnitBecomePointsAndAnEmptyRunHasAPage)
{
    EXPECT_DOUBLE_EQ(parseLength(QStringLiteral("2.625in")), 189.0);
    EXPECT_NEAR(parseLength(QStringLiteral("25.4mm")), 72.0, 1e-9);
    EXPECT_NEAR(parseLength(QStringLiteral("2.54cm")), 72.0, 1e-9);
    EXPECT_DOUBLE_EQ(parseLength(QStringLiteral("2pc")), 24.0);
    EXPECT_DOUBLE_EQ(parseLength(QStringLiteral("180.2")), 180.2);
    EXPECT_DOUBLE_EQ(parseLength(QStringLiteral("12pt")), 12.0);
    EXPECT_LT(parseLength(QStringLiteral("wide")), 0);
    EXPECT_LT(parseLength(QString()), 0);
    EXPECT_EQ(pageCount(0, 30), 1) << "an empty run still has a page to show";
}

TEST(BuiltinCatalogue, HoldsTheDefaultTheAddressSheetsAndThePiecesWithReturnAddresses)
{
    const SheetCatalogue catalogue{QString()};
    EXPECT_TRUE(catalogue.problems().isEmpty()) << catalogue.problems().join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(catalogue.packageCount(), 0);
    const Sheet* shipping = catalogue.find(SheetCatalogue::defaultName());
    ASSERT_NE(shipping, nullptr);
    EXPECT_EQ(piecesPerSheet(*shipping), 6);

    const Sheet* s5160 = catalogue.find(QStringLiteral("5160 - Address"));
    ASSERT_NE(s5160, nullptr);
    EXPECT_EQ(piecesPerSheet(*s5160), 30);
    expectOrigin(*s5160, 0, 0.15625 * inch, 0.5 * inch);
    expectOrigin(*s5160, 29, (0.15625 + 2 * 2.78125) * inch, 9.5 * inch);
    // The last label ends where the right and bottom margins begin.
    EXPECT_NEAR(pieceRect(*s5160, 29).right(), (8.5 - 0.15625) * inch, 0.01);
    EXPECT_NEAR(pieceRect(*s5160, 29).bottom(), 10.5 * inch, 0.01);
    const Sheet* l7160 = catalogue.find(QStringLiteral("L7160 - Address"));
    ASSERT_NE(l7160, nullptr);
    EXPECT_NEAR(l7160->paperWidth, 210 * mm, 0.01);
    expectOrigin(*l7160, 4, (7.21 + 66.04) * mm, (15.15 + 38.1) * mm);

    const Sheet* envelope = catalogue.find(QStringLiteral("#10 - Envelope 4 1/8 x 9 1/2"));
    ASSERT_NE(envelope, nullptr);
    EXPECT_EQ(piecesPerSheet(*envelope), 1);
    expectOrigin(*envelope, 0, 0, 0);
    int envelopes = 0, postCards = 0, noteCards = 0;
    for (const Sheet& s : catalogue.sheets()) {
        envelopes += s.name().contains(QLatin1String("Envelope"));
        postCards += s.name().contains(QLatin1String("Post Card"));
        noteCards += s.name().contains(QLatin1String("Note Card"));
    }
    EXPECT_EQ(envelopes, 10);
    EXPECT_EQ(postCards, 3);
    EXPECT_EQ(noteCards, 2);
}

// The program's own sheets against the package's data for the same product. The A4 sheets follow the
// maker's figures, which fill A4 evenly where the package's do not, so they are held to 1.5 mm.
TEST(BuiltinCatalogue, AgreesWithThePackageOnTheSameProducts)
{
    const QDir folder(SheetCatalogue::packageFolder());
    if (!folder.exists(QStringLiteral("avery-us-templates.xml")))
        GTEST_SKIP() << "glabels-data is not installed";
    const SheetCatalogue builtin{QString()};
    const SheetCatalogue all{folder.path()};
    auto avery = [&](const char* part) -> const Sheet* {
        for (const Sheet& s : all.sheets())
            if (s.brand == QLatin1String("Avery") && s.part == QLatin1String(part))
                return &s;
        return nullptr;
    };
    const struct { const char* ours; const char* part; double tolerance; } products[] = {
        {"5264 - Shipping", "5264", 0.5}, {"5160 - Address", "5160", 0.5}, {"5161 - Address", "5161", 0.5},
        {"5162 - Address", "5162", 0.5}, {"5163 - Shipping", "5163", 0.5}, {"5164 - Shipping", "5164", 0.5},
        {"5389 - Post Card 4 x 6, 2 per sheet", "5389", 0.5}, {"L7160 - Address", "L7160", 1.5 * mm},
        {"L7163 - Address", "L7163", 1.5 * mm}};
    for (const auto& p : products) {
        const Sheet* ours = builtin.find(QString::fromLatin1(p.ours));
        const Sheet* theirs = avery(p.part);
        ASSERT_TRUE(ours && theirs) << p.ours;
        EXPECT_EQ(ours->paperId, theirs->paperId) << p.ours;
        EXPECT_NEAR(ours->width, theirs->width, p.tolerance) << p.ours;
        EXPECT_NEAR(ours->height, theirs->height, p.tolerance) << p.ours;
        EXPECT_NEAR(ours->round, theirs->round, p.tolerance) << p.ours;
        EXPECT_NEAR(ours->margin, theirs->margin, p.tolerance) << p.ours;
        ASSERT_EQ(piecesPerSheet(*ours), piecesPerSheet(*theirs)) << p.ours;
        for (int i = 0; i < piecesPerSheet(*ours); ++i) {
            EXPECT_NEAR(pieceOrigin(*ours, i).x(), pieceOrigin(*theirs, i).x(), p.tolerance) << p.ours << " " << i;
            EXPECT_NEAR(pieceOrigin(*ours, i).y(), pieceOrigin(*theirs, i).y(), p.tolerance) << p.ours << " " << i;
        }
    }
    // Envelopes lie flat on their paper; the package's paper sizes stand upright.
    QFile file(folder.filePath(QStringLiteral("paper-sizes.xml")));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    PaperSizes papers;
    readPaperSizes(file.readAll(), papers);
    const struct { const char* ours; const char* paper; } envelopes[] = {
        {"#10 - Envelope 4 1/8 x 9 1/2", "number10"}, {"Monarch - Envelope 3 7/8 x 7 1/2", "monarch"},
        {"C5 - Envelope 162 x 229 mm", "c5"}, {"C6 - Envelope 114 x 162 mm", "c6"}, {"DL - Envelope 110 x 220 mm", "dl"}};
    for (const auto& e : envelopes) {
        const Sheet* ours = builtin.find(QString::fromLatin1(e.ours));
        ASSERT_TRUE(ours && papers.contains(QString::fromLatin1(e.paper))) << e.ours;
        EXPECT_NEAR(ours->paperWidth, papers[QString::fromLatin1(e.paper)].height(), 0.01) << e.ours;
        EXPECT_NEAR(ours->paperHeight, papers[QString::fromLatin1(e.paper)].width(), 0.01) << e.ours;
    }
}

TEST(TemplateReader, ReadsShapesLayoutsAliasesAndPassesOverBadTemplatesAndBrokenXml)
{
    const TemplateRead r = read(R"(<Glabels-templates>
      <Template brand="B" part="R1" size="US-Letter" _description="Round">
        <Label-round id="0" radius="0.75in"><Layout nx="4" ny="5" x0="0.5in" y0="0.75in" dx="2in" dy="2in"/></Label-round>
      </Template>
      <Template brand="B" part="R3" equiv="R2"/>
      <Template brand="B" part="R2" equiv="R1"/>
      <Template brand="B" part="E1" size="Other" width="100" height="200" _description="Oval">
        <Label-ellipse id="0" width="50" height="20"><Layout nx="1" ny="2" x0="5" y0="5" dx="0" dy="30"/>
        <Layout nx="1" ny="1" x0="60" y0="5" dx=""/></Label-ellipse>
      </Template>
      <Template brand="B" part="X1" size="Nowhere" _description="Bad paper">
        <Label-rectangle id="0" width="1in" height="1in"><Layout nx="1" ny="1" x0="0" y0="0"/></Label-rectangle>
      </Template>
      <Template brand="B" part="X2" size="A4" _description="No layout"><Label-rectangle id="0" width="1in" height="1in"/></Template>
      <Template brand="B" part="X3" equiv="missing"/>
    </Glabels-templates>)");
    ASSERT_EQ(r.sheets.size(), 4);
    EXPECT_EQ(r.problems.size(), 3) << r.problems.join(QLatin1Char('\n')).toStdString();
    EXPECT_EQ(r.sheets[0].shape, Shape::Round);
    EXPECT_DOUBLE_EQ(r.sheets[0].width, 1.5 * inch);
    expectOrigin(r.sheets[0], 5, 2.5 * inch, 2.75 * inch);
    EXPECT_EQ(r.sheets[1].shape, Shape::Ellipse);
    EXPECT_EQ(piecesPerSheet(r.sheets[1]), 3);
    expectOrigin(r.sheets[1], 2, 60, 5);
    EXPECT_DOUBLE_EQ(r.sheets[1].paperHeight, 200);
    EXPECT_EQ(r.sheets[2].name(), QStringLiteral("B R2 - Round"));
    EXPECT_EQ(piecesPerSheet(r.sheets[2]), 20);
    EXPECT_EQ(r.sheets[3].name(), QStringLiteral("B R3 - Round")) << "an alias of an alias";

    const TemplateRead broken = read("<Glabels-templates><Template brand=\"B\" part=\"1\"");
    EXPECT_TRUE(broken.sheets.isEmpty());
    EXPECT_FALSE(broken.problems.isEmpty()) << "XML that does not parse is reported, not fatal";
}

TEST(PackageCatalogue, ReadsEveryTemplateThePackageShips)
{
    const QDir folder(SheetCatalogue::packageFolder());
    if (!folder.exists())
        GTEST_SKIP() << "glabels-data is not installed";
    int shipped = 0;
    for (const QString& name : folder.entryList({QStringLiteral("*-templates.xml")}, QDir::Files)) {
        QFile file(folder.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::ReadOnly));
        shipped += int(QString::fromUtf8(file.readAll()).count(QRegularExpression(QStringLiteral("<Template\\s"))));
    }
    const SheetCatalogue catalogue(folder.path());
    std::printf("glabels-data templates shipped %d, read %d\n", shipped, catalogue.packageCount());
    EXPECT_GT(shipped, 1000);
    EXPECT_EQ(catalogue.packageCount(), shipped) << catalogue.problems().join(QLatin1Char('\n')).toStdString();

    // Address sheets and their aliases are held against the built-in ones above; here a round label.
    const Sheet* round = catalogue.find(QStringLiteral("Avery 3274.2 - Small Round Labels"));
    ASSERT_NE(round, nullptr);
    EXPECT_EQ(round->shape, Shape::Round);
    expectOrigin(*round, 4, 0.5 * inch, 2.75 * inch);
}
