#include "exchange/incomingcards.h"

#include "core/misc.h"
#include "core/session.h"
#include "exchange/contactexport.h"

namespace hb::incomingcards {

namespace {

using vcardlistings::CardListing;

// Fields of a listing and of an individual that a card carries, names apart.
QString ImportRoofRecord::* const ListingFields[] = {
    &ImportRoofRecord::Address1, &ImportRoofRecord::Address2, &ImportRoofRecord::City,  &ImportRoofRecord::State,
    &ImportRoofRecord::Zip,      &ImportRoofRecord::Country,  &ImportRoofRecord::Phone, &ImportRoofRecord::Cell,
    &ImportRoofRecord::Fax,      &ImportRoofRecord::Email,    &ImportRoofRecord::Anniversary, &ImportRoofRecord::Notes};
QString ImportPersonRecord::* const PersonFields[] = {
    &ImportPersonRecord::FirstName, &ImportPersonRecord::LastName, &ImportPersonRecord::Work,
    &ImportPersonRecord::WorkPhone, &ImportPersonRecord::Email,    &ImportPersonRecord::BirthDate,
    &ImportPersonRecord::Notes};

QString dateText(const QDate& date) { return date.isValid() ? date.toString(QStringLiteral("yyyy-MM-dd")) : QString(); }

ImportRoofRecord recordOf(const contactexport::Listing& listing, qint32 type)
{
    ImportRoofRecord record;
    record.RoofNumber = listing.number;
    record.RoofType = type;
    record.RoofName = listing.roofName;
    record.SortName = listing.sortName;
    record.Address1 = listing.address1;
    record.Address2 = listing.address2;
    record.City = listing.city;
    record.State = listing.state;
    record.Zip = listing.zip;
    record.Country = listing.country;
    record.Phone = listing.phone;
    record.Cell = listing.cell;
    record.Fax = listing.fax;
    record.Email = listing.email;
    record.Anniversary = dateText(listing.anniversary);
    record.Notes = listing.notes;
    record.DateOrder = importdates::Order::YearMonthDay;
    return record;
}

ImportPersonRecord personOf(const contactexport::Individual& individual)
{
    return {individual.first, individual.last, individual.work, individual.workPhone, individual.email,
            dateText(individual.birth), individual.notes};
}

std::optional<CardListing> readCard(const QByteArray& bytes)
{
    const vcard::ReadResult read = vcard::read(bytes);
    if (read.cards.isEmpty())
        return std::nullopt;
    return vcardlistings::fromCard(read.cards.front());
}

qint32 typeOfListing(qint32 roof)
{
    Recordset rs = DB.openRecordset(QStringLiteral("select RoofType from Roof where RoofNumber =") + NumText(roof));
    const qint32 type = rs.eof() ? 0 : rs.value(QStringLiteral("RoofType")).toInt();
    rs.close();
    return type;
}

QString groupKey(const QString& name, const QString& home, bool named)
{
    return named ? QStringLiteral("listing|") + name + QLatin1Char('|') + home : home;
}

} // namespace

BookWriter::BookWriter(const QVector<qint32>& types) : types_(types)
{
    if (types_.isEmpty())
        return;
    for (const contactexport::Listing& listing : contactexport::listingsOfTypes(types_)) {
        if (listing.persons.isEmpty())
            continue;
        ImportRoofRecord record = recordOf(listing, 0);
        remember(record, true);
        remember(record, false);
    }
}

void BookWriter::remember(const ImportRoofRecord& record, bool named)
{
    const QString home = vcardlistings::homeKey(record.Address1, record.Zip, record.City);
    if (!home.isEmpty() && !homes_.contains(groupKey(record.RoofName, home, named)))
        homes_.insert(groupKey(record.RoofName, home, named), record.RoofNumber);
}

qint32 BookWriter::typeFor(const QString& category) const
{
    for (const qint32 type : types_) {
        if (type != 0 && !category.isEmpty() && RoofTypeName(qint16(type)).compare(category.trimmed(), Qt::CaseInsensitive) == 0)
            return type;
    }
    return types_.value(0);
}

qint32 BookWriter::joinedListing(const CardListing& listing) const
{
    if (listing.firm || listing.record.Persons.isEmpty() || listing.homeKey.isEmpty())
        return 0;
    return homes_.value(groupKey(listing.record.RoofName, listing.homeKey, listing.named));
}

QVector<RecordKey> BookWriter::add(const QVector<CardListing>& cards, const QSet<RecordKey>& linked, bool join)
{
    QVector<qsizetype> all;
    for (qsizetype i = 0; i < cards.size(); ++i)
        all << i;
    CardListing listing = vcardlistings::household(cards, all);
    const qint32 joined = join ? joinedListing(listing) : 0;
    QVector<contactexport::Individual> present;
    if (joined) {
        present = contactexport::listingsNumbered({joined}).value(0).persons;
    } else {
        listing.record.RoofNumber = 0;
        listing.record.RoofType = typeFor(listing.category);
        listing.record.DateOrder = importdates::Order::YearMonthDay;
        WriteHBListing(listing.record, counters);
        remember(listing.record, listing.named);
        remember(listing.record, false);
    }
    const qint32 roof = joined ? joined : listing.record.RoofNumber;
    if (listing.record.Persons.isEmpty())
        return {syncstate::keyOf(roof, 0)};
    QVector<RecordKey> records;
    for (const ImportPersonRecord& person : listing.record.Persons) {
        qint32 number = 0;
        for (const contactexport::Individual& here : present) {
            if (here.first == person.FirstName.trimmed() && here.last == person.LastName.trimmed()
                && !linked.contains(syncstate::keyOf(roof, here.number)) && !records.contains(syncstate::keyOf(roof, here.number)))
                number = here.number;
        }
        number = WriteHBPerson(roof, number, person, importdates::Order::YearMonthDay, counters);
        records << syncstate::keyOf(roof, number);
    }
    return records;
}

void BookWriter::change(RecordKey record, const QByteArray& before, const QByteArray& now)
{
    const std::optional<CardListing> was = readCard(before);
    const std::optional<CardListing> is = readCard(now);
    const QVector<contactexport::Listing> found = contactexport::listingsNumbered({syncstate::roofOf(record)});
    if (!is || found.isEmpty())
        return;
    const contactexport::Listing& listing = found.front();
    ImportRoofRecord target = recordOf(listing, typeOfListing(listing.number));
    // Only what the server changed is taken, so that a phone that drops a property of ours changes nothing.
    for (QString ImportRoofRecord::* field : ListingFields) {
        if (!was || was->record.*field != is->record.*field)
            target.*field = is->record.*field;
    }
    if (is->named && (!was || was->record.RoofName != is->record.RoofName || was->record.SortName != is->record.SortName)) {
        target.RoofName = is->record.RoofName;
        target.SortName = is->record.SortName;
    }
    WriteHBListing(target, counters);
    const qint32 personNumber = syncstate::personOf(record);
    if (personNumber == 0 || is->record.Persons.isEmpty())
        return;
    for (const contactexport::Individual& individual : listing.persons) {
        if (individual.number != personNumber)
            continue;
        ImportPersonRecord person = personOf(individual);
        const ImportPersonRecord wasPerson = was ? was->record.Persons.value(0) : ImportPersonRecord();
        const ImportPersonRecord& isPerson = is->record.Persons.front();
        for (QString ImportPersonRecord::* field : PersonFields) {
            if (!was || wasPerson.*field != isPerson.*field)
                person.*field = isPerson.*field;
        }
        WriteHBPerson(listing.number, personNumber, person, importdates::Order::YearMonthDay, counters);
    }
}

void BookWriter::remove(RecordKey record)
{
    const QString roof = NumText(syncstate::roofOf(record));
    if (syncstate::personOf(record) != 0) {
        DB.execute(QStringLiteral("delete from Person where RoofNumber =") + roof + QStringLiteral(" and PersonNumber =")
                   + NumText(syncstate::personOf(record)));
        Recordset left = DB.openRecordset(QStringLiteral("select count(*) as persons from Person where RoofNumber =") + roof);
        const bool empty = left.value(QStringLiteral("persons")).toInt() == 0;
        left.close();
        if (!empty)
            return;
    }
    DB.execute(QStringLiteral("delete from Roof where RoofNumber =") + roof);
}

} // namespace hb::incomingcards
