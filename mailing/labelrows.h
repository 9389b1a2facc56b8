#pragma once

// The rows of one label in the label list, and the edit buffer through which the label list and the
// label editor talk.

#include <QString>
#include <QVector>

namespace hb {

// Kinds of row, kept in a row's ItemData; a name row of a listing's label holds the negated RoofNumber.
enum LabelRowKind { PaddingRow = 0, UnlinkedNameRow = 1, Address1Row = 2, Address2Row = 3, CityRow = 4 };
constexpr int RowsPerLabel = 5;

struct LabelRow {
    QString text;
    int itemData = 0;
    bool operator==(const LabelRow&) const = default;
};

// City, ", " state, two blanks and zip, and with the country on, two blanks and the country.
QString LabelCityLine(const QString& city, const QString& state, const QString& zip, const QString& country,
                      bool includeCountry);
// The five rows of a label: the name, each line that is not empty, padding rows of `padding` after.
QVector<LabelRow> LabelRows(const QString& name, int nameCode, const QString& address1, const QString& address2,
                            const QString& cityLine, const QString& padding);

// The label being edited.
extern QString LabelName;
extern QString LabelAddress1;
extern QString LabelAddress2;
extern QString LabelCityStateZip;
extern QString LabelCode;

} // namespace hb
