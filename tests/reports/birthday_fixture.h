#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/frmmdi.h"
#include "core/session.h"
#include "platform/grid/datagrid.h"
#include "reports/birthdayrows.h"
#include "reports/frmbirthdayrpt.h"
#include "tools/formabout.h"

#include <QAction>
#include <QComboBox>
#include <QVariantMap>

// The program started with the listings up; the birthday report opens as the frame's menu opens it.
class BirthdayWindowFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(startProgram());
        ASSERT_TRUE(guarded([] { click(hb::forms::get<hb::FormAbout>(), QStringLiteral("cmdOK")); }));
        addListing({1, QStringLiteral("The Smith Family"), QStringLiteral("Smith"), 0});
    }

    static QVariantMap selected(bool on = true)
    {
        return {{QStringLiteral("PersonSelected"), on}, {QStringLiteral("PersonListed"), on}};
    }

    // Opens the report through the menu; nullptr when the program ended on the way.
    hb::FrmBirthdayRpt* openReport()
    {
        if (!trigger(QStringLiteral("mnuBirthDates")))
            return nullptr;
        return hb::forms::loaded<hb::FrmBirthdayRpt>();
    }

    // A menu item by its name or a toolbar button by its key.
    bool trigger(const QString& name)
    {
        return guarded([&] { control<QAction>(*hb::FrmMDI::instance(), name)->trigger(); });
    }

    static hb::grid::DataGrid* grid(hb::FrmBirthdayRpt& w)
    {
        return control<hb::grid::DataGrid>(w, QStringLiteral("tdbBirthday"));
    }
    static QComboBox* years(hb::FrmBirthdayRpt& w) { return control<QComboBox>(w, QStringLiteral("cmbYear")); }

    bool chooseYear(hb::FrmBirthdayRpt& w, int year)
    {
        QComboBox* combo = years(w);
        return guarded([&] { chooseEntry(combo, combo->findData(year)); });
    }

    // The person names of the grid's rows, without their leading blank; separator rows left out.
    static QStringList names(hb::FrmBirthdayRpt& w)
    {
        QStringList result;
        for (const QStringList& row : grid(w)->rows()) {
            if (!row.value(3).isEmpty())
                result << row.value(3).mid(1);
        }
        return result;
    }
};
