#pragma once

#include "platform/ui/windowservice.h"

// The one error handling convention of the program, and how a run ends.

#include <QString>
#include <exception>
#include <functional>

namespace hb {

// A run-time failure of the program's own code (the engine's failures are DbError).
class RuntimeError : public std::exception {
public:
    RuntimeError(int number, QString description);
    int number() const { return number_; }
    QString description() const { return description_; }
    const char* what() const noexcept override { return what_.c_str(); }

private:
    int number_;
    QString description_;
    std::string what_;
};

// Thrown to end the program: it unwinds to the event dispatch, which ends the process cleanly. A modal
// window or message that returns because the program ends throws it too.
using ProgramEnd = ui::SessionEnded;

// The number and text of any failure that reaches a handler.
struct ErrorInfo {
    int number = 0;
    QString text;
};
ErrorInfo errorInfo(const std::exception& failure);

// "An internal error has been encountered." with location, error and text.
QString errorReport(const QString& location, const ErrorInfo& info);

// The standard handler of a routine: each step that fails shows the report; Yes goes on with the next
// step, any other answer unloads the frame, which saves the settings and ends the program.
class StandardHandler {
public:
    explicit StandardHandler(QString location) : location_(std::move(location)) {}
    // Runs one statement under the handler. Returns false when it failed (and the user chose to go on).
    bool run(const std::function<void()>& step);

private:
    QString location_;
};

// The end after a failure the user chose not to go on from: the session's settings are saved when the
// book still takes them, and the program ends with the status of a failure whatever the save does.
[[noreturn]] void endAfterFailure();

// A failure that no routine handles: the report is shown and the program ends, with the database closed.
void reportUnhandled(const QString& location, const std::exception& failure);

// Ends the process: closes the database, leaves the event loop. Never returns.
[[noreturn]] void endProcess();
// Ends as endProcess does, with the exit status of a failure: the start could not bring the session up.
[[noreturn]] void endOnFailure();
bool programEnded();           // for the tests and the main loop
void clearProgramEnded();
// The process's exit status: 1 once the program has ended on a failure, else 0.
int exitStatus();

} // namespace hb
