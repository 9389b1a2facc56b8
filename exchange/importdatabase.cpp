// Import of names and addresses from an exchange file: types matched by name, listings merged by name
// with the user asked about each name already there, individuals numbered afresh.

#include "exchange/frmbackup.h"

#include "core/errors.h"
#include "core/frame.h"
#include "core/misc.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/frmimport.h"
#include "platform/ui/folderlists.h"
#include "platform/ui/windowservice.h"

#include <QCoreApplication>
#include <QLabel>
#include <QSet>

#include <algorithm>

namespace hb {

namespace {

// The versions of the exchange file this program has written; a later one is refused.
bool knownExchangeVersion(float version)
{
    return version == 1.0f || version == 1.01f || version == 1.2f || version == 2.0f;
}

const char* const changedRoofFields[] = {"Address1", "Address2", "City", "State", "Zip", "Country", "Phone", "Cell",
                                         "Fax",      "Email",    "Notes", "SortName"};
const char* const personFields[] = {"FirstName", "LastName", "work", "WorkPhone", "Birthdate", "BirthMonthNumber",
                                    "BirthDayNumber", "Email", "Notes"};

// Cell is missing from files of the first versions: the target keeps its value then.
void copyFields(const Recordset& from, Recordset& to, const char* const* fields, std::size_t count)
{
    for (std::size_t i = 0; i < count; ++i) {
        const QString field = QString::fromLatin1(fields[i]);
        if (from.hasField(field))
            to.setValue(field, from.value(field));
    }
}

QString quotedText(const Recordset& rs, const char* field) { return DoubleQuotes(NullToText(rs.value(QString::fromLatin1(field)))); }

qint16 counted(qint16& next)
{
    if (next < 1)
        throw RuntimeError(6, QStringLiteral("Overflow"));
    const qint16 taken = next;
    next = taken == 32767 ? qint16(-1) : qint16(taken + 1);
    return taken;
}

} // namespace

void FrmBackup::ImportDatabase()
{
    const QString path = chosenPath();
    const QString file = File1->fileName();
    if (file.isEmpty()) {
        ui::msgBox(QStringLiteral("Must select database to import!"), MsgWarning, QStringLiteral("Database Not Selected"));
        return;
    }
    if (file.toUpper() == QLatin1String("VARLO.MDB")) {
        ui::msgBox(QStringLiteral("Can not import main database!"), MsgWarning, QStringLiteral("Database Name Invalid"));
        return;
    }
    try {
        ImportDB = Database::open(path + file, false, true, QString());
        VersionRS = ImportDB.openRecordset(QStringLiteral("ProgramVersion"));
        VersionRS.moveFirst();
        if (!knownExchangeVersion(VersionRS.value(QStringLiteral("programversion")).toFloat())) {
            VersionRS.close();
            ImportDB.close();
            ui::msgBox(QStringLiteral("Import database version not 1.0."), MsgWarning, QStringLiteral("Wrong Database Version"));
            return;
        }
        VersionRS.close();
        SetFramePointer(11);
        // Each row is its own write, so that a failure or a kill keeps every row written before it.
        importRows();
    } catch (const std::exception& failure) {
        // Rows already written stay; the window stays open.
        newRoofs.close();
        newPersons.close();
        ImportDB.close();
        lblMessage->clear();
        SetFramePointer(0);
        ui::msgBox(errorInfo(failure).text, MsgWarning, QStringLiteral("Open Database Error"));
        return;
    }
    ui::msgBox((ImportAddedCount == 1 ? QStringLiteral("1 name and address added")
                                      : QString::number(ImportAddedCount) + QStringLiteral(" names and addresses added"))
                   + QStringLiteral("\r\r")
                   + (ImportChangedCount == 1 ? QStringLiteral("1 name and address changed")
                                              : QString::number(ImportChangedCount) + QStringLiteral(" names and addresses changed")),
               MsgWarning, QStringLiteral("Import Complete"));
    ImportDB.close();
    LoadRoofTypes();
    returnToListings();
}

void FrmBackup::importRows()
{
    ImportRoofTypes();
    ImportAddedCount = 0;
    ImportChangedCount = 0;
    ImportRoofPerson();
    lblMessage->clear();
    SetFramePointer(0);
}

// The in-memory type list stays as it is here, so two rows of the file with one new name make two types.
void FrmBackup::ImportRoofTypes()
{
    qint16 nextType = 1;
    for (int i = 1; i <= RoofTypeCount; ++i)
        nextType = std::max<qint16>(nextType, RoofTypeNumbers.value(i) + 1);
    TypeConversion = {{0, 0}};
    RoofTypeRS = DB.openRecordset(QStringLiteral("RoofType"));
    Recordset fileTypes = ImportDB.openRecordset(QStringLiteral("RoofType"));
    for (; !fileTypes.eof(); fileTypes.moveNext()) {
        const QString description = NullToText(fileTypes.value(QStringLiteral("Description")));
        const auto fileNumber = static_cast<qint16>(fileTypes.value(QStringLiteral("rooftypenumber")).toInt());
        int known = 0;
        for (int i = 1; i <= RoofTypeCount && !known; ++i) {
            if (RoofTypeNames.value(i).trimmed().toUpper() == description.toUpper())
                known = i;
        }
        if (known) {
            TypeConversion.append({fileNumber, RoofTypeNumbers.value(known)});
            continue;
        }
        TypeConversion.append({fileNumber, nextType});
        RoofTypeRS.addNew();
        RoofTypeRS.setValue(QStringLiteral("RoofTypeNumber"), nextType);
        RoofTypeRS.setValue(QStringLiteral("Description"), description);
        RoofTypeRS.update();
        ++nextType;
    }
    RoofTypeRS.close();
    fileTypes.close();
}

qint16 FrmBackup::ConvertedRoofType(qint16 oldType, qint16 newType) const
{
    Q_UNUSED(newType);
    for (const auto& [fileType, mainType] : TypeConversion) {
        if (fileType == oldType)
            return mainType;
    }
    return 0;
}

// Individuals of an import are numbered afresh, so no map of person numbers is kept.
qint16 FrmBackup::ConvertedPersonNumber(qint16, qint16) const { return 0; }

void FrmBackup::ImportRoofPerson()
{
    NextRoofNumber = GetNextRoofNumber();
    NextPersonNumber = GetNextPersonNumber();
    // The names in the book, as the engine compares them, so that a name that can have no match is not
    // looked for: the table has no index on names, and a search for each row of a large file would
    // read the whole table each time.
    QSet<QString> names;
    RoofRS = DB.openRecordset(QStringLiteral("select RoofName from Roof"));
    for (; !RoofRS.eof(); RoofRS.moveNext())
        names.insert(NullToText(RoofRS.value(QStringLiteral("RoofName"))).toCaseFolded());
    RoofRS.close();
    // The two tables that take new rows stay open for the whole file: only rows are added to them.
    newRoofs = DB.openRecordset(QStringLiteral("Roof"));
    newPersons = DB.openRecordset(QStringLiteral("Person"));
    Recordset file = ImportDB.openRecordset(QStringLiteral("Roof"));
    for (; !file.eof(); file.moveNext()) {
        const QString name = NullToText(file.value(QStringLiteral("RoofName")));
        Recordset match;
        if (names.contains(name.toCaseFolded())) {
            SQL = QStringLiteral("Select * from Roof where RoofName = '") + DoubleQuotes(name) + QStringLiteral("'");
            match = DB.openRecordset(SQL);
        }
        const QString action = match.isOpen() ? importAction(file, match) : QStringLiteral("A");
        if (action == QLatin1String("A")) {
            addImportedRoof(file);
            names.insert(name.toCaseFolded());
        } else if (action == QLatin1String("C")) {
            changeImportedRoof(file, match);
        }
        match.close();
    }
    file.close();
    newRoofs.close();
    newPersons.close();
}

// The question is asked against each listing of the name in turn, until one answer other than Skip.
QString FrmBackup::importAction(const Recordset& file, Recordset& match)
{
    if (match.eof())
        return QStringLiteral("A");
    if (ImportSkipAll)
        return QStringLiteral("S");
    match.moveFirst();
    if (ImportChangeAll)
        return QStringLiteral("C");
    for (; !match.eof(); match.moveNext()) {
        auto shown = [](const Recordset& rs, qint16 type) {
            return ImportShownRow{NullToText(rs.value(QStringLiteral("RoofName"))), RoofTypeName(type),
                                  NullToText(rs.value(QStringLiteral("Address1"))), NullToText(rs.value(QStringLiteral("Address2"))),
                                  NullToText(rs.value(QStringLiteral("City"))), NullToText(rs.value(QStringLiteral("State"))),
                                  NullToText(rs.value(QStringLiteral("Zip")))};
        };
        FrmImport& question = forms::get<FrmImport>();
        question.showRows(shown(file, ConvertedRoofType(static_cast<qint16>(file.value(QStringLiteral("RoofType")).toInt()))),
                          shown(match, static_cast<qint16>(match.value(QStringLiteral("RoofType")).toInt())));
        ui::showModal(question);
        forms::unload(FrmImport::staticFormName());
        QCoreApplication::processEvents();
        if (ImportAddName)
            return QStringLiteral("A");
        if (ImportChangeName || ImportChangeAll)
            return QStringLiteral("C");
        if (ImportSkipAll)
            return QStringLiteral("S");
    }
    return QString();
}

// Anniversary, though exported, is not taken over.
void FrmBackup::addImportedRoof(const Recordset& file)
{
    const qint16 target = counted(NextRoofNumber);
    newRoofs.addNew();
    newRoofs.setValue(QStringLiteral("RoofNumber"), target);
    newRoofs.setValue(QStringLiteral("RoofType"), ConvertedRoofType(static_cast<qint16>(file.value(QStringLiteral("RoofType")).toInt())));
    newRoofs.setValue(QStringLiteral("RoofName"), file.value(QStringLiteral("RoofName")));
    copyFields(file, newRoofs, changedRoofFields, std::size(changedRoofFields));
    newRoofs.update();
    ++ImportAddedCount;
    importPersons(QStringLiteral("A"), static_cast<qint16>(file.value(QStringLiteral("RoofNumber")).toInt()), target);
}

// The listing keeps its own name and type.
void FrmBackup::changeImportedRoof(const Recordset& file, Recordset& match)
{
    const auto target = static_cast<qint16>(match.value(QStringLiteral("RoofNumber")).toInt());
    match.edit();
    copyFields(file, match, changedRoofFields, std::size(changedRoofFields));
    match.update();
    ++ImportChangedCount;
    importPersons(QStringLiteral("C"), static_cast<qint16>(file.value(QStringLiteral("RoofNumber")).toInt()), target);
}

void FrmBackup::importPersons(const QString& action, qint16 fileRoof, qint16 target)
{
    Recordset persons = ImportDB.openRecordset(QStringLiteral("Select * from Person where RoofNumber =") + NumText(fileRoof));
    for (; !persons.eof(); persons.moveNext()) {
        if (action == QLatin1String("A")) {
            addImportedPerson(persons, target);
            continue;
        }
        // The engine needs a blank between the number and "and", which the older engine did without.
        SQL = QStringLiteral("Select * from Person where RoofNumber =") + NumText(target) + QStringLiteral(" and FirstName = ")
            + QStringLiteral(" '") + quotedText(persons, "FirstName") + QStringLiteral("'") + QStringLiteral(" and LastName = ")
            + QStringLiteral("'") + quotedText(persons, "LastName") + QStringLiteral("'");
        PersonRS = DB.openRecordset(SQL);
        if (PersonRS.eof()) {
            PersonRS.close();
            addImportedPerson(persons, target);
            continue;
        }
        PersonRS.edit();
        copyFields(persons, PersonRS, personFields, std::size(personFields));
        PersonRS.update();
        PersonRS.close();
    }
    persons.close();
}

void FrmBackup::addImportedPerson(const Recordset& person, qint16 target)
{
    newPersons.addNew();
    newPersons.setValue(QStringLiteral("RoofNumber"), target);
    newPersons.setValue(QStringLiteral("personnumber"), counted(NextPersonNumber));
    newPersons.setValue(QStringLiteral("personlisted"), false);
    newPersons.setValue(QStringLiteral("personselected"), false);
    copyFields(person, newPersons, personFields, std::size(personFields));
    newPersons.update();
}

} // namespace hb
