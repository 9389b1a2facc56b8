#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "addressbook/frmaddressbook.h"
#include "core/forms.h"
#include "core/frmmdi.h"
#include "core/routes.h"
#include "core/session.h"
#include "exchange/frmbackup.h"
#include "platform/storage/database.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/listbox.h"
#include "tools/formabout.h"
#include "storagenames.h"

#include <QAction>
#include <QFile>
#include <QProcess>
#include <QDir>
#include <QLabel>
#include <QLineEdit>

#include <sys/stat.h>
#include <unistd.h>

// A folder that cannot be written to for as long as the object lives. Root writes through the mode, so the
// folder is also made immutable where that can be done; ok() is false when no folder can be locked here.
class LockedFolder {
public:
    explicit LockedFolder(const QString& folder) : folder_(folder)
    {
        ::chmod(QFile::encodeName(folder).constData(), 0555);
        immutable_ = ::geteuid() == 0 && QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("+i"), folder}) == 0;
        QFile probe(folder + QStringLiteral("/probe"));
        ok_ = !probe.open(QIODevice::WriteOnly);
        if (!ok_)
            probe.remove();
    }
    ~LockedFolder()
    {
        if (immutable_)
            QProcess::execute(QStringLiteral("chattr"), {QStringLiteral("-i"), folder_});
        ::chmod(QFile::encodeName(folder_).constData(), 0755);
    }
    bool ok() const { return ok_; }

private:
    QString folder_;
    bool immutable_ = false;
    bool ok_ = false;
};

// The whole program started with the listings up; the window of back up, restore, export and import is
// opened through the frame's menu and driven by mouse and keys.
class ExchangeFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(startProgram());
        ASSERT_TRUE(guarded([] { click(hb::forms::get<hb::FormAbout>(), QStringLiteral("cmdOK")); }));
    }

    // "mnuBackUp", "mnuRestore", "mnuExport"; the import of names has no menu entry and is opened by mode.
    hb::FrmBackup& openWindow(const QString& menu)
    {
        EXPECT_TRUE(guarded([&] {
            if (menu == QLatin1String("I")) {
                hb::UnloadForms();
                hb::BackupMode = QStringLiteral("I");
                hb::showBackup();
            } else {
                control<QAction>(*hb::FrmMDI::instance(), menu)->trigger();
            }
        }));
        hb::FrmBackup* form = hb::forms::loaded<hb::FrmBackup>();
        EXPECT_NE(form, nullptr);
        return *form;
    }

    static bool backupLoaded() { return hb::forms::loaded<hb::FrmBackup>() != nullptr; }
    static bool listingsShown()
    {
        auto* book = hb::forms::loaded<hb::FrmAddressBook>();
        return book && book->isFormVisible();
    }

    template <class T = QWidget>
    static T* part(QWidget& w, const char* name) { return control<T>(w, QString::fromLatin1(name)); }

    static int rowOf(hb::ui::ListBox* list, const QString& text)
    {
        for (int i = 0; i < list->listCount(); ++i) {
            if (list->list(i).trimmed() == text)
                return i;
        }
        ADD_FAILURE() << "no line " << text.toStdString();
        return -1;
    }

    // Walks the folder list to a folder as a user does: a click on a line, Enter to open it.
    void goToFolder(hb::FrmBackup& w, const QString& folder)
    {
        auto* dirs = part<hb::ui::DirListBox>(w, "Dir1");
        const QString target = QDir::cleanPath(folder);
        for (int step = 0; step < 20 && dirs->path() != target; ++step) {
            int line = -1;
            for (int i = dirs->listCount() - 1; i >= 0 && line < 0; --i) {
                const QString path = dirs->listPath(i);
                if (path != dirs->path() && (target == path || target.startsWith(path + QLatin1Char('/'))))
                    line = i;
            }
            ASSERT_GE(line, 0) << "no way to " << target.toStdString();
            clickRow(dirs, line);
            QTest::keyClick(dirs, Qt::Key_Return);
        }
        ASSERT_EQ(dirs->path(), target);
    }

    bool pressOK(hb::FrmBackup& w) { return press(w, "cmdOK"); }

    // Opens an export window from its menu item, picks the folder, types the name and clicks the types;
    // then before (when given) and OK, with the answer queued for a question.
    bool exportThrough(const QString& menu, const QString& folder, const QString& name, const QStringList& types,
                       int answer = -1, const std::function<void(hb::FrmBackup&)>& before = {})
    {
        hb::FrmBackup& w = openWindow(menu);
        goToFolder(w, folder);
        auto* edit = part<QLineEdit>(w, "txtFileName");
        edit->setFocus();
        QTest::keyClick(edit, Qt::Key_A, Qt::ControlModifier);
        if (name.isEmpty())
            QTest::keyClick(edit, Qt::Key_Delete);
        else
            QTest::keyClicks(edit, name);
        auto* list = part<hb::ui::ListBox>(w, "lstTypes");
        for (const QString& type : types)
            clickRow(list, rowOf(list, type));
        if (before)
            before(w);
        if (answer >= 0)
            dialogs().answer(answer);
        return pressOK(w);
    }
    bool press(QWidget& w, const char* button)
    {
        return guarded([&] { QTest::mouseClick(part<QAbstractButton>(w, button), Qt::LeftButton); });
    }

    QString backupFolder() const { return dataDir() + QStringLiteral("backup"); }
    QString otherFolder(const QString& name) const
    {
        QDir().mkpath(programDir() + name);
        return programDir() + name;
    }

    static QVariant scalar(Database& db, const QString& sql)
    {
        Recordset rs = db.openRecordset(sql);
        return rs.eof() ? QVariant() : rs.value(rs.fieldNames().value(0));
    }
    static QVariant scalar(const QString& sql) { return scalar(hb::DB, sql); }
    static QVariant fileScalar(const QString& file, const QString& sql)
    {
        Database db = Database::open(file);
        QVariant value = scalar(db, sql);
        db.close();
        return value;
    }
};
