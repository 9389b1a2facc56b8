#include "exchange/csvtablemodel.h"

#include <QAbstractItemModelTester>
#include <gtest/gtest.h>

using namespace hb;

// The model of the delimited file's rows keeps the rules every view relies on, through a change of rows
// (another delimiter makes other columns), ragged rows and a change of headers.
TEST(CsvTableModel, KeepsTheModelRulesThroughEveryChange)
{
    CsvTableModel model;
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    model.setRows({{"Smith", "John", "1 Elm St"}, {"Doe"}}, 3);
    EXPECT_EQ(model.rowCount(), 2);
    EXPECT_EQ(model.columnCount(), 3);
    EXPECT_EQ(model.cell(1, 2), QString()) << "a short row reads empty beyond its end";
    EXPECT_EQ(model.cell(5, 0), QString());
    model.setHeaderTexts({"Last Name", "First Name"});
    EXPECT_EQ(model.headerData(0, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Last Name"));
    model.setRows({{"Smith;John;1 Elm St;Springfield"}}, 1);
    EXPECT_EQ(model.columnCount(), 1);
    model.setRows({}, 0);
    EXPECT_EQ(model.rowCount(), 0);
}
