#include "platform/jet/jetreader.h"

#include "platform/jet/jetcheck.h"
#include "platform/jet/jettables.h"

#include <QHash>
#include <QSet>

#include <cstring>
#include <deque>

namespace hb::jet {
namespace {

struct HandleCloser {
    void operator()(MdbHandle* mdb) const { mdb_close(mdb); }
};
using Handle = std::unique_ptr<MdbHandle, HandleCloser>;

// The rows of a system table, each by its field names in lower case.
class NamedRows : public TableSink {
public:
    QList<QHash<QString, QVariant>> rows;

    void beginTable(const TableDef& def) override
    {
        m_names.clear();
        for (const FieldDef& field : def.fields)
            m_names << field.name.toLower();
    }
    void row(const QVariantList& values) override
    {
        QHash<QString, QVariant> named;
        for (int i = 0; i < values.size(); ++i)
            named.insert(m_names[i], values[i]);
        rows << named;
    }

private:
    QStringList m_names;
};

// The entries of the catalogue live as long as the tables read through them.
using Catalogue = std::deque<MdbCatalogEntry>;

MdbCatalogEntry& addEntry(Catalogue& catalogue, MdbHandle* mdb, const QString& name, int type, quint32 page, int flags)
{
    MdbCatalogEntry& entry = catalogue.emplace_back();
    std::memset(&entry, 0, sizeof entry);
    entry.mdb = mdb;
    const QByteArray utf8 = name.toUtf8();
    std::strncpy(entry.object_name, utf8.constData(), MDB_MAX_OBJ_NAME);
    entry.object_type = type;
    entry.table_pg = page;
    entry.flags = flags;
    return entry;
}

void readNamedRows(MdbCatalogEntry& entry, const FileChecks& checks, NamedRows& rows)
{
    Table table = openTable(&entry, checks);
    std::vector<Kept> kept;
    rows.beginTable(definitionOf(*table, kept));
    readRows(*table, kept, checks, rows);
}

// MSysObjects read as any table, rather than by libmdb's catalogue, which trusts the properties that each
// row carries. The properties are not read: every text field allows zero-length values, none is required.
Catalogue readCatalogue(MdbHandle* mdb, const FileChecks& checks)
{
    Catalogue catalogue;
    NamedRows objects;
    readNamedRows(addEntry(catalogue, mdb, QStringLiteral("MSysObjects"), MDB_TABLE, 2, int(0x80000000u)), checks,
                  objects);
    QSet<quint32> pages;
    for (const auto& row : objects.rows) {
        if (row.value(QStringLiteral("type")).toInt() != MDB_TABLE)
            continue;
        // Each table has a definition page of its own; two names on one page is a file made to mislead.
        const quint32 page = quint32(row.value(QStringLiteral("id")).toLongLong()) & 0x00ffffffu;
        if (pages.contains(page))
            throw JetFault("two tables of the catalogue share a definition");
        pages.insert(page);
        addEntry(catalogue, mdb, row.value(QStringLiteral("name")).toString(), MDB_TABLE, page,
                 int(row.value(QStringLiteral("flags")).toLongLong()));
    }
    return catalogue;
}

// The enforced one-field relations of the file, from MSysRelationships: one row a field of a relation.
struct RelationOf {
    QString child;
    RelationDef def;
};

QList<RelationOf> readRelations(Catalogue& catalogue, const FileChecks& checks)
{
    const auto found = std::find_if(catalogue.begin(), catalogue.end(), [](const MdbCatalogEntry& entry) {
        return std::strcmp(entry.object_name, "MSysRelationships") == 0;
    });
    if (found == catalogue.end())
        return {};
    NamedRows rows;
    readNamedRows(*found, checks, rows);
    QList<RelationOf> relations;
    constexpr qint64 notEnforced = 0x2, cascadeDelete = 0x1000;
    for (const auto& row : rows.rows) {
        const auto text = [&](const char* name) { return row.value(QLatin1String(name)).toString(); };
        const qint64 flags = row.value(QStringLiteral("grbit")).toLongLong();
        if (row.value(QStringLiteral("ccolumn")).toInt() != 1 || (flags & notEnforced))
            continue;
        relations.append({text("szobject"), RelationDef{text("szrelationship"), text("szcolumn"),
                                                        text("szreferencedobject"), text("szreferencedcolumn"),
                                                        bool(flags & cascadeDelete)}});
    }
    return relations;
}

}  // namespace

void readJetFile(const QByteArray& bytes, TableSink& sink)
{
    const FileChecks checks(bytes);
    QByteArray buffer = bytes;  // libmdb reads from a buffer of its own
    Handle mdb(mdb_open_buffer(buffer.data(), std::size_t(buffer.size()), MDB_NOFLAGS));
    if (!mdb)
        throw JetFault("not a file of the original engine");
    if (mdb->fmt->pg_size != checks.pageSize())
        throw JetFault("libmdb reads the file in another format than its header gives");
    Catalogue catalogue = readCatalogue(mdb.get(), checks);
    const QList<RelationOf> relations = readRelations(catalogue, checks);
    for (MdbCatalogEntry& entry : catalogue) {
        if (!mdb_is_user_table(&entry))
            continue;
        Table table = openTable(&entry, checks);
        std::vector<Kept> kept;
        TableDef def = definitionOf(*table, kept);
        for (const RelationOf& relation : relations) {
            if (relation.child.compare(def.name, Qt::CaseInsensitive) == 0 && def.field(relation.def.field))
                def.relations << relation.def;
        }
        sink.beginTable(def);
        readRows(*table, kept, checks, sink);
    }
}

}  // namespace hb::jet
