#include "core/forms.h"

#include "core/frame.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/twips.h"

#include <QApplication>
#include <QMdiArea>
#include <QMdiSubWindow>
#include <QVector>

namespace hb {

namespace {
QVector<Form*>& registry()
{
    static QVector<Form*> forms;
    return forms;
}
} // namespace

Form::Form(const QString& name, bool frameChild) : frameChild_(frameChild)
{
    setObjectName(name);
    if (frameChild_) {
        if (QMdiArea* area = frameWorkArea()) {
            subWindow_ = area->addSubWindow(this, Qt::SubWindow | Qt::WindowTitleHint | Qt::WindowCloseButtonHint |
                                                      Qt::WindowMinMaxButtonsHint);
            subWindow_->setObjectName(name + QStringLiteral("Window"));
            subWindow_->hide();
        }
    }
}

Form::~Form() { registry().removeAll(this); }

void Form::fitWindow()
{
    // A maximised or minimised window keeps the size the user gave it.
    if (subWindow_ && !(subWindow_->windowState() & (Qt::WindowMaximized | Qt::WindowMinimized)))
        subWindow_->adjustSize();
}

void Form::setFormVisible(bool visible)
{
    if (subWindow_) {
        // The form is shown before its sub-window is fitted: a hidden form counts for nothing in the fit, and
        // the sub-window would shrink to its title bar.
        setVisible(visible);
        if (visible)
            fitWindow();
        subWindow_->setVisible(visible);
        if (visible)
            subWindow_->raise();
    } else {
        setVisible(visible);
        if (visible)
            raise();
    }
}

bool Form::isFormVisible() const { return subWindow_ ? subWindow_->isVisible() && isVisible() : isVisible(); }

void Form::moveTo(int leftTwips, int topTwips) { outerWindow()->move(ui::px(leftTwips), ui::px(topTwips)); }

QWidget* Form::outerWindow() { return subWindow_ ? static_cast<QWidget*>(subWindow_) : this; }

namespace forms {

Form* find(const QString& name)
{
    for (Form* form : registry()) {
        if (form->formName().compare(name, Qt::CaseInsensitive) == 0)
            return form;
    }
    return nullptr;
}

void add(Form* form) { registry().append(form); }

void unload(const QString& name)
{
    Form* form = find(name);
    if (!form)
        return;
    registry().removeAll(form);
    form->formUnload();
    QWidget* outer = form->outerWindow();
    outer->hide();
    outer->deleteLater();
}

void unloadAll()
{
    while (!registry().isEmpty())
        unload(registry().constLast()->formName());
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

} // namespace forms

bool IsFormLoaded(QString& name)
{
    name = name.toLower().trimmed();
    return forms::find(name) != nullptr;
}

bool IsFormLoaded(const char* name)
{
    QString text = QString::fromLatin1(name);
    return IsFormLoaded(text);
}

void UnloadForms()
{
    for (const char* name : {"frmaddressbook", "frmaddressrpt", "frmaddressrpt", "frmmailit", "frmnameyourown",
                             "frmbackup", "frmbirthdayrpt", "frmselect"}) {
        QString formName = QString::fromLatin1(name);
        if (IsFormLoaded(formName))
            forms::unload(formName);
    }
    ReturnToListings = true;
}

void ReloadReport()
{
    // Unloading a report that is being replaced must not bring the listings back.
    ReturnToListings = false;
    forms::unload(QStringLiteral("frmAddressRpt"));
    QCoreApplication::processEvents();
    loadAddressReport();
    ReturnToListings = true;
}

void CenterForm(Form& form)
{
    QWidget* frame = frameWindow();
    if (!frame)
        return;
    form.fitWindow();
    QWidget* window = form.outerWindow();
    const int left = (frame->width() - window->width()) / 2;
    const int top = std::max(0, (frame->height() - window->height()) / 2 - ui::px(800));
    if (form.isFrameChild())
        window->move(left, top);
    else
        window->move(frame->mapToGlobal(QPoint(left, top)));
}

} // namespace hb
