#pragma once

#include "platform/ui/windowservice.h"

namespace hb::ui {

// The real dialogs of the desktop.
class QtWindowService : public WindowService {
public:
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

private:
    bool busy_ = false;
};

} // namespace hb::ui
