#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/session.h"
#include "exchange/formimport.h"
#include "exchange/importdriver.h"
#include "storagenames.h"

#include <QCheckBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

// A started session with an empty book, and the ways a user answers the windows of an import.
class ImportFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
        hb::ImportCancelled = false;
        hb::ImportTypeNumber = 0;
        hb::forgetImportFolders();
    }

    // Presses a button of a window with the mouse.
    static void press(QWidget& window, const char* name)
    {
        if (auto* b = control<QPushButton>(window, QString::fromLatin1(name)))
            QTest::mouseClick(b, Qt::LeftButton);
    }

    // Answers the next duplicate question with a button, the check box ticked first when always.
    void answerDuplicate(const char* button, bool always = false)
    {
        dialogs().onModal([this, button, always](QWidget& w) {
            EXPECT_EQ(w.objectName(), QStringLiteral("FormDuplicateWarning"));
            warnings << control<QLabel>(w, QStringLiteral("LabelWarningText"))->text();
            keepPicture(&w, QStringLiteral("duplicate-warning"));
            auto* check = control<QCheckBox>(w, QStringLiteral("CheckDoAlways"));
            if (always != check->isChecked())
                QTest::keyClick(check, Qt::Key_Space);
            press(w, button);
        });
    }

    static int roofCount(const QString& where = QString())
    {
        Recordset rs = hb::DB.openRecordset(QStringLiteral("select count(*) as n from Roof") + where);
        return rs.value(QStringLiteral("n")).toInt();
    }

    // The fields of the listings of a name, in the order of their numbers.
    static QList<QVariantMap> listings(const QString& name)
    {
        return rowsOf(QStringLiteral("select * from Roof where RoofName = '")
                      + QString(name).replace(QLatin1Char('\''), QStringLiteral("''")) + QStringLiteral("' order by RoofNumber"));
    }

    // Each row of a statement as its fields by lower-cased name.
    static QList<QVariantMap> rowsOf(const QString& sql)
    {
        Recordset rs = hb::DB.openRecordset(sql);
        QList<QVariantMap> rows;
        for (; !rs.eof(); rs.moveNext()) {
            QVariantMap row;
            for (const QString& field : rs.fieldNames())
                row[field.toLower()] = rs.value(field);
            rows << row;
        }
        return rows;
    }

    static hb::ImportRoofRecord record(const QString& name)
    {
        hb::ImportRoofRecord r;
        r.RoofName = name;
        r.SortName = name;
        return r;
    }

    QStringList warnings;
};
