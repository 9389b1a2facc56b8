#include "core/schema.h"
#include "platform/storage/database.h"
#include "platform/storage/safecopy.h"
#include "storagenames.h"

#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <gtest/gtest.h>

#include <csignal>
#include <sys/resource.h>

using hb::storage::CopyFailure;
using hb::storage::copyDatabaseFile;
using hb::storage::databaseFault;

namespace {

int rows(const QString& file)
{
    Database db = Database::open(file);
    Recordset rs = db.openRecordset(QStringLiteral("select count(*) as n from Roof"));
    const int n = rs.value(QStringLiteral("n")).toInt();
    rs.close();
    db.close();
    return n;
}

void fill(const QString& file, int count)
{
    Database db = Database::open(file);
    db.execute(QStringLiteral("begin"));
    for (int i = 1; i <= count; ++i)
        db.execute(QStringLiteral("insert into Roof (RoofNumber, RoofType, RoofName, Notes) values (%1, 0, 'Name %1', '%2')")
                       .arg(i)
                       .arg(QString(200, QLatin1Char('n'))));
    db.execute(QStringLiteral("commit"));
    db.close();
}

} // namespace

class SafeCopyTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        source = dir.filePath(QStringLiteral("source.mdb"));
        target = dir.filePath(QStringLiteral("out/target.mdb"));
        QDir(dir.path()).mkpath(QStringLiteral("out"));
        hb::schema::createMainShell(source);
        hb::schema::createMainShell(target);
        fill(source, 3000);
        fill(target, 2);
    }
    QStringList leftovers() const
    {
        return QDir(dir.filePath(QStringLiteral("out"))).entryList(QDir::Files | QDir::Hidden);
    }

    QTemporaryDir dir;
    QString source, target;
};

TEST_F(SafeCopyTest, ACopyReplacesTheTargetWholeAndLeavesNothingBeside)
{
    copyDatabaseFile(source, target);
    EXPECT_EQ(leftovers(), QStringList{QStringLiteral("target.mdb")});
    EXPECT_EQ(databaseFault(target), QString());
    EXPECT_EQ(rows(target), 3000);
}

TEST_F(SafeCopyTest, ASourceThatIsNoDatabaseIsRefusedBeforeTheTargetIsTouched)
{
    QFile junk(source);
    ASSERT_TRUE(junk.open(QIODevice::WriteOnly | QIODevice::Truncate));
    junk.write(QByteArray(4096, 'j'));
    junk.close();
    EXPECT_THROW(copyDatabaseFile(source, target), CopyFailure);
    EXPECT_THROW(copyDatabaseFile(dir.filePath(QStringLiteral("missing.mdb")), target), CopyFailure);
    EXPECT_EQ(leftovers(), QStringList{QStringLiteral("target.mdb")});
    EXPECT_EQ(rows(target), 2);
    EXPECT_NE(databaseFault(source), QString());
}

// A disk that fills up half-way: the process may write no file beyond a few pages.
TEST_F(SafeCopyTest, AFullDiskLeavesTheOldTargetAndSaysSo)
{
    rlimit previous{};
    ASSERT_EQ(getrlimit(RLIMIT_FSIZE, &previous), 0);
    auto* oldHandler = std::signal(SIGXFSZ, SIG_IGN);
    rlimit small = previous;
    small.rlim_cur = 64 * 1024;
    ASSERT_EQ(setrlimit(RLIMIT_FSIZE, &small), 0);
    QString message;
    try {
        copyDatabaseFile(source, target);
    } catch (const CopyFailure& failure) {
        message = QString::fromLocal8Bit(failure.what());
    }
    setrlimit(RLIMIT_FSIZE, &previous);
    std::signal(SIGXFSZ, oldHandler);
    EXPECT_TRUE(message.contains(QStringLiteral("can not be written"))) << message.toStdString();
    EXPECT_EQ(leftovers(), QStringList{QStringLiteral("target.mdb")});
    EXPECT_EQ(rows(target), 2);
}
