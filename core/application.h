#pragma once

#include <QApplication>
#include <functional>

namespace hb {

// The program's application object: a failure that no routine handles ends up here, where it is reported
// and the program ends cleanly, and an ordered end of the program unwinds to here.
class Application : public QApplication {
public:
    Application(int& argc, char** argv);
    bool notify(QObject* receiver, QEvent* event) override;
};

// Runs a piece of work as the event dispatch would: an end of the program or an unhandled failure is
// dealt with here. Returns false when the program ended.
bool runGuarded(const QString& location, const std::function<void()>& work);

class FrmMDI;
// Shows the frame, brings the session up and runs the event loop until the program ends; returns the
// exit status. An end during the start, before the loop runs, returns at once: the loop would never
// be told to stop. beforeLoop runs once the start has shown its windows.
int runProgram(FrmMDI& frame, const std::function<void()>& beforeLoop = {});

} // namespace hb
