// The frame's menu bar: every item with its name, caption, access key and shortcut, tied to its route.

#include "core/frameicons.h"
#include "core/frmmdi.h"
#include "core/handlers.h"
#include "core/helpkey.h"

#include <QAction>
#include <QKeySequence>
#include <QMenu>
#include <QMenuBar>

namespace hb {

namespace {

using Handler = void (FrmMDI::*)();
using Item = QAction* FrmMDI::*;

// One line of a menu; an entry without caption is a separator.
struct MenuItem {
    const char* name;
    Item member = nullptr;
    const char* caption = nullptr;
    const char* shortcut = nullptr;
    Handler handler = nullptr;
    const char* icon = nullptr;   // key of the toolbar button that does the same
};

struct MenuDef {
    const char* name;
    QMenu* FrmMDI::*member;
    const char* caption;
    std::initializer_list<MenuItem> items;
};

} // namespace

void FrmMDI::buildMenu()
{
    const MenuDef menus[] = {
        {"mnuFile", &FrmMDI::mnuFile, "&File",
         {{"mnuPageSetup", &FrmMDI::mnuPageSetup, "Page Set&up...", nullptr, &FrmMDI::mnuPageSetup_Click},
          {"mnuPrint", &FrmMDI::mnuPrint, "&Print", "Ctrl+P", &FrmMDI::mnuPrint_Click, "Print"},
          {"mnuPrinterSetup", &FrmMDI::mnuPrinterSetup, "Printer &Setup", nullptr, &FrmMDI::mnuPrinterSetup_Click},
          {"mnuDash91"},
          {"mnuBackUp", &FrmMDI::mnuBackUp, "&Back Up Database...", nullptr, &FrmMDI::mnuBackUp_Click},
          {"mnuRestore", &FrmMDI::mnuRestore, "&Restore Database...", nullptr, &FrmMDI::mnuRestore_Click},
          {"mnuDash2"},
          {"mnuExport", &FrmMDI::mnuExport, "&Export Names and Addresses...", nullptr, &FrmMDI::mnuExport_Click},
          {"mnuImport", &FrmMDI::mnuImport, "&Import Names and Addresses...", nullptr, &FrmMDI::mnuImport_Click},
          {"mnuExportVCards", &FrmMDI::mnuExportVCards, "Export &vCards...", nullptr, &FrmMDI::mnuExportVCards_Click},
          {"mnuExportBirthdays", &FrmMDI::mnuExportBirthdays, "Export Birth&days...", nullptr,
           &FrmMDI::mnuExportBirthdays_Click},
          {"mnuDash81"},
          {"mnuExitProgram", &FrmMDI::mnuExitProgram, "E&xit Program", "Ctrl+X", &FrmMDI::mnuExitProgram_Click}}},
        {"mnu_Edit", &FrmMDI::mnu_Edit, "&Edit",
         {{"mnu_Font", &FrmMDI::mnu_Font, "F&ont", nullptr, &FrmMDI::mnu_Font_Click},
          {"mnu_dash2"},
          {"mnuSearch", &FrmMDI::mnuSearch, "&Find...", "Ctrl+F", &FrmMDI::mnuSearch_Click, "find"}}},
        {"mnuReport", &FrmMDI::mnuReport, "&Reports",
         {{"mnuAddress", &FrmMDI::mnuAddress, "&Address", "Ctrl+A", &FrmMDI::mnuAddress_Click, "Address"},
          {"mnuPhone", &FrmMDI::mnuPhone, "&Phone", nullptr, &FrmMDI::mnuPhone_Click, "Phone"},
          {"mnuDetails", &FrmMDI::mnuDetails, "&Details", nullptr, &FrmMDI::mnuDetails_Click, "Detail"},
          {"mnuCustom", &FrmMDI::mnuCustom, "&Custom", nullptr, &FrmMDI::mnuCustom_Click, "Custom"},
          {"mnuBirthDates", &FrmMDI::mnuBirthDates, "&Birthday", "Ctrl+B", &FrmMDI::mnuBirthDates_Click, "Birthdays"},
          {"mnuDash18"},
          {"mnuLabels", &FrmMDI::mnuLabels, "&Label Selection", "Ctrl+L", &FrmMDI::mnuLabels_Click, "Labels"}}},
        {"mnuTools", &FrmMDI::mnuTools, "&Tools",
         {{"mnuAutoDial", &FrmMDI::mnuAutoDial, "AutoDial", "Ctrl+D", &FrmMDI::mnuAutoDial_Click},
          {"mnuDash315"},
          {"mnuNameYourOwn", &FrmMDI::mnuNameYourOwn, "&Name Address Types...", nullptr, &FrmMDI::mnuNameYourOwn_Click},
          {"mnuDashServer"},
          {"mnuAddressBookServer", &FrmMDI::mnuAddressBookServer, "Address &Book Server...", nullptr,
           &FrmMDI::mnuAddressBookServer_Click},
          {"mnuSyncNow", &FrmMDI::mnuSyncNow, "S&ync Now", nullptr, &FrmMDI::mnuSyncNow_Click},
          {"mnu_dash"},
          {"mnu_Options", &FrmMDI::mnu_Options, "&Options...", nullptr, &FrmMDI::mnu_Options_Click}}},
        {"mnuHelp", &FrmMDI::mnuHelp, "&Help",
         {{"mnuGettingStarted", &FrmMDI::mnuGettingStarted, "&Help Topics", "Ctrl+H", &FrmMDI::mnuGettingStarted_Click, "Help"},
          {"mnuFAQ", &FrmMDI::mnuFAQ, "&Frequently Asked Questions", nullptr, &FrmMDI::mnuFAQ_Click},
          {"mnuDash4"},
          {"mnuAbout", &FrmMDI::mnuAbout, "&About", nullptr, &FrmMDI::mnuAbout_Click}}},
    };

    for (const MenuDef& def : menus) {
        QMenu* menu = menuBar()->addMenu(QString::fromLatin1(def.caption));
        menu->setObjectName(QString::fromLatin1(def.name));
        this->*def.member = menu;
        for (const MenuItem& item : def.items) {
            QAction* action = item.caption ? menu->addAction(QString::fromLatin1(item.caption)) : menu->addSeparator();
            action->setObjectName(QString::fromLatin1(item.name));
            if (item.member)
                this->*item.member = action;
            if (item.shortcut)
                action->setShortcut(QKeySequence(QString::fromLatin1(item.shortcut)));
            if (item.icon)
                action->setIcon(toolbarIcon(QString::fromLatin1(item.icon)));
            if (item.handler)
                connectHandler(action, &QAction::triggered, this, item.handler);
        }
    }

    // F1 opens the help at its contents, as the menu item does, unless the window it is pressed in has a
    // topic of its own.
    mnuGettingStarted->setShortcuts({mnuGettingStarted->shortcut(), QKeySequence(Qt::Key_F1)});
    new HelpKey(this);
}

} // namespace hb
