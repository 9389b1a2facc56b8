#include "exchange/syncstate.h"

#include "core/misc.h"
#include "core/session.h"
#include "core/synctables.h"

namespace hb::syncstate {

namespace {

QString cardTable() { return QString::fromLatin1(synctables::CardTable); }

QString rowOf(qint32 number)
{
    return QStringLiteral("select * from ") + cardTable() + QStringLiteral(" where CardNumber =") + NumText(number);
}

qint32 nextNumber()
{
    Recordset rs = DB.openRecordset(QStringLiteral("select max(CardNumber) as highest from ") + cardTable());
    const qint32 next = rs.eof() ? 1 : rs.value(QStringLiteral("highest")).toInt() + 1;
    rs.close();
    return next;
}

} // namespace

QVector<CardState> load()
{
    QVector<CardState> states;
    Recordset rs = DB.openRecordset(QStringLiteral("select * from ") + cardTable() + QStringLiteral(" order by CardNumber"));
    for (; !rs.eof(); rs.moveNext()) {
        CardState state;
        state.number = rs.value(QStringLiteral("CardNumber")).toInt();
        state.href = rs.value(QStringLiteral("Href")).toString();
        state.etag = rs.value(QStringLiteral("ETag")).toString();
        state.uid = rs.value(QStringLiteral("UID")).toString();
        state.record = keyOf(rs.value(QStringLiteral("RoofNumber")).toInt(), rs.value(QStringLiteral("PersonNumber")).toInt());
        state.hash = rs.value(QStringLiteral("CardHash")).toString();
        state.serverCard = rs.value(QStringLiteral("ServerCard")).toString().toUtf8();
        states << state;
    }
    rs.close();
    return states;
}

void save(CardState& state)
{
    Recordset rs = DB.openRecordset(rowOf(state.number));
    if (state.number > 0 && !rs.eof()) {
        rs.edit();
    } else {
        state.number = nextNumber();
        rs.addNew();
        rs.setValue(QStringLiteral("CardNumber"), state.number);
    }
    rs.setValue(QStringLiteral("Href"), state.href);
    rs.setValue(QStringLiteral("ETag"), state.etag);
    rs.setValue(QStringLiteral("UID"), state.uid);
    rs.setValue(QStringLiteral("RoofNumber"), state.roof());
    rs.setValue(QStringLiteral("PersonNumber"), state.person());
    rs.setValue(QStringLiteral("CardHash"), state.hash);
    rs.setValue(QStringLiteral("ServerCard"), QString::fromUtf8(state.serverCard));
    rs.update();
    rs.close();
}

void remove(const CardState& state)
{
    if (state.number > 0)
        DB.execute(QStringLiteral("delete from ") + cardTable() + QStringLiteral(" where CardNumber =") + NumText(state.number));
}

void forgetCards()
{
    DB.execute(QStringLiteral("delete from ") + cardTable());
}

QString token()
{
    Recordset rs = DB.openRecordset(QString::fromLatin1(synctables::ServerTable));
    const QString token = rs.eof() ? QString() : rs.value(QStringLiteral("SyncToken")).toString();
    rs.close();
    return token;
}

void saveToken(const QString& token)
{
    Recordset rs = DB.openRecordset(QString::fromLatin1(synctables::ServerTable));
    if (rs.eof())
        return;
    rs.edit();
    rs.setValue(QStringLiteral("SyncToken"), token);
    rs.update();
    rs.close();
}

} // namespace hb::syncstate
