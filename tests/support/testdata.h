#pragma once

#include <QDate>
#include <QString>
#include <QVariantMap>

#include <utility>

// Rows written straight into the open database, the way the program's own windows would leave them.
struct ListingRow {
    ListingRow(int number, QString name, QString sortName = {}, int type = 0, QVariantMap fields = {})
        : number(number), name(std::move(name)), sortName(std::move(sortName)), type(type), fields(std::move(fields))
    {
    }
    int number = 0;
    QString name;
    QString sortName;        // empty: the same as the name
    int type = 0;
    QVariantMap fields;      // any other Roof fields
};

void addListing(const ListingRow& row);
void addPerson(int roofNumber, int personNumber, const QString& first, const QString& last,
               const QDate& birthDate = QDate(), const QVariantMap& fields = {});
// A large database for the benchmarks: listings with one individual each.
void fillLargeDatabase(int listings);
