#include "mailing/labelrows.h"

namespace hb {

QString LabelName;
QString LabelAddress1;
QString LabelAddress2;
QString LabelCityStateZip;
QString LabelCode;

QString LabelCityLine(const QString& city, const QString& state, const QString& zip, const QString& country,
                      bool includeCountry)
{
    QString line;
    if (!city.isEmpty())
        line = city;
    if (!state.isEmpty())
        line += QStringLiteral(", ") + state;
    if (!zip.isEmpty())
        line += QStringLiteral("  ") + zip;
    if (includeCountry && !country.isEmpty())
        line += QStringLiteral("  ") + country;
    return line;
}

QVector<LabelRow> LabelRows(const QString& name, int nameCode, const QString& address1, const QString& address2,
                            const QString& cityLine, const QString& padding)
{
    QVector<LabelRow> rows{{name, nameCode}};
    if (!address1.isEmpty())
        rows.append({address1, Address1Row});
    if (!address2.isEmpty())
        rows.append({address2, Address2Row});
    if (!cityLine.isEmpty())
        rows.append({cityLine, CityRow});
    while (rows.size() < RowsPerLabel)
        rows.append({padding, PaddingRow});
    return rows;
}

} // namespace hb
