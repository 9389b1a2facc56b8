#pragma once

#include <QFont>
#include <QHash>
#include <QMainWindow>

class QAction;
class QComboBox;
class QLabel;
class QMdiArea;
class QMenu;
class QToolBar;

namespace hb {

// The program's one top-level window: the frame that holds the work windows, the menu and the toolbar.
class FrmMDI : public QMainWindow {
    Q_OBJECT
public:
    FrmMDI();
    ~FrmMDI() override;

    static FrmMDI* instance();
    QMdiArea* workArea() const { return workArea_; }
    QFont& pictureFont() { return pictureFont_; }

    // The load event: brings the session up through the about window and shows the listings.
    void MDIForm_Load();
    // The enabling of menu and toolbar by the state word "Beg", "Report", "Update" or "Select".
    void UpdateToolbar(const QString& state);
    // Opens the listing report of ReportType with all listings selected and its font in PictureFont.
    void LoadReport(int fontId);
    // Shows the state of PictureFont in the font combos and the Bold and Italic buttons.
    void UpdateFontControls();

    // Public so that other windows and the toolbar can run them.
    void mnuAddress_Click();
    void mnuPhone_Click();
    void mnuDetails_Click();
    void mnuCustom_Click();
    void mnuBirthDates_Click();
    void mnuLabels_Click();
    void mnuSearch_Click();
    void cmbFontSize_Click();

protected:
    void resizeEvent(QResizeEvent* event) override;
    void closeEvent(QCloseEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    // Building, in framemenu.cpp and frametoolbar.cpp.
    void buildMenu();
    void buildToolbar();
    void buildFontCombos();
    QAction* button(const char* key) const;

    // Menu routes, in frameroutes.cpp.
    void showBackupIn(const QString& mode);
    void openListingReport(const QString& reportType, int fontId);
    void mnuPageSetup_Click();
    void mnuPrint_Click();
    void mnuPrinterSetup_Click();
    void mnuBackUp_Click();
    void mnuRestore_Click();
    void mnuExport_Click();
    void mnuExportVCards_Click();
    void mnuExportBirthdays_Click();
    void mnuImport_Click();
    void mnuExitProgram_Click();
    void mnuAutoDial_Click();
    void mnuNameYourOwn_Click();
    void mnu_Options_Click();
    void mnuAddressBookServer_Click();
    void mnuSyncNow_Click();
    void mnuGettingStarted_Click();
    void mnuFAQ_Click();
    void mnuAbout_Click();
    void PreviewReport();

    // Toolbar, in frametoolbar.cpp.
    void ABToolbar_ButtonClick(const QString& key);
    void toolbarPrint();
    void menuBlock(const QString& state);
    void updateMenuBlock();
    void reportToolbarBlock();
    void plainToolbarBlock(const QString& state);

    // Fonts, in framefont.cpp.
    void mnu_Font_Click();
    void cmbFonts_Click();
    void cmbFontSize_KeyPress(int key);
    void toolbarBold();
    void toolbarItalic();
    void toggleFontStyle(bool bold);
    void refreshReportFont();
    void fillFontCombos();

    QMdiArea* workArea_;
    QLabel* PictureFont_;   // hidden; stands for the working font object
    QFont pictureFont_;

    // Menu, named as the program knows it.
    QMenu *mnuFile = nullptr, *mnu_Edit = nullptr, *mnuReport = nullptr, *mnuTools = nullptr, *mnuHelp = nullptr;
    QAction *mnuPageSetup = nullptr, *mnuPrint = nullptr, *mnuPrinterSetup = nullptr, *mnuBackUp = nullptr,
            *mnuRestore = nullptr, *mnuExport = nullptr, *mnuImport = nullptr, *mnuExitProgram = nullptr;
    QAction *mnuExportVCards = nullptr, *mnuExportBirthdays = nullptr;
    QAction *mnu_Font = nullptr, *mnuSearch = nullptr;
    QAction *mnuAddress = nullptr, *mnuPhone = nullptr, *mnuDetails = nullptr, *mnuCustom = nullptr,
            *mnuBirthDates = nullptr, *mnuLabels = nullptr;
    QAction *mnuAutoDial = nullptr, *mnuNameYourOwn = nullptr, *mnu_Options = nullptr;
    QAction *mnuAddressBookServer = nullptr, *mnuSyncNow = nullptr;
    QAction *mnuGettingStarted = nullptr, *mnuFAQ = nullptr, *mnuAbout = nullptr;

    // Toolbar: the buttons by their keys, and the font combos beside them.
    QToolBar* ABToolbar = nullptr;
    QHash<QString, QAction*> buttons_;
    QComboBox *cmbFonts = nullptr, *cmbFontSize = nullptr;
};

} // namespace hb
