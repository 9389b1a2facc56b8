#include "dbvalue.h"
#include "programfixture.h"

#include "core/datafolder.h"
#include "core/schema.h"
#include "core/session.h"
#include "platform/files.h"
#include "platform/storage/database.h"
#include "platform/storage/recordset.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

using namespace hb;

// An installed copy: the executable in a folder the user cannot write, the blank databases and the help in
// the share folder beside it, and a user data folder of its own (XDG_DATA_HOME) for each test.
class InstalledCopyTest : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(root_.isValid());
        QDir().mkpath(bin());
        QDir().mkpath(share() + QStringLiteral("help"));
        schema::createMainShell(share() + QStringLiteral("hb10db.shell"));
        schema::createExportShell(share() + QStringLiteral("export.mdb"));
        for (const QString& file : {share() + QStringLiteral("hb10db.shell"), share() + QStringLiteral("export.mdb")})
            QFile::setPermissions(file, QFile::ReadOwner | QFile::ReadGroup | QFile::ReadOther);
        QFile::setPermissions(bin(), QFile::ReadOwner | QFile::ExeOwner | QFile::ReadOther | QFile::ExeOther);
        previousXdg_ = qgetenv("XDG_DATA_HOME");
        qputenv("XDG_DATA_HOME", (root_.path() + QStringLiteral("/home/.local/share")).toLocal8Bit());
        setProgramDirectory(bin());
    }
    void TearDown() override
    {
        ProgramFixture::TearDown();
        QFile::setPermissions(bin(), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("XDG_DATA_HOME", previousXdg_);
    }

    QString bin() const { return root_.path() + QStringLiteral("/usr/bin/"); }
    QString share() const { return root_.path() + QStringLiteral("/usr/share/homebook/"); }
    QString userData() const { return root_.path() + QStringLiteral("/home/.local/share/Homebook/Data/"); }

private:
    QTemporaryDir root_;
    QByteArray previousXdg_;
};

TEST_F(InstalledCopyTest, FirstStartMakesTheDatabaseInTheUsersDataFolderAndReadsHelpFromTheShareFolder)
{
    ASSERT_TRUE(setup());
    EXPECT_EQ(DataPath, userData());
    EXPECT_EQ(AppPath, bin());
    EXPECT_EQ(HelpFile, share() + QStringLiteral("help/HBHELP.HLP"));
    EXPECT_TRUE(QFileInfo(userData() + QStringLiteral("backup")).isDir());
    for (const char* name : {"hb10db.shell", "export.mdb", "varlo.mdb"}) {
        const QFileInfo copy(userData() + QLatin1String(name));
        EXPECT_TRUE(copy.isFile()) << name;
        EXPECT_TRUE(copy.permissions() & QFile::WriteOwner) << name << " is the user's to change";
    }
    ASSERT_TRUE(DB.isOpen());
    EXPECT_EQ(scalar(DB, QStringLiteral("select programversion from ProgramVersion")).toDouble(), 2.0)
        << "the copied shell went through the upgrades of a first start";
    EXPECT_EQ(QDir(bin()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot), QStringList())
        << "nothing is written beside the installed program";
    EXPECT_FALSE(QFile::exists(share() + QStringLiteral("varlo.mdb")));
    // Only a folder with the share folder beside it counts as installed.
    EXPECT_EQ(installedShareFolder(bin()), share());
    EXPECT_EQ(installedShareFolder(programDir()), QString());
    EXPECT_EQ(installedShareFolder(share()), QString());
}

TEST_F(InstalledCopyTest, ALaterStartKeepsTheUsersDatabaseAndTheirOwnBlankFiles)
{
    ASSERT_TRUE(setup());
    const int types = RoofTypeCount;
    DB.execute(QStringLiteral("insert into RoofType (RoofTypeNumber, Description) values (77, 'Chess club')"));
    resetSession();
    QFile::remove(userData() + QStringLiteral("hb10db.shell"));
    QFile::resize(userData() + QStringLiteral("export.mdb"), 0);
    // A run killed while it replaced the database left its new file beside it.
    QFile leftover(userData() + QStringLiteral("varlo.mdb.a1B2c3"));
    ASSERT_TRUE(leftover.open(QIODevice::WriteOnly));
    leftover.close();

    ASSERT_TRUE(setup());
    EXPECT_EQ(RoofTypeCount, types + 1) << "the address type added in the first session is still there";
    EXPECT_FALSE(leftover.exists()) << "the leftovers of the user's data folder are cleared";
    EXPECT_TRUE(QFile::exists(userData() + QStringLiteral("hb10db.shell"))) << "a missing blank file comes back";
    EXPECT_EQ(QFileInfo(userData() + QStringLiteral("export.mdb")).size(), 0) << "an existing one is left alone";
}

TEST_F(InstalledCopyTest, ASecondCopyOnTheSameUsersDataFolderIsRefused)
{
    QDir().mkpath(userData());
    files::FolderLock other;
    ASSERT_EQ(other.lock(userData() + QStringLiteral("homebook.lock")), files::FolderLock::Result::Locked);

    EXPECT_FALSE(setup());
    ASSERT_EQ(dialogs().messages().size(), 1u);
    EXPECT_EQ(lastMessage().text, QStringLiteral("Homebook is already running."));
    EXPECT_FALSE(QFile::exists(userData() + QStringLiteral("varlo.mdb")));
}

class DataFolderRuleTest : public ProgramFixture {};

TEST_F(DataFolderRuleTest, AWritableProgramFolderKeepsItsDataBesideTheProgram)
{
    const ProgramFolders folders = chooseFolders(programDir(), true);
    EXPECT_EQ(folders.data, programDir() + QStringLiteral("Data/"));
    EXPECT_EQ(folders.resources, programDir());

    ASSERT_TRUE(setup());
    EXPECT_EQ(DataPath, dataDir());
    EXPECT_EQ(HelpFile, programDir() + QStringLiteral("help/HBHELP.HLP"));
    EXPECT_TRUE(QFile::exists(mainDatabase()));
}

TEST_F(DataFolderRuleTest, AProgramFolderThatCannotBeWrittenStartsTheUsersDataFromItsOwnBlankFiles)
{
    QTemporaryDir home;
    const QByteArray previous = qgetenv("XDG_DATA_HOME");
    qputenv("XDG_DATA_HOME", home.path().toLocal8Bit());
    const ProgramFolders folders = chooseFolders(programDir(), false);
    EXPECT_EQ(folders.data, home.path() + QStringLiteral("/Homebook/Data/"));
    EXPECT_EQ(folders.resources, programDir());

    prepareDataFolder(folders);
    EXPECT_TRUE(QFileInfo(folders.data + QStringLiteral("backup")).isDir());
    EXPECT_TRUE(QFile::exists(folders.data + QStringLiteral("hb10db.shell")));
    EXPECT_TRUE(QFile::exists(folders.data + QStringLiteral("export.mdb")));
    EXPECT_FALSE(QFile::exists(folders.data + QStringLiteral("varlo.mdb"))) << "the database itself is Setup's";

    ASSERT_TRUE(setup());  // a portable copy that has made its database ...
    EXPECT_EQ(chooseFolders(programDir(), false).data, dataDir()) << "... keeps it on a folder it may only read";
    qputenv("XDG_DATA_HOME", previous);
}
