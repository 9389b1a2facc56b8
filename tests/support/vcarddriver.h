#pragma once

// Drives the export of contact cards and their import through their windows, and reads a book as text to
// compare one with another.

#include "scriptedwindows.h"
#include "storagenames.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/misc.h"
#include "core/session.h"
#include "exchange/formimport.h"
#include "exchange/frmbackup.h"
#include "platform/ui/listbox.h"

#include <QLineEdit>
#include <QRadioButton>
#include <QStringList>

// Every listing as one line of its fields and its individuals', in name order, leaving out what a book
// numbers for itself (record numbers, selection flags).
inline QStringList bookAsText()
{
    static const char* const roofFields[] = {"RoofType", "SortName", "Address1", "Address2", "City", "State", "Zip",
                                             "Country", "Phone", "Cell", "Fax", "Email", "Notes"};
    static const char* const personFields[] = {"FirstName", "LastName", "Work", "WorkPhone", "BirthMonthNumber",
                                               "BirthDayNumber", "Email", "Notes"};
    QStringList lines;
    Recordset roof = hb::DB.openRecordset(QStringLiteral("select * from Roof order by RoofName, RoofNumber"));
    Recordset person = hb::DB.openRecordset(QStringLiteral("select * from Person order by RoofNumber, FirstName, LastName"));
    QMultiHash<int, QString> persons;
    for (; !person.eof(); person.moveNext()) {
        QStringList values;
        for (const char* field : personFields)
            values << person.value(QString::fromLatin1(field)).toString();
        values << person.value(QStringLiteral("BirthDate")).toDate().toString(Qt::ISODate);
        persons.insert(person.value(QStringLiteral("RoofNumber")).toInt(), values.join(QLatin1Char('|')));
    }
    for (; !roof.eof(); roof.moveNext()) {
        QStringList values{roof.value(QStringLiteral("RoofName")).toString()};
        for (const char* field : roofFields)
            values << roof.value(QString::fromLatin1(field)).toString();
        values << roof.value(QStringLiteral("Anniversary")).toDate().toString(Qt::ISODate);
        QStringList people = persons.values(roof.value(QStringLiteral("RoofNumber")).toInt());
        people.sort();
        lines << values.join(QLatin1Char('|')) + QStringLiteral(" / ") + people.join(QStringLiteral(" + "));
    }
    return lines;
}

// The export window in the mode of contact cards, every type chosen, the name typed, OK; the file goes
// to the window's first folder, the data folder's backup folder.
inline void runVCardExport(ScriptedWindows& dialogs, const QString& name, bool version4 = false)
{
    hb::forms::unloadAll();
    hb::BackupMode = QStringLiteral("V");
    hb::FrmBackup& w = hb::forms::get<hb::FrmBackup>();
    w.show();
    auto* edit = control<QLineEdit>(w, QStringLiteral("txtFileName"));
    edit->selectAll();
    QTest::keyClicks(edit, name);
    click(w, QStringLiteral("cmdAll"));
    if (version4)
        click(w, QStringLiteral("chkVCard4"));
    if (hb::IsFileThere(hb::DataPath + QStringLiteral("backup/") + name))
        dialogs.answer(hb::ui::AnswerYes);
    click(w, QStringLiteral("cmdOK"));
    hb::forms::unloadAll();
}

// The import window on the vCard source with the path typed, Import pressed, and Import in the preview.
inline void runVCardImport(ScriptedWindows& dialogs, const QString& path)
{
    dialogs.onModal([](QWidget& preview) { click(preview, QStringLiteral("CommandImport")); });
    hb::FormImport& w = hb::forms::get<hb::FormImport>();
    w.show();
    QTest::mouseClick(control<QRadioButton>(w, QStringLiteral("OptionImportVCard")), Qt::LeftButton, {}, QPoint(6, 6));
    auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
    location->selectAll();
    QTest::keyClicks(location, path);
    click(w, QStringLiteral("CommandImport"));
    hb::forms::unloadAll();
}
