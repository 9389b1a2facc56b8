// The exports to other programs through the export window: contact cards and the calendar of birthdays.

#include "exchangefixture.h"

#include "exchange/vcard.h"
#include "platform/ui/listbox.h"

#include <QCheckBox>
#include <QFileInfo>
#include <QStandardPaths>

#include <libical/ical.h>

using namespace hb;

// Types in the list: "No Type Assigned", "Business" 1, "Family" 2, "Friends" 3.
class ContactExportTest : public ExchangeFixture {
protected:
    void SetUp() override
    {
        ExchangeFixture::SetUp();
        ASSERT_TRUE(guarded([] {
            addListing({1, QStringLiteral("Acme & Co"), QStringLiteral("Acme"), 1, {{QStringLiteral("Cell"), QStringLiteral("555-0101")}}});
            addListing({2, QStringLiteral("Bolt Ltd"), QStringLiteral("Bolt Ltd"), 1});
            addListing({4, QStringLiteral("The Smiths"), QStringLiteral("Smith"), 2,
                        {{QStringLiteral("Anniversary"), QDate(1990, 6, 1)},
                         {QStringLiteral("Address1"), QStringLiteral("1 Elm St; Rear")},
                         {QStringLiteral("City"), QStringLiteral("Springfield")}}});
            addListing({5, QStringLiteral("Nobody"), QStringLiteral("Nobody"), 0});
            addPerson(4, 1, QStringLiteral("Ann"), QStringLiteral("Smith"), QDate(1960, 3, 4),
                      {{QStringLiteral("Work"), QStringLiteral("Acme, Sales")}});
            addPerson(4, 2, QStringLiteral("Bob"), QStringLiteral("Smith"));
            addPerson(4, 3, QStringLiteral("Lea"), QStringLiteral("Smith"), QDate(1984, 2, 29));
        }));
        folder = otherFolder(QStringLiteral("exchange"));
    }

    // The export of a menu item into the folder, vCard 4.0 ticked when asked for.
    bool exportTo(const char* menu, const QString& name, const QStringList& types, bool version4 = false, int answer = -1)
    {
        return exportThrough(QString::fromLatin1(menu), folder, name, types, answer, [&](FrmBackup& w) {
            if (version4)
                QTest::keyClick(part<QCheckBox>(w, "chkVCard4"), Qt::Key_Space);
            keepPicture(&w, QString::fromLatin1(menu));
        });
    }

    QVector<vcard::Card> cardsIn(const QString& name) const
    {
        QFile file(folder + QLatin1Char('/') + name);
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        return vcard::read(file.readAll()).cards;
    }

    static QString text(const vcard::Card& card, const char* name)
    {
        const vcard::Property* property = card.first(QString::fromLatin1(name));
        return property ? property->text() : QString();
    }

    QString folder;
};

TEST_F(ContactExportTest, CardsOfTheChosenTypesGoOutAsVCard30WithUidsThatStay)
{
    ASSERT_TRUE(exportTo("mnuExportVCards", QStringLiteral("cards.vcf"), {QStringLiteral("Business"), QStringLiteral("Family")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("5 contact cards exported!"));
    EXPECT_EQ(lastMessage().title, QStringLiteral("Export Complete"));
    EXPECT_TRUE(listingsShown());
    const QVector<vcard::Card> cards = cardsIn(QStringLiteral("cards.vcf"));
    ASSERT_EQ(cards.size(), 5);
    QStringList names, uids;
    for (const vcard::Card& card : cards) {
        EXPECT_EQ(card.version, QStringLiteral("3.0"));
        names << text(card, "FN");
        uids << text(card, "UID");
    }
    EXPECT_EQ(names, (QStringList{"Acme & Co", "Bolt Ltd", "Ann Smith", "Bob Smith", "Lea Smith"})) << "by List By";
    EXPECT_EQ(text(cards[0], "X-ABSHOWAS"), QString()) << "listed by another name: no firm";
    EXPECT_EQ(text(cards[1], "X-ABSHOWAS"), QStringLiteral("COMPANY"));
    const vcard::Card& ann = cards[2];
    EXPECT_EQ(ann.first(QStringLiteral("N"))->components().mid(0, 2), (QStringList{"Smith", "Ann"}));
    EXPECT_EQ(ann.first(QStringLiteral("ADR"))->components(),
              (QStringList{"", "", "1 Elm St; Rear", "Springfield", "", "", ""}));
    EXPECT_EQ(ann.first(QStringLiteral("ORG"))->components(), QStringList{"Acme, Sales"});
    EXPECT_EQ(text(ann, "BDAY"), QStringLiteral("1960-03-04"));
    EXPECT_EQ(text(ann, "X-ANNIVERSARY"), QStringLiteral("1990-06-01"));
    EXPECT_EQ(text(ann, "CATEGORIES"), QStringLiteral("Family"));
    EXPECT_EQ(text(ann, "X-HOMEBOOK-LISTING"), QStringLiteral("The Smiths"));
    EXPECT_EQ(text(cards[0], "TEL"), QStringLiteral("555-0101"));
    EXPECT_EQ(cards[0].first(QStringLiteral("TEL"))->types(), QStringList{"cell"});
    EXPECT_EQ(QSet<QString>(uids.begin(), uids.end()).size(), 5);

    ASSERT_TRUE(exportTo("mnuExportVCards", QStringLiteral("cards.vcf"), {QStringLiteral("Business"), QStringLiteral("Family")},
                         false, ui::AnswerYes));
    EXPECT_EQ(dialogs().messages().at(dialogs().messages().size() - 2).text,
              QStringLiteral("File exists. Do you want to replace the file?"));
    QStringList again;
    for (const vcard::Card& card : cardsIn(QStringLiteral("cards.vcf")))
        again << text(card, "UID");
    EXPECT_EQ(again, uids);
    EXPECT_EQ(QFileInfo(folder + QStringLiteral("/cards.vcf")).permissions() & (QFile::ReadOther | QFile::ReadGroup), 0);
}

TEST_F(ContactExportTest, VCard40GoesOutOnRequest)
{
    ASSERT_TRUE(exportTo("mnuExportVCards", QStringLiteral("cards.vcf"), {QStringLiteral("Business"), QStringLiteral("Family")}, true));
    const QVector<vcard::Card> cards = cardsIn(QStringLiteral("cards.vcf"));
    ASSERT_EQ(cards.size(), 5);
    EXPECT_EQ(cards[1].version, QStringLiteral("4.0"));
    EXPECT_EQ(text(cards[1], "KIND"), QStringLiteral("org"));
    EXPECT_TRUE(text(cards[2], "UID").startsWith(QStringLiteral("urn:uuid:")));
    EXPECT_EQ(text(cards[2], "BDAY"), QStringLiteral("19600304"));
    EXPECT_EQ(text(cards[2], "ANNIVERSARY"), QStringLiteral("19900601"));
}

TEST_F(ContactExportTest, WhatCannotBeWrittenIsRefusedAndNothingIsWritten)
{
    const struct {
        const char* menu;
        const char* name;
        bool type;
        const char* text;
        const char* title;
    } cases[] = {
        {"mnuExportVCards", "", true, "Must enter file name!", "File Name Not Entered"},
        {"mnuExportVCards", "cards.mdb", true, "File name must end with '.vcf'.", "File Name Invalid"},
        {"mnuExportVCards", ".vcf", true, "File name must end with '.vcf'.", "File Name Invalid"},
        {"mnuExportVCards", "cards.vcf", false, "Must select at least one address type!", "No Address Type Selected"},
        {"mnuExportBirthdays", "dates.vcf", true, "File name must end with '.ics'.", "File Name Invalid"},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.name);
        ASSERT_TRUE(exportTo(c.menu, QString::fromLatin1(c.name), c.type ? QStringList{"Family"} : QStringList{}));
        EXPECT_EQ(lastMessage().text, QString::fromLatin1(c.text));
        EXPECT_EQ(lastMessage().title, QString::fromLatin1(c.title));
        ASSERT_TRUE(backupLoaded());
        ASSERT_TRUE(press(*forms::loaded<FrmBackup>(), "cmdCancel"));
    }
    EXPECT_TRUE(QDir(folder).entryList(QDir::Files | QDir::Hidden).isEmpty());
}

namespace {

struct Event {
    QString summary, description;
    icalcomponent* component = nullptr;
};

// The days in a year on which libical has the event recur.
QList<QDate> occurrences(icalcomponent* event, int year)
{
    const icaltimetype start = icalcomponent_get_dtstart(event);
    const icalrecurrencetype rule = icalproperty_get_rrule(icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY));
    icalrecur_iterator* it = icalrecur_iterator_new(rule, start);
    QList<QDate> days;
    for (icaltimetype next = icalrecur_iterator_next(it); !icaltime_is_null_time(next) && next.year <= year;
         next = icalrecur_iterator_next(it)) {
        if (next.year == year)
            days << QDate(next.year, next.month, next.day);
    }
    icalrecur_iterator_free(it);
    return days;
}

} // namespace

TEST_F(ContactExportTest, BirthdaysGoToACalendarThatLibicalReadsWithTheLeapDayOnTheLastOfFebruary)
{
    ASSERT_TRUE(exportTo("mnuExportBirthdays", QStringLiteral("dates.ics"), {QStringLiteral("Business"), QStringLiteral("Family")}));
    EXPECT_EQ(lastMessage().text, QStringLiteral("3 birthdays and anniversaries exported!"));
    QFile file(folder + QStringLiteral("/dates.ics"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    icalcomponent* calendar = icalparser_parse_string(bytes.constData());
    ASSERT_NE(calendar, nullptr);
    QMap<QString, Event> events;
    for (icalcomponent* e = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT); e;
         e = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
        EXPECT_EQ(icalcomponent_count_errors(e), 0);
        EXPECT_TRUE(icalcomponent_get_dtstart(e).is_date) << "all-day";
        events.insert(QString::fromUtf8(icalcomponent_get_summary(e)),
                      {QString::fromUtf8(icalcomponent_get_summary(e)), QString::fromUtf8(icalcomponent_get_description(e)), e});
    }
    EXPECT_EQ(events.keys(), (QStringList{"Ann Smith's birthday", "Lea Smith's birthday", "The Smiths's anniversary"}));
    EXPECT_EQ(events.value(QStringLiteral("Ann Smith's birthday")).description, QStringLiteral("Born 1960"));
    EXPECT_EQ(occurrences(events.value(QStringLiteral("Ann Smith's birthday")).component, 2027), QList<QDate>{QDate(2027, 3, 4)});
    icalcomponent* leap = events.value(QStringLiteral("Lea Smith's birthday")).component;
    EXPECT_EQ(occurrences(leap, 2026), QList<QDate>{QDate(2026, 2, 28)});
    EXPECT_EQ(occurrences(leap, 2027), QList<QDate>{QDate(2027, 2, 28)});
    EXPECT_EQ(occurrences(leap, 2028), QList<QDate>{QDate(2028, 2, 29)});
    icalcomponent_free(calendar);

    // A second reader, where the system has it.
    if (!QFileInfo::exists(QStringLiteral("/usr/bin/python3"))
        || QProcess::execute(QStringLiteral("/usr/bin/python3"), {QStringLiteral("-c"), QStringLiteral("import icalendar")}) != 0)
        GTEST_SKIP() << "python3-icalendar is not installed";
    QProcess python;
    python.start(QStringLiteral("/usr/bin/python3"),
                 {QStringLiteral("-c"),
                  QStringLiteral("import sys, icalendar\n"
                                 "c = icalendar.Calendar.from_ical(open(sys.argv[1], 'rb').read())\n"
                                 "print(len([e for e in c.walk('VEVENT')]))"),
                  file.fileName()});
    ASSERT_TRUE(python.waitForFinished(30000));
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    EXPECT_EQ(python.readAllStandardOutput().trimmed(), QByteArray("3"));
}
