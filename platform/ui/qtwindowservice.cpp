#include "platform/ui/qtwindowservice.h"

#include "platform/ui/schemehandlers.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDialog>
#include <QDialogButtonBox>
#include <QEventLoop>
#include <QFileDialog>
#include <QFontDialog>
#include <QMessageBox>
#include <QPageSetupDialog>
#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QUrl>

namespace hb::ui {

namespace {

QMessageBox::Icon iconOf(int style)
{
    switch (style & 0x70) {
    case MsgIconQuestion: return QMessageBox::Question;
    case MsgIconExclamation: return QMessageBox::Warning;
    case MsgIconInformation: return QMessageBox::Information;
    case 16: return QMessageBox::Critical;
    default: return QMessageBox::NoIcon;
    }
}

// The print dialog when nothing is printed from it: it chooses and sets up the printer, and its button
// says so instead of "Print".
void asSetupDialog(QPrintDialog& dialog)
{
    dialog.setWindowTitle(QStringLiteral("Printer Setup"));
    dialog.setOptions(QAbstractPrintDialog::PrintShowPageSize);
    if (auto* buttons = dialog.findChild<QDialogButtonBox*>()) {
        if (QPushButton* ok = buttons->button(QDialogButtonBox::Ok))
            ok->setText(QStringLiteral("OK"));
    }
}

} // namespace

int QtWindowService::message(const QString& text, int style, const QString& title)
{
    QMessageBox box(iconOf(style), title.isEmpty() ? QApplication::applicationDisplayName() : title, text,
                    QMessageBox::NoButton, QApplication::activeWindow());
    const bool secondDefault = style & MsgDefaultButton2;
    QPushButton* first = nullptr;
    QPushButton* second = nullptr;
    switch (style & 0x7) {
    case MsgOkCancelButtons:
        first = box.addButton(QMessageBox::Ok);
        second = box.addButton(QMessageBox::Cancel);
        box.setEscapeButton(QMessageBox::Cancel);
        break;
    case MsgYesNoButtons:
        first = box.addButton(QMessageBox::Yes);
        second = box.addButton(QMessageBox::No);
        break;
    default:
        first = box.addButton(QMessageBox::Ok);
        break;
    }
    // The first button is the default one unless the style names the second.
    box.setDefaultButton(secondDefault && second ? second : first);
    switch (box.exec()) {
    case QMessageBox::Cancel: return AnswerCancel;
    case QMessageBox::Yes: return AnswerYes;
    case QMessageBox::No: return AnswerNo;
    default: return AnswerOk;
    }
}

void QtWindowService::showModal(QWidget& window)
{
    if (auto* dialog = qobject_cast<QDialog*>(&window)) {
        dialog->exec();
        return;
    }
    // A plain widget made modal: run a local loop until it hides or goes away.
    QPointer<QWidget> guard(&window);
    window.setWindowModality(Qt::ApplicationModal);
    window.show();
    QEventLoop loop;
    while (guard && guard->isVisible())
        loop.processEvents(QEventLoop::WaitForMoreEvents);
}

QString QtWindowService::openFileName(const QString& caption, const QString& directory, const QString& filter,
                                      const QString& selectedFilter)
{
    QString selected = selectedFilter;
    return QFileDialog::getOpenFileName(QApplication::activeWindow(), caption, directory, filter, &selected);
}

QString QtWindowService::saveFileName(const QString& caption, const QString& directory, const QString& filter)
{
    return QFileDialog::getSaveFileName(QApplication::activeWindow(), caption, directory, filter);
}

QString QtWindowService::directory(const QString& caption, const QString& start)
{
    return QFileDialog::getExistingDirectory(QApplication::activeWindow(), caption, start);
}

bool QtWindowService::chooseFont(QFont& font)
{
    bool ok = false;
    const QFont chosen = QFontDialog::getFont(&ok, font, QApplication::activeWindow());
    if (ok)
        font = chosen;
    return ok;
}

bool QtWindowService::choosePrinter(QPrinter& printer, int pageCount)
{
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, pageCount > 0);
    if (pageCount > 0)
        dialog.setMinMax(1, pageCount);
    else
        asSetupDialog(dialog);
    return dialog.exec() == QDialog::Accepted;
}

bool QtWindowService::pageSetup(QPrinter& printer)
{
    QPageSetupDialog dialog(&printer, QApplication::activeWindow());
    return dialog.exec() == QDialog::Accepted;
}

bool QtWindowService::openUrl(const QString& url)
{
    // xdg-open starts and returns whether or not a program takes the link, and one it cannot hand over
    // goes nowhere: without a program for the scheme the link is not handed over at all. Web pages and
    // files have their fallbacks in xdg-open (the browser), so they go straight to it.
    const QUrl link(url);
    const QString scheme = link.scheme().toLower();
    const bool hasFallback = scheme == QStringLiteral("http") || scheme == QStringLiteral("https")
                             || scheme == QStringLiteral("file");
    if (!link.isValid() || (!hasFallback && schemeHandler(scheme).isEmpty()))
        return false;
    return QDesktopServices::openUrl(link);
}

void QtWindowService::setBusy(bool busy)
{
    // Like a window's mouse pointer, the hourglass is either set or not: setting it twice needs one reset.
    if (busy && !busy_)
        QApplication::setOverrideCursor(Qt::WaitCursor);
    else if (!busy && busy_)
        QApplication::restoreOverrideCursor();
    busy_ = busy;
}

} // namespace hb::ui
