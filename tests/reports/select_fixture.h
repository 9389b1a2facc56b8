#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/session.h"
#include "platform/ui/listbox.h"
#include "reports/frmselect.h"
#include "storagenames.h"

#include <QLabel>
#include <QLineEdit>

// A database with listings of two address types and the selection window of one report letter.
class SelectFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(setup());
        ASSERT_GE(hb::RoofTypeCount, 2);
        otherType = hb::RoofTypeNumbers[2];
    }

    // Shows the window as its callers do, runs the script on it and reports whether it was cancelled.
    bool runSelection(const std::function<void(hb::FrmSelect&)>& script)
    {
        hb::SelectionCancelled = false;
        dialogs().onModal([&](QWidget& w) { script(static_cast<hb::FrmSelect&>(w)); });
        EXPECT_TRUE(guarded([] { hb::ui::showModal(hb::forms::get<hb::FrmSelect>()); }));
        return hb::SelectionCancelled;
    }

    static hb::ui::ListBox* names(hb::FrmSelect& w) { return control<hb::ui::ListBox>(w, QStringLiteral("lstSelections")); }
    static hb::ui::ListBox* types(hb::FrmSelect& w) { return control<hb::ui::ListBox>(w, QStringLiteral("lstTypes")); }
    static QString count(hb::FrmSelect& w) { return control<QLabel>(w, QStringLiteral("lblCount"))->text(); }
    static QLineEdit* title(hb::FrmSelect& w) { return control<QLineEdit>(w, QStringLiteral("txtReportTitle")); }

    static QStringList texts(hb::ui::ListBox* list, bool onlySelected = false)
    {
        QStringList result;
        for (int i = 0; i < list->listCount(); ++i) {
            if (!onlySelected || list->selected(i))
                result << list->list(i);
        }
        return result;
    }
    static int indexOf(hb::ui::ListBox* list, const QString& text) { return int(texts(list).indexOf(text)); }

    // "LS" for a listing or individual both listed and selected, "L-" listed only, "--" neither.
    static QString flags(const QString& table, const QString& key, int number)
    {
        Recordset rs = hb::DB.openRecordset(QStringLiteral("Select * from %1 where %2 = %3").arg(table, key).arg(number));
        const QString prefix = table == QLatin1String("Roof") ? QStringLiteral("Roof") : QStringLiteral("Person");
        QString result;
        result += rs.value(prefix + QStringLiteral("Listed")).toInt() ? QLatin1Char('L') : QLatin1Char('-');
        result += rs.value(prefix + QStringLiteral("Selected")).toInt() ? QLatin1Char('S') : QLatin1Char('-');
        return result;
    }
    static QString roofFlags(int number) { return flags(QStringLiteral("Roof"), QStringLiteral("RoofNumber"), number); }
    static QString personFlags(int number)
    {
        return flags(QStringLiteral("Person"), QStringLiteral("PersonNumber"), number);
    }

    static void setRoofFlags(int number, bool listed, bool selected)
    {
        hb::DB.execute(QStringLiteral("update roof set rooflisted = %1, roofselected = %2 where roofnumber = %3")
                           .arg(listed ? QStringLiteral("true") : QStringLiteral("false"),
                                selected ? QStringLiteral("true") : QStringLiteral("false"))
                           .arg(number));
    }

    qint16 otherType = 0;
};
