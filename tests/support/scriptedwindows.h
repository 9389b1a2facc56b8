#pragma once

#include "platform/ui/windowservice.h"

#include <QPointer>
#include <deque>
#include <functional>
#include <vector>

// An open-file dialog as shown: its filters in their order and the one in force.
struct ShownFileDialog {
    QString caption;
    QStringList filters;
    QString selectedFilter;
};

struct ShownMessage {
    QString text;
    int style = 0;
    QString title;
};

// The test double of the window service: answers come from queues that a test fills, and everything shown
// is recorded. A question (a box with two buttons) or a modal window without a queued answer is a fault of
// the test, collected in problems().
class ScriptedWindows : public hb::ui::WindowService {
public:
    using ModalScript = std::function<void(QWidget&)>;

    void answer(int answer) { answers_.push_back(answer); }
    void onModal(ModalScript script) { modals_.push_back(std::move(script)); }
    void answerFont(bool accept, const QFont& font = QFont()) { fonts_.push_back({accept, font}); }
    void answerFile(const QString& path) { files_.push_back(path); }
    using PrinterScript = std::function<bool(QPrinter&)>;
    void answerPrinter(bool accept) { printers_.push_back([accept](QPrinter&) { return accept; }); }
    // The script acts in the printer dialog (output, paper) and tells whether it was accepted.
    void scriptPrinter(PrinterScript script) { printers_.push_back(std::move(script)); }

    const std::vector<ShownMessage>& messages() const { return messages_; }
    const QStringList& modalsShown() const { return modalNames_; }
    const std::vector<ShownFileDialog>& openFileDialogs() const { return openDialogs_; }
    const QStringList& urlsOpened() const { return urls_; }
    // The page count each print dialog was given, 0 for one that only set the printer up.
    const QList<int>& printDialogPages() const { return printDialogPages_; }
    QStringList problems() const;
    bool busy() const { return busy_; }
    void clearRecords();

    int message(const QString& text, int style, const QString& title) override;
    void showModal(QWidget& window) override;
    QString openFileName(const QString& caption, const QString& directory, const QString& filter,
                         const QString& selectedFilter) override;
    QString saveFileName(const QString& caption, const QString& directory, const QString& filter) override;
    QString directory(const QString& caption, const QString& start) override;
    bool chooseFont(QFont& font) override;
    bool choosePrinter(QPrinter& printer, int pageCount) override;
    bool pageSetup(QPrinter& printer) override;
    bool openUrl(const QString& url) override;
    void setBusy(bool busy) override;

    bool urlOpens = true;

private:
    QString nextFile(const QString& what);
    bool runPrinterScript(QPrinter& printer);

    std::deque<int> answers_;
    std::deque<ModalScript> modals_;
    std::deque<std::pair<bool, QFont>> fonts_;
    std::deque<QString> files_;
    std::deque<PrinterScript> printers_;
    std::vector<ShownMessage> messages_;
    std::vector<ShownFileDialog> openDialogs_;
    QStringList modalNames_;
    QStringList urls_;
    QList<int> printDialogPages_;
    QStringList problems_;
    bool busy_ = false;
};
