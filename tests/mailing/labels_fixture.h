#pragma once

#include "programfixture.h"
#include "testdata.h"
#include "windowdriver.h"
#include "../reports/printcapture.h"

#include "core/forms.h"
#include "core/frmmdi.h"
#include "core/session.h"
#include "mailing/frmlabels.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"
#include "platform/ui/listbox.h"
#include "tools/formabout.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

// The program started with the listings up, a few listings, and the label window opened from the menu.
class LabelsFixture : public ProgramFixture {
protected:
    void SetUp() override
    {
        ProgramFixture::SetUp();
        ASSERT_TRUE(startProgram());
        ASSERT_TRUE(guarded([] { click(hb::forms::get<hb::FormAbout>(), QStringLiteral("cmdOK")); }));
    }

    void addListings()
    {
        addListing({1, QStringLiteral("Ann Able"), QStringLiteral("Able"), 0,
                    {{QStringLiteral("Address1"), QStringLiteral("1 Oak St")}, {QStringLiteral("City"), QStringLiteral("Salem")},
                     {QStringLiteral("State"), QStringLiteral("OR")}, {QStringLiteral("Zip"), QStringLiteral("97301")},
                     {QStringLiteral("Country"), QStringLiteral("USA")}}});
        addListing({2, QStringLiteral("Bob Baker"), QStringLiteral("Baker"), 0,
                    {{QStringLiteral("Address1"), QStringLiteral("2 Elm Rd")}, {QStringLiteral("Address2"), QStringLiteral("Apt 5")},
                     {QStringLiteral("City"), QStringLiteral("Bend")}, {QStringLiteral("Zip"), QStringLiteral("97701")}}});
        addListing({3, QStringLiteral("Cy Cole"), QStringLiteral("Cole"), 0, {{QStringLiteral("Country"), QStringLiteral("Canada")}}});
    }

    hb::FrmLabels* openLabels()
    {
        if (!guarded([] { control<QAction>(*hb::FrmMDI::instance(), QStringLiteral("mnuLabels"))->trigger(); }))
            return nullptr;
        return hb::forms::loaded<hb::FrmLabels>();
    }

    // File > Print with a preview up, into a PDF file or a print queue: the print dialog is accepted as it
    // stands, or answered by the script given.
    enum class PrintTo { PdfFile, Queue };
    void printThroughMenu(PrintTo to, const QString& target, ScriptedWindows::PrinterScript answer = {})
    {
        PrintCapture capture;
        if (to == PrintTo::Queue)
            capture.toQueue(target);
        else
            capture.toPdf(target);
        if (answer)
            dialogs().scriptPrinter(std::move(answer));
        else
            dialogs().answerPrinter(true);
        EXPECT_TRUE(guarded([] { control<QAction>(*hb::FrmMDI::instance(), QStringLiteral("mnuPrint"))->trigger(); }));
        EXPECT_EQ(capture.printersChosen(), 1);
    }

    static hb::ui::ListBox* list(QWidget& w, const char* name)
    {
        return control<hb::ui::ListBox>(w, QString::fromLatin1(name));
    }

    // "text|itemData" for each row.
    static QStringList rows(hb::ui::ListBox* box)
    {
        QStringList result;
        for (int i = 0; i < box->listCount(); ++i)
            result << QStringLiteral("%1|%2").arg(box->list(i)).arg(box->itemData(i));
        return result;
    }

    static bool enabled(QWidget& w, const char* name) { return control<QPushButton>(w, QString::fromLatin1(name))->isEnabled(); }
    static QString text(QWidget& w, const char* name) { return control<QLabel>(w, QString::fromLatin1(name))->text(); }

    // Opens the label window and ticks the first address type by mouse.
    hb::FrmLabels* labelsWithFirstType()
    {
        hb::FrmLabels* w = openLabels();
        if (w)
            clickRow(list(*w, "lstTypes"), 0);
        return w;
    }

    // Answers the edit window with new texts; an empty optional leaves a box as it is.
    void editNextLabel(std::optional<QString> name, std::optional<QString> city, bool ok = true)
    {
        dialogs().onModal([=](QWidget& w) {
            auto set = [&](const char* box, const std::optional<QString>& value) {
                if (!value)
                    return;
                auto* edit = control<QLineEdit>(w, QString::fromLatin1(box));
                edit->selectAll();
                QTest::keyClick(edit, Qt::Key_Delete);
                QTest::keyClicks(edit, *value);
            };
            set("txtName", name);
            set("txtCityStateZip", city);
            click(w, ok ? QStringLiteral("cmdOK") : QStringLiteral("cmdCancel"));
        });
    }

    static QVector<QVariantMap> rptLabels();
};
