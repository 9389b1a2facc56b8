#include "core/frmmdi.h"

#include "core/forms.h"
#include "core/frame.h"
#include "core/routes.h"
#include "core/session.h"
#include "core/setup.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCloseEvent>
#include <QLabel>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QTimer>

namespace hb {

namespace {
FrmMDI* theFrame = nullptr;
QFont fallbackFont;
} // namespace

FrmMDI::FrmMDI() : workArea_(new QMdiArea(this)), PictureFont_(new QLabel(this))
{
    theFrame = this;
    setObjectName(QStringLiteral("FrmMDI"));
    setWindowTitle(QStringLiteral("Quillon Homebook v2.0"));
    workArea_->setObjectName(QStringLiteral("MDIClient"));
    // The desktop's own shade behind the windows, light or dark as the user has chosen.
    workArea_->setBackground(palette().brush(QPalette::Dark));
    setCentralWidget(workArea_);
    PictureFont_->setObjectName(QStringLiteral("PictureFont"));
    PictureFont_->hide();
    buildMenu();
    buildToolbar();
    resize(ui::px(12000), ui::px(8400));
}

FrmMDI::~FrmMDI()
{
    if (theFrame == this)
        theFrame = nullptr;
}

FrmMDI* FrmMDI::instance() { return theFrame; }

void FrmMDI::MDIForm_Load()
{
    AboutAtStart = true;
    ReturnToListings = true;
    // The about window's load brings the session up and hides the window unless it shows at start.
    loadAbout();
    if (DisplayAbout != 1)
        showAddressBook();
    else
        showAbout();
    // Once the listings are painted, so that the user sees the book while the server answers.
    QTimer::singleShot(0, this, [] { syncAtStart(); });
}

void FrmMDI::resizeEvent(QResizeEvent* event)
{
    QMainWindow::resizeEvent(event);
    if (AboutAtStart)
        return;
    if (QMdiSubWindow* active = workArea_->activeSubWindow()) {
        if (auto* form = qobject_cast<Form*>(active->widget()))
            CenterForm(*form);
    }
}

void FrmMDI::closeEvent(QCloseEvent* event)
{
    event->accept();
    syncAtEnd();
    unloadFrame();
}

QWidget* frameWindow() { return theFrame; }
QMdiArea* frameWorkArea() { return theFrame ? theFrame->workArea() : nullptr; }
QFont& PictureFont() { return theFrame ? theFrame->pictureFont() : fallbackFont; }

void UpdateToolbar(const QString& state)
{
    if (theFrame)
        theFrame->UpdateToolbar(state);
}

void SetFramePointer(int pointer) { ui::windows().setBusy(pointer == 11); }

} // namespace hb
