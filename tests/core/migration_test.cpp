#include "dbvalue.h"
#include "framefixture.h"

#include "addressbook/frmaddressbook.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/storage/database.h"
#include "platform/ui/listbox.h"
#include "tools/formabout.h"

#include <QCryptographicHash>
#include <QFile>

using namespace hb;

namespace {

QString fixture(const QString& name) { return QStringLiteral(HB_SOURCE_DIR "/tests/data/jet/") + name; }

QByteArray digest(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return {};
    return QCryptographicHash::hash(file.readAll(), QCryptographicHash::Sha256);
}

int count(const QString& sql) { return scalar(DB, sql).toInt(); }

} // namespace

// An old main database of the original program put in the data folder in place of the blank one.
class MigrationTest : public ProgramFixture, public ::testing::WithParamInterface<std::pair<const char*, int>> {
protected:
    void placeOldDatabase(const QString& name)
    {
        // A person of the second file was born on 29 February: the listings window can tell her age only
        // in a leap year.
        clock::pin(QDateTime(QDate(2028, 6, 1), QTime(10, 0)));
        QFile::remove(mainDatabase());  // the blank book of a first start, when there is one
        ASSERT_TRUE(QFile::copy(fixture(name), mainDatabase()));
        QFile::setPermissions(mainDatabase(), QFile::ReadOwner | QFile::WriteOwner);
        ASSERT_TRUE(Database::isOriginalFile(mainDatabase()));
    }
    QString kept() const { return dataDir() + QStringLiteral("varlo (original).mdb"); }

    // The program started as a user does, the about window closed, and what the listings window lists.
    QStringList startAndList()
    {
        EXPECT_TRUE(startProgram());
        EXPECT_TRUE(guarded([] {
            if (auto* about = forms::loaded<FormAbout>(); about && about->isVisible())
                click(*about, QStringLiteral("cmdOK"));
        }));
        QStringList items;
        auto* book = forms::loaded<FrmAddressBook>();
        EXPECT_NE(book, nullptr);
        if (!book)
            return items;
        auto* list = control<ui::ListBox>(*book, QStringLiteral("lstAddressBook"));
        for (int i = 0; list && i < list->listCount(); ++i)
            items << list->list(i);
        return items;
    }
};

TEST_P(MigrationTest, AnOldMainDatabaseIsConvertedOnceUpgradedAndShowsEveryListing)
{
    const auto [name, listings] = GetParam();
    placeOldDatabase(QString::fromLatin1(name));
    const QStringList shown = startAndList();
    EXPECT_EQ(shown.size(), listings) << shown.join(QLatin1Char('|')).toStdString();
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), listings);
    EXPECT_EQ(count(QStringLiteral("select count(*) from ProgramVersion where programversion = 2")), 1);
    EXPECT_NE(DB.tableDef(QStringLiteral("Roof"))->field(QStringLiteral("Cell")), nullptr);
    EXPECT_TRUE(DB.tableDef(QStringLiteral("MemoOptions")).has_value());
    EXPECT_EQ(digest(kept()), digest(fixture(QString::fromLatin1(name)))) << "the original is kept as it was";
    EXPECT_FALSE(Database::isOriginalFile(mainDatabase()));
    EXPECT_TRUE(dialogs().problems().isEmpty()) << dialogs().problems().join('\n').toStdString();

    // A change made now survives the next start, which converts nothing again.
    ASSERT_TRUE(guarded([] { DB.execute(QStringLiteral("update Roof set City = 'Changed'")); }));
    DB.close();
    ASSERT_TRUE(setup());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof where City = 'Changed'")), listings);
    EXPECT_FALSE(QFile::exists(dataDir() + QStringLiteral("varlo (original 2).mdb")));
    EXPECT_EQ(digest(kept()), digest(fixture(QString::fromLatin1(name))));
}

INSTANTIATE_TEST_SUITE_P(OldVersions, MigrationTest,
                         ::testing::Values(std::make_pair("homebook_v1.mdb", 6), std::make_pair("homebook_v2.mdb", 12)));

TEST_F(MigrationTest, ASecondDifferentOriginalIsKeptUnderANameOfItsOwn)
{
    placeOldDatabase(QStringLiteral("homebook_v1.mdb"));
    ASSERT_TRUE(setup());
    DB.close();
    placeOldDatabase(QStringLiteral("homebook_v2.mdb"));
    ASSERT_TRUE(setup());
    EXPECT_EQ(count(QStringLiteral("select count(*) from Roof")), 12);
    EXPECT_EQ(digest(kept()), digest(fixture(QStringLiteral("homebook_v1.mdb"))));
    EXPECT_EQ(digest(dataDir() + QStringLiteral("varlo (original 2).mdb")), digest(fixture(QStringLiteral("homebook_v2.mdb"))));
}
