#include "core/bookstart.h"

#include "core/bookcheck.h"
#include "core/bookfiles.h"
#include "core/errors.h"
#include "core/formbookproblem.h"
#include "core/helpers.h"
#include "core/session.h"
#include "platform/clock.h"
#include "platform/ui/windowservice.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <cstdio>

namespace hb {

namespace {

const char* const journals[] = {"-wal", "-shm", "-journal"};

bool renamePath(const QString& from, const QString& to)
{
    return std::rename(QFile::encodeName(from).constData(), QFile::encodeName(to).constData()) == 0;
}

// The book (file or folder) and its journals go aside together, so that the kept file reads as it did.
void putAside(const QString& book, const QString& aside)
{
    if (!renamePath(book, aside))
        throw RuntimeError(75, QStringLiteral("%1 can not be renamed.").arg(QDir::toNativeSeparators(book)));
    for (const char* journal : journals)
        renamePath(book + QLatin1String(journal), aside + QLatin1String(journal));
}

void takeBack(const QString& book, const QString& aside)
{
    if (renamePath(aside, book)) {
        for (const char* journal : journals)
            renamePath(aside + QLatin1String(journal), book + QLatin1String(journal));
    }
}

// Carries out the user's choice; false, with the book where it was, when it could not be done.
bool replaceBook(const QString& book, const QString& aside, const QString& choice, const QString& backup)
{
    try {
        putAside(book, aside);
    } catch (const std::exception& failure) {
        ui::msgBox(QStringLiteral("The address book could not be put aside. ") + errorInfo(failure).text
                       + QStringLiteral("\r\rNothing has been changed."),
                   MsgWarning, QStringLiteral("Homebook"));
        return false;
    }
    if (choice != QLatin1String("restore"))
        return true;  // the start makes a new book where none is
    try {
        putBookInPlace(backup, book);
        return true;
    } catch (const std::exception& failure) {
        takeBack(book, aside);
        ui::msgBox(QStringLiteral("The backup could not be restored. ") + errorInfo(failure).text
                       + QStringLiteral("\r\rNothing has been changed."),
                   MsgWarning, QStringLiteral("Homebook"));
        return false;
    }
}

} // namespace

bool makeBookUsable(const QString& dataFolder)
{
    const QString book = QDir(dataFolder).filePath(QStringLiteral("varlo.mdb"));
    const QFileInfo info(book);
    if (!info.exists() && !info.isSymLink())
        return true;
    const QString fault = bookFault(book);
    if (fault.isEmpty())
        return true;
    DebugLog(QStringLiteral("The address book can not be used: ") + fault);
    for (;;) {
        const QString backup = latestSoundBackup(dataFolder);
        const QString aside = freeDatedPath(dataFolder, QStringLiteral("varlo (unreadable %1).mdb"), clock::now());
        auto& window = forms::get<FormBookProblem>();
        window.setProblem(book, fault, backup, aside);
        ui::showModal(window);
        const QString choice = window.Tag;
        forms::unload(FormBookProblem::staticFormName());
        if (choice == QLatin1String("end") || choice.isEmpty())
            return false;
        if (replaceBook(book, aside, choice, backup))
            return true;
    }
}

} // namespace hb
