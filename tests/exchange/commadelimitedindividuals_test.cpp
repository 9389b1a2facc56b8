#include "importwindow_fixture.h"

using namespace hb;

// Columns of an individual's fields make each row also an individual, and the rows of one household one
// listing.
class CommaDelimitedIndividualsTest : public ImportWindowFixture {
protected:
    // The individuals of the listings, as "listing: first last, work, birth date, e-mail", in number order.
    static QStringList people()
    {
        Recordset rs = DB.openRecordset(QStringLiteral(
            "select Roof.RoofName, Person.* from Roof inner join Person on Roof.RoofNumber = Person.RoofNumber "
            "order by Person.PersonNumber"));
        QStringList found;
        for (; !rs.eof(); rs.moveNext())
            found << QStringLiteral("%1: %2 %3, %4, %5 %6/%7, %8")
                         .arg(rs.value(QStringLiteral("RoofName")).toString(), rs.value(QStringLiteral("FirstName")).toString(),
                              rs.value(QStringLiteral("LastName")).toString(), rs.value(QStringLiteral("Work")).toString(),
                              rs.value(QStringLiteral("BirthDate")).toDate().toString(Qt::ISODate))
                         .arg(rs.value(QStringLiteral("BirthMonthNumber")).toInt())
                         .arg(rs.value(QStringLiteral("BirthDayNumber")).toInt())
                         .arg(rs.value(QStringLiteral("Email")).toString());
        return found;
    }
};

TEST_F(CommaDelimitedIndividualsTest, RowsOfOneHouseholdBecomeOneListingWithAnIndividualEach)
{
    const QString path = writeFile(QStringLiteral("family.csv"),
        "First Name,Last Name,Address1,City,Birth Date,Work,Individual Email\n"
        "John,Smith,1 Elm St,Springfield,03/14/1970,Acme,john@example.com\n"
        "Ann,Jones,2 Oak Ave,Shelbyville,,,\n"
        "Mary,Smith,1 elm st,Springfield,07/04/1972,,mary@example.com\n"
        "Tom,Smith,9 Pine Rd,Springfield,not known,,\n");
    importFile(path, [&](FormCommaDelimitedImport& w) {
        EXPECT_EQ(heads(w), (QStringList{QStringLiteral("First Name"), QStringLiteral("Last Name (Listby)"),
                                         QStringLiteral("Address1"), QStringLiteral("City"),
                                         QStringLiteral("Click to Assign"), QStringLiteral("Click to Assign"),
                                         QStringLiteral("Click to Assign")}));
        assign(w, 5, QStringLiteral("Birth Date"));
        assign(w, 6, QStringLiteral("Work"));
        assign(w, 7, QStringLiteral("Individual Email"));
        EXPECT_FALSE(offered.contains(QStringLiteral("Work"))) << "each field once";
        press(w, "CommandImport");
    });
    EXPECT_EQ(lastMessage().text, summary(3) + QStringLiteral("\r\nValues not read as dates: 1"));
    EXPECT_EQ(roofCount(), 3);
    const auto smiths = listings(QStringLiteral("John & Mary Smith"));
    ASSERT_EQ(smiths.size(), 1);
    EXPECT_EQ(smiths[0]["sortname"].toString(), QStringLiteral("Smith"));
    EXPECT_EQ(smiths[0]["address1"].toString(), QStringLiteral("1 Elm St"));
    EXPECT_EQ(people(), (QStringList{QStringLiteral("John & Mary Smith: John Smith, Acme, 1970-03-14 3/14, john@example.com"),
                                     QStringLiteral("John & Mary Smith: Mary Smith, , 1972-07-04 7/4, mary@example.com"),
                                     QStringLiteral("Ann Jones: Ann Jones, ,  0/0, "),
                                     QStringLiteral("Tom Smith: Tom Smith, ,  0/0, ")}));
}

TEST_F(CommaDelimitedIndividualsTest, ImportingTheFileAgainReplacesTheIndividualsInsteadOfDoublingThem)
{
    const QString path = writeFile(QStringLiteral("pair.csv"), "Jo,Kim,5 Bay Rd,Work A\nLee,Kim,5 Bay Rd,Work B\n");
    const auto importPair = [&](const char* answer) {
        importFile(path, [&](FormCommaDelimitedImport& w) {
            assign(w, 1, QStringLiteral("First Name"));
            assign(w, 2, QStringLiteral("Last Name"));
            assign(w, 2, QStringLiteral("List By"));
            assign(w, 3, QStringLiteral("Address1"));
            assign(w, 4, QStringLiteral("Work"));
            if (answer)
                answerDuplicate(answer);
            press(w, "CommandImport");
        });
    };
    importPair(nullptr);
    importPair("CommandReplace");
    EXPECT_EQ(lastMessage().text, summary(1, 0, 1));
    EXPECT_EQ(roofCount(), 1);
    EXPECT_EQ(people(), (QStringList{QStringLiteral("Jo & Lee Kim: Jo Kim, Work A,  0/0, "),
                                     QStringLiteral("Jo & Lee Kim: Lee Kim, Work B,  0/0, ")}));
}
