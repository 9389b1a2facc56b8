#include "reports/frmaddressrpt.h"

#include "core/handlers.h"
#include "platform/report/reportviewer.h"
#include "platform/ui/twips.h"

#include <QCheckBox>
#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QResizeEvent>

namespace hb {

using ui::placed;

namespace {

// The strip of the window's own controls above the viewer.
constexpr int ControlStrip = 600;

} // namespace

void FrmAddressRpt::buildControls()
{
    setWindowTitle(QStringLiteral("Address and Phone Report"));
    setMinimumSize(ui::px(9000), ui::px(6000));
    Frame1 = placed(new QGroupBox(QStringLiteral("Columns"), this), QStringLiteral("Frame1"), 120, 0, 3300, 560);
    static const char* const captions[] = {"One", "Two", "Three"};
    for (int i = 0; i < 3; ++i) {
        optXUp[size_t(i)] = placed(new QRadioButton(QString::fromLatin1(captions[i]), Frame1),
                                   QStringLiteral("optXUp_%1").arg(i), 120 + i * 1040, 220, 1000, 280);
    }
    cmdSelect = placed(new QPushButton(QStringLiteral("&Select"), this), QStringLiteral("cmdSelect"), 3600, 120, 1200, 375);
    cmdSelect->setToolTip(QStringLiteral("Select From Database"));
    CommandCustomize = placed(new QPushButton(QStringLiteral("&Customize"), this), QStringLiteral("CommandCustomize"),
                              4920, 120, 1200, 375);
    CommandCustomize->setToolTip(QStringLiteral("Select From Database"));
    CommandCustomize->setVisible(false);
    cmdClose = placed(new QPushButton(QStringLiteral("Close"), this), QStringLiteral("cmdClose"), 6240, 120, 1200, 375);
    chkShowPhone = placed(new QCheckBox(QStringLiteral("Show Phone"), this), QStringLiteral("chkShowPhone"), 7600, 120,
                          1600, 375);
    chkShowAddress = placed(new QCheckBox(QStringLiteral("Show Address"), this), QStringLiteral("chkShowAddress"), 7600,
                            120, 1600, 375);
    ChkShowNotes = placed(new QCheckBox(QStringLiteral("Show Notes"), this), QStringLiteral("ChkShowNotes"), 7600, 120,
                          1600, 375);
    for (QCheckBox* box : {chkShowPhone, chkShowAddress, ChkShowNotes})
        box->setVisible(false);
    CRViewer1 = new hb::report::ReportViewer(this);
    CRViewer1->setObjectName(QStringLiteral("CRViewer1"));
}

void FrmAddressRpt::connectControls()
{
    for (int i = 0; i < 3; ++i) {
        connectHandler(optXUp[size_t(i)], &QRadioButton::toggled, this, [this, i](bool on) {
            if (on)
                optXUp_Click(i);
        });
    }
    connectHandler(cmdSelect, &QPushButton::clicked, this, &FrmAddressRpt::cmdSelect_Click);
    connectHandler(CommandCustomize, &QPushButton::clicked, this, &FrmAddressRpt::CommandCustomize_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmAddressRpt::cmdClose_Click);
    connectHandler(chkShowPhone, &QCheckBox::clicked, this, &FrmAddressRpt::chkShowPhone_Click);
    connectHandler(chkShowAddress, &QCheckBox::clicked, this, &FrmAddressRpt::chkShowAddress_Click);
    connectHandler(ChkShowNotes, &QCheckBox::clicked, this, &FrmAddressRpt::ChkShowNotes_Click);
}

// The viewer fills the window below the strip of its own controls.
void FrmAddressRpt::resizeEvent(QResizeEvent* event)
{
    Form::resizeEvent(event);
    const int top = ui::px(ControlStrip);
    CRViewer1->setGeometry(0, top, event->size().width(), std::max(0, event->size().height() - top));
}

} // namespace hb
