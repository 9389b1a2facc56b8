#pragma once

#include <QFont>
#include <QString>
#include <QStringList>
#include <memory>

class QWidget;
class QPrinter;

namespace hb::ui {

// Message box styles and answers as the program's code writes them.
enum MsgStyle : int {
    MsgOkOnly = 0,
    MsgOkCancelButtons = 1,
    MsgYesNoButtons = 4,
    MsgIconQuestion = 32,
    MsgIconExclamation = 48,
    MsgIconInformation = 64,
    MsgDefaultButton2 = 256,
};
enum MsgAnswer : int { AnswerOk = 1, AnswerCancel = 2, AnswerYes = 6, AnswerNo = 7 };

// Every message box, modal window, file, font and printer dialog and the hourglass pass through the one
// service in force, so that tests can answer them and read what was shown.
class WindowService {
public:
    virtual ~WindowService() = default;

    virtual int message(const QString& text, int style, const QString& title) = 0;
    // Shows a window modally and returns when it is hidden or closed.
    virtual void showModal(QWidget& window) = 0;
    // filter: Qt's list of filters apart by ";;"; selectedFilter, one of them, is the one in force.
    virtual QString openFileName(const QString& caption, const QString& directory, const QString& filter,
                                 const QString& selectedFilter) = 0;
    virtual QString saveFileName(const QString& caption, const QString& directory, const QString& filter) = 0;
    virtual QString directory(const QString& caption, const QString& start) = 0;
    // False when the user cancelled; the font is left as it came in then.
    virtual bool chooseFont(QFont& font) = 0;
    // The print dialog; `pageCount` is the length of the document to print, so that a range of its pages
    // can be chosen, or 0 when the dialog only chooses and sets up the printer.
    virtual bool choosePrinter(QPrinter& printer, int pageCount) = 0;
    virtual bool pageSetup(QPrinter& printer) = 0;
    // Hands a link to the desktop's program for it; false when no program takes it.
    virtual bool openUrl(const QString& url) = 0;
    // The hourglass pointer (11) on or off (0).
    virtual void setBusy(bool busy) = 0;
};

WindowService& windows();
// Installs a service; returns the one it replaces. The default is the real one.
std::unique_ptr<WindowService> setWindowService(std::unique_ptr<WindowService> service);

// The end of the session. Once it has begun, every window's loop is told to stop; a modal window or a
// message that returns because of it throws SessionEnded, so that no code after it runs on.
struct SessionEnded {};
void beginSessionEnd();
bool sessionEnding();
void clearSessionEnd();  // for the tests, which start sessions again

// Shorthands that read like the program's own calls.
inline int msgBox(const QString& text, int style = MsgOkOnly, const QString& title = QString())
{
    const int answer = windows().message(text, style, title);
    if (sessionEnding())
        throw SessionEnded{};
    return answer;
}
inline void showModal(QWidget& window)
{
    windows().showModal(window);
    if (sessionEnding())
        throw SessionEnded{};
}

} // namespace hb::ui
