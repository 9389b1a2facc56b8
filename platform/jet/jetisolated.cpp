#include "platform/jet/jetisolated.h"

#include "platform/jet/jetframes.h"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QDir>
#include <QFileInfo>
#include <QProcess>

namespace hb::jet {
namespace {

QString helperPath()
{
    const QDir here(QCoreApplication::applicationDirPath());
    const QString name = QLatin1String(ReaderHelperName);
    // Beside the program in the build tree and in a folder of its own, in the installed tree; the test
    // programs of the build tree lie in a folder beside the program's.
    for (const QString& relative : {name, QStringLiteral("../libexec/homebook/") + name, QStringLiteral("../bin/") + name}) {
        const QFileInfo helper(here.absoluteFilePath(relative));
        if (helper.isFile() && helper.isExecutable())
            return helper.canonicalFilePath();
    }
    return {};
}

// Ends the helper whatever happens to the reading.
class Helper {
public:
    explicit Helper(QProcess& process) : m_process(process) {}
    ~Helper()
    {
        if (m_process.state() != QProcess::NotRunning) {
            m_process.kill();
            m_process.waitForFinished(-1);
        }
    }

private:
    QProcess& m_process;
};

// Reads exactly size bytes before the deadline; false when the helper ended before.
bool readExactly(QProcess& helper, char* into, qsizetype size, const QDeadlineTimer& deadline)
{
    for (qsizetype done = 0; done < size;) {
        if (helper.bytesAvailable() == 0) {
            if (deadline.hasExpired())
                throw JetFault("reading the file took too long");
            if (!helper.waitForReadyRead(int(qMax<qint64>(1, deadline.remainingTime()))) && helper.bytesAvailable() == 0) {
                if (helper.state() == QProcess::NotRunning)
                    return false;
                continue;
            }
        }
        const qint64 n = helper.read(into + done, size - done);
        if (n < 0)
            return false;
        done += n;
    }
    return true;
}

}  // namespace

int readingTimeLimitMs(qsizetype bytes)
{
    return int(qMin<qint64>(600000, 30000 + bytes / 1000));  // 30 s and 1 s a megabyte
}

void readJetFileIsolated(const QByteArray& bytes, TableSink& sink, int timeoutMs)
{
    const QString program = helperPath();
    if (program.isEmpty())
        throw JetFault("the reader of the original engine's files is not installed beside the program");
    const QDeadlineTimer deadline(timeoutMs);
    QProcess process;
    process.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    process.start(program, {});
    Helper helper(process);
    if (!process.waitForStarted(int(qMax<qint64>(1, deadline.remainingTime()))))
        throw JetFault("the reader did not start");
    process.write(bytes);
    process.closeWriteChannel();
    replayFrames([&](char* into, qsizetype size) { return readExactly(process, into, size, deadline); }, sink);
    if (!process.waitForFinished(int(qMax<qint64>(1, deadline.remainingTime()))) || process.exitStatus() != QProcess::NormalExit
        || process.exitCode() != 0)
        throw JetFault("the reader did not end cleanly");
}

}  // namespace hb::jet
