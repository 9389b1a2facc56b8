#pragma once

#include "platform/ui/windowservice.h"

#include <QFile>
#include <QPrinter>
#include <QRegularExpression>

#include <memory>

// The pages of a printed PDF; -1 when the file is missing or not a PDF.
inline int pdfPages(const QString& path)
{
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly))
        return -1;
    const QByteArray bytes = file.readAll();
    if (!bytes.startsWith("%PDF"))
        return -1;
    static const QRegularExpression page(QStringLiteral("/Type\\s*/Page[^s]"));
    return int(QString::fromLatin1(bytes).count(page));
}

// Stands in front of the test's window service while a report prints: the printer dialog is answered by
// the service behind, and an accepted dialog then prints to a PDF file or to a named queue, as a user
// would choose in the real dialog.
class PrintCapture {
public:
    PrintCapture()
    {
        auto proxy = std::make_unique<Proxy>(*this);
        Proxy* raw = proxy.get();
        behind_ = hb::ui::setWindowService(std::move(proxy));
        raw->behind = behind_.get();
    }
    ~PrintCapture() { hb::ui::setWindowService(std::move(behind_)); }

    void toPdf(const QString& path) { pdf_ = path; queue_.clear(); }
    void toQueue(const QString& queue) { queue_ = queue; pdf_.clear(); }
    void chooseLandscape() { landscape_ = true; }
    int printersChosen() const { return chosen_; }

private:
    struct Proxy : hb::ui::WindowService {
        explicit Proxy(PrintCapture& owner) : owner(owner) {}
        int message(const QString& t, int s, const QString& title) override { return behind->message(t, s, title); }
        void showModal(QWidget& w) override { behind->showModal(w); }
        QString openFileName(const QString& c, const QString& d, const QString& f, const QString& s) override
        {
            return behind->openFileName(c, d, f, s);
        }
        QString saveFileName(const QString& c, const QString& d, const QString& f) override { return behind->saveFileName(c, d, f); }
        QString directory(const QString& c, const QString& s) override { return behind->directory(c, s); }
        bool chooseFont(QFont& font) override { return behind->chooseFont(font); }
        bool pageSetup(QPrinter& printer) override { return behind->pageSetup(printer); }
        bool openUrl(const QString& url) override { return behind->openUrl(url); }
        void setBusy(bool busy) override { behind->setBusy(busy); }
        bool choosePrinter(QPrinter& printer, int pageCount) override
        {
            if (!behind->choosePrinter(printer, pageCount))
                return false;
            owner.aim(printer);
            return true;
        }

        PrintCapture& owner;
        hb::ui::WindowService* behind = nullptr;
    };

    void aim(QPrinter& printer)
    {
        ++chosen_;
        if (landscape_)
            printer.setPageOrientation(QPageLayout::Landscape);
        if (!pdf_.isEmpty()) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(pdf_);
        } else if (!queue_.isEmpty()) {
            printer.setOutputFormat(QPrinter::NativeFormat);
            printer.setPrinterName(queue_);
        }
    }

    std::unique_ptr<hb::ui::WindowService> behind_;
    QString pdf_;
    QString queue_;
    int chosen_ = 0;
    bool landscape_ = false;
};
