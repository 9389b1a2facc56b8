#include "platform/jet/jetisolated.h"

#include <QDataStream>
#include <QDeadlineTimer>
#include <QIODevice>

#include <csignal>
#include <cerrno>

#include <poll.h>
#include <sys/wait.h>
#include <unistd.h>

namespace hb::jet {
namespace {

enum class Record : quint8 { Table = 1, Row, Fault, End };

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

// In the child: each record framed by its length.
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
            ::_exit(3);
    }

private:
    int m_fd;
};

[[noreturn]] void runChild(const QByteArray& bytes, int fd)
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
    ::_exit(0);
}

// In the parent: reads exactly size bytes before the deadline.
bool readExactly(int fd, char* into, qsizetype size, const QDeadlineTimer& deadline)
{
    for (qsizetype done = 0; done < size;) {
        if (deadline.hasExpired())
            throw JetFault("reading the file took too long");
        pollfd ready{fd, POLLIN, 0};
        const int waited = ::poll(&ready, 1, int(qMax<qint64>(0, deadline.remainingTime())));
        if (waited < 0 && errno == EINTR)
            continue;
        if (waited <= 0)
            throw JetFault("reading the file took too long");
        const ssize_t n = ::read(fd, into + done, std::size_t(size - done));
        if (n < 0 && errno == EINTR)
            continue;
        if (n <= 0)
            return false;
        done += n;
    }
    return true;
}

// Ends the child whatever happens to the parent's reading.
class Child {
public:
    Child(pid_t pid, int fd) : m_pid(pid), m_fd(fd) {}
    ~Child()
    {
        ::close(m_fd);
        if (m_pid > 0) {
            ::kill(m_pid, SIGKILL);
            ::waitpid(m_pid, nullptr, 0);
        }
    }
    // True when the child ended by itself with success.
    bool finished()
    {
        int status = 0;
        const pid_t pid = m_pid;
        m_pid = -1;
        return ::waitpid(pid, &status, 0) == pid && WIFEXITED(status) && WEXITSTATUS(status) == 0;
    }

private:
    pid_t m_pid;
    int m_fd;
};

void replay(int fd, TableSink& sink, const QDeadlineTimer& deadline)
{
    for (;;) {
        char head[4];
        if (!readExactly(fd, head, 4, deadline))
            throw JetFault("the reader stopped before the end of the file");
        quint32 size = 0;
        QDataStream(QByteArray::fromRawData(head, 4)) >> size;
        QByteArray payload(qsizetype(size), Qt::Uninitialized);
        if (size > (1u << 30) || !readExactly(fd, payload.data(), payload.size(), deadline))
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

}  // namespace

int readingTimeLimitMs(qsizetype bytes)
{
    return int(qMin<qint64>(600000, 30000 + bytes / 1000));  // 30 s and 1 s a megabyte
}

void readJetFileIsolated(const QByteArray& bytes, TableSink& sink, int timeoutMs)
{
    int fds[2];
    if (::pipe(fds) != 0)
        throw JetFault("no pipe for the reader");
    const pid_t pid = ::fork();
    if (pid < 0) {
        ::close(fds[0]);
        ::close(fds[1]);
        throw JetFault("no process for the reader");
    }
    if (pid == 0) {
        ::close(fds[0]);
        runChild(bytes, fds[1]);
    }
    ::close(fds[1]);
    Child child(pid, fds[0]);
    replay(fds[0], sink, QDeadlineTimer(timeoutMs));
    if (!child.finished())
        throw JetFault("the reader did not end cleanly");
}

}  // namespace hb::jet
