#include "exchange/formcommadelimitedimport.h"

#include "core/errors.h"
#include "core/helpers.h"
#include "core/misc.h"
#include "core/session.h"
#include "exchange/csvreader.h"
#include "exchange/csvtablemodel.h"
#include "exchange/formimport.h"
#include "exchange/households.h"
#include "exchange/importdriver.h"
#include "exchange/importwindows.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QLabel>

namespace hb {

namespace {

const QString Unassigned = QStringLiteral("Click to Assign");

// Where each assigned column goes in the record; the name columns have gone into the full name.
QString* recordField(ImportRoofRecord& record, const QString& columnName)
{
    static const std::pair<const char*, QString ImportRoofRecord::*> fields[] = {
        {"important date", &ImportRoofRecord::Anniversary}, {"anniversary", &ImportRoofRecord::Anniversary},
        {"address1", &ImportRoofRecord::Address1}, {"address2", &ImportRoofRecord::Address2},
        {"city", &ImportRoofRecord::City}, {"state", &ImportRoofRecord::State}, {"zip", &ImportRoofRecord::Zip},
        {"country", &ImportRoofRecord::Country}, {"phone", &ImportRoofRecord::Phone},
        {"cell", &ImportRoofRecord::Cell}, {"fax", &ImportRoofRecord::Fax}, {"email", &ImportRoofRecord::Email},
        {"notes", &ImportRoofRecord::Notes}};
    const QString lowered = columnName.toLower();
    for (const auto& [name, member] : fields) {
        if (lowered == QLatin1String(name))
            return &(record.*member);
    }
    return nullptr;
}

// Where a column assigned to an individual's field goes.
QString* personField(ImportPersonRecord& person, const QString& columnName)
{
    static const std::pair<const char*, QString ImportPersonRecord::*> fields[] = {
        {"birth date", &ImportPersonRecord::BirthDate}, {"work", &ImportPersonRecord::Work},
        {"work phone", &ImportPersonRecord::WorkPhone}, {"individual email", &ImportPersonRecord::Email}};
    const QString lowered = columnName.toLower();
    for (const auto& [name, member] : fields) {
        if (lowered == QLatin1String(name))
            return &(person.*member);
    }
    return nullptr;
}

} // namespace

FormCommaDelimitedImport::FormCommaDelimitedImport() : Form(staticFormName(), false)
{
    SetHelpContext(*this, QStringLiteral("2555"));
    setWindowFlags(Qt::Dialog);
    setWindowTitle(QStringLiteral("Comma Delimited Import"));
    buildControls();
}

void FormCommaDelimitedImport::formLoad()
{
    ui::windows().setBusy(true);
    QCoreApplication::processEvents();
    path_ = forms::get<FormImport>().Tag;
    LabelSourceFile->setText(QStringLiteral("Source File: ") + path_);
    refused_ = !readSource({});
    fillTypes();
    showChoice();
    guessDateOrder();
    startAssignments();
    ui::windows().setBusy(false);
}

// The file is read where it lies, so that a file in a read-only folder imports too. A file that is no
// table of names is refused before anything is shown or written.
bool FormCommaDelimitedImport::readSource(const csv::Choice& choice)
{
    csv::ReadResult result = csv::readFile(path_, choice);
    if (!result.ok()) {
        ui::windows().setBusy(false);
        const bool missing = result.failure == csv::Failure::Missing;
        ui::msgBox(csv::failureMessage(result.failure), MsgWarning,
                   missing ? QStringLiteral("File Error") : QStringLiteral("Import Error"));
        return false;
    }
    read_ = {result.table.delimiter, result.table.encoding};
    model_->setRows(std::move(result.table.rows), result.table.columnCount);
    return true;
}

void FormCommaDelimitedImport::fillTypes()
{
    for (int i = 1; i <= RoofTypeCount; ++i) {
        ComboCategory->addItem(RoofTypeNames.value(i), int(RoofTypeNumbers.value(i)));
        if (RoofTypeNumbers.value(i) == ImportTypeNumber)
            ComboCategory->setCurrentIndex(ComboCategory->count() - 1);
    }
}

QString FormCommaDelimitedImport::ColumnData(int row, int column) const
{
    if (column < 1)
        return {};
    return model_->cell(row - 1, column - 1);
}

QString FormCommaDelimitedImport::BuildFullName(int row, int firstColumn, int middleColumn, int lastColumn) const
{
    const QString first = ColumnData(row, firstColumn);
    const QString middle = ColumnData(row, middleColumn);
    const QString last = ColumnData(row, lastColumn);
    QString result = first;
    if (!middle.isEmpty())
        result += QLatin1Char(' ') + middle + (middle.size() == 1 ? QStringLiteral(".") : QString());
    if (!last.isEmpty())
        result += QLatin1Char(' ') + last;
    return result.trimmed();
}

void FormCommaDelimitedImport::CommandImport_Click()
{
    int firstColumn = 0, middleColumn = 0, lastColumn = 0;
    if (!readyToImport(firstColumn, middleColumn, lastColumn))
        return;
    rememberAssignments();
    ui::windows().setBusy(true);
    StandardHandler(QStringLiteral("CommandImport_Click")).run([&] { importRows(firstColumn, middleColumn, lastColumn); });
    finish();
}

bool FormCommaDelimitedImport::readyToImport(int& firstColumn, int& middleColumn, int& lastColumn)
{
    if (std::all_of(ColumnNames.begin() + 1, ColumnNames.end(), [](const QString& n) { return n == Unassigned; })) {
        ui::msgBox(QStringLiteral("You must have at least one column assigned for data to be imported."), MsgWarning,
                   QStringLiteral("Import Error"));
        return false;
    }
    for (int i = 1; i < ColumnNames.size(); ++i) {
        const QString lowered = ColumnNames[i].toLower();
        if (lowered == QLatin1String("first name"))
            firstColumn = i;
        else if (lowered == QLatin1String("middle name"))
            middleColumn = i;
        else if (lowered == QLatin1String("last name"))
            lastColumn = i;
    }
    if (firstColumn == 0 && middleColumn == 0 && lastColumn == 0) {
        ui::msgBox(QStringLiteral("You must include First, Middle or Last Name as a column for import."), MsgWarning,
                   QStringLiteral("Import Error"));
        return false;
    }
    if (ListByColumn < 1) {
        const QString text = QStringLiteral(
            "You have not selected a 'List By' column.  It's important to choose a column for this because your data "
            "may not be sorted properly.  To choose a List By column, simply click on the column you want to use as "
            "the List By column, even if it is already assigned.  This will allow you to assign the column to a field "
            "(Last Name for example) and also use it for the List By column.\r\n\r\nDo you want to choose a List By "
            "column now (Yes) or continue importing without a List By (No)?");
        if (ui::msgBox(text, MsgYesNo, QStringLiteral("List By Warning")) == ui::AnswerYes)
            return false;
    }
    return true;
}

// The record of one row. Where columns go to an individual's fields, the row is also an individual of
// its listing, named by the first and last name columns.
ImportRoofRecord FormCommaDelimitedImport::rowRecord(int row, int firstColumn, int middleColumn, int lastColumn) const
{
    ImportRoofRecord record;
    record.DateOrder = dateOrder();
    const QString fullName = BuildFullName(row, firstColumn, middleColumn, lastColumn);
    record.SortName = ListByColumn == 0 ? fullName : ColumnData(row, ListByColumn);
    if (record.SortName.trimmed().isEmpty())
        record.SortName = fullName;
    record.RoofName = fullName;
    record.RoofType = ComboCategory->currentData().toInt();
    ImportPersonRecord person;
    bool individual = false;
    for (int i = 1; i < ColumnNames.size(); ++i) {
        if (QString* field = recordField(record, ColumnNames[i]))
            *field = ColumnData(row, i);
        if (QString* field = personField(person, ColumnNames[i])) {
            *field = ColumnData(row, i);
            individual = true;
        }
    }
    if (individual) {
        person.FirstName = ColumnData(row, firstColumn);
        person.LastName = ColumnData(row, lastColumn);
        record.Persons << person;
    }
    return record;
}

bool FormCommaDelimitedImport::assignsIndividuals() const
{
    ImportPersonRecord person;
    return std::any_of(ColumnNames.begin() + 1, ColumnNames.end(),
                       [&person](const QString& name) { return personField(person, name) != nullptr; });
}

void FormCommaDelimitedImport::importRows(int firstColumn, int middleColumn, int lastColumn)
{
    ImportOption option;
    ImportCounters counters;
    const int total = model_->rowCount();
    QVector<households::Row> rows;
    for (int row = 1; row <= total; ++row) {
        if (!(CheckSkip1stRow->isChecked() && row == 1))
            rows.push_back({row, rowRecord(row, firstColumn, middleColumn, lastColumn)});
    }
    if (assignsIndividuals())
        rows = households::merged(rows);
    for (households::Row& row : rows) {
        // The yield lets the progress window's cancel button be pressed.
        QCoreApplication::processEvents();
        ImportHBRecord(row.record, option, counters, row.number, total);
        if (option == QLatin1String("Cancel"))
            break;
    }
    ShowImportSummary(counters);
}

void FormCommaDelimitedImport::finish()
{
    importwindows::unloadImportWindows();
    ui::windows().setBusy(false);
    if (auto* import = forms::loaded<FormImport>())
        import->Tag = QStringLiteral("complete");
    forms::unload(staticFormName());
}

void FormCommaDelimitedImport::CommandCancel_Click() { forms::unload(staticFormName()); }

void FormCommaDelimitedImport::CommandHelp_Click() { ShowHelpTopic(QStringLiteral("2555")); }

} // namespace hb
