#include "platform/ui/listbox.h"

#include <QApplication>
#include <QAbstractItemModelTester>
#include <QTest>
#include <gtest/gtest.h>

using hb::ui::ListBox;

namespace {

QStringList modelWarnings;

void collectWarnings(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type != QtDebugMsg && type != QtInfoMsg)
        modelWarnings.append(text);
}

QStringList texts(const ListBox& list)
{
    QStringList out;
    for (int i = 0; i < list.listCount(); ++i)
        out << list.list(i);
    return out;
}

} // namespace

TEST(ListBoxTest, ItsModelPassesTheModelTesterThroughAddsRemovalsAndClears)
{
    modelWarnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
    {
        ListBox list(nullptr, true);
        QAbstractItemModelTester tester(list.model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        for (const char* name : {"pear", "Apple", "fig", "banana"})
            list.addItem(QString::fromLatin1(name), int(qstrlen(name)));
        EXPECT_EQ(texts(list), (QStringList{"Apple", "banana", "fig", "pear"})) << "sorted without regard to case";
        list.removeItem(1);
        list.removeItem(7);   // beyond the end: nothing
        list.clearList();
        list.addItem(QStringLiteral("again"), 5);
        EXPECT_EQ(list.listCount(), 1);
    }
    qInstallMessageHandler(previous);
    EXPECT_EQ(modelWarnings, QStringList());
}

TEST(ListBoxTest, IndexOfDataFindsTheFirstItemKeepingTheNumber)
{
    ListBox list;
    list.addItem(QStringLiteral("a"), 7);
    list.addItem(QStringLiteral("b"), 9);
    list.addItem(QStringLiteral("c"), 9);
    EXPECT_EQ(list.indexOfData(9), 1);
    EXPECT_EQ(list.indexOfData(7), 0);
    EXPECT_EQ(list.indexOfData(3), -1);
}

TEST(ListBoxTest, AMouseClickRaisesTheClickWithTheClickedRowSelected)
{
    ListBox list;
    for (int i = 0; i < 5; ++i)
        list.addItem(QStringLiteral("Row %1").arg(i), 100 + i);
    list.resize(200, 200);
    list.show();
    QList<int> seen;
    QObject::connect(&list, &ListBox::click, &list, [&] { seen << list.itemData(list.listIndex()); });
    const QRect third = list.visualRect(list.model()->index(2, 0));
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, third.center());
    EXPECT_EQ(seen, QList<int>{102});
    QTest::keyClick(&list, Qt::Key_Down);
    EXPECT_EQ(seen, (QList<int>{102, 103}));
    list.setListIndex(0);
    EXPECT_EQ(seen, (QList<int>{102, 103, 100})) << "a selection by code raises the click as well";
}

// The order of the database: without case, accented letters beside their base letters, not after Z.
TEST(ListBoxTest, ASortedListKeepsTheTextOrderOfTheDatabaseAddedOneByOneOrInAFill)
{
    const QStringList added{"Zimmer Hardware", "Ödegaard", "émile Blanc", "Eve", "Éluard", "Adams", "zeta", "Olsen"};
    const QStringList sorted{"Adams", "Éluard", "émile Blanc", "Eve", "Ödegaard", "Olsen", "zeta", "Zimmer Hardware"};
    ListBox one(nullptr, true);
    for (const QString& text : added)
        one.addItem(text);
    EXPECT_EQ(texts(one), sorted);
    ListBox filled(nullptr, true);
    filled.addItem(QStringLiteral("Olsen"));
    {
        ListBox::Filling filling(&filled);
        for (const QString& text : added.mid(0, 7))
            filled.addItem(text);
    }
    EXPECT_EQ(texts(filled), sorted);
}

TEST(ListBoxTest, AFillRaisesNoClickAndShowsItsHighlightsCurrentRowAndNewIndexAtTheEnd)
{
    modelWarnings.clear();
    const QtMessageHandler previous = qInstallMessageHandler(collectWarnings);
    {
        ListBox list(nullptr, true, ListBox::Multi);
        QAbstractItemModelTester tester(list.model(), QAbstractItemModelTester::FailureReportingMode::Warning);
        list.addItem(QStringLiteral("mango"), 1);
        list.setSelected(0, true);
        int clicks = 0;
        QObject::connect(&list, &ListBox::click, &list, [&] { ++clicks; });
        {
            ListBox::Filling filling(&list);
            for (const char* name : {"pear", "Apple", "fig", "banana"}) {
                const int item = list.addItem(QString::fromLatin1(name), int(qstrlen(name)));
                list.setSelected(item, name[0] != 'f');
            }
            EXPECT_EQ(list.selectedCount(), 4) << "mango's highlight is kept through the fill";
            list.setListIndex(list.newIndex());
        }
        EXPECT_EQ(clicks, 0);
        EXPECT_EQ(texts(list), (QStringList{"Apple", "banana", "fig", "mango", "pear"}));
        EXPECT_EQ(list.selectedCount(), 4);
        EXPECT_FALSE(list.selected(2));
        EXPECT_EQ(list.newIndex(), 1) << "banana, the last one added, in its place";
        EXPECT_EQ(list.currentIndex().row(), 1);
        {
            ListBox::Filling filling(&list);
            list.setAllSelected(false);
            list.setSelected(3, true);
        }
        EXPECT_EQ(clicks, 0);
        EXPECT_EQ(list.selectedCount(), 1);
        EXPECT_TRUE(list.selected(3));
        list.setSelected(0, true);
        EXPECT_EQ(clicks, 1) << "outside a fill a highlight by code raises the click";
    }
    qInstallMessageHandler(previous);
    EXPECT_EQ(modelWarnings, QStringList());
}

TEST(ListBoxTest, TypedLettersMoveToTheFirstItemStartingWithThemWithoutCaseOrAccents)
{
    for (const auto selection : {ListBox::Single, ListBox::Multi}) {
        ListBox list(nullptr, true, selection);
        for (const char* name : {"Zimmer Hardware", "Eve", "Éluard", "Adams", "Ödegaard", "Olsen"})
            list.addItem(QString::fromUtf8(name));
        list.resize(200, 200);
        list.show();
        int clicks = 0;
        QObject::connect(&list, &ListBox::click, &list, [&] { ++clicks; });
        QTest::keyClick(&list, Qt::Key_E);
        EXPECT_EQ(list.list(list.currentIndex().row()), QStringLiteral("Éluard"));
        QTest::keyClicks(&list, QStringLiteral("v"));
        EXPECT_EQ(list.list(list.currentIndex().row()), QStringLiteral("Eve"));
        QTest::qWait(QApplication::keyboardInputInterval() + 50);
        QTest::keyClicks(&list, QStringLiteral("od"));
        EXPECT_EQ(list.list(list.currentIndex().row()), QStringLiteral("Ödegaard"));
        if (selection == ListBox::Single) {
            EXPECT_EQ(list.listIndex(), list.currentIndex().row()) << "the item found is selected";
            EXPECT_EQ(clicks, 3);
        } else {
            EXPECT_EQ(list.selectedCount(), 0) << "a multi-selection list keeps its highlights";
        }
    }
}
