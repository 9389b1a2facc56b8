#include "mailing/frmeditlabel.h"
#include "core/handlers.h"

#include "core/frame.h"
#include "core/session.h"
#include "mailing/labelrows.h"
#include "platform/ui/lineedits.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowkeys.h"
#include "platform/ui/windowservice.h"

#include <QEvent>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include <algorithm>

namespace hb {


FrmEditLabel::FrmEditLabel() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Edit Label"));
    buildControls();
    connectHandler(cmdOK, &QPushButton::clicked, this, &FrmEditLabel::cmdOK_Click);
    connectHandler(cmdCancel, &QPushButton::clicked, this, &FrmEditLabel::cmdCancel_Click);
}

void FrmEditLabel::buildControls()
{
    setFixedSize(ui::px(5400), ui::px(3500));
    lblName = ui::placed(new QLabel(QStringLiteral("Name:"), this), "lblName", 120, 120, 5000, 255);
    txtName = ui::placed(new QLineEdit(this), "txtName", 120, 380, 5100, 315);
    lblAddress1 = ui::placed(new QLabel(QStringLiteral("Address:"), this), "lblAddress1", 120, 800, 5000, 255);
    txtAddress1 = ui::placed(new QLineEdit(this), "txtAddress1", 120, 1060, 5100, 315);
    lblAddress2 = ui::placed(new QLabel(QStringLiteral("Address:"), this), "lblAddress2", 120, 1480, 5000, 255);
    txtAddress2 = ui::placed(new QLineEdit(this), "txtAddress2", 120, 1740, 5100, 315);
    lblCityStateZip = ui::placed(new QLabel(QStringLiteral("City, State/Province  Zip/Postal Code:"), this), "lblCityStateZip",
                            120, 2160, 5000, 255);
    txtCityStateZip = ui::placed(new QLineEdit(this), "txtCityStateZip", 120, 2420, 5100, 315);
    for (QLineEdit* t : {txtName, txtAddress1, txtAddress2, txtCityStateZip}) {
        t->setMaxLength(50);
        t->installEventFilter(this);
    }
    cmdOK = ui::placed(new QPushButton(QStringLiteral("OK"), this), "cmdOK", 2640, 2940, 1200, 375);
    cmdOK->setDefault(true);
    cmdCancel = ui::placed(new QPushButton(QStringLiteral("Cancel"), this), "cmdCancel", 4020, 2940, 1200, 375);
}

void FrmEditLabel::formLoad()
{
    if (QWidget* frame = frameWindow()) {
        const QPoint at((frame->width() - width()) / 2, std::max(0, (frame->height() - height()) / 2));
        move(frame->mapToGlobal(at));
    }
    if (ReportType == QLatin1String("A")) {
        lblAddress1->setText(QStringLiteral("Phone:"));
        lblAddress2->setText(QStringLiteral("Address:"));
    }
    if (LabelName.trimmed() == QLatin1String("[Blank Label]")) {
        txtName->clear();
        LabelCode = QStringLiteral("1");
    } else {
        txtName->setText(LabelName.trimmed());
    }
    txtAddress1->setText(LabelAddress1.trimmed());
    txtAddress2->setText(LabelAddress2.trimmed());
    txtCityStateZip->setText(LabelCityStateZip.trimmed());
}

void FrmEditLabel::cmdOK_Click()
{
    const bool anyAddress = !txtAddress1->text().trimmed().isEmpty() || !txtAddress2->text().trimmed().isEmpty() ||
                            !txtCityStateZip->text().trimmed().isEmpty();
    if (anyAddress && txtName->text().trimmed().isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter a name when address entered!"), MsgWarning, QStringLiteral("Name Not Entered"));
        txtName->setFocus();
        return;
    }
    // A new city line is no longer the listing's address, so the label leaves the listing. A line longer
    // than the box shows only its first characters there; left as shown, it is the same line and stays
    // whole in the list (it is cut when the labels are written).
    const QString oldCity = LabelCityStateZip.trimmed();
    const QString shownCity = oldCity.left(txtCityStateZip->maxLength()).trimmed();
    const bool cutAndUntouched = oldCity.size() > txtCityStateZip->maxLength() && txtCityStateZip->text().trimmed() == shownCity;
    if (!cutAndUntouched && oldCity.toLower() != txtCityStateZip->text().trimmed().toLower())
        LabelCode = QStringLiteral("1");
    if (!txtName->text().trimmed().isEmpty()) {
        LabelName = txtName->text();
        LabelAddress1 = txtAddress1->text();
        LabelAddress2 = txtAddress2->text();
        LabelCityStateZip = cutAndUntouched ? oldCity : txtCityStateZip->text();
    } else {
        LabelName = QStringLiteral("[Blank Label]");
        LabelAddress1.clear();
        LabelAddress2.clear();
        LabelCityStateZip.clear();
        LabelCode = QStringLiteral("1");
    }
    forms::unload(formName());
}

void FrmEditLabel::cmdCancel_Click()
{
    SelectionCancelled = true;
    forms::unload(formName());
}

// Entering a box selects its text, after the line edit's own focus handling.
bool FrmEditLabel::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() == QEvent::FocusIn) {
        if (auto* edit = qobject_cast<QLineEdit*>(watched))
            ui::selectTextOnEntry(edit);
    }
    return Form::eventFilter(watched, event);
}

// The window is no dialog of Qt's, so its default button needs Enter handed to it.
void FrmEditLabel::keyPressEvent(QKeyEvent* event)
{
    if (!ui::pressWindowButton(event, cmdOK, cmdCancel))
        Form::keyPressEvent(event);
}

} // namespace hb
