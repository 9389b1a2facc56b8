// What the readers of the other products' files share with the import window: the file and type they
// read from it, and how every reader ends.

#include "exchange/formimport.h"

#include "exchange/importdriver.h"
#include "exchange/importwindows.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QLineEdit>

namespace hb {

QString FormImport::sourcePath() const { return TextFileLocation->text().trimmed(); }

qint32 FormImport::chosenType() const { return ComboCategory->currentData().toInt(); }

// The number of the address type whose name matches, in any letter case; -1 when none does. Line 0,
// "No Type Assigned", is left out: no listing of a source comes with it.
qint32 FormImport::knownType(const QString& description) const
{
    const QString wanted = description.toLower();
    for (int line = 1; line < ComboCategory->count(); ++line) {
        if (ComboCategory->itemText(line).trimmed().toLower() == wanted)
            return ComboCategory->itemData(line).toInt();
    }
    return -1;
}

void FormImport::finishReader(const ImportCounters& counters)
{
    ShowImportSummary(counters);
    ui::windows().setBusy(false);
    importwindows::unloadImportWindows();
    setFormVisible(false);
    forms::unload(staticFormName());
}

} // namespace hb
