#pragma once

#include "core/forms.h"
#include "exchange/csvreader.h"
#include "exchange/importdates.h"
#include "exchange/importdriver.h"

#include <QVector>

class QCheckBox;
class QComboBox;
class QGroupBox;
class QLabel;
class QPushButton;
class QTreeView;

namespace hb {

class CsvTableModel;

// "Comma Delimited Import": the whole file in a list whose column heads assign the columns to the fields
// of a listing (or of an individual), then the rows imported one by one. The delimiter, the encoding and
// the order of the dates are found from the file and may be changed; a known or remembered header row
// comes assigned. The file name comes in FormImport's Tag; a finished import leaves "complete" there.
class FormCommaDelimitedImport : public Form {
    Q_OBJECT
public:
    FormCommaDelimitedImport();
    static QString staticFormName() { return QStringLiteral("FormCommaDelimitedImport"); }

    void formLoad() override;
    // True when the file could not be read as rows; the user has been told and the window is not shown.
    bool refused() const { return refused_; }

    // Per column from 1, the field chosen; index 0 unused.
    QVector<QString> ColumnNames;
    qint16 ListByColumn = 0;

    QString ColumnData(int row, int column) const;
    QString BuildFullName(int row, int firstColumn, int middleColumn, int lastColumn) const;
    void RefreshColumnNames();

    void ListView1_ColumnClick(int column);
    // A delimiter or an encoding chosen: the file read again with both choices and shown at once.
    void ComboDelimiter_Click();
    void ComboEncoding_Click();
    void CommandImport_Click();
    void CommandCancel_Click();
    void CommandHelp_Click();

private:
    void buildControls();
    bool readSource(const csv::Choice& choice);
    void showChoice();
    void guessDateOrder();
    importdates::Order dateOrder() const;
    void startAssignments();
    void rememberAssignments();
    void rereadSource();
    void fillTypes();
    void autoSizeColumns();
    QStringList freeFields() const;
    void assignColumn(int column, int selected, const QString& text);
    bool readyToImport(int& firstColumn, int& middleColumn, int& lastColumn);
    void importRows(int firstColumn, int middleColumn, int lastColumn);
    ImportRoofRecord rowRecord(int row, int firstColumn, int middleColumn, int lastColumn) const;
    bool assignsIndividuals() const;
    void finish();

    QLabel *LabelSourceFile, *Label1, *LabelAssignData, *Label2;
    QTreeView* ListView1;
    CsvTableModel* model_;
    QGroupBox* Frame1;
    QComboBox* ComboCategory;
    QLabel *LabelDelimiter, *LabelEncoding, *LabelDateOrder;
    QComboBox *ComboDelimiter, *ComboEncoding, *ComboDateOrder;
    QCheckBox* CheckSkip1stRow;
    QPushButton *CommandImport, *CommandCancel, *CommandHelp;
    bool refused_ = false;
    QString path_;
    csv::Choice read_;   // the delimiter and encoding of the rows shown
};

} // namespace hb
