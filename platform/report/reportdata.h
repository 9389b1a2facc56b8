#pragma once

#include <QDate>
#include <QList>
#include <QString>
#include <QVariant>
#include <QVariantMap>

namespace hb::report {

// One listing with its individuals; rows map field names to values, looked up ignoring case.
struct ReportListing {
    QVariantMap roof;
    QList<QVariantMap> persons;
};

// Already filtered and ordered by the caller.
struct ReportData {
    QList<ReportListing> listings;
};

// An invalid QVariant when the row has no such field.
QVariant fieldValue(const QVariantMap& row, const QString& field);
// Dates in the short form, text trimmed, null as empty.
QString fieldText(const QVariant& value);
// The List By name, or the listing's name when that is blank.
QString listByName(const ReportListing& listing);

// What a source is read against: the listing and individual being printed and the page.
struct SourceContext {
    const ReportListing* listing = nullptr;
    const QVariantMap* person = nullptr;
    QString title;
    QDate printDate;
    int page = 0;
    QString nameIndex;
};

// The sources that differ from page to page; they print on one line and always hold their space, so that
// the page header and footer are the same height on every page.
bool isPageSource(const QString& source);

// The text an object shows, trimmed. A source that names fields and finds them all empty gives an empty
// text, literal words around them included, so that "Fax: {Roof.Fax}" vanishes without a fax number.
QString sourceText(const QString& source, const SourceContext& context);

}  // namespace hb::report
