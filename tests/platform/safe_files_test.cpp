#include "storage_fixture.h"

#include "platform/files.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <sys/stat.h>

using namespace hb::storage;

namespace {

using namespace storagetest;
using hb::files::FileError;
using hb::files::FileFailure;

class SafeFiles : public StorageTest {
protected:
    void TearDown() override
    {
        hb::files::setWriteLimitForTesting(-1);
        StorageTest::TearDown();
    }

    void write(const QString& name, const QByteArray& bytes)
    {
        QFile file(path(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
    QByteArray read(const QString& name)
    {
        QFile file(path(name));
        return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
    }
    // The files of the folder beside the open test database and its journals.
    QStringList files()
    {
        QStringList names = QDir(dir.path()).entryList(QDir::Files, QDir::Name);
        names.removeIf([](const QString& name) { return name.startsWith("test.db"); });
        return names;
    }
    static int mode(const QString& file)
    {
        struct stat s {};
        return ::stat(QFile::encodeName(file).constData(), &s) == 0 ? int(s.st_mode & 07777) : -1;
    }
};

FileFailure failureOf(const std::function<void()>& work)
{
    try {
        work();
    } catch (const FileError& failure) {
        return failure.reason();
    }
    return FileFailure::Other;
}

TEST_F(SafeFiles, ACopyCutShortByAFullDiskLeavesTheOldFileAndNoTemporary)
{
    const QByteArray big = QByteArray("listing row ").repeated(20000);  // 240,000 bytes, several writes
    write("source.mdb", big);
    write("target.mdb", "the old file");
    const QStringList before = files();
    for (qint64 limit : {0LL, 1LL, 4096LL, 65536LL, 65537LL, qint64(big.size()) - 1}) {
        hb::files::setWriteLimitForTesting(limit);
        EXPECT_EQ(failureOf([&] { hb::files::copyFileAtomically(path("source.mdb"), path("target.mdb")); }),
                  FileFailure::DiskFull)
            << limit;
        EXPECT_EQ(read("target.mdb"), QByteArray("the old file")) << limit;
        EXPECT_EQ(files(), before) << "no temporary file stays, limit " << limit;
    }
    hb::files::setWriteLimitForTesting(big.size());
    hb::files::copyFileAtomically(path("source.mdb"), path("target.mdb"));
    EXPECT_EQ(read("target.mdb"), big) << "exactly enough room is enough";
}

TEST_F(SafeFiles, AWriterThatFailsHalfWayReplacesNothing)
{
    write("export.txt", "yesterday's export");
    EXPECT_THROW(hb::files::replaceFile(path("export.txt"), [](const hb::files::Put& put) {
                     put("first half, ");
                     throw FileError(FileFailure::Other, QStringLiteral("x"), QStringLiteral("the source went away"));
                 }),
                 FileError);
    EXPECT_EQ(read("export.txt"), QByteArray("yesterday's export"));
    const QStringList expected{"export.txt"};
    EXPECT_EQ(files(), expected);

    EXPECT_THROW(hb::files::replaceFile(path("export.txt"), [](const hb::files::Put& put) { put("today"); },
                                        [](const QString&) { throw FileError(FileFailure::Damaged, "x", "refused"); }),
                 FileError);
    EXPECT_EQ(read("export.txt"), QByteArray("yesterday's export")) << "a file that fails its check is not put in place";
    EXPECT_EQ(files(), expected);

    hb::files::replaceFile(path("export.txt"), [](const hb::files::Put& put) { put("today's "), put("export"); });
    EXPECT_EQ(read("export.txt"), QByteArray("today's export"));
}

TEST_F(SafeFiles, CopiesAndCompactedFilesKeepTheDatabasesPermissions)
{
    addRoof(1, "Anders");
    db.close();
    ASSERT_TRUE(QFile::setPermissions(path("test.db"), QFile::ReadOwner | QFile::WriteOwner));
    Database::compact(path("test.db"), path("varlo.bak"));
    EXPECT_EQ(mode(path("varlo.bak")), 0600);
    hb::files::copyFileAtomically(path("varlo.bak"), path("varlo.bak2"));
    EXPECT_EQ(mode(path("varlo.bak2")), 0600);
    write("notes.txt", "x");
    hb::files::replaceFile(path("new.txt"), [](const hb::files::Put& put) { put("new"); });
    EXPECT_EQ(mode(path("new.txt")), mode(path("notes.txt"))) << "a new file gets the usual permissions";
    EXPECT_EQ(Database::open(path("varlo.bak2")).openRecordset("Roof").value("RoofName").toString(), "Anders");
}

TEST_F(SafeFiles, MissingSourceAndDeniedFolderAreToldApart)
{
    EXPECT_EQ(failureOf([&] { hb::files::copyFileAtomically(path("missing.mdb"), path("copy.mdb")); }),
              FileFailure::Missing);
    EXPECT_EQ(failureOf([&] { hb::files::copyFileAtomically(path("test.db"), path("no/such/folder/copy.mdb")); }),
              FileFailure::Missing);
}

TEST_F(SafeFiles, LeftoversOfInterruptedReplacementsAreRemovedAndNothingElse)
{
    for (const char* name : {"varlo.mdb", "varlo.bak", "varlo.bak2", "varlo.mdb.Ab12Cd", "varlo.bak.x1Y2z3",
                             "varlo.bak.x1Y2z3-journal", "varlo.bak2.QQQQQQ", "varlo.mdb.old", "varlo.mdb-wal",
                             "notes.txt.Ab12Cd", "varlo.mdb.Ab12Cd.keep"})
        write(name, "x");
    const QStringList removed = hb::files::removeLeftovers(dir.path(), {"varlo.mdb", "varlo.bak", "varlo.bak2"});
    EXPECT_EQ(removed.size(), 4) << removed.join(' ').toStdString();
    const QStringList kept{"notes.txt.Ab12Cd", "varlo.bak",   "varlo.bak2",
                           "varlo.mdb",        "varlo.mdb-wal", "varlo.mdb.Ab12Cd.keep", "varlo.mdb.old"};
    EXPECT_EQ(files(), kept) << "the journal of the live database stays: it holds committed rows";
}

TEST_F(SafeFiles, OneLockPerFolderAndNoneLeftByAClosedHolder)
{
    hb::files::FolderLock first, second;
    EXPECT_EQ(first.lock(path("homebook.lock")), hb::files::FolderLock::Result::Locked);
    EXPECT_EQ(second.lock(path("homebook.lock")), hb::files::FolderLock::Result::HeldElsewhere);
    EXPECT_FALSE(second.isLocked());
    first.release();
    EXPECT_EQ(second.lock(path("homebook.lock")), hb::files::FolderLock::Result::Locked);
}

}  // namespace
