#pragma once

#include "importwindow_fixture.h"

#include "core/schema.h"
#include "core/setup.h"
#include "storagenames.h"

#include <QRadioButton>

// The running program, whose blank book has the types "Business" (1), "Family" (2) and "Friends" (3) on lines
// 1 to 3 of the type list, and source files of the three other
// products written for each test.
class OtherProductsFixture : public ImportWindowFixture {
protected:
    using Row = QVariantMap;

    static void writeRows(Database& db, const QString& table, const QList<Row>& rows)
    {
        Recordset rs = db.openRecordset(table);
        for (const Row& row : rows) {
            rs.addNew();
            for (auto it = row.begin(); it != row.end(); ++it)
                rs.setValue(it.key(), it.value());
            rs.update();
        }
    }

    static TableDef textTable(const QString& name, const QStringList& texts, const QString& date = {})
    {
        TableDef def{name, {}, {}, {}};
        for (const QString& field : texts)
            def.fields << FieldDef{field, FieldType::Text, 50, false, true};
        if (!date.isEmpty())
            def.fields << FieldDef{date, FieldType::Date};
        if (texts.contains(QStringLiteral("Address1")))
            def.fields << FieldDef{QStringLiteral("Notes"), FieldType::Memo, 0, false, true};
        return def;
    }

    // A tournament file: its version table (none when the name is empty) and its players.
    QString bracketeerFile(const QString& versionTable, const QString& version, const QList<Row>& players,
                           bool withPlayers = true)
    {
        const QString path = programDir() + QStringLiteral("tournament.brk");
        Database db = Database::create(path);
        if (!versionTable.isEmpty()) {
            db.createTable(textTable(versionTable, {QStringLiteral("Version")}));
            writeRows(db, versionTable, {{{QStringLiteral("Version"), version}}});
        }
        if (withPlayers) {
            db.createTable(textTable(QStringLiteral("Player"),
                                     {"FirstName", "LastName", "Address1", "Address2", "Country", "City", "State",
                                      "Zip", "Email", "homephone", "WorkPhone"},
                                     QStringLiteral("dob")));
            writeRows(db, QStringLiteral("Player"), players);
        }
        db.close();
        return path;
    }

    // A sports database; every text the caller leaves out is empty text, as the product writes it.
    QString sportsFile(const QList<Row>& people)
    {
        const QStringList texts{"FirstName", "LastName", "Address1", "Address2", "City", "State", "Zip",
                                "emailaddress", "homephone", "WorkPhone", "Country", "Notes"};
        const QString path = programDir() + QStringLiteral("sports.mdb");
        Database db = Database::create(path);
        db.createTable(textTable(QStringLiteral("people"), texts.mid(0, 11), QStringLiteral("Birthdate")));
        QList<Row> rows;
        for (Row row : people) {
            for (const QString& field : texts) {
                if (!row.contains(field))
                    row[field] = QString();
            }
            rows << row;
        }
        writeRows(db, QStringLiteral("people"), rows);
        db.close();
        return path;
    }

    // Another Homebook file, blank from the program's own layout; the caller fills it through the handle.
    Database homebookFile(const QString& name = QStringLiteral("other.mdb"))
    {
        hb::schema::createMainShell(programDir() + name);
        return Database::open(programDir() + name);
    }

    // Chooses the source with the mouse, types the path, picks the type and presses Import.
    // The answers to the windows the import brings are queued by then, when given.
    void importFrom(const char* source, const QString& path, int typeLine = 0, std::function<void()> then = {})
    {
        queueImport(source, path, typeLine, then);
        openImport();
    }
    void queueImport(const char* source, const QString& path, int typeLine = 0, std::function<void()> then = {})
    {
        dialogs().onModal([=](QWidget& w) {
            QTest::mouseClick(control<QRadioButton>(w, QString::fromLatin1(source)), Qt::LeftButton, {}, QPoint(6, 6));
            auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
            location->selectAll();
            QTest::keyClicks(location, path);
            auto* types = control<QComboBox>(w, QStringLiteral("ComboCategory"));
            if (types->isVisible() && typeLine > 0)
                chooseEntry(types, typeLine);
            if (then)
                then();
            press(w, "CommandImport");
        });
    }
};
