#include "exchangefixture.h"

#include "core/misc.h"
#include "core/setup.h"
#include "platform/ui/listbox.h"

using namespace hb;

namespace {

const QStringList roofFields = {"RoofName", "Address1", "Address2", "City", "State", "Zip", "Country",
                                "Phone",    "Cell",     "Fax",      "Email", "Notes", "SortName"};
const QStringList personFields = {"FirstName", "LastName", "Work", "WorkPhone", "BirthDate",
                                  "BirthMonthNumber", "BirthDayNumber", "Email", "Notes"};

// Every listing with its type's name and its individuals, keyed by name; numbers are left out, since the
// import numbers afresh.
QMap<QString, QStringList> book()
{
    QMap<QString, QStringList> rows;
    Recordset roofs = DB.openRecordset(QStringLiteral("Roof"));
    for (; !roofs.eof(); roofs.moveNext()) {
        QStringList row;
        for (const QString& f : roofFields)
            row << f + QLatin1Char('=') + roofs.value(f).toString();
        row << QStringLiteral("type=") + RoofTypeName(static_cast<qint16>(roofs.value(QStringLiteral("RoofType")).toInt()));
        Recordset persons = DB.openRecordset(QStringLiteral("select * from Person where RoofNumber = %1 order by FirstName")
                                                 .arg(roofs.value(QStringLiteral("RoofNumber")).toInt()));
        for (; !persons.eof(); persons.moveNext()) {
            for (const QString& f : personFields)
                row << QStringLiteral("person.") + f + QLatin1Char('=') + persons.value(f).toString();
        }
        rows.insert(roofs.value(QStringLiteral("RoofName")).toString(), row);
    }
    return rows;
}

} // namespace

class RoundTripTest : public ExchangeFixture {};

TEST_F(RoundTripTest, AnExportImportedIntoAnEmptyBookGivesBackEveryField)
{
    ASSERT_TRUE(guarded([] {
        const QVariantMap full = {{"Address1", "1 Main St"}, {"Address2", "Apt 2"}, {"City", "Zürich"}, {"State", "ZH"},
                                  {"Zip", "8001"}, {"Country", "Switzerland"}, {"Phone", "555-1"}, {"Cell", "555-2"},
                                  {"Fax", "555-3"}, {"Email", "a@b.ch"}, {"Notes", "Line one\r\nLine 'two'"},
                                  {"Anniversary", QDate(1999, 9, 9)}};
        addListing({1, QStringLiteral("O'Neil & Co"), QStringLiteral("ONeil"), 1, full});
        addListing({2, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 2, {{"City", "Springfield"}}});
        addListing({3, QStringLiteral("Nobody"), QStringLiteral("Nobody"), 0});
        addPerson(1, 1, QStringLiteral("Seán"), QStringLiteral("O'Neil"), QDate(1970, 2, 28),
                  {{"Work", "Pilot"}, {"WorkPhone", "555-9"}, {"Email", "s@o.ie"}, {"Notes", "n"}});
        addPerson(2, 2, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(2000, 2, 29));
        addPerson(2, 3, QStringLiteral("Bob"), QStringLiteral("Smith"));
    }));
    const QMap<QString, QStringList> before = book();

    FrmBackup& out = openWindow(QStringLiteral("mnuExport"));
    goToFolder(out, otherFolder(QStringLiteral("trip")));
    ASSERT_TRUE(press(out, "cmdAll"));
    ASSERT_TRUE(pressOK(out));
    ASSERT_EQ(lastMessage().text, QStringLiteral("3 names and addresses exported!"));

    ASSERT_TRUE(guarded([] {
        DB.execute(QStringLiteral("delete from Person"));
        DB.execute(QStringLiteral("delete from Roof"));
        DB.execute(QStringLiteral("delete from RoofType"));
        LoadRoofTypes();
    }));
    FrmBackup& in = openWindow(QStringLiteral("I"));
    goToFolder(in, otherFolder(QStringLiteral("trip")));
    EXPECT_EQ(part<ui::FileListBox>(in, "File1")->fileName(), QStringLiteral("Quillon Names.mdb"));
    ASSERT_TRUE(pressOK(in));
    EXPECT_EQ(lastMessage().text, QStringLiteral("3 names and addresses added\r\r0 names and addresses changed"));

    const QMap<QString, QStringList> after = book();
    ASSERT_EQ(after.keys(), before.keys());
    for (const QString& name : before.keys()) {
        const QStringList& was = before[name];
        const QStringList& now = after[name];
        ASSERT_EQ(now.size(), was.size()) << name.toStdString();
        for (int i = 0; i < was.size(); ++i)
            EXPECT_EQ(now[i], was[i]) << name.toStdString();
    }
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from Roof where Anniversary is not null")).toInt(), 0)
        << "the anniversary stays behind";
    EXPECT_EQ(scalar(QStringLiteral("select count(*) from RoofType")).toInt(), 3) << "every chosen type comes back";
}
