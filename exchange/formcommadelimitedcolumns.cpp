#include "exchange/csvtablemodel.h"
#include "exchange/formcolumnselect.h"
#include "exchange/formcommadelimitedimport.h"
#include "exchange/knownheaders.h"
#include "exchange/rememberedcolumns.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/ui/listbox.h"
#include "platform/ui/twips.h"
#include "platform/ui/windowservice.h"

#include <QCheckBox>
#include <QHeaderView>
#include <QTreeView>

namespace hb {

namespace {

const QString Unassigned = QStringLiteral("Click to Assign");
const QString NotAssigned = QStringLiteral("(Not Assigned)");

} // namespace

void FormCommaDelimitedImport::RefreshColumnNames()
{
    QStringList texts;
    for (int i = 1; i < ColumnNames.size(); ++i) {
        if (i == ListByColumn)
            texts << (ColumnNames[i] == Unassigned ? QStringLiteral("(Listby)")
                                                  : ColumnNames[i] + QStringLiteral(" (Listby)"));
        else
            texts << ColumnNames[i];
    }
    model_->setHeaderTexts(texts);
    autoSizeColumns();
}

// Every column free; where the first row is a header row the user has assigned before, or one the program
// knows, its columns assigned so and that row skipped.
void FormCommaDelimitedImport::startAssignments()
{
    ColumnNames = QVector<QString>(model_->columnCount() + 1, Unassigned);
    ColumnNames[0].clear();
    ListByColumn = 0;
    const QStringList header = model_->rowCount() > 0 ? model_->rows().front() : QStringList();
    if (const auto recalled = rememberedcolumns::recall(header)) {
        for (int c = 0; c < recalled->names.size(); ++c)
            ColumnNames[c + 1] = recalled->names[c];
        ListByColumn = qint16(recalled->listBy);
        CheckSkip1stRow->setChecked(true);
    } else if (const auto known = knownheaders::assignmentOf(header)) {
        for (int c = 0; c < known->fields.size(); ++c) {
            if (!known->fields[c].isEmpty())
                ColumnNames[c + 1] = known->fields[c];
        }
        ListByColumn = qint16(known->listBy + 1);
        CheckSkip1stRow->setChecked(true);
    }
    RefreshColumnNames();
}

// A skipped first row is a header row: the next file with the same one comes assigned the same way.
void FormCommaDelimitedImport::rememberAssignments()
{
    if (!CheckSkip1stRow->isChecked() || model_->rowCount() == 0)
        return;
    rememberedcolumns::remember(model_->rows().front(),
                                {QStringList(ColumnNames.begin() + 1, ColumnNames.end()), ListByColumn});
}

// Each column as wide as its head and its cells, never narrower than the first width of a head.
void FormCommaDelimitedImport::autoSizeColumns()
{
    for (int c = 0; c < model_->columnCount(); ++c) {
        ListView1->resizeColumnToContents(c);
        if (ListView1->columnWidth(c) < ui::px(1100))
            ListView1->setColumnWidth(c, ui::px(1100));
    }
}

// The fields that no column holds yet, in the order of the table; List By is always there.
QStringList FormCommaDelimitedImport::freeFields() const
{
    QStringList excluded;
    bool first = false, middle = false, last = false, date = false;
    for (int i = 1; i < ColumnNames.size(); ++i) {
        const QString& name = ColumnNames[i];
        if (name == Unassigned)
            continue;
        first |= name == QLatin1String("First Name");
        middle |= name == QLatin1String("Middle Name");
        last |= name == QLatin1String("Last Name");
        date |= name == QLatin1String("Important Date");
        excluded << name;
    }
    excluded << QStringLiteral("rooftype") << QStringLiteral("roofselected") << QStringLiteral("rooflisted")
             << QStringLiteral("roofnumber");
    QStringList offered{NotAssigned};
    const std::optional<TableDef> roof = DB.tableDef(QStringLiteral("Roof"));
    for (const FieldDef& field : roof ? roof->fields : QList<FieldDef>()) {
        if (excluded.contains(field.name, Qt::CaseInsensitive))
            continue;
        const QString lowered = field.name.toLower();
        if (lowered == QLatin1String("sortname")) {
            offered << QStringLiteral("List By");
        } else if (lowered == QLatin1String("anniversary")) {
            if (!date)
                offered << QStringLiteral("Important Date");
        } else if (lowered == QLatin1String("roofname")) {
            if (!first)
                offered << QStringLiteral("First Name");
            if (!middle)
                offered << QStringLiteral("Middle Name");
            if (!last)
                offered << QStringLiteral("Last Name");
        } else {
            offered << field.name;
        }
    }
    // An individual's fields make each row also an individual of its listing.
    for (const char* name : {"Birth Date", "Work", "Work Phone", "Individual Email"}) {
        if (!excluded.contains(QLatin1String(name)))
            offered << QString::fromLatin1(name);
    }
    return offered;
}

void FormCommaDelimitedImport::ListView1_ColumnClick(int column)
{
    StandardHandler handler(QStringLiteral("ListView1_ColumnClick"));
    handler.run([&] {
        const QStringList offered = freeFields();
        auto& select = forms::get<FormColumnSelect>();
        select.items().clearList();
        for (const QString& text : offered)
            select.items().addItem(text);
        select.Tag.clear();
        ui::showModal(select);
        const int selected = select.items().listIndex();
        const QString text = selected >= 0 ? select.items().list(selected) : QString();
        const bool cancelled = select.Tag == QLatin1String("2");
        forms::unload(FormColumnSelect::staticFormName());
        if (!cancelled)
            assignColumn(column, selected, text);
    });
}

// A window closed without a choice changes nothing. List By toggles, and may sit on a column that also
// holds a field.
void FormCommaDelimitedImport::assignColumn(int column, int selected, const QString& text)
{
    if (selected < 0 || column < 1 || column >= ColumnNames.size())
        return;
    if (selected == 0)
        ColumnNames[column] = Unassigned;
    else if (text.toLower() == QLatin1String("list by"))
        ListByColumn = qint16(ListByColumn != column ? column : 0);
    else
        ColumnNames[column] = text;
    RefreshColumnNames();
}

} // namespace hb
