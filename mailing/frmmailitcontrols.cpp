#include "mailing/frmmailit.h"
#include "core/handlers.h"

#include "platform/label/labelcontrol.h"

#include <QCheckBox>
#include <QComboBox>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QScrollArea>

namespace hb {

namespace {

QPushButton* button(QWidget* parent, const char* name, const char* caption, const char* tip = nullptr)
{
    auto* b = new QPushButton(QString::fromLatin1(caption), parent);
    b->setObjectName(QString::fromLatin1(name));
    if (tip)
        b->setToolTip(QString::fromLatin1(tip));
    return b;
}

} // namespace

void FrmMailIt::buildControls()
{
    CommandFirstPage = button(this, "CommandFirstPage", "1st Page", "1st Page");
    CommandPreviousPage = button(this, "CommandPreviousPage", "Previous Page", "Previous Page");
    CommandNextPage = button(this, "CommandNextPage", "Next Page", "Next Page");
    CommandLastPage = button(this, "CommandLastPage", "Last Page", "Last Page");
    CommandZoomIn = button(this, "CommandZoomIn", "Zoom In +", "Zoom In");
    CommandZoomOut = button(this, "CommandZoomOut", "Zoom Out -", "Zoom Out");
    CommandPiece = button(this, "CommandPiece", "Piece Selection");
    CommandLayout = button(this, "CommandLayout", "Layout");
    CommandRetAddr = button(this, "CommandRetAddr", "Return Address");
    CommandCustomize = button(this, "CommandCustomize", "Choose Fields");
    CommandSelect = button(this, "CommandSelect", "Return to Selections");
    CommandClose = button(this, "CommandClose", "Close");
    // The older row of buttons stays in the window, out of sight, as the program has always carried it.
    cmdBack = button(this, "cmdBack", "&Select");
    cmdSelect = button(this, "cmdSelect", "Piece", "Select Mail Piece");
    cmdClose = button(this, "cmdClose", "Close");
    for (QPushButton* hidden : {cmdBack, cmdSelect, cmdClose})
        hidden->setVisible(false);
    LabelPagenofn = new QLabel(QStringLiteral("Page 21 of 21"), this);
    LabelPagenofn->setObjectName(QStringLiteral("LabelPagenofn"));
    cmbPageTop = new QComboBox(this);
    cmbPageTop->setObjectName(QStringLiteral("cmbPageTop"));
    cmbPageTop->setToolTip(QStringLiteral("Print adjustment"));
    cmbPageTop->setSizeAdjustPolicy(QComboBox::AdjustToContents);
    CommandStartAt = button(this, "CommandStartAt", "Start at Label 1", "Where on a partly used sheet to start");
    CommandCalibrate = button(this, "CommandCalibrate", "Printer Calibration...",
                              "Where each printer puts the page, measured on an alignment page");
    chkOutlines = new QCheckBox(QStringLiteral("Print Outlines"), this);
    chkOutlines->setObjectName(QStringLiteral("chkOutlines"));
    chkOutlines->setToolTip(QStringLiteral("Print the edges of the labels, to test on plain paper"));

    lstCheck = new QListWidget(this);
    lstCheck->setObjectName(QStringLiteral("lstCheck"));
    lstCheck->setToolTip(QStringLiteral("Labels to look at before paper is used; click one to see it"));
    lstCheck->setFlow(QListView::LeftToRight);
    lstCheck->setWrapping(false);
    lstCheck->setSpacing(4);
    lstCheck->setFixedHeight(lstCheck->fontMetrics().height() + 24);
    lstCheck->setVisible(false);

    ezLabel1 = new label::LabelControl;
    scroller = new QScrollArea(this);
    scroller->setObjectName(QStringLiteral("ezLabelArea"));
    scroller->setWidget(ezLabel1);
    scroller->setAlignment(Qt::AlignHCenter);
    scroller->setBackgroundRole(QPalette::Dark);

    auto* grid = new QGridLayout(this);
    auto* pages = new QHBoxLayout;
    for (QWidget* w : {static_cast<QWidget*>(CommandFirstPage), static_cast<QWidget*>(CommandPreviousPage),
                       static_cast<QWidget*>(LabelPagenofn), static_cast<QWidget*>(CommandNextPage),
                       static_cast<QWidget*>(CommandLastPage), static_cast<QWidget*>(CommandZoomIn),
                       static_cast<QWidget*>(CommandZoomOut), static_cast<QWidget*>(cmbPageTop),
                       static_cast<QWidget*>(CommandStartAt), static_cast<QWidget*>(chkOutlines)})
        pages->addWidget(w);
    pages->addStretch();
    auto* actions = new QHBoxLayout;
    for (QPushButton* b : {CommandPiece, CommandLayout, CommandRetAddr, CommandCustomize, CommandCalibrate, CommandSelect,
                           CommandClose})
        actions->addWidget(b);
    actions->addStretch();
    grid->addLayout(pages, 0, 0);
    grid->addLayout(actions, 1, 0);
    grid->addWidget(lstCheck, 2, 0);
    grid->addWidget(scroller, 3, 0);
    resize(980, 760);
    setMinimumHeight(200);
}

void FrmMailIt::connectControls()
{
    connectHandler(cmbPageTop, &QComboBox::activated, this, &FrmMailIt::cmbPageTop_Click);
    connectHandler(CommandFirstPage, &QPushButton::clicked, this, &FrmMailIt::CommandFirstPage_Click);
    connectHandler(CommandPreviousPage, &QPushButton::clicked, this, &FrmMailIt::CommandPreviousPage_Click);
    connectHandler(CommandNextPage, &QPushButton::clicked, this, &FrmMailIt::CommandNextPage_Click);
    connectHandler(CommandLastPage, &QPushButton::clicked, this, &FrmMailIt::CommandLastPage_Click);
    connectHandler(CommandZoomIn, &QPushButton::clicked, this, &FrmMailIt::CommandZoomIn_Click);
    connectHandler(CommandZoomOut, &QPushButton::clicked, this, &FrmMailIt::CommandZoomOut_Click);
    connectHandler(CommandPiece, &QPushButton::clicked, this, &FrmMailIt::CommandPiece_Click);
    connectHandler(CommandLayout, &QPushButton::clicked, this, &FrmMailIt::CommandLayout_Click);
    connectHandler(CommandRetAddr, &QPushButton::clicked, this, &FrmMailIt::CommandRetAddr_Click);
    connectHandler(CommandCustomize, &QPushButton::clicked, this, &FrmMailIt::CommandCustomize_Click);
    connectHandler(CommandSelect, &QPushButton::clicked, this, &FrmMailIt::CommandSelect_Click);
    connectHandler(CommandClose, &QPushButton::clicked, this, &FrmMailIt::CommandClose_Click);
    connectHandler(cmdBack, &QPushButton::clicked, this, &FrmMailIt::cmdBack_Click);
    connectHandler(cmdClose, &QPushButton::clicked, this, &FrmMailIt::cmdClose_Click);
    connectHandler(ezLabel1, &label::LabelControl::changed, this, &FrmMailIt::ezLabel1_Change);
    connectHandler(CommandStartAt, &QPushButton::clicked, this, &FrmMailIt::CommandStartAt_Click);
    connectHandler(CommandCalibrate, &QPushButton::clicked, this, &FrmMailIt::CommandCalibrate_Click);
    connectHandler(lstCheck, &QListWidget::itemClicked, this, &FrmMailIt::lstCheck_Click);
    connectHandler(ezLabel1, &label::LabelControl::checkDone, this, &FrmMailIt::fillCheckList);
    connectHandler(chkOutlines, &QCheckBox::clicked, this, &FrmMailIt::chkOutlines_Click);
}

} // namespace hb
