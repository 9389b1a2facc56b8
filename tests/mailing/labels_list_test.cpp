#include "labels_fixture.h"

#include "core/options.h"

#include <QCheckBox>
#include <QCoreApplication>
#include <QPushButton>

using namespace hb;

namespace {

const QStringList AbleRows{QStringLiteral("Ann Able|-1"), QStringLiteral("1 Oak St|2"), QStringLiteral("Salem, OR  97301|4"),
                           QStringLiteral(" |0"), QStringLiteral(" |0")};
const QStringList BakerRows{QStringLiteral("Bob Baker|-2"), QStringLiteral("2 Elm Rd|2"), QStringLiteral("Apt 5|3"),
                            QStringLiteral("Bend  97701|4"), QStringLiteral(" |0")};
const QStringList ColeRows{QStringLiteral("Cy Cole|-3"), QStringLiteral(" |0"), QStringLiteral(" |0"), QStringLiteral(" |0"),
                           QStringLiteral(" |0")};

QStringList concat(std::initializer_list<QStringList> parts)
{
    QStringList all;
    for (const QStringList& p : parts)
        all << p;
    return all;
}

} // namespace

class LabelListTest : public LabelsFixture {
protected:
    void SetUp() override
    {
        LabelsFixture::SetUp();
        addListings();
        w = labelsWithFirstType();
        ASSERT_NE(w, nullptr);
        labels = list(*w, "lstLabels");
    }
    FrmLabels* w = nullptr;
    ui::ListBox* labels = nullptr;
};

TEST_F(LabelListTest, OpensWithItsStepsAndMakesFiveRowsOfEachTickedListing)
{
    EXPECT_EQ(w->windowTitle(), QStringLiteral("Label Selection"));
    EXPECT_EQ(text(*w, "lblHelp2"), QStringLiteral("2. Select/Deselect Labels"));
    EXPECT_EQ(text(*w, "lblHelp3"), QStringLiteral("3. Insert/Change/Delete/Duplicate Labels"));
    EXPECT_EQ(text(*w, "lblSelectList2"), QStringLiteral("Select for Labels"));
    EXPECT_EQ(ReportType, QStringLiteral("L"));
    EXPECT_EQ(list(*w, "lstSelections")->selectedCount(), 3);
    EXPECT_EQ(rows(labels), concat({AbleRows, BakerRows, ColeRows}));
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("3 Labels Selected"));
    EXPECT_EQ(labels->listIndex(), 0);

    // A click on a name recomputes the list without it.
    clickRow(list(*w, "lstSelections"), 1);
    EXPECT_EQ(rows(labels), concat({AbleRows, ColeRows}));
    clickRow(list(*w, "lstSelections"), 0);
    clickRow(list(*w, "lstSelections"), 2);
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("0 Labels Selected"));
    for (const char* b : {"cmdChange", "cmdDelete", "cmdDuplicate", "cmdPrint"})
        EXPECT_FALSE(enabled(*w, b)) << b;
    EXPECT_TRUE(enabled(*w, "cmdInsert"));
    clickRow(list(*w, "lstSelections"), 2);
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("1 Label Selected"));
    EXPECT_TRUE(enabled(*w, "cmdPrint"));
    keepPicture(w, QStringLiteral("labels-window"));
}

TEST_F(LabelListTest, CountryJoinsTheCityLineWhenTicked)
{
    QTest::mouseClick(control<QCheckBox>(*w, QStringLiteral("CheckCountry")), Qt::LeftButton);
    EXPECT_EQ(IncludeCountry, 1);
    EXPECT_EQ(labels->list(2), QStringLiteral("Salem, OR  97301  USA"));
    EXPECT_EQ(labels->list(11), QStringLiteral("  Canada")) << "no city: the country with two blanks before it";
    EXPECT_EQ(labels->itemData(11), 4);
    QTest::mouseClick(control<QCheckBox>(*w, QStringLiteral("CheckCountry")), Qt::LeftButton);
    EXPECT_EQ(rows(labels), concat({AbleRows, BakerRows, ColeRows}));
}

TEST_F(LabelListTest, InsertPutsABlankLabelBeforeTheSelectedOne)
{
    clickRow(labels, 7);
    click(*w, QStringLiteral("cmdInsert"));
    EXPECT_EQ(labels->listCount(), 20);
    EXPECT_EQ(labels->list(5), QStringLiteral("[Blank Label]"));
    EXPECT_EQ(labels->itemData(5), 1);
    EXPECT_EQ(labels->listIndex(), 5);
    EXPECT_EQ(rows(labels).mid(10, 5), BakerRows);
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("4 Labels Selected"));
}

TEST_F(LabelListTest, ChangeKeepsTheLinkUnlessTheCityLineChanges)
{
    editNextLabel(std::nullopt, QStringLiteral("Eugene  97401"));
    doubleClickRow(labels, 6);   // a double click changes too
    QCoreApplication::processEvents();
    EXPECT_EQ(labels->itemData(5), 1) << "a new city line cuts the label from its listing";
    EXPECT_EQ(labels->list(8), QStringLiteral("Eugene  97401"));

    clickRow(labels, 2);
    editNextLabel(QStringLiteral("Ann and Al Able"), std::nullopt);
    click(*w, QStringLiteral("cmdChange"));
    EXPECT_EQ(rows(labels).mid(0, 5), (QStringList{QStringLiteral("Ann and Al Able|-1"), QStringLiteral("1 Oak St|2"),
                                                   QStringLiteral("Salem, OR  97301|4"), QStringLiteral("|0"), QStringLiteral("|0")}));
    EXPECT_EQ(labels->listIndex(), 0);

    clickRow(labels, 10);
    editNextLabel(QStringLiteral("Nobody"), std::nullopt, false);
    click(*w, QStringLiteral("cmdChange"));
    EXPECT_EQ(rows(labels).mid(10, 5), ColeRows) << "cancel changes nothing";
}

TEST_F(LabelListTest, AnEmptiedNameMakesABlankLabelAndAnAddressWithoutNameIsRefused)
{
    clickRow(labels, 10);
    dialogs().onModal([&](QWidget& edit) {
        auto* name = control<QLineEdit>(edit, QStringLiteral("txtName"));
        auto* city = control<QLineEdit>(edit, QStringLiteral("txtCityStateZip"));
        name->selectAll();
        QTest::keyClick(name, Qt::Key_Delete);
        QTest::keyClicks(city, QStringLiteral("Oslo"));
        click(edit, QStringLiteral("cmdOK"));
        EXPECT_EQ(lastMessage().text, QStringLiteral("Must enter a name when address entered!"));
        EXPECT_EQ(lastMessage().title, QStringLiteral("Name Not Entered"));
        EXPECT_EQ(lastMessage().style, 48);
        city->clear();
        click(edit, QStringLiteral("cmdOK"));
    });
    click(*w, QStringLiteral("cmdChange"));
    EXPECT_EQ(labels->list(10), QStringLiteral("[Blank Label]"));
    EXPECT_EQ(labels->itemData(10), 1);
}

TEST_F(LabelListTest, DeleteOfFirstMiddleLastAndOnlyLabel)
{
    clickRow(labels, 6);
    click(*w, QStringLiteral("cmdDelete"));
    EXPECT_EQ(rows(labels), concat({AbleRows, ColeRows}));
    EXPECT_EQ(labels->listIndex(), 5);
    click(*w, QStringLiteral("cmdDelete"));
    EXPECT_EQ(rows(labels), AbleRows);
    EXPECT_EQ(labels->listIndex(), 0) << "after the last label, the one before it";
    click(*w, QStringLiteral("cmdDelete"));
    EXPECT_EQ(labels->listCount(), 0);
    EXPECT_EQ(labels->listIndex(), -1);
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("0 Labels Selected"));

    // With nothing to act on, the handlers say so. The buttons are disabled then, so the handlers are
    // called as the program's own code would.
    const auto saysNothingIsSelected = [this](const char* word) {
        EXPECT_EQ(lastMessage().text, QStringLiteral("Must select label to %1!").arg(QString::fromLatin1(word)));
        EXPECT_EQ(lastMessage().title, QStringLiteral("No Label Selected"));
    };
    for (const char* name : {"cmdChange", "cmdDelete", "cmdDuplicate"})
        EXPECT_FALSE(control<QAbstractButton>(*w, QString::fromLatin1(name))->isEnabled()) << name;
    w->cmdChange_Click();
    saysNothingIsSelected("change");
    w->cmdDelete_Click();
    saysNothingIsSelected("delete");
    w->cmdDuplicate_Click();
    saysNothingIsSelected("duplicate");
    click(*w, QStringLiteral("cmdInsert"));
    EXPECT_EQ(labels->listCount(), 5) << "insert on an empty list makes label 1";
    EXPECT_EQ(labels->listIndex(), 0);
}

TEST_F(LabelListTest, DuplicateCopiesFourRowsAheadOfTheLabel)
{
    clickRow(labels, 8);
    click(*w, QStringLiteral("cmdDuplicate"));
    QStringList copy = BakerRows;
    copy[4] = QStringLiteral("|0");
    EXPECT_EQ(rows(labels), concat({AbleRows, copy, BakerRows, ColeRows}));
    EXPECT_EQ(labels->listIndex(), 5);
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("4 Labels Selected"));
}

TEST_F(LabelListTest, PrintPreviewWritesOneRowALabelAndOpensThePreview)
{
    DB.execute(QStringLiteral("update roof set City = '%1', State = '%2' where RoofNumber = 2")
                   .arg(QString(30, QLatin1Char('x')), QString(15, QLatin1Char('y'))));
    clickRow(list(*w, "lstTypes"), 0);
    clickRow(list(*w, "lstTypes"), 0);
    clickRow(labels, 0);
    click(*w, QStringLiteral("cmdInsert"));
    clickRow(labels, 5);
    editNextLabel(std::nullopt, QStringLiteral("Portland"));
    click(*w, QStringLiteral("cmdChange"));
    click(*w, QStringLiteral("cmdPrint"));
    const auto table = rptLabels();
    ASSERT_EQ(table.size(), 4);
    EXPECT_EQ(table[0][QStringLiteral("NameOnLabel")].toString(), QStringLiteral(" "));
    EXPECT_EQ(table[0][QStringLiteral("RoofNumber")].toInt(), 0);
    EXPECT_EQ(table[1][QStringLiteral("NameOnLabel")].toString(), QStringLiteral("Ann Able"));
    EXPECT_EQ(table[1][QStringLiteral("citystatezip")].toString(), QStringLiteral("Portland"));
    EXPECT_EQ(table[1][QStringLiteral("RoofNumber")].toInt(), 0) << "a changed city line drops the listing";
    EXPECT_EQ(table[2][QStringLiteral("Address2")].toString(), QStringLiteral("Apt 5"));
    EXPECT_EQ(table[2][QStringLiteral("citystatezip")].toString().size(), 50) << "the 54 characters are cut at writing";
    EXPECT_EQ(labels->list(13).size(), 54) << "but not in the list";
    EXPECT_EQ(table[2][QStringLiteral("RoofNumber")].toInt(), 2);
    EXPECT_EQ(table[3][QStringLiteral("LabelNumber")].toInt(), 4);

    EXPECT_FALSE(w->isFormVisible());
    FrmMailIt* preview = forms::loaded<FrmMailIt>();
    ASSERT_NE(preview, nullptr);
    EXPECT_TRUE(preview->isFormVisible());
    EXPECT_EQ(ReportType, QStringLiteral("M"));
    EXPECT_EQ(preview->ezLabel().pieces().size(), 4);
    EXPECT_EQ(text(*preview, "LabelPagenofn"), QStringLiteral("Page 1 of 1"));

    click(*preview, QStringLiteral("CommandSelect"));
    EXPECT_EQ(ReportType, QStringLiteral("L"));
    EXPECT_TRUE(w->isFormVisible());
    EXPECT_EQ(rows(labels).size(), 20) << "the list comes back as it was left";
}

TEST_F(LabelListTest, AccentedNamesStandBesideTheirBaseLettersAndTheButtonsRaiseNoClickOfTheNames)
{
    addListing({4, QStringLiteral("Zimmer Hardware"), QString(), 0});
    addListing({5, QStringLiteral("Paul Éluard"), QStringLiteral("Éluard"), 0});
    addListing({6, QStringLiteral("Ödegaard"), QString(), 0});
    addListing({7, QStringLiteral("Hans Groß"), QStringLiteral("Groß"), 0});
    addListing({8, QStringLiteral("Ana Gómez"), QStringLiteral("Gómez"), 0});
    addListing({9, QStringLiteral("Eva Åström"), QStringLiteral("Åström"), 0});
    auto* names = list(*w, "lstSelections");
    int clicks = 0;
    QObject::connect(names, &ui::ListBox::click, names, [&] { ++clicks; });
    click(*w, QStringLiteral("cmdTypesSelect"));
    QStringList texts;
    for (int i = 0; i < names->listCount(); ++i)
        texts << names->list(i);
    EXPECT_EQ(texts, (QStringList{"Able...Ann Able", "Åström...Eva Åström", "Baker...Bob Baker", "Cole...Cy Cole",
                                  "Éluard...Paul Éluard", "Gómez...Ana Gómez", "Groß...Hans Groß", "Ödegaard",
                                  "Zimmer Hardware"}));
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("9 Labels Selected"));
    click(*w, QStringLiteral("cmdLabelsClear"));
    click(*w, QStringLiteral("cmdLabelsSelect"));
    EXPECT_EQ(clicks, 0);
    EXPECT_EQ(labels->list(20), QStringLiteral("Paul Éluard"));
    EXPECT_EQ(text(*w, "lblSelectList3"), QStringLiteral("9 Labels Selected"));
}

TEST_F(LabelListTest, ANameChangeKeepsTheLinkOfALabelWhoseCityLineIsLongerThanTheBox)
{
    DB.execute(QStringLiteral("update roof set City = '%1', State = '%2' where RoofNumber = 2")
                   .arg(QString(30, QLatin1Char('x')), QString(15, QLatin1Char('y'))));
    clickRow(list(*w, "lstTypes"), 0);
    clickRow(list(*w, "lstTypes"), 0);
    const QString longCity = labels->list(8);
    ASSERT_EQ(longCity.size(), 54);
    clickRow(labels, 5);
    editNextLabel(QStringLiteral("Robert Baker"), std::nullopt);
    click(*w, QStringLiteral("cmdChange"));
    EXPECT_EQ(labels->itemData(5), -2) << "only the name changed";
    EXPECT_EQ(labels->list(8), longCity) << "the list keeps the whole line";
    click(*w, QStringLiteral("cmdPrint"));
    const auto table = rptLabels();
    ASSERT_EQ(table.size(), 3);
    EXPECT_EQ(table[1][QStringLiteral("NameOnLabel")].toString(), QStringLiteral("Robert Baker"));
    EXPECT_EQ(table[1][QStringLiteral("RoofNumber")].toInt(), 2);
    EXPECT_EQ(table[1][QStringLiteral("citystatezip")].toString(), longCity.left(50));
}

TEST_F(LabelListTest, EnterInTheEditWindowPressesOkAndEscapeCancels)
{
    const struct { Qt::Key key; QString name; } cases[] = {{Qt::Key_Return, QStringLiteral("Ann Enter")},
                                                           {Qt::Key_Escape, QStringLiteral("Ann Enter")}};
    for (const auto& c : cases) {
        clickRow(labels, 0);
        dialogs().onModal([&](QWidget& d) {
            auto* name = control<QLineEdit>(d, QStringLiteral("txtName"));
            name->selectAll();
            QTest::keyClicks(name, c.key == Qt::Key_Escape ? QStringLiteral("Not Kept") : c.name);
            QTest::keyClick(name, c.key);
        });
        click(*w, QStringLiteral("cmdChange"));
        EXPECT_EQ(labels->list(0), c.name) << c.key;
        EXPECT_EQ(labels->itemData(0), -1);
    }
}
