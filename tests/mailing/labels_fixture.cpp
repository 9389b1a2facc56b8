#include "labels_fixture.h"
#include "storagenames.h"

QVector<QVariantMap> LabelsFixture::rptLabels()
{
    QVector<QVariantMap> result;
    Recordset rs = hb::DB.openRecordset(QStringLiteral("select * from RptLabels order by LabelNumber"));
    for (; !rs.eof(); rs.moveNext()) {
        QVariantMap row;
        for (const char* f : {"LabelNumber", "NameOnLabel", "Address1", "Address2", "citystatezip", "RoofNumber"})
            row.insert(QString::fromLatin1(f), rs.value(QString::fromLatin1(f)));
        result.append(row);
    }
    return result;
}
