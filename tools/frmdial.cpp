#include "tools/frmdial.h"
#include "core/handlers.h"

#include "platform/ui/windowkeys.h"
#include "core/session.h"
#include "platform/dialer/dialer.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"
#include "tools/dialsettings.h"

#include <QCloseEvent>
#include <QFocusEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

namespace hb {

namespace {

void place(QWidget* w, int left, int top, int width, int height)
{
    w->setGeometry(ui::px(left), ui::px(top), ui::px(width), ui::px(height));
}

QPushButton* button(QWidget* parent, const QString& name, const QString& caption, int left, int top, int width)
{
    auto* b = new QPushButton(caption, parent);
    b->setObjectName(name);
    place(b, left, top, width, 420);
    return b;
}

// Rows of the keypad as on a telephone, by index; Undo and Clear share the row below.
constexpr int KeypadRows[4][3] = {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}, {10, 0, 11}};
constexpr int KeyWidth = 600, KeyHeight = 480;

} // namespace

FrmDial::FrmDial() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog | Qt::WindowTitleHint | Qt::WindowCloseButtonHint);
    buildControls();
    connectHandlers();
    DDialCtl1 = std::make_unique<dialer::Dialer>(LoadDialerSettings(), &SaveDialerSettings);
}

FrmDial::~FrmDial() = default;

void FrmDial::buildControls()
{
    setWindowTitle(QStringLiteral("AutoDial"));
    setFixedSize(ui::px(3900), ui::px(3840));
    lblPhoneNumber = new QLabel(QStringLiteral("Phone Number:"), this);
    lblPhoneNumber->setObjectName(QStringLiteral("lblPhoneNumber"));
    place(lblPhoneNumber, 120, 120, 2000, 255);
    txtPhoneNumber = new QLineEdit(this);
    txtPhoneNumber->setObjectName(QStringLiteral("txtPhoneNumber"));
    place(txtPhoneNumber, 120, 400, 3660, 330);
    lblPhoneNumber->setBuddy(txtPhoneNumber);
    txtPhoneNumber->installEventFilter(this);
    buildKeypad();
    const int left = 2400, width = 1380;
    cmdDial = button(this, QStringLiteral("cmdDial"), QStringLiteral("&Dial"), left, 960, width);
    cmdDial->setDefault(true);
    cmdDialUsing = button(this, QStringLiteral("cmdDialUsing"), QStringLiteral("Dial U&sing"), left, 1500, width);
    cmdDialProperties = button(this, QStringLiteral("cmdDialProperties"), QStringLiteral("&Properties"), left, 2040, width);
    cmdClose = button(this, QStringLiteral("cmdClose"), QStringLiteral("Close"), left, 3240, width);
    setTabOrder(txtPhoneNumber, cmdDial);
}

void FrmDial::buildKeypad()
{
    Frame1 = new QGroupBox(this);
    Frame1->setObjectName(QStringLiteral("Frame1"));
    place(Frame1, 120, 840, 2160, 2880);
    const QString captions[14] = {QStringLiteral("0"), QStringLiteral("1"), QStringLiteral("2"), QStringLiteral("3"),
                                  QStringLiteral("4"), QStringLiteral("5"), QStringLiteral("6"), QStringLiteral("7"),
                                  QStringLiteral("8"), QStringLiteral("9"), QStringLiteral("-"), QString(),
                                  QStringLiteral("&Undo"), QStringLiteral("&Clear")};
    for (int i = 0; i < 14; ++i) {
        cmdNumber[i] = button(Frame1, QStringLiteral("cmdNumber_%1").arg(i), captions[i], 0, 0, KeyWidth);
        cmdNumber[i]->setFocusPolicy(Qt::TabFocus);
    }
    for (int row = 0; row < 4; ++row) {
        for (int column = 0; column < 3; ++column)
            place(cmdNumber[KeypadRows[row][column]], 120 + column * (KeyWidth + 60), 180 + row * (KeyHeight + 60),
                  KeyWidth, KeyHeight);
    }
    const int wide = (3 * KeyWidth + 60) / 2;
    place(cmdNumber[12], 120, 180 + 4 * (KeyHeight + 60), wide, KeyHeight);
    place(cmdNumber[13], 120 + wide + 60, 180 + 4 * (KeyHeight + 60), wide, KeyHeight);
    cmdNumber[11]->setToolTip(QStringLiteral("A blank"));
}

void FrmDial::connectHandlers()
{
    connectHandler(cmdDial, &QPushButton::clicked, this, &FrmDial::cmdDial_Click);
    connectHandler(cmdDialUsing, &QPushButton::clicked, this, &FrmDial::cmdDialUsing_Click);
    connectHandler(cmdDialProperties, &QPushButton::clicked, this, &FrmDial::cmdDialProperties_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmDial::cmdClose_Click);
    for (int i = 0; i < 14; ++i)
        connectHandler(cmdNumber[i], &QPushButton::clicked, this, [this, i] { cmdNumber_Click(i); });
}

void FrmDial::formLoad() { txtPhoneNumber->setText(DialNumber); }

void FrmDial::cmdDial_Click()
{
    const QString number = txtPhoneNumber->text().trimmed();
    if (number.isEmpty()) {
        ui::msgBox(QStringLiteral("Must enter phone number!"), MsgWarning, QStringLiteral("No Phone Number"));
        txtPhoneNumber->setFocus();
        return;
    }
    DDialCtl1->Dial(this, number, QStringLiteral("......."));
}

void FrmDial::cmdDialUsing_Click() { DDialCtl1->DialUsing(); }

void FrmDial::cmdDialProperties_Click() { DDialCtl1->DialProperties(); }

void FrmDial::cmdNumber_Click(int index)
{
    QString text = txtPhoneNumber->text();
    if (index <= 9)
        text += QString::number(index);
    else if (index == 10)
        text += QLatin1Char('-');
    else if (index == 11)
        text += QLatin1Char(' ');
    else if (index == 12)
        text.chop(1);
    else
        text.clear();
    txtPhoneNumber->setText(text);
}

void FrmDial::cmdClose_Click() { forms::unload(staticFormName()); }

// Tabbing into the box marks the number, without the blanks at its end.
void FrmDial::txtPhoneNumber_TabIn()
{
    QString text = txtPhoneNumber->text();
    while (text.endsWith(QLatin1Char(' ')))
        text.chop(1);
    txtPhoneNumber->setSelection(0, int(text.size()));
}

bool FrmDial::eventFilter(QObject* watched, QEvent* event)
{
    if (watched == txtPhoneNumber && event->type() == QEvent::FocusIn) {
        const Qt::FocusReason reason = static_cast<QFocusEvent*>(event)->reason();
        if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason) {
            const bool taken = Form::eventFilter(watched, event);
            // The line edit selects all on a tab of its own; the number without its blanks goes after it.
            QMetaObject::invokeMethod(this, &FrmDial::txtPhoneNumber_TabIn, Qt::QueuedConnection);
            return taken;
        }
    }
    return Form::eventFilter(watched, event);
}

void FrmDial::keyPressEvent(QKeyEvent* event)
{
    if (!ui::pressWindowButton(event, cmdDial, cmdClose))
        Form::keyPressEvent(event);
}

// The close box unloads the window as Close does.
void FrmDial::closeEvent(QCloseEvent* event)
{
    event->accept();
    forms::unload(staticFormName());
}

} // namespace hb
