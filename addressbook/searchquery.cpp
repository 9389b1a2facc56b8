#include "addressbook/searchquery.h"

#include "core/misc.h"

namespace hb {

namespace {

const QString NoName = QStringLiteral("zz69zwo6oz");

// An apostrophe in the text is doubled, so that it is text in the literal and not its end.
QString term(const char* literal, const QString& text)
{
    return QLatin1String(literal) + DoubleQuotes(text) + QStringLiteral("*'");
}

struct Term {
    bool ticked;
    const char* literal;
};

QString joined(QString sql, std::initializer_list<Term> terms, const QString& text)
{
    for (const Term& t : terms) {
        if (t.ticked)
            sql += term(t.literal, text);
    }
    return sql;
}

} // namespace

QString ListingSearchSql(const QString& text, const SearchFields& f)
{
    const QString first = QStringLiteral("Select * from Roof where ") + term("RoofName like '*", f.name ? text : NoName);
    return joined(first,
                  {{f.address, "or Address1 like '*"},
                   {f.address, "or Address2 like '*"},
                   {f.city, "or City like '*"},
                   {f.state, "or State like '*"},
                   {f.zip, "or Zip like '*"},
                   {f.country, "or Country like '*"},
                   {f.phone, "or Phone like '*"},
                   {f.cell, "or Cell like '*"},
                   {f.fax, "or Fax like '*"},
                   {f.email, "or Email like '*"},
                   {f.notes, "or Notes like '*"}},
                  text);
}

QString IndividualSearchSql(const QString& text, const SearchFields& f)
{
    const QString first =
        QStringLiteral("Select * from Person where ") + term("FirstName like '*", f.name ? text : NoName);
    return joined(first,
                  {{f.name, "or LastName like '*"},
                   {f.work, "or Work like '*"},
                   {f.phone, "or WorkPhone like '*"},
                   {f.email, "or Email like '*"},
                   {f.notes, "or Notes like '*"}},
                  text);
}

} // namespace hb
