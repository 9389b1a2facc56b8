#include "exchange/formimportprogress.h"
#include "core/handlers.h"

#include "core/session.h"
#include "exchange/importdriver.h"
#include "exchange/importwidgets.h"
#include "platform/ui/windowservice.h"

#include <QLabel>
#include <QProgressBar>

namespace hb {

FormImportProgress::FormImportProgress() : Form(staticFormName(), false)
{
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Import Progress"));
    setFixedSize(ui::px(4800), ui::px(1800));
    LabelProgress = importui::place(new QLabel(QStringLiteral("Importing record x of x"), this), "LabelProgress",
                                    240, 180, 4320, 255);
    ProgressBar1 = importui::place(new QProgressBar(this), "ProgressBar1", 240, 540, 4320, 300);
    ProgressBar1->setRange(0, 100);
    CommandCancelImport = importui::button(this, "CommandCancelImport", "Cancel Import", nullptr, 1680, 1080, 1440);
    connectHandler(CommandCancelImport, &QPushButton::clicked, this, &FormImportProgress::CommandCancelImport_Click);
}

void FormImportProgress::formLoad() { ImportCancelled = false; }

void FormImportProgress::showRecord(qint32 index, qint32 total)
{
    LabelProgress->setText(QStringLiteral("Importing record %1 of %2").arg(index).arg(total));
    const double percent = total > 0 ? double(index) / double(total) * 100.0 : 0.0;
    ProgressBar1->setValue(qBound(0, int(percent), 100));
    if (!isVisible())
        setFormVisible(true);
}

void FormImportProgress::CommandCancelImport_Click()
{
    if (ui::msgBox(QStringLiteral("Are you sure you want to cancel the import?"), MsgYesNo,
                   QStringLiteral("Cancel Import Warning"))
        == ui::AnswerYes)
        ImportCancelled = true;
}

} // namespace hb
