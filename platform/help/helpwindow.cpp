#include "platform/help/helpwindow.h"

#include "platform/help/contextmap.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QHBoxLayout>
#include <QKeySequence>
#include <QPointer>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QTextBrowser>
#include <QUrl>
#include <QVBoxLayout>
#include <QWidget>
#include <QWindow>
#include <algorithm>

namespace hb::help {
namespace {

const QString kContentsPage = QStringLiteral("index.html");
const QString kMapFile = QStringLiteral("contexts.map");

class HelpWindow : public QWidget {
public:
    HelpWindow();
    void open(const QString& path);

private:
    QPushButton* addButton(QHBoxLayout* row, const QString& name, const QString& caption);
    void placeBeside(const QWidget& dialog);

    QTextBrowser* browser_ = nullptr;
};

struct HelpState {
    QString folder;
    ContextMap map;
    bool mapRead = false;
    // Parentless and kept for the whole run; the QPointer notices if someone
    // deletes it, and the next call then builds a new one.
    QPointer<HelpWindow> window;
};

HelpState& state()
{
    static HelpState helpState;
    return helpState;
}

QString pagePath(const QString& file)
{
    return QDir(state().folder).filePath(file);
}

bool helpPresent()
{
    return !state().folder.isEmpty() && QFileInfo(pagePath(kContentsPage)).isFile();
}

// Read on first need rather than in setHelpFolder(), so that setting the
// folder at start-up costs nothing when nobody asks for help.
const ContextMap& contextMap()
{
    HelpState& s = state();
    if (!s.mapRead) {
        s.map = s.folder.isEmpty() ? ContextMap{} : readContextMap(pagePath(kMapFile));
        s.mapRead = true;
    }
    return s.map;
}

HelpWindow::HelpWindow()
{
    setObjectName(QStringLiteral("HelpWindow"));
    setWindowTitle(QStringLiteral("Quillon Homebook Help"));
    // Closing the help must never end the program, even when it is the last
    // window on the screen for a moment.
    setAttribute(Qt::WA_QuitOnClose, false);

    auto* buttons = new QHBoxLayout;
    QPushButton* back = addButton(buttons, QStringLiteral("HelpBack"), QStringLiteral("&Back"));
    QPushButton* forward = addButton(buttons, QStringLiteral("HelpForward"), QStringLiteral("&Forward"));
    QPushButton* contents = addButton(buttons, QStringLiteral("HelpContents"), QStringLiteral("&Contents"));
    buttons->addStretch();

    browser_ = new QTextBrowser(this);
    browser_->setObjectName(QStringLiteral("HelpBrowser"));
    browser_->setOpenExternalLinks(true);

    auto* layout = new QVBoxLayout(this);
    layout->addLayout(buttons);
    layout->addWidget(browser_);

    back->setEnabled(false);
    forward->setEnabled(false);
    connect(back, &QPushButton::clicked, browser_, &QTextBrowser::backward);
    connect(forward, &QPushButton::clicked, browser_, &QTextBrowser::forward);
    connect(browser_, &QTextBrowser::backwardAvailable, back, &QPushButton::setEnabled);
    connect(browser_, &QTextBrowser::forwardAvailable, forward, &QPushButton::setEnabled);
    connect(contents, &QPushButton::clicked, this, [this] { open(pagePath(kContentsPage)); });
    connect(new QShortcut(QKeySequence(Qt::Key_Escape), this), &QShortcut::activated,
            this, &QWidget::close);

    resize(680, 560);
}

QPushButton* HelpWindow::addButton(QHBoxLayout* row, const QString& name, const QString& caption)
{
    auto* button = new QPushButton(caption, this);
    button->setObjectName(name);
    button->setAutoDefault(false);
    row->addWidget(button);
    return button;
}

void HelpWindow::open(const QString& path)
{
    browser_->setSource(QUrl::fromLocalFile(path));
    // Help asked for from a modal dialog belongs to that dialog, so that its modality does not block the
    // help; it stands beside the dialog rather than over its buttons.
    QWidget* modal = QApplication::activeModalWidget();
    if (modal == this)
        modal = nullptr;
    winId();
    windowHandle()->setTransientParent(modal ? modal->windowHandle() : nullptr);
    if (modal)
        placeBeside(*modal);
    show();
    raise();
    activateWindow();
}

void HelpWindow::placeBeside(const QWidget& dialog)
{
    const QRect beside = dialog.frameGeometry();
    const QScreen* screen = dialog.screen();
    const QRect room = screen ? screen->availableGeometry() : QRect();
    const QSize frame = frameGeometry().size();
    constexpr int Gap = 8;
    int x = beside.right() + 1 + Gap;
    if (room.isValid() && x + frame.width() > room.right() + 1 && beside.left() - Gap - frame.width() >= room.left())
        x = beside.left() - Gap - frame.width();
    int y = beside.top();
    if (room.isValid())
        y = std::clamp(y, room.top(), std::max(room.top(), room.bottom() + 1 - frame.height()));
    move(x, y);
}

bool openPage(const QString& path)
{
    HelpState& s = state();
    if (!s.window)
        s.window = new HelpWindow;
    s.window->open(path);
    return true;
}

}  // namespace

void setHelpFolder(const QString& folder)
{
    HelpState& s = state();
    const QString cleaned = folder.isEmpty() ? QString() : QDir::cleanPath(folder);
    if (cleaned == s.folder)
        return;
    s.folder = cleaned;
    s.map.clear();
    s.mapRead = false;
}

QString helpFolder()
{
    return state().folder;
}

bool showContents()
{
    if (!helpPresent())
        return false;
    return openPage(pagePath(kContentsPage));
}

bool showTopic(int context)
{
    if (!helpPresent())
        return false;
    const QString file = topicFile(context);
    const QString path = file.isEmpty() ? QString() : pagePath(file);
    if (path.isEmpty() || !QFileInfo(path).isFile())
        return openPage(pagePath(kContentsPage));
    return openPage(path);
}

QString topicFile(int context)
{
    return contextMap().value(context);
}

QWidget* helpWindow()
{
    return state().window.data();
}

}  // namespace hb::help
