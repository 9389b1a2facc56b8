#pragma once

#include "import_fixture.h"

#include "core/frame.h"
#include "exchange/formcommadelimitedimport.h"
#include "platform/ui/listbox.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QFile>
#include <QHeaderView>
#include <QLineEdit>
#include <QTreeView>

// The whole program running, with the import reached from its menu and files written for it.
class ImportWindowFixture : public ImportFixture {
protected:
    void SetUp() override
    {
        ImportFixture::SetUp();
        ASSERT_TRUE(startProgram());
    }

    QString writeFile(const QString& name, const QByteArray& bytes)
    {
        const QString path = programDir() + name;
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
        return path;
    }

    // False when the program ended on the way.
    bool tryImport()
    {
        return guarded([] { control<QAction>(*hb::frameWindow(), QStringLiteral("mnuImport"))->trigger(); });
    }
    void openImport() { ASSERT_TRUE(tryImport()); }

    // Types the path into the import window and presses Import; the comma-delimited window, if it comes,
    // runs the script.
    void importFile(const QString& path, std::function<void(hb::FormCommaDelimitedImport&)> script)
    {
        dialogs().onModal([this, path, script](QWidget& w) {
            auto* location = control<QLineEdit>(w, QStringLiteral("TextFileLocation"));
            location->selectAll();
            QTest::keyClicks(location, path);
            if (script)
                dialogs().onModal([script](QWidget& cd) { script(static_cast<hb::FormCommaDelimitedImport&>(cd)); });
            press(w, "CommandImport");
        });
        openImport();
    }

    static QTreeView* rows(QWidget& w) { return control<QTreeView>(w, QStringLiteral("ListView1")); }

    static QStringList heads(QWidget& w)
    {
        QStringList texts;
        auto* model = rows(w)->model();
        for (int c = 0; c < model->columnCount(); ++c)
            texts << model->headerData(c, Qt::Horizontal).toString();
        return texts;
    }

    static void clickHead(QWidget& w, int column)
    {
        QTreeView* view = rows(w);
        view->scrollTo(view->model()->index(0, column - 1));
        QHeaderView* header = view->header();
        const QPoint at(header->sectionViewportPosition(column - 1) + header->sectionSize(column - 1) / 2,
                        header->height() / 2);
        QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, at);
    }

    // Clicks a column head and picks a field in "Column Assignment" with the mouse; what it offered is kept.
    void assign(QWidget& w, int column, const QString& field, const char* button = "CommandOk")
    {
        dialogs().onModal([this, field, button](QWidget& select) {
            auto* list = control<hb::ui::ListBox>(select, QStringLiteral("ListItems"));
            offered.clear();
            for (int i = 0; i < list->listCount(); ++i)
                offered << list->list(i);
            const int row = int(offered.indexOf(field));
            EXPECT_GE(row, 0) << field.toStdString() << " not offered";
            if (row >= 0)
                clickRow(list, row);
            press(select, button);
        });
        clickHead(w, column);
    }

    static void tickSkipFirstRow(QWidget& w)
    {
        QTest::keyClick(control<QCheckBox>(w, QStringLiteral("CheckSkip1stRow")), Qt::Key_Space);
    }

    static QString summary(int imported, int skipped = 0, int replaced = 0, int added = 0)
    {
        return QStringLiteral("Import Finished Successfully.\r\n\r\nRecords Imported: %1\r\nRecords Skipped: %2\r\n"
                              "Records Replaced: %3\r\nDuplicate Records Added: %4")
            .arg(imported).arg(skipped).arg(replaced).arg(added);
    }

    QStringList offered;
};
