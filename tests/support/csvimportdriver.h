#pragma once

// Drives the comma-delimited import through its windows: the file chosen in the import window, each
// column assigned a field through the column window, List By taken from the first column, then Import.

#include "scriptedwindows.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "exchange/formcolumnselect.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/formimport.h"
#include "platform/ui/listbox.h"

#include <QStringList>

// The fields of the columns of the files these drivers make, in order.
inline const QStringList& csvColumns()
{
    static const QStringList columns{"Last Name", "First Name", "Address1", "City", "State", "Zip", "Phone", "Email"};
    return columns;
}

// The comma-delimited window on the file with its columns assigned, the first also as List By.
inline hb::FormCommaDelimitedImport& loadAssignedCsv(ScriptedWindows& dialogs, const QString& path)
{
    hb::forms::get<hb::FormImport>().Tag = path;
    auto& window = hb::forms::get<hb::FormCommaDelimitedImport>();
    window.show();
    const QStringList& columns = csvColumns();
    for (int c = 0; c <= columns.size(); ++c) {
        const QString field = c < columns.size() ? columns[c] : QStringLiteral("List By");
        dialogs.onModal([field](QWidget& w) {
            auto& select = static_cast<hb::FormColumnSelect&>(w);
            for (int i = 0; i < select.items().listCount(); ++i) {
                if (select.items().list(i) == field)
                    select.items().setListIndex(i);
            }
            click(select, QStringLiteral("CommandOk"));
        });
        window.ListView1_ColumnClick(c < columns.size() ? c + 1 : 1);
    }
    return window;
}

// Imports the file; duplicate answers the duplicate question when one is expected.
inline void runCsvImport(ScriptedWindows& dialogs, const QString& path, ScriptedWindows::ModalScript duplicate = nullptr)
{
    auto& window = loadAssignedCsv(dialogs, path);
    if (duplicate)
        dialogs.onModal(std::move(duplicate));
    click(window, QStringLiteral("CommandImport"));
    hb::forms::unloadAll();
}
