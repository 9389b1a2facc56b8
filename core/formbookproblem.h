#pragma once

#include "core/forms.h"

class QLabel;
class QPushButton;

namespace hb {

// Shown at start, before anything else, when the address book cannot be used: says what is wrong with
// which file and lets the user restore the latest backup, start a new empty book or end. The answer is
// left in Tag ("restore", "new" or "end").
class FormBookProblem : public Form {
    Q_OBJECT
public:
    FormBookProblem();
    static QString staticFormName() { return QStringLiteral("FormBookProblem"); }

    void formLoad() override;
    // backup is empty when there is none to restore.
    void setProblem(const QString& book, const QString& fault, const QString& backup, const QString& aside);
    QString Tag;

    void cmdRestore_Click();
    void cmdNewBook_Click();
    void cmdEnd_Click();

protected:
    void closeEvent(QCloseEvent* event) override;

private:
    void answer(const QString& choice);

    QLabel *lblProblem, *lblBackup;
    QPushButton *cmdRestore, *cmdNewBook, *cmdEnd;
};

} // namespace hb
