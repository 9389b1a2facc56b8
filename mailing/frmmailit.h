#pragma once

#include "core/forms.h"

#include <QVector>

#include <utility>

class QCheckBox;
class QComboBox;
class QLabel;
class QListWidget;
class QPushButton;
class QScrollArea;

namespace hb {

namespace label {
class LabelControl;
}

// "Labels Print Preview": the labels of RptLabels, with what the piece field options ask for from the
// listings and their individuals, laid out on the chosen sheet, page by page, and printed.
class FrmMailIt : public Form {
    Q_OBJECT
public:
    FrmMailIt();
    static QString staticFormName() { return QStringLiteral("frmMailIt"); }

    // The items by role.
    static constexpr int AddressItem = 1;
    static constexpr int ReturnAddressItem = 2;
    static constexpr int StampItem = 3;

    void formLoad() override;
    void formUnload() override;

    void LoadMailIt();
    void RefreshEZLabel();
    void UpdatePageDisplay();
    void PrintItNow();
    void PageSetup();

    label::LabelControl& ezLabel() { return *ezLabel1; }

    void cmbPageTop_Click();
    void CommandFirstPage_Click();
    void CommandPreviousPage_Click();
    void CommandNextPage_Click();
    void CommandLastPage_Click();
    void CommandZoomIn_Click();
    void CommandZoomOut_Click();
    void CommandPiece_Click();
    void CommandLayout_Click();
    void CommandRetAddr_Click();
    void CommandCustomize_Click();
    void CommandSelect_Click();
    void cmdBack_Click();
    void cmdClose_Click();
    void CommandClose_Click();
    void ezLabel1_Change(int what);
    void CommandStartAt_Click();
    void CommandCalibrate_Click();
    void lstCheck_Click();
    void chkOutlines_Click();

private:
    void buildControls();
    void connectControls();
    void fillPageTop();
    void usePieceName();
    void loadFrameFont();
    void comeBackOnTop();
    void useStoredStart();
    void markRepeatedListings(const QVector<int>& roofOfPiece);
    void fillCheckList();
    void showStart();
    void logCatalogueProblems();
    void setWaitPointer(bool on);

    label::LabelControl* ezLabel1;
    QScrollArea* scroller;
    QLabel* LabelPagenofn;
    QPushButton *CommandFirstPage, *CommandPreviousPage, *CommandNextPage, *CommandLastPage, *CommandZoomIn,
        *CommandZoomOut, *CommandPiece, *CommandLayout, *CommandRetAddr, *CommandCustomize, *CommandSelect,
        *CommandClose, *cmdBack, *cmdSelect, *cmdClose, *CommandStartAt, *CommandCalibrate;
    QComboBox* cmbPageTop;
    QCheckBox* chkOutlines;
    QListWidget* lstCheck;
    QVector<std::pair<int, int>> repeats_;   // a piece and the earlier piece of the same listing
};

} // namespace hb
