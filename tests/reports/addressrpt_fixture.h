#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"

#include "core/forms.h"
#include "core/frame.h"
#include "core/frmmdi.h"
#include "core/options.h"
#include "core/session.h"
#include "platform/report/reportlayout.h"
#include "platform/report/reportviewer.h"
#include "reports/frmaddressrpt.h"
#include "reports/listingreports.h"
#include "tools/formabout.h"

#include <QAction>
#include <QPrinter>

// The program started with the listings up and a few listings in List By order Adams, Baker, Clark; the
// listing reports open as the frame's menu opens them.
class AddressReportFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        hb::ForgetListingReports();
        ASSERT_TRUE(startProgram());
        ASSERT_TRUE(guarded([] { click(hb::forms::get<hb::FormAbout>(), QStringLiteral("cmdOK")); }));
        addListing({1, QStringLiteral("The Clark Family"), QStringLiteral("Clark"), 0,
                    {{QStringLiteral("Address1"), QStringLiteral("3 Elm Road")}, {QStringLiteral("City"), QStringLiteral("Dover")},
                     {QStringLiteral("Phone"), QStringLiteral("555-0103")}, {QStringLiteral("Fax"), QStringLiteral("555-0903")},
                     {QStringLiteral("Notes"), QStringLiteral("Clark notes")}}});
        addListing({2, QStringLiteral("Adams Bakery"), QStringLiteral("Adams"), 0,
                    {{QStringLiteral("Address1"), QStringLiteral("1 Main Street")},
                     {QStringLiteral("Phone"), QStringLiteral("555-0101")}}});
        addListing({3, QStringLiteral("Bob Baker"), QStringLiteral("Baker"), 0,
                    {{QStringLiteral("Phone"), QStringLiteral("555-0102")}}});
        addPerson(1, 10, QStringLiteral("Carol"), QStringLiteral("Clark"), QDate(1970, 3, 4),
                  {{QStringLiteral("WorkPhone"), QStringLiteral("555-0110")}, {QStringLiteral("Notes"), QStringLiteral("Carol notes")}});
        for (int option : {100, 101, 102})
            hb::SetNOption(option, 1);
    }
    void TearDown() override
    {
        ProgramFixture::TearDown();
        hb::ForgetListingReports();
    }

    // Opens a report by its menu item ("mnuAddress", "mnuPhone", "mnuDetails", "mnuCustom").
    hb::FrmAddressRpt* open(const char* menu)
    {
        if (!trigger(QString::fromLatin1(menu)))
            return nullptr;
        return hb::forms::loaded<hb::FrmAddressRpt>();
    }
    bool trigger(const QString& name)
    {
        return guarded([&] { control<QAction>(*hb::FrmMDI::instance(), name)->trigger(); });
    }
    static hb::FrmAddressRpt* shown() { return hb::forms::loaded<hb::FrmAddressRpt>(); }

    static bool hidden(hb::FrmAddressRpt& w, const char* name)
    {
        const hb::report::ReportObject* object = w.report().object(QLatin1String(name));
        EXPECT_NE(object, nullptr) << name;
        return !object || object->suppress;
    }
    // The named objects from Field1 to Field26 that print, in number order.
    static QStringList shownFields(hb::FrmAddressRpt& w)
    {
        QStringList names;
        for (int i = 1; i <= 26; ++i) {
            const QString name = QStringLiteral("Field%1").arg(i);
            if (const auto* object = w.report().object(name); object && !object->suppress)
                names << name;
        }
        return names;
    }
    static QStringList pageTexts(hb::FrmAddressRpt& w, int page = 1)
    {
        const hb::report::ReportLayout* layout = w.viewer().layout();
        EXPECT_NE(layout, nullptr);
        return layout ? layout->pageTexts(page) : QStringList();
    }
    static QString allText(hb::FrmAddressRpt& w)
    {
        QStringList texts;
        const int pages = w.viewer().pageCount();
        for (int page = 1; page <= pages; ++page)
            texts << pageTexts(w, page);
        return texts.join(QLatin1Char('|'));
    }
};
