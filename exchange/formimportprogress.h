#pragma once

#include "core/forms.h"

class QLabel;
class QProgressBar;
class QPushButton;

namespace hb {

// "Import Progress": the record being written and a way to stop. Shown without holding the rest of the
// program; its cancel takes effect at the next record.
class FormImportProgress : public Form {
    Q_OBJECT
public:
    FormImportProgress();
    static QString staticFormName() { return QStringLiteral("FormImportProgress"); }

    void formLoad() override;
    void showRecord(qint32 index, qint32 total);
    void CommandCancelImport_Click();

private:
    QLabel* LabelProgress;
    QProgressBar* ProgressBar1;
    QPushButton* CommandCancelImport;
};

} // namespace hb
