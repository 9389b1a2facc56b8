#include "platform/report/sectionlayout.h"

#include "report_fixtures.h"

#include <gtest/gtest.h>

using namespace reporttest;

namespace {

class SectionLayout : public ::testing::Test {
protected:
    void SetUp() override
    {
        listing.roof = {{QStringLiteral("A"), QStringLiteral("one")}, {QStringLiteral("B"), QStringLiteral("two")},
                        {QStringLiteral("C"), QStringLiteral("three")}, {QStringLiteral("Empty"), QString()}};
        context.listing = &listing;
        ASSERT_LE(flow.lineHeight(ReportFont{}), Line) << "a 10 point line must fit the design line";
    }

    ReportSection stacked(int height = Line) const
    {
        return section(QStringLiteral("S"), GroupHeader, 4000, height, {
            field(QStringLiteral("F1"), QStringLiteral("{Roof.A}"), 0, 0, 4000),
            field(QStringLiteral("F2"), QStringLiteral("{Roof.B}"), 0, Line, 4000),
            field(QStringLiteral("F3"), QStringLiteral("{Roof.C}"), 0, 2 * Line, 4000),
        });
    }

    SectionBox lay(const ReportSection& s, int frame = 4000) { return layoutSection(s, context, flow, frame); }

    static const PlacedObject* find(const SectionBox& box, const char* name)
    {
        for (const PlacedObject& object : box.objects) {
            if (object.name == QLatin1String(name))
                return &object;
        }
        return nullptr;
    }

    ReportListing listing;
    SourceContext context;
    TextFlow flow{QStringLiteral("Arial")};
};

TEST_F(SectionLayout, GrowsToHoldObjectsBelowItsDesignHeight)
{
    const SectionBox box = lay(stacked());
    EXPECT_EQ(box.height, 3 * Line);
    ASSERT_EQ(box.objects.size(), 3);
    EXPECT_EQ(find(box, "F3")->rect.top(), 2 * Line);
    EXPECT_EQ(find(box, "F3")->lines, QStringList{QStringLiteral("three")});
}

TEST_F(SectionLayout, SuppressedObjectGivesUpItsSpace)
{
    ReportSection s = stacked();
    s.item(2).suppress = true;
    const SectionBox box = lay(s);
    EXPECT_EQ(find(box, "F2"), nullptr);
    EXPECT_EQ(find(box, "F3")->rect.top(), Line);
    EXPECT_EQ(box.height, 2 * Line);
}

TEST_F(SectionLayout, ObjectWithoutTextGivesUpItsSpace)
{
    ReportSection s = stacked();
    s.item(1).source = QStringLiteral("{Roof.Empty}");
    const SectionBox box = lay(s);
    EXPECT_EQ(find(box, "F1"), nullptr);
    EXPECT_EQ(find(box, "F2")->rect.top(), 0);
    EXPECT_EQ(box.height, 2 * Line);
}

TEST_F(SectionLayout, EverythingHiddenLeavesNoHeight)
{
    ReportSection s = stacked();
    for (ReportObject& object : s.objects)
        object.suppress = true;
    EXPECT_EQ(lay(s).height, 0);
}

TEST_F(SectionLayout, SectionWithoutObjectsKeepsItsHeight)
{
    EXPECT_EQ(lay(section(QStringLiteral("Gap"), GroupFooter, 4000, 120, {})).height, 120);
}

TEST_F(SectionLayout, DesignGapsBetweenShownObjectsStay)
{
    ReportSection s = stacked(3 * Line + 100);
    s.item(3).top = 2 * Line + 60;
    const SectionBox box = lay(s);
    EXPECT_EQ(find(box, "F3")->rect.top(), 2 * Line + 60);
    EXPECT_EQ(box.height, 3 * Line + 100);
}

TEST_F(SectionLayout, HiddenObjectBesideAShownOneMovesNothing)
{
    ReportSection s = stacked();
    s.objects.append(field(QStringLiteral("Beside"), QStringLiteral("{Roof.Empty}"), 3000, Line, 1000));
    s.item(2).width = 3000;
    const SectionBox box = lay(s);
    EXPECT_EQ(find(box, "F3")->rect.top(), 2 * Line);
}

TEST_F(SectionLayout, ObjectsSideBySideShareARowAndABaselineAndGrowByTheTallest)
{
    ReportSection s = stacked();
    s.item(1).width = 2400;
    s.item(1).font = {14, true};
    s.objects.append(field(QStringLiteral("Phone"), QStringLiteral("{Roof.B}"), 2400, 0, 1600));
    const SectionBox box = lay(s);
    const int grown = flow.lineHeight(ReportFont{14, true});
    ASSERT_GT(grown, Line);
    EXPECT_EQ(find(box, "F1")->rect.top(), 0);
    EXPECT_EQ(find(box, "Phone")->rect.top() + flow.ascent(ReportFont{}), flow.ascent(ReportFont{14, true}))
        << "the phone stands on the name's baseline";
    EXPECT_EQ(find(box, "F2")->rect.top(), grown);
    EXPECT_EQ(box.height, grown + 2 * Line);
}

TEST_F(SectionLayout, LongTextWrapsAndPushesDownWhatFollows)
{
    listing.roof.insert(QStringLiteral("A"), QStringLiteral("a rather long note that cannot fit on one short line at all"));
    ReportSection s = stacked();
    s.item(1).width = 1500;
    const SectionBox box = lay(s);
    const PlacedObject* note = find(box, "F1");
    ASSERT_GT(note->lines.size(), 2);
    for (const QString& line : note->lines)
        EXPECT_LE(flow.advance(line, ReportFont{}), 1500) << line.toStdString();
    EXPECT_EQ(note->lines.join(QLatin1Char(' ')), listing.roof.value(QStringLiteral("A")).toString());
    EXPECT_EQ(note->rect.height(), note->lines.size() * flow.lineHeight(ReportFont{}));
    EXPECT_EQ(find(box, "F2")->rect.top(), note->rect.height());
}

TEST_F(SectionLayout, ObjectsAreCutToTheFrameAndWrapWithinIt)
{
    ReportSection s = stacked();
    s.item(2).left = 5000;
    const SectionBox box = lay(s, 3000);
    EXPECT_EQ(find(box, "F1")->rect.width(), 3000);
    EXPECT_EQ(find(box, "F2"), nullptr);
    EXPECT_EQ(find(box, "F3")->rect.top(), Line);
}

TEST_F(SectionLayout, LinesKeepTheirPlaceAndThickness)
{
    ReportSection s = stacked();
    s.item(2).suppress = true;
    s.objects.append(rule(QStringLiteral("Rule"), 3 * Line + 40, 4000));
    const SectionBox box = lay(s);
    const PlacedObject* line = find(box, "Rule");
    ASSERT_NE(line, nullptr);
    EXPECT_EQ(line->rect, QRect(0, 2 * Line + 40, 4000, 20));
    EXPECT_EQ(line->textRect, line->rect);
}

TEST_F(SectionLayout, PageSourcesHoldOneLineEvenWhenEmpty)
{
    ReportSection s = section(QStringLiteral("Foot"), PageFooter, 4000, Line, {
        field(QStringLiteral("Index"), QStringLiteral("NameIndex"), 1000, 0, 2000),
    });
    EXPECT_EQ(lay(s).height, Line);
    context.nameIndex = QStringLiteral("Abercrombie-Fitzgerald - Zimmermann-Oppenheimer");
    const auto laid = lay(s);  // the placed objects live as long as the laid-out section
    const PlacedObject* index = find(laid, "Index");
    ASSERT_EQ(index->lines.size(), 1);
    EXPECT_TRUE(index->lines.first().endsWith(QChar(0x2026)));
}

TEST_F(SectionLayout, TextRectFollowsTheAlignment)
{
    ReportSection s = stacked();
    s.item(1).alignment = Qt::AlignRight;
    s.item(2).alignment = Qt::AlignHCenter;
    const SectionBox box = lay(s);
    EXPECT_EQ(find(box, "F1")->textRect.right(), 3999);
    const QRect centred = find(box, "F2")->textRect;
    EXPECT_NEAR(centred.left(), 4000 - 1 - centred.right(), 2);
    EXPECT_EQ(find(box, "F3")->textRect.left(), 0);
}

TEST(TextFlow, BreaksAtLineEndsThenWordsThenInsideLongWords)
{
    TextFlow flow(QStringLiteral("Arial"));
    const ReportFont font;
    EXPECT_EQ(flow.wrap(QStringLiteral("one\r\ntwo\n\nthree"), font, 5000),
              (QStringList{QStringLiteral("one"), QStringLiteral("two"), QString(), QStringLiteral("three")}));
    const QStringList broken = flow.wrap(QStringLiteral("Supercalifragilisticexpialidocious"), font, 800);
    ASSERT_GT(broken.size(), 1);
    EXPECT_EQ(broken.join(QString()), QStringLiteral("Supercalifragilisticexpialidocious"));
    for (const QString& line : broken)
        EXPECT_LE(flow.advance(line, font), 800);
}

TEST(TextFlow, ElidesToOneLine)
{
    TextFlow flow(QStringLiteral("Arial"));
    EXPECT_EQ(flow.elide(QStringLiteral("short"), ReportFont{}, 5000), QStringLiteral("short"));
    const QString cut = flow.elide(QStringLiteral("a very long text\nover two lines"), ReportFont{}, 900);
    EXPECT_LE(flow.advance(cut, ReportFont{}), 900);
    EXPECT_FALSE(cut.contains(QLatin1Char('\n')));
}

}  // namespace
