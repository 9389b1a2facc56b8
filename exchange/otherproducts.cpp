#include "exchange/otherproducts.h"

#include "core/errors.h"
#include "core/misc.h"
#include "core/session.h"
#include "platform/dates.h"
#include "platform/storage/dberror.h"
#include "platform/ui/windowservice.h"

#include <QRegularExpression>

namespace hb::otherproducts {

namespace {
constexpr int TableNotFound = 3078;
constexpr int InvalidUseOfNull = 94;
} // namespace

QString asText(const QVariant& value)
{
    if (value.isNull())
        return {};
    if (value.typeId() == QMetaType::QDateTime)
        return dates::shortDate(value.toDateTime());
    if (value.typeId() == QMetaType::QDate)
        return dates::shortDate(value.toDate());
    return value.toString();
}

QString textOrEmpty(const Recordset& rs, const QString& field) { return asText(rs.value(field)); }

QString requiredText(const Recordset& rs, const QString& field)
{
    const QVariant value = rs.value(field);
    if (value.isNull())
        throw RuntimeError(InvalidUseOfNull, QStringLiteral("Invalid use of Null"));
    return asText(value);
}

double leadingNumber(const QString& text)
{
    // Blanks anywhere are passed over, and the number ends at the first character that cannot go on it.
    static const QRegularExpression number(QStringLiteral("^[+-]?(\\d+\\.?\\d*|\\.\\d+)([eE][+-]?\\d+)?"));
    QString bare = text;
    bare.remove(QRegularExpression(QStringLiteral("[ \\t\\r\\n]")));
    const QRegularExpressionMatch match = number.match(bare);
    return match.hasMatch() ? match.captured(0).toDouble() : 0.0;
}

bool isMissingTable(const std::exception& failure)
{
    const auto* db = dynamic_cast<const DbError*>(&failure);
    return db && db->number() == TableNotFound;
}

Recordset openTableOrNothing(Database& db, const QString& name)
{
    try {
        Recordset rs = db.openRecordset(name);
        rs.eof();  // the rows are read on first use: a missing table shows itself here
        return rs;
    } catch (const DbError& failure) {
        if (failure.number() != TableNotFound)
            throw;
        return {};
    }
}

void runReader(const QString& location, const std::function<void()>& body)
{
    StandardHandler handler(location);
    if (handler.run(body))
        return;
    ui::msgBox(QStringLiteral("Import was Cancelled"));
    ui::windows().setBusy(false);
}

} // namespace hb::otherproducts

namespace hb {

namespace {

bool countIsNotZero(const QString& sql)
{
    Recordset rs = DB.openRecordset(sql);
    const bool found = !rs.eof() && rs.value(QStringLiteral("Counter")).toInt() != 0;
    rs.close();
    return found;
}

QString criterion(const QVariant& text)
{
    return text.isNull() ? QStringLiteral("is null")
                         : QStringLiteral("= '") + DoubleQuotes(text.toString()) + QStringLiteral("'");
}

} // namespace

void TeamExists(const QString& name, bool& result)
{
    SQL = QStringLiteral("select count(*) as counter from team where name = '") + DoubleQuotes(name)
        + QStringLiteral("'");
    result = countIsNotZero(SQL);
}

void PlayerExists(const QVariant& firstName, const QVariant& lastName, bool& result)
{
    StandardHandler(QStringLiteral("PlayerExists")).run([&] {
        SQL = QStringLiteral("select count(*) as counter from player where firstname ") + criterion(firstName)
            + QStringLiteral(" and lastname ") + criterion(lastName);
        result = countIsNotZero(SQL);
    });
}

void LocationExists(const QString& description, bool& result)
{
    StandardHandler(QStringLiteral("LocationExists")).run([&] {
        SQL = QStringLiteral("select count(*) as counter from location where description = '")
            + DoubleQuotes(description) + QStringLiteral("'");
        result = countIsNotZero(SQL);
    });
}

} // namespace hb
