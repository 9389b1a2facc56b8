#include "dbvalue.h"
#include "programfixture.h"

#include "core/options.h"
#include "core/session.h"
#include "platform/storage/database.h"
#include "platform/storage/recordset.h"
#include "platform/ui/buttons.h"

#include <QCheckBox>

using namespace hb;

namespace {

int rowCount(const QString& table, const QString& where = QString())
{
    return scalar(DB, QStringLiteral("select count(*) from ") + table +
                          (where.isEmpty() ? QString() : QStringLiteral(" where ") + where)).toInt();
}

} // namespace

class OptionsTest : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
    }
};

TEST_F(OptionsTest, SeededRowsReadTheirValuesAndAMissingOneIsOffForCheckBoxesAndOnForBooleans)
{
    EXPECT_DOUBLE_EQ(GetNOption(6), -1);
    for (int checkBox : {6, 7, 8, 12, 14, 16, 26, 51, 312, 326})
        EXPECT_FALSE(CheckOptionOn(checkBox)) << "option " << checkBox;
    for (int boolean : {10, 11})
        EXPECT_TRUE(BooleanOptionOn(boolean)) << "option " << boolean;

    EXPECT_TRUE(CheckOptionOn(13));
    EXPECT_TRUE(CheckOptionOn(313));
    EXPECT_FALSE(BooleanOptionOn(9)) << "the address of listing reports is seeded off";
    EXPECT_DOUBLE_EQ(GetNOption(50), 1) << "a value-style option reads as it is";

    DB.execute(QStringLiteral("delete from NumberOptions where OptionNumber in (5, 9)"));
    EXPECT_FALSE(CheckOptionOn(5)) << "a check box without its row is off";
    EXPECT_TRUE(BooleanOptionOn(9)) << "a boolean without its row is on";
}

TEST_F(OptionsTest, AGreyCheckBoxIsStoredAsTwoAndCountsAsOff)
{
    QCheckBox box;
    ui::setCheckValue(box, 2);
    EXPECT_EQ(box.checkState(), Qt::PartiallyChecked);
    SetNOption(12, ui::checkValue(box));
    EXPECT_DOUBLE_EQ(GetNOption(12), 2);
    EXPECT_FALSE(CheckOptionOn(12));

    box.setCheckState(Qt::Checked);
    SetNOption(12, ui::checkValue(box));
    EXPECT_TRUE(CheckOptionOn(12));
    box.setCheckState(Qt::Unchecked);
    SetNOption(12, ui::checkValue(box));
    EXPECT_DOUBLE_EQ(GetNOption(12), 0);

    ui::setCheckValue(box, static_cast<int>(GetNOption(6)));
    EXPECT_EQ(box.checkState(), Qt::Unchecked) << "the -1 of a missing row shows an empty box";
}

TEST_F(OptionsTest, WritingAnUnknownNumberAddsItsRowAndTrueIsStoredAsMinusOne)
{
    const int before = rowCount(QStringLiteral("NumberOptions"));
    SetNOption(10, true);
    EXPECT_DOUBLE_EQ(GetNOption(10), -1);
    SetNOption(11, false);
    EXPECT_DOUBLE_EQ(GetNOption(11), 0);
    EXPECT_FALSE(BooleanOptionOn(11));
    SetNOption(4000, 7);
    EXPECT_DOUBLE_EQ(GetNOption(4000), 7);
    EXPECT_EQ(rowCount(QStringLiteral("NumberOptions")), before + 3);

    SetNOption(4000, 8.0);
    EXPECT_DOUBLE_EQ(GetNOption(4000), 8);
    EXPECT_EQ(rowCount(QStringLiteral("NumberOptions")), before + 3) << "a known number is changed in place";
}

TEST_F(OptionsTest, MarginsAreThousandthsOfAnInchAndAMissingRowIsOneInch)
{
    EXPECT_DOUBLE_EQ(GetMargin(200), 0.5);
    EXPECT_DOUBLE_EQ(GetMargin(202), 1.0);
    DB.execute(QStringLiteral("delete from NumberOptions where OptionNumber between 200 and 203"));
    for (int margin : {200, 201, 202, 203})
        EXPECT_DOUBLE_EQ(GetMargin(margin), 1.0) << "margin " << margin;

    SetMargin(201, 0.75);
    EXPECT_DOUBLE_EQ(GetNOption(201), 750);
    EXPECT_DOUBLE_EQ(GetMargin(201), 0.75);
    SetMargin(203, 0.3333);
    EXPECT_DOUBLE_EQ(GetNOption(203), 333) << "stored as a whole number";
    SetNOption(200, -20);
    EXPECT_DOUBLE_EQ(GetMargin(200), 1.0) << "a negative value also gives one inch";
}

TEST_F(OptionsTest, StringOptionsAndReportTitles)
{
    EXPECT_EQ(GetSOption(5), QString());
    ReportType = QStringLiteral("A");
    EXPECT_EQ(GetReportTitle(), QStringLiteral("Address Report"));

    SetSOption(5, QString());
    EXPECT_EQ(rowCount(QStringLiteral("StringOptions"), QStringLiteral("OptionNumber = 5")), 1);
    EXPECT_EQ(GetReportTitle(), QStringLiteral("Address Report")) << "an empty title gives the default too";
    SetSOption(5, QStringLiteral("Our Street"));
    EXPECT_EQ(GetReportTitle(), QStringLiteral("Our Street"));

    const std::pair<const char*, const char*> defaults[] = {
        {"P", "Phone Report"}, {"D", "Detail Report"}, {"C", "Custom Report"}, {"B", "Birthday Report"},
        {"L", ""}, {"M", ""}, {" ", ""}};
    for (const auto& [type, title] : defaults) {
        ReportType = QString::fromLatin1(type);
        EXPECT_EQ(GetReportTitle(), QString::fromLatin1(title)) << type;
    }
}

TEST_F(OptionsTest, MemoOptionsKeepLongTextInOneRow)
{
    EXPECT_EQ(GetMemoOption(1), QString());
    const QString address = QStringLiteral("The Smiths\n12 Elm Street\nSpringfield 0042\n") + QString(400, QLatin1Char('x'));
    SetMemoOption(1, address);
    EXPECT_EQ(GetMemoOption(1), address);
    SetMemoOption(1, QStringLiteral("0012"));
    EXPECT_EQ(GetMemoOption(1), QStringLiteral("0012"));
    EXPECT_EQ(rowCount(QStringLiteral("MemoOptions")), 1);
}

TEST_F(OptionsTest, FontsRoundTripThroughTheFontTableAndTheBirthdayFontHasNoRowUntilSaved)
{
    QFont font;
    ASSERT_TRUE(LoadFont(3, font));
    EXPECT_EQ(font.family(), QStringLiteral("Arial"));
    EXPECT_EQ(font.pointSize(), 10);
    font.setFamily(QStringLiteral("DejaVu Serif"));
    font.setPointSizeF(13.4);
    font.setBold(true);
    font.setItalic(true);
    font.setUnderline(true);
    font.setStrikeOut(true);
    SaveFont(3, font);
    QFont read;
    ASSERT_TRUE(LoadFont(3, read));
    EXPECT_EQ(read.family(), QStringLiteral("DejaVu Serif"));
    EXPECT_EQ(read.pointSize(), 13) << "sizes are whole points";
    EXPECT_EQ(read.weight(), QFont::Bold);
    EXPECT_TRUE(read.bold() && read.italic() && read.underline() && read.strikeOut());

    QFont birthday(QStringLiteral("Courier"), 17);
    EXPECT_FALSE(LoadFont(7, birthday));
    EXPECT_EQ(birthday.family(), QStringLiteral("Courier")) << "no row leaves the font as it was";
    EXPECT_EQ(birthday.pointSize(), 17);
    birthday.setItalic(true);
    SaveFont(7, birthday);
    EXPECT_EQ(rowCount(QStringLiteral("Font"), QStringLiteral("ID = 7")), 1);
    QFont saved;
    ASSERT_TRUE(LoadFont(7, saved));
    EXPECT_EQ(saved.family(), QStringLiteral("Courier"));
    EXPECT_EQ(saved.pointSize(), 17);
    EXPECT_TRUE(saved.italic());
    EXPECT_FALSE(saved.bold());
}

TEST_F(OptionsTest, AFontRecordKeepsAllEightMembersAndItsWeightComesLast)
{
    const FontRecord stored{QStringLiteral("Liberation Sans"), true, 2, false, 9, false, true, 400};
    SaveFontRecord(2, stored);
    FontRecord read;
    ASSERT_TRUE(LoadFontRecord(2, read));
    EXPECT_EQ(read.name, stored.name);
    EXPECT_EQ(read.bold, true);
    EXPECT_EQ(read.charset, 2);
    EXPECT_EQ(read.italic, false);
    EXPECT_EQ(read.size, 9);
    EXPECT_EQ(read.strikeThrough, false);
    EXPECT_EQ(read.underline, true);
    EXPECT_EQ(read.weight, 400);
    EXPECT_FALSE(read.toFont().bold()) << "a normal weight wins over the bold member";

    const FontRecord heavy{QStringLiteral("Liberation Sans"), false, 0, false, 9, false, false, 800};
    EXPECT_EQ(heavy.toFont().weight(), QFont::ExtraBold);
    const FontRecord noWeight{QStringLiteral("Liberation Sans"), true, 0, false, 9, false, false, 0};
    EXPECT_TRUE(noWeight.toFont().bold()) << "a record without a weight keeps the bold member";
}

TEST_F(OptionsTest, WithNoDatabaseReadsGiveZeroValuesAndWritesDoNothing)
{
    DB.close();
    EXPECT_DOUBLE_EQ(GetNOption(5), 0) << "zero, not the -1 of a missing row";
    EXPECT_DOUBLE_EQ(GetMargin(200), 0);
    EXPECT_EQ(GetSOption(1), QString());
    EXPECT_EQ(GetMemoOption(1), QString());
    QFont font(QStringLiteral("Courier"), 17);
    EXPECT_FALSE(LoadFont(3, font));
    EXPECT_EQ(font.family(), QStringLiteral("Courier"));

    SetNOption(4000, 1);
    SetSOption(4000, QStringLiteral("x"));
    SetMemoOption(4000, QStringLiteral("x"));
    SetMargin(4001, 2);
    SaveFont(4000, font);
    EXPECT_TRUE(dialogs().messages().empty());

    DB = Database::open(mainDatabase());
    EXPECT_EQ(rowCount(QStringLiteral("NumberOptions"), QStringLiteral("OptionNumber >= 4000")), 0);
    EXPECT_EQ(rowCount(QStringLiteral("StringOptions"), QStringLiteral("OptionNumber = 4000")), 0);
    EXPECT_EQ(rowCount(QStringLiteral("MemoOptions")), 0);
    EXPECT_EQ(rowCount(QStringLiteral("Font"), QStringLiteral("ID = 4000")), 0);
}

TEST_F(OptionsTest, AFailedReadGoesThroughTheStandardHandlerWithItsLocation)
{
    DB.execute(QStringLiteral("drop table NumberOptions"));
    dialogs().answer(ui::AnswerYes);
    EXPECT_DOUBLE_EQ(GetNOption(5), 0);
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_TRUE(lastMessage().text.startsWith(
        QStringLiteral("An internal error has been encountered.\n Location: GetNOption\n Error: 3078\n")))
        << lastMessage().text.toStdString();
    EXPECT_EQ(lastMessage().title, QStringLiteral("Error Handler"));
}
