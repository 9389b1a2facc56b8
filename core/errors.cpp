#include "core/errors.h"

#include "core/session.h"
#include "core/helpers.h"
#include "core/setup.h"
#include "platform/storage/dberror.h"
#include "platform/ui/windowservice.h"

#include <QApplication>
#include <QWidget>

namespace hb {

namespace {
int status = 0;

// What the engine was asked to do when it failed, for whoever reads the debug log.
void logFailedSql(const std::exception& failure)
{
    if (auto* db = dynamic_cast<const DbError*>(&failure); db && !db->sql().isEmpty())
        DebugLog(QStringLiteral("Error %1 in: %2").arg(db->number()).arg(db->sql()));
}
} // namespace

RuntimeError::RuntimeError(int number, QString description)
    : number_(number), description_(std::move(description)), what_(description_.toStdString())
{
}

ErrorInfo errorInfo(const std::exception& failure)
{
    if (auto* db = dynamic_cast<const DbError*>(&failure))
        return {db->number(), db->description()};
    if (auto* rt = dynamic_cast<const RuntimeError*>(&failure))
        return {rt->number(), rt->description()};
    return {5, QString::fromLocal8Bit(failure.what())};
}

QString errorReport(const QString& location, const ErrorInfo& info)
{
    return QStringLiteral("An internal error has been encountered.\n Location: %1\n Error: %2\n Text: %3\n\n"
                          "Would you like to continue with the program?")
        .arg(location)
        .arg(info.number)
        .arg(info.text);
}

bool StandardHandler::run(const std::function<void()>& step)
{
    int answer = ui::AnswerYes;
    try {
        step();
        return true;
    } catch (const std::exception& failure) {
        logFailedSql(failure);
        answer = ui::msgBox(errorReport(location_, errorInfo(failure)), ui::MsgYesNoButtons, QStringLiteral("Error Handler"));
    }
    // The end runs outside the handler of the failure, on a book that may be what failed.
    if (answer != ui::AnswerYes)
        endAfterFailure();
    return false;
}

void endAfterFailure()
{
    status = 1;
    ReturnToListings = false;
    try {
        saveSessionState();
    } catch (const ProgramEnd&) {
        throw;
    } catch (const std::exception& failure) {
        logFailedSql(failure);
        DebugLog(QStringLiteral("The settings of the session could not be saved: ") + errorInfo(failure).text);
    }
    endProcess();
}

void reportUnhandled(const QString& location, const std::exception& failure)
{
    const ErrorInfo info = errorInfo(failure);
    status = 1;
    logFailedSql(failure);
    ui::msgBox(QStringLiteral("An internal error has been encountered.\n Location: %1\n Error: %2\n Text: %3\n\n"
                              "The program will end now.")
                   .arg(location)
                   .arg(info.number)
                   .arg(info.text),
               ui::MsgOkOnly | ui::MsgIconExclamation, QStringLiteral("Error Handler"));
    try {
        endProcess();
    } catch (const ProgramEnd&) {
    }
}

void endProcess()
{
    if (DB.isOpen()) {
        try {
            DB.close();
        } catch (...) {
        }
    }
    ui::beginSessionEnd();
    for (QWidget* w : QApplication::topLevelWidgets())
        w->hide();
    QCoreApplication::exit(status);
    throw ProgramEnd{};
}

void endOnFailure()
{
    status = 1;
    endProcess();
}

bool programEnded() { return ui::sessionEnding(); }
void clearProgramEnded()
{
    ui::clearSessionEnd();
    status = 0;
}

int exitStatus() { return status; }

} // namespace hb
