// Every input that the fuzzer kept or that once broke the reader opens to a clean result or to the
// damaged-file error: never a crash, a hang or another fault.
#include "jet_support.h"
#include "storage_fixture.h"

#include "platform/jet/jetisolated.h"

#include <QDirIterator>
#include <QProcess>
#include <QTemporaryDir>

#include <atomic>
#include <thread>

#include <iconv.h>

using namespace hb::storage;

namespace {

// The inputs are near copies of a few fixture files, so they are kept xz-compressed: the corpus as one
// tar archive, each regression on its own. They are unpacked into dir.
QStringList unpacked(const QString& folder, const QTemporaryDir& dir)
{
    QDirIterator packed(QStringLiteral(HB_SOURCE_DIR "/fuzz/") + folder, QDir::Files);
    while (packed.hasNext()) {
        const QString file = packed.next();
        QProcess unpack;
        if (file.endsWith(QLatin1String(".tar.xz"))) {
            unpack.start(QStringLiteral("tar"), {QStringLiteral("-xJf"), file, QStringLiteral("-C"), dir.path()});
        } else if (file.endsWith(QLatin1String(".xz"))) {
            unpack.setStandardOutputFile(dir.filePath(QFileInfo(file).completeBaseName()));
            unpack.start(QStringLiteral("xz"), {QStringLiteral("-dc"), file});
        } else {
            QFile::copy(file, dir.filePath(QFileInfo(file).fileName()));
            continue;
        }
        EXPECT_TRUE(unpack.waitForFinished(60000)) << file.toStdString();
        EXPECT_EQ(unpack.exitCode(), 0) << file.toStdString();
    }
    QStringList files;
    QDirIterator it(dir.path(), QDir::Files, QDirIterator::Subdirectories);
    while (it.hasNext())
        files << it.next();
    files.sort();
    return files;
}

void expectCleanOrDamaged(const QString& file)
{
    SCOPED_TRACE(file.toStdString());
    try {
        Database db = Database::open(file);
        for (const QString& table : db.tableNames()) {
            Recordset rs = db.openRecordset(table);
            for (; !rs.eof(); rs.moveNext())
                rs.fieldNames();
        }
    } catch (const DbError& error) {
        EXPECT_EQ(error.number(), 3343) << error.what();
    }
}

TEST(JetCorpus, EveryKeptFuzzInputOpensCleanlyOrAsADamagedFile)
{
    QTemporaryDir dir;
    const QStringList files = unpacked(QStringLiteral("corpus"), dir);
    EXPECT_GE(files.size(), 10);
    for (const QString& file : files)
        expectCleanOrDamaged(file);
}

TEST(JetCorpus, EveryInputThatOnceBrokeTheReaderOpensCleanlyOrAsADamagedFile)
{
    QTemporaryDir dir;
    const QStringList files = unpacked(QStringLiteral("regressions"), dir);
    EXPECT_GE(files.size(), 2);
    for (const QString& file : files)
        expectCleanOrDamaged(file);
}

// The child that reads a file is ended when it runs out of time, and the parent is told so.
TEST(JetCorpus, AReaderThatRunsOutOfTimeIsEndedAndTheFileTakenAsDamaged)
{
    QFile file(jettest::dataFile("homebook_v2.mdb"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    jettest::CsvSink sink(QStringLiteral("Roof"));
    EXPECT_THROW(hb::jet::readJetFileIsolated(bytes, sink, 0), hb::jet::JetFault);
    EXPECT_TRUE(sink.rows.isEmpty());

    hb::jet::readJetFileIsolated(bytes, sink, hb::jet::readingTimeLimitMs(bytes.size()));
    EXPECT_EQ(sink.rows.size(), 13);  // the header and twelve listings
}

// Another thread of the program busy in the C library's character conversions (libmdb's first call) when the
// reader starts: a forked copy would inherit the lock that thread holds and wait for it forever.
TEST(JetCorpus, TheReaderIsAProgramOfItsOwnThatNoLockOfTheProgramHolds)
{
    QFile file(jettest::dataFile("homebook_v2.mdb"));
    ASSERT_TRUE(file.open(QIODevice::ReadOnly));
    const QByteArray bytes = file.readAll();
    std::atomic<bool> done{false};
    std::thread busy([&] {
        while (!done) {
            const iconv_t conversion = iconv_open("UCS-2LE", "UTF-8");
            if (conversion != iconv_t(-1))
                iconv_close(conversion);
        }
    });
    int read = 0;
    for (int round = 0; round < 12; ++round) {
        jettest::CsvSink sink(QStringLiteral("Roof"));
        try {
            hb::jet::readJetFileIsolated(bytes, sink, 10000);
            read += sink.rows.size() == 13 ? 1 : 0;
        } catch (const hb::jet::JetFault& fault) {
            ADD_FAILURE() << fault.what();
        }
    }
    done = true;
    busy.join();
    EXPECT_EQ(read, 12);
}

}  // namespace
