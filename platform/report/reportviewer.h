#pragma once

#include "platform/report/reportdata.h"
#include "platform/report/reportlayout.h"
#include "platform/report/reportmodel.h"

#include <QWidget>

#include <memory>

class QComboBox;
class QHBoxLayout;
class QLabel;
class QScrollArea;
class QToolButton;

namespace hb::report {

class PageCanvas;

// Shows a report one page at a time, with first, previous, next and last page buttons, "Page n of m" and
// a zoom. A report that cannot be laid out (a title formula that does not parse) is reported in a
// message box through the window service and shows no pages.
class ReportViewer : public QWidget {
    Q_OBJECT

public:
    // The zoom values that are not percentages.
    static constexpr int PageWidth = 1;
    static constexpr int WholePage = 2;

    explicit ReportViewer(QWidget* parent = nullptr);
    ~ReportViewer() override;

    // The definition is not copied: it is read again at each viewReport() and refresh(), so that the
    // caller's changes show. It must outlive the viewer's use of it.
    void setReportSource(const ReportDefinition* definition, const ReportData& data);
    void viewReport();   // lays the report out and shows its first page
    void refresh();      // lays it out again and stays on the page shown, as far as it still exists
    void zoom(int percent);   // PageWidth, WholePage or a percentage from 25 to 400

    bool isBusy() const { return busy; }
    int currentPage() const { return current; }   // 0 when there are no pages
    int pageCount() const;
    int zoomValue() const { return zoomSetting; }
    // Page scale against the paper's real size, after fitting for PageWidth and WholePage.
    double zoomFactor() const;
    const ReportLayout* layout() const { return pages.get(); }
    int errorNumber() const { return failure; }   // 0 when the last layout succeeded

public slots:
    void showPage(int page);
    void showFirstPage() { showPage(1); }
    void showPreviousPage() { showPage(current - 1); }
    void showNextPage() { showPage(current + 1); }
    void showLastPage() { showPage(pageCount()); }

signals:
    void pageChanged(int page);

protected:
    void resizeEvent(QResizeEvent* event) override;

private:
    void buildControls();
    QHBoxLayout* navigationBar();
    void layOut(int page);
    void updateControls();
    void zoomChosen(int index);

    const ReportDefinition* definition = nullptr;
    ReportData data;
    std::unique_ptr<ReportLayout> pages;
    bool busy = false;
    int current = 0;
    int zoomSetting = 100;
    int failure = 0;

    QToolButton* firstButton = nullptr;
    QToolButton* previousButton = nullptr;
    QToolButton* nextButton = nullptr;
    QToolButton* lastButton = nullptr;
    QLabel* pageLabel = nullptr;
    QComboBox* zoomBox = nullptr;
    QScrollArea* scroller = nullptr;
    PageCanvas* canvas = nullptr;
};

}  // namespace hb::report
