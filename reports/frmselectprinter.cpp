#include "reports/frmselectprinter.h"

#include "core/frame.h"
#include "core/handlers.h"
#include "core/session.h"
#include "platform/ui/twips.h"
#include "reports/listingreports.h"

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

#include <algorithm>

namespace hb {

using ui::placed;

namespace {

QStringList systemPrinters() { return QPrinterInfo::availablePrinterNames(); }

} // namespace

QStringList (*FrmSelectPrinter::printerNames)() = systemPrinters;

FrmSelectPrinter::FrmSelectPrinter() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Select Printer"));
    buildControls();
    connectHandler(cmdOK, &QPushButton::clicked, this, &FrmSelectPrinter::cmdOK_Click);
    connectHandler(cmdCancel, &QPushButton::clicked, this, &FrmSelectPrinter::cmdCancel_Click);
}

void FrmSelectPrinter::buildControls()
{
    setFixedSize(ui::px(5400), ui::px(1900));
    Frame1 = placed(new QGroupBox(QStringLiteral("Printer"), this), QStringLiteral("Frame1"), 120, 120, 5160, 900);
    Label1 = placed(new QLabel(QStringLiteral("Name:"), Frame1), QStringLiteral("Label1"), 120, 400, 700, 255);
    cmbPrinter = placed(new QComboBox(Frame1), QStringLiteral("cmbPrinter"), 840, 360, 4200, 315);
    cmdOK = placed(new QPushButton(QStringLiteral("OK"), this), QStringLiteral("cmdOK"), 2640, 1260, 1200, 375);
    cmdCancel = placed(new QPushButton(QStringLiteral("Cancel"), this), QStringLiteral("cmdCancel"), 3960, 1260, 1200, 375);
}

void FrmSelectPrinter::formLoad()
{
    if (QWidget* frame = frameWindow()) {
        const int left = (frame->width() - width()) / 2;
        const int top = std::max(0, (frame->height() - height()) / 2);
        move(frame->mapToGlobal(QPoint(left, top)));
    }
    cmbPrinter->addItems(printerNames());
    const QString current = Printer().printerName();
    for (int i = 0; i < cmbPrinter->count(); ++i) {
        if (cmbPrinter->itemText(i).compare(current, Qt::CaseInsensitive) == 0)
            cmbPrinter->setCurrentIndex(i);
    }
}

// The mail piece's own printer follows when labels or a mail piece are up; that window reads Printer().
void FrmSelectPrinter::cmdOK_Click()
{
    if (cmbPrinter->count() == 0)
        return;
    const QString wanted = cmbPrinter->currentText().toUpper();
    for (const QString& name : printerNames()) {
        if (name.compare(wanted, Qt::CaseInsensitive) == 0) {
            Printer().setPrinterName(name);
            break;
        }
    }
    forms::unload(staticFormName());
}

void FrmSelectPrinter::cmdCancel_Click() { forms::unload(staticFormName()); }

} // namespace hb
