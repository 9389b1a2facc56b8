#include "scriptedwindows.h"

#include <QWidget>

QStringList ScriptedWindows::problems() const
{
    QStringList all = problems_;
    if (!answers_.empty())
        all << QStringLiteral("%1 message answer(s) left unused").arg(answers_.size());
    if (!modals_.empty())
        all << QStringLiteral("%1 modal script(s) left unused").arg(modals_.size());
    if (!fonts_.empty() || !files_.empty() || !printers_.empty())
        all << QStringLiteral("dialog answers left unused");
    return all;
}

void ScriptedWindows::clearRecords()
{
    messages_.clear();
    modalNames_.clear();
    urls_.clear();
    openDialogs_.clear();
    printDialogPages_.clear();
}

int ScriptedWindows::message(const QString& text, int style, const QString& title)
{
    messages_.push_back({text, style, title});
    const bool question = (style & 0x7) != hb::ui::MsgOkOnly;
    if (!answers_.empty()) {
        const int next = answers_.front();
        answers_.pop_front();
        return next;
    }
    if (question)
        problems_ << QStringLiteral("unanswered question: %1 [%2]").arg(text, title);
    return question ? ((style & 0x7) == hb::ui::MsgYesNoButtons ? hb::ui::AnswerNo : hb::ui::AnswerCancel)
                    : hb::ui::AnswerOk;
}

void ScriptedWindows::showModal(QWidget& window)
{
    modalNames_ << window.objectName();
    if (modals_.empty()) {
        problems_ << QStringLiteral("unanswered modal window: %1").arg(window.objectName());
        window.hide();
        return;
    }
    ModalScript script = std::move(modals_.front());
    modals_.pop_front();
    QPointer<QWidget> guard(&window);
    window.show();
    script(window);
    if (guard && guard->isVisible())
        guard->hide();
}

QString ScriptedWindows::nextFile(const QString& what)
{
    if (files_.empty()) {
        problems_ << QStringLiteral("unanswered file dialog: %1").arg(what);
        return {};
    }
    QString next = files_.front();
    files_.pop_front();
    return next;
}

QString ScriptedWindows::openFileName(const QString& caption, const QString&, const QString& filter,
                                     const QString& selectedFilter)
{
    openDialogs_.push_back({caption, filter.split(QStringLiteral(";;")), selectedFilter});
    return nextFile(caption);
}

QString ScriptedWindows::saveFileName(const QString& caption, const QString&, const QString&)
{
    return nextFile(caption);
}

QString ScriptedWindows::directory(const QString& caption, const QString&) { return nextFile(caption); }

bool ScriptedWindows::chooseFont(QFont& font)
{
    if (fonts_.empty()) {
        problems_ << QStringLiteral("unanswered font dialog");
        return false;
    }
    auto [accept, chosen] = fonts_.front();
    fonts_.pop_front();
    if (accept)
        font = chosen;
    return accept;
}

bool ScriptedWindows::choosePrinter(QPrinter& printer, int pageCount)
{
    printDialogPages_ << pageCount;
    return runPrinterScript(printer);
}

bool ScriptedWindows::runPrinterScript(QPrinter& printer)
{
    if (printers_.empty()) {
        problems_ << QStringLiteral("unanswered printer dialog");
        return false;
    }
    const PrinterScript script = std::move(printers_.front());
    printers_.pop_front();
    return script(printer);
}

bool ScriptedWindows::pageSetup(QPrinter& printer) { return runPrinterScript(printer); }

bool ScriptedWindows::openUrl(const QString& url)
{
    urls_ << url;
    return urlOpens;
}

void ScriptedWindows::setBusy(bool busy) { busy_ = busy; }
