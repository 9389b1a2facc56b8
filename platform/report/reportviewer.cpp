#include "platform/report/reportviewer.h"

#include "platform/report/reportpainter.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScrollArea>
#include <QScrollBar>
#include <QToolButton>
#include <QVBoxLayout>

namespace hb::report {

namespace {

constexpr int PageGap = 12;   // pixels of grey around the page
const QList<int> Percentages{400, 300, 200, 150, 100, 75, 50, 25};

}  // namespace

// The page on screen: the same painting as on paper, at the screen's resolution and the zoom.
class PageCanvas : public QWidget {
public:
    explicit PageCanvas(QWidget* parent) : QWidget(parent) { setObjectName(QStringLiteral("pageCanvas")); }

    void display(const ReportLayout* layout, int page, double scale)
    {
        shown = layout;
        number = page;
        pixelsPerTwip = scale;
        const QSize paper = shown && number > 0 ? shown->pageSize() * pixelsPerTwip : QSize();
        setFixedSize(paper + QSize(2 * PageGap, 2 * PageGap));
        update();
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        if (!shown || number < 1)
            return;
        QPainter painter(this);
        const QRect paper(QPoint(PageGap, PageGap), shown->pageSize() * pixelsPerTwip);
        painter.fillRect(paper, Qt::white);
        painter.setPen(Qt::darkGray);
        painter.drawRect(paper.adjusted(-1, -1, 0, 0));
        painter.translate(paper.topLeft());
        ReportPainter(*shown).paintPage(painter, number, pixelsPerTwip);
    }

private:
    const ReportLayout* shown = nullptr;
    int number = 0;
    double pixelsPerTwip = 0;
};

ReportViewer::ReportViewer(QWidget* parent) : QWidget(parent)
{
    buildControls();
    updateControls();
}

ReportViewer::~ReportViewer() = default;

QHBoxLayout* ReportViewer::navigationBar()
{
    auto button = [this](const char* name, const QString& text, const QString& tip) {
        auto* b = new QToolButton(this);
        b->setObjectName(QLatin1String(name));
        b->setText(text);
        b->setToolTip(tip);
        return b;
    };
    firstButton = button("firstPageButton", QStringLiteral("|<"), tr("First Page"));
    previousButton = button("previousPageButton", QStringLiteral("<"), tr("Previous Page"));
    nextButton = button("nextPageButton", QStringLiteral(">"), tr("Next Page"));
    lastButton = button("lastPageButton", QStringLiteral(">|"), tr("Last Page"));
    pageLabel = new QLabel(this);
    pageLabel->setObjectName(QStringLiteral("pageLabel"));
    zoomBox = new QComboBox(this);
    zoomBox->setObjectName(QStringLiteral("zoomCombo"));
    zoomBox->addItem(tr("Page Width"), PageWidth);
    zoomBox->addItem(tr("Whole Page"), WholePage);
    for (int percent : Percentages)
        zoomBox->addItem(QStringLiteral("%1%").arg(percent), percent);
    zoomBox->setCurrentIndex(zoomBox->findData(zoomSetting));

    auto* bar = new QHBoxLayout;
    for (QWidget* w : QList<QWidget*>{firstButton, previousButton, pageLabel, nextButton, lastButton, zoomBox})
        bar->addWidget(w);
    bar->addStretch();
    return bar;
}

void ReportViewer::buildControls()
{
    QHBoxLayout* bar = navigationBar();
    scroller = new QScrollArea(this);
    scroller->setObjectName(QStringLiteral("pageView"));
    scroller->setBackgroundRole(QPalette::Dark);
    scroller->setAlignment(Qt::AlignHCenter | Qt::AlignTop);
    canvas = new PageCanvas(scroller);
    scroller->setWidget(canvas);

    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(0, 0, 0, 0);
    column->addLayout(bar);
    column->addWidget(scroller, 1);

    connect(firstButton, &QToolButton::clicked, this, &ReportViewer::showFirstPage);
    connect(previousButton, &QToolButton::clicked, this, &ReportViewer::showPreviousPage);
    connect(nextButton, &QToolButton::clicked, this, &ReportViewer::showNextPage);
    connect(lastButton, &QToolButton::clicked, this, &ReportViewer::showLastPage);
    connect(zoomBox, &QComboBox::activated, this, &ReportViewer::zoomChosen);
}

void ReportViewer::setReportSource(const ReportDefinition* source, const ReportData& reportData)
{
    definition = source;
    data = reportData;
}

void ReportViewer::viewReport() { layOut(1); }

void ReportViewer::refresh() { layOut(qMax(current, 1)); }

void ReportViewer::layOut(int page)
{
    busy = true;
    pages.reset();
    current = 0;
    failure = 0;
    if (definition) {
        try {
            pages = std::make_unique<ReportLayout>(*definition, data, definition->pageSize());
        } catch (const ReportError& error) {
            failure = error.number;
            busy = false;
            updateControls();
            hb::ui::msgBox(error.text, hb::ui::MsgIconExclamation, tr("Report Viewer"));
            return;
        }
    }
    busy = false;
    showPage(qBound(1, page, qMax(pageCount(), 1)));
}

int ReportViewer::pageCount() const { return pages ? pages->pageCount() : 0; }

void ReportViewer::showPage(int page)
{
    if (page < 1 || page > pageCount())
        return;
    const bool moved = page != current;
    current = page;
    updateControls();
    scroller->verticalScrollBar()->setValue(0);
    if (moved)
        emit pageChanged(current);
}

void ReportViewer::zoom(int percent)
{
    zoomSetting = percent == PageWidth || percent == WholePage ? percent : qBound(25, percent, 400);
    int index = zoomBox->findData(zoomSetting);
    if (index < 0) {
        zoomBox->addItem(QStringLiteral("%1%").arg(zoomSetting), zoomSetting);
        index = zoomBox->count() - 1;
    }
    zoomBox->setCurrentIndex(index);
    updateControls();
}

void ReportViewer::zoomChosen(int index) { zoom(zoomBox->itemData(index).toInt()); }

double ReportViewer::zoomFactor() const
{
    if (zoomSetting != PageWidth && zoomSetting != WholePage)
        return zoomSetting / 100.0;
    const QSize paper = definition ? definition->pageSize() : QSize(12240, 15840);
    const double inch = logicalDpiX();
    const QSize room = scroller->maximumViewportSize() - QSize(2 * PageGap, 2 * PageGap);
    const double across = room.width() * TwipsPerInch / (paper.width() * inch);
    const double down = room.height() * TwipsPerInch / (paper.height() * inch);
    return qMax(0.05, zoomSetting == PageWidth ? across : qMin(across, down));
}

void ReportViewer::updateControls()
{
    const int count = pageCount();
    pageLabel->setText(tr("Page %1 of %2").arg(current).arg(count));
    firstButton->setEnabled(current > 1);
    previousButton->setEnabled(current > 1);
    nextButton->setEnabled(current < count);
    lastButton->setEnabled(current < count);
    canvas->display(pages.get(), current, zoomFactor() * logicalDpiX() / TwipsPerInch);
}

void ReportViewer::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (zoomSetting == PageWidth || zoomSetting == WholePage)
        updateControls();
}

}  // namespace hb::report
