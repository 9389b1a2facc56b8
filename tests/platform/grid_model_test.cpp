#include "platform/grid/gridmodel.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <gtest/gtest.h>

using namespace hb::grid;

namespace {

// The model tester reports through warnings; collect them to fail on them.
QStringList modelWarnings;

void collectModelWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        modelWarnings.append(text);
}

QList<GridColumn> threeColumns()
{
    return {{"Month", "Month", 1700}, {"Day", "DayOfMonthski", 800}, {"Name", "PersonName", 3300}};
}

class GridModelTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        model.setColumns(threeColumns());
        model.setRows({{" January", " 1st", " Ann Lee"}, {"", "", ""}, {" March", " 3rd"}});
    }

    GridModel model;
};

} // namespace

TEST_F(GridModelTest, PassesTheModelTesterThroughResets)
{
    modelWarnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectModelWarnings);
    QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::Warning);
    model.setRows({{"a", "b", "c"}});
    model.setColumns({{"Only", "Only"}});
    model.setRows({});
    model.setEditable(true);
    model.setColumns(threeColumns());
    model.setRows({{"x"}, {"y", "z"}});
    EXPECT_TRUE(model.setData(model.index(1, 2), "w"));
    qInstallMessageHandler(previous);
    EXPECT_TRUE(modelWarnings.isEmpty()) << modelWarnings.join('\n').toStdString();
}

TEST_F(GridModelTest, ShowsTheRowsInTheOrderGiven)
{
    ASSERT_EQ(model.rowCount(), 3);
    ASSERT_EQ(model.columnCount(), 3);
    EXPECT_EQ(model.data(model.index(0, 0)).toString(), " January");
    EXPECT_EQ(model.data(model.index(0, 2)).toString(), " Ann Lee");
    EXPECT_EQ(model.data(model.index(2, 0)).toString(), " March");
    // Cells beyond a short row are empty.
    EXPECT_EQ(model.data(model.index(2, 2)).toString(), QString());
    EXPECT_EQ(model.cell(7, 0), QString());
    EXPECT_EQ(model.cell(0, 9), QString());
}

TEST_F(GridModelTest, HeadsAreTheColumnCaptions)
{
    EXPECT_EQ(model.headerData(0, Qt::Horizontal).toString(), "Month");
    EXPECT_EQ(model.headerData(2, Qt::Horizontal).toString(), "Name");
    EXPECT_FALSE(model.headerData(0, Qt::Vertical).isValid());
}

TEST_F(GridModelTest, IsReadOnlyByDefault)
{
    const QModelIndex index = model.index(0, 2);
    EXPECT_FALSE(model.flags(index).testFlag(Qt::ItemIsEditable));
    EXPECT_FALSE(model.setData(index, "Changed"));
    EXPECT_EQ(model.cell(0, 2), " Ann Lee");
}

TEST_F(GridModelTest, TakesEditsWhenMadeEditable)
{
    model.setEditable(true);
    QSignalSpy changed(&model, &QAbstractItemModel::dataChanged);
    const QModelIndex index = model.index(2, 2);
    EXPECT_TRUE(model.flags(index).testFlag(Qt::ItemIsEditable));
    EXPECT_TRUE(model.setData(index, "Bo Park"));
    EXPECT_EQ(model.cell(2, 2), "Bo Park");
    EXPECT_EQ(changed.count(), 1);
}

