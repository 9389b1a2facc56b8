#include "exchange/formcommadelimitedimport.h"

#include "exchange/csvtablemodel.h"
#include "exchange/importdates.h"
#include "exchange/textencoding.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QSignalBlocker>

// The settings of a file's reading that the user may change: its delimiter, its text encoding and the
// order of its dates, first as found in the file.

namespace hb {

void FormCommaDelimitedImport::showChoice()
{
    const QSignalBlocker delimiters(ComboDelimiter), encodings(ComboEncoding);
    ComboDelimiter->setCurrentIndex(ComboDelimiter->findData(int(read_.delimiter)));
    ComboEncoding->setCurrentIndex(int(read_.encoding.value_or(csv::Encoding::Utf8)));
}

void FormCommaDelimitedImport::guessDateOrder()
{
    ComboDateOrder->setCurrentIndex(int(importdates::orderOf(model_->rows(), importdates::localeOrder())));
}

importdates::Order FormCommaDelimitedImport::dateOrder() const
{
    return importdates::Order(ComboDateOrder->currentIndex());
}

void FormCommaDelimitedImport::ComboDelimiter_Click() { rereadSource(); }

void FormCommaDelimitedImport::ComboEncoding_Click() { rereadSource(); }

// Assignments stay while the columns stay the same; a file that no longer reads keeps the rows shown.
void FormCommaDelimitedImport::rereadSource()
{
    const csv::Choice choice{char(ComboDelimiter->currentData().toInt()), csv::Encoding(ComboEncoding->currentIndex())};
    const int columns = model_->columnCount();
    ui::windows().setBusy(true);
    const bool read = readSource(choice);
    ui::windows().setBusy(false);
    showChoice();
    if (!read)
        return;
    if (model_->columnCount() == columns) {
        RefreshColumnNames();
    } else {
        startAssignments();
        guessDateOrder();
    }
}

} // namespace hb
