#include "core/synctables.h"

namespace hb::synctables {

namespace {

FieldDef memo(const char* name) { return {QString::fromLatin1(name), FieldType::Memo, 0, false, true}; }
FieldDef field(const char* name, FieldType type) { return {QString::fromLatin1(name), type}; }

} // namespace

TableDef serverTable()
{
    TableDef def;
    def.name = QString::fromLatin1(ServerTable);
    def.fields = {memo("Address"),
                  memo("UserName"),
                  memo("BookUrl"),
                  memo("BookName"),
                  memo("Types"),  // the address type numbers, "0,2,5"
                  field("SyncAtStart", FieldType::Boolean),
                  field("SyncAtEnd", FieldType::Boolean),
                  memo("TrustedFingerprints"),  // one a line
                  memo("SyncToken")};
    return def;
}

// Hrefs, UIDs and ETags are the server's and may be of any length, so they are memos.
TableDef cardTable()
{
    TableDef def;
    def.name = QString::fromLatin1(CardTable);
    def.fields = {field("CardNumber", FieldType::Long),
                  memo("Href"),
                  memo("ETag"),
                  memo("UID"),
                  field("RoofNumber", FieldType::Integer),
                  field("PersonNumber", FieldType::Integer),  // 0: the card of a listing without individuals
                  memo("CardHash"),                           // of this machine's card as last synced
                  memo("ServerCard")};                        // the server's card as last seen
    def.indexes = {{QStringLiteral("PrimaryKey"), {QStringLiteral("CardNumber")}, true, true}};
    return def;
}

} // namespace hb::synctables
