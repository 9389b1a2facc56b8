#include "platform/jet/jetframes.h"

#include <QDataStream>
#include <QIODevice>

#include <cerrno>

#include <unistd.h>

namespace hb::jet {
namespace {

QDataStream& operator<<(QDataStream& out, const TableDef& def)
{
    out << def.name << qint32(def.fields.size());
    for (const FieldDef& f : def.fields)
        out << f.name << qint32(f.type) << qint32(f.size) << f.required << f.allowZeroLength;
    out << qint32(def.indexes.size());
    for (const IndexDef& i : def.indexes)
        out << i.name << i.fields << i.unique << i.primary;
    out << qint32(def.relations.size());
    for (const RelationDef& r : def.relations)
        out << r.name << r.field << r.parentTable << r.parentField << r.cascadeDelete;
    return out;
}

QDataStream& operator>>(QDataStream& in, TableDef& def)
{
    qint32 count = 0;
    in >> def.name >> count;
    for (qint32 n = 0; n < count && in.status() == QDataStream::Ok; ++n) {
        FieldDef f;
        qint32 type = 0, size = 0;
        in >> f.name >> type >> size >> f.required >> f.allowZeroLength;
        f.type = FieldType(qBound(0, int(type), int(FieldType::Memo)));
        f.size = size;
        def.fields << f;
    }
    in >> count;
    for (qint32 n = 0; n < count && in.status() == QDataStream::Ok; ++n) {
        IndexDef i;
        in >> i.name >> i.fields >> i.unique >> i.primary;
        def.indexes << i;
    }
    in >> count;
    for (qint32 n = 0; n < count && in.status() == QDataStream::Ok; ++n) {
        RelationDef r;
        in >> r.name >> r.field >> r.parentTable >> r.parentField >> r.cascadeDelete;
        def.relations << r;
    }
    return in;
}

bool writeAll(int fd, const QByteArray& bytes)
{
    for (qsizetype done = 0; done < bytes.size();) {
        const ssize_t n = ::write(fd, bytes.constData() + done, std::size_t(bytes.size() - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

// In the helper: each record framed by its length.
class PipeSink : public TableSink {
public:
    explicit PipeSink(int fd) : m_fd(fd) {}
    void beginTable(const TableDef& def) override { send(Record::Table, [&](QDataStream& out) { out << def; }); }
    void row(const QVariantList& values) override { send(Record::Row, [&](QDataStream& out) { out << values; }); }
    template <typename Write>
    void send(Record kind, Write write)
    {
        QByteArray payload;
        QDataStream out(&payload, QIODevice::WriteOnly);
        out << quint8(kind);
        write(out);
        QByteArray frame;
        QDataStream(&frame, QIODevice::WriteOnly) << quint32(payload.size());
        if (!writeAll(m_fd, frame + payload))
            ::_exit(3);  // the program stopped listening
    }

private:
    int m_fd;
};

}  // namespace

void serveJetFile(const QByteArray& bytes, int fd)
{
    PipeSink pipe(fd);
    try {
        readJetFile(bytes, pipe);
        pipe.send(Record::End, [](QDataStream&) {});
    } catch (const JetFault& fault) {
        pipe.send(Record::Fault, [&](QDataStream& out) { out << QString::fromUtf8(fault.what()); });
    } catch (...) {
        pipe.send(Record::Fault, [](QDataStream& out) { out << QStringLiteral("the reader failed"); });
    }
}

void replayFrames(const ReadExactly& readExactly, TableSink& sink)
{
    for (;;) {
        char head[4];
        if (!readExactly(head, 4))
            throw JetFault("the reader stopped before the end of the file");
        quint32 size = 0;
        QDataStream(QByteArray::fromRawData(head, 4)) >> size;
        if (size > (1u << 30))
            throw JetFault("the reader stopped before the end of the file");
        QByteArray payload(qsizetype(size), Qt::Uninitialized);
        if (!readExactly(payload.data(), payload.size()))
            throw JetFault("the reader stopped before the end of the file");
        QDataStream in(payload);
        quint8 kind = 0;
        in >> kind;
        if (Record(kind) == Record::End)
            return;
        if (Record(kind) == Record::Fault) {
            QString what;
            in >> what;
            throw JetFault(what.toStdString());
        }
        if (Record(kind) == Record::Table) {
            TableDef def;
            in >> def;
            sink.beginTable(def);
        } else {
            QVariantList values;
            in >> values;
            sink.row(values);
        }
    }
}

}  // namespace hb::jet
