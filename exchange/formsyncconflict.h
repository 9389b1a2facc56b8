#pragma once

#include "core/forms.h"
#include "exchange/cardsync.h"

class QCheckBox;
class QLabel;
class QPlainTextEdit;
class QPushButton;

namespace hb {

// "Changed on Both Sides": a record changed on this machine and on the server since the last sync, both
// versions side by side. The answer is left in Answer and only hides the window, which stays loaded for
// the conflicts of one sync and keeps its check box.
class FormSyncConflict : public Form {
    Q_OBJECT
public:
    FormSyncConflict();
    static QString staticFormName() { return QStringLiteral("FormSyncConflict"); }

    void formLoad() override;
    void setConflict(const cardsync::Conflict& conflict);
    cardsync::ConflictAnswer Answer = cardsync::ConflictAnswer::KeepBoth;
    bool forAll() const;

    void CommandKeepMine_Click();
    void CommandTakeServers_Click();
    void CommandKeepBoth_Click();
    void CommandHelp_Click();

private:
    void answer(cardsync::ConflictAnswer answer);

    QLabel* LabelConflictText;
    QPlainTextEdit *TextHere, *TextThere;
    QCheckBox* CheckDoAlways;
    QPushButton *CommandKeepMine, *CommandTakeServers, *CommandKeepBoth, *CommandHelp;
};

}  // namespace hb
