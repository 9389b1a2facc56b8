// The font of the report that is up: the font dialog, the font combos and the Bold and Italic buttons.
// PictureFont is the working font: each route loads the report's record into it, changes it and saves it.

#include "core/forms.h"
#include "core/framerules.h"
#include "core/frmmdi.h"
#include "core/options.h"
#include "core/routes.h"
#include "core/session.h"
#include "platform/ui/windowservice.h"

#include <QAction>
#include <QComboBox>
#include <QFontDatabase>
#include <QKeyEvent>
#include <QLineEdit>
#include <QRegularExpression>
#include <cmath>

namespace hb {

namespace {

// The number a text starts with, as the desktop's Val reads it: "14pt" is 14, "abc" is 0.
double leadingNumber(const QString& text)
{
    static const QRegularExpression number(QStringLiteral("^\\s*[-+]?(\\d+\\.?\\d*|\\.\\d+)"));
    const QRegularExpressionMatch match = number.match(text);
    return match.hasMatch() ? match.captured(0).trimmed().toDouble() : 0;
}

bool isAddressReportLoaded() { return IsFormLoaded("frmAddressRpt"); }

void reloadAddressReport()
{
    ReturnToListings = false;
    ReloadReport();
}

} // namespace

void FrmMDI::mnu_Font_Click()
{
    QFont dialogFont;
    dialogFont.setFamily(pictureFont_.family());
    dialogFont.setPointSize(pictureFont_.pointSize());
    dialogFont.setBold(pictureFont_.bold());
    dialogFont.setItalic(pictureFont_.italic());
    dialogFont.setUnderline(pictureFont_.underline());
    dialogFont.setStrikeOut(pictureFont_.strikeOut());
    // Cancel leaves the dialog with the seeded values, and the routine goes on with them.
    ui::windows().chooseFont(dialogFont);
    pictureFont_.setFamily(dialogFont.family());
    pictureFont_.setPointSize(dialogFont.pointSize());
    pictureFont_.setBold(dialogFont.bold());
    pictureFont_.setItalic(dialogFont.italic());
    pictureFont_.setUnderline(dialogFont.underline());
    pictureFont_.setStrikeOut(dialogFont.strikeOut());
    if (const int id = reportFontIdWithoutLabels(ReportType))
        SaveFont(id, pictureFont_);
    UpdateFontControls();
    refreshReportFont();
}

// Shows the changed font wherever the report that is up shows it.
void FrmMDI::refreshReportFont()
{
    if (ReportType == QLatin1String("A") || ReportType == QLatin1String("C") || ReportType == QLatin1String("D") ||
        ReportType == QLatin1String("P"))
        ReloadReport();
    else if (ReportType == QLatin1String("M"))
        reloadMailPiecePreview();
    else if (ReportType == QLatin1String("B"))
        birthdayReportFormatCompute();
}

void FrmMDI::cmbFonts_Click()
{
    const int id = reportFontId(ReportType);
    LoadFont(id, pictureFont_);
    pictureFont_.setFamily(cmbFonts->currentText());
    if (id)
        SaveFont(id, pictureFont_);
    if (isAddressReportLoaded())
        reloadAddressReport();
    if (!ToolbarBusy) {
        if (ReportType == QLatin1String("M"))
            reloadMailPiecePreview();
        else if (ReportType == QLatin1String("B"))
            birthdayReportFormatCompute();
    }
}

void FrmMDI::cmbFontSize_Click()
{
    int size = static_cast<int>(std::nearbyint(leadingNumber(cmbFontSize->currentText())));
    if (size < 1)
        size = 12;
    if (ToolbarBusy)
        return;
    const int id = reportFontIdWithoutLabels(ReportType);
    LoadFont(id, pictureFont_);
    pictureFont_.setPointSize(size);
    if (id)
        SaveFont(id, pictureFont_);
    if (ReportType == QLatin1String("M"))
        reloadMailPiecePreview();
    else if (ReportType == QLatin1String("B"))
        birthdayReportFormatCompute();
    if (isAddressReportLoaded())
        reloadAddressReport();
}

void FrmMDI::cmbFontSize_KeyPress(int key)
{
    if (key == 13)
        cmbFontSize_Click();
}

void FrmMDI::toolbarBold() { toggleFontStyle(true); }
void FrmMDI::toolbarItalic() { toggleFontStyle(false); }

void FrmMDI::toggleFontStyle(bool bold)
{
    const int id = reportFontId(ReportType);
    LoadFont(id, pictureFont_);
    if (bold)
        pictureFont_.setBold(!pictureFont_.bold());
    else
        pictureFont_.setItalic(!pictureFont_.italic());
    if (id)
        SaveFont(id, pictureFont_);
    UpdateFontControls();
    if (isAddressReportLoaded())
        reloadAddressReport();
    if (ReportType == QLatin1String("M") || ReportType == QLatin1String("L"))
        reloadMailPiecePreview();
    else if (ReportType == QLatin1String("B"))
        birthdayReportCompute();
}

void FrmMDI::UpdateFontControls()
{
    // A font the desktop does not have still shows its name, greyed, instead of another font's.
    cmbFonts->setPlaceholderText(pictureFont_.family());
    cmbFonts->setCurrentIndex(cmbFonts->findText(pictureFont_.family(), Qt::MatchFixedString));
    const QString size = QString::number(std::lround(pictureFont_.pointSizeF()));
    cmbFontSize->setCurrentIndex(cmbFontSize->findText(size));
    cmbFontSize->setEditText(size);
    button("Bold")->setChecked(pictureFont_.bold());
    button("Italic")->setChecked(pictureFont_.italic());
}

void FrmMDI::fillFontCombos()
{
    cmbFontSize->setEnabled(true);
    cmbFontSize->clear();
    QStringList sizes;
    for (int size = 6; size <= 28; ++size) {
        if (size != 13)
            sizes << QString::number(size);
    }
    sizes << QStringLiteral("36") << QStringLiteral("48") << QStringLiteral("72");
    cmbFontSize->addItems(sizes);
    cmbFonts->setEnabled(true);
    cmbFonts->clear();
    cmbFonts->addItems(QFontDatabase::families());
}

bool FrmMDI::eventFilter(QObject* watched, QEvent* event)
{
    if (cmbFontSize && watched == cmbFontSize->lineEdit() && event->type() == QEvent::KeyPress) {
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key == Qt::Key_Return || key == Qt::Key_Enter) {
            cmbFontSize_KeyPress(13);
            return true;
        }
    }
    return QMainWindow::eventFilter(watched, event);
}

} // namespace hb
