// BuildAddressColumns and BoldFont of the report window: kept for what they leave behind, the scratch
// rows of RptAddress and the stored font name, though no report reads them.

#include "reports/frmaddressrpt.h"

#include "core/frame.h"
#include "core/framerules.h"
#include "core/frmmdi.h"
#include "core/misc.h"
#include "core/options.h"
#include "core/session.h"

#include <QCheckBox>
#include <QComboBox>

#include <array>

namespace hb {

namespace {

constexpr int GridLines = 10;

// Three columns of up to ten lines of text, written out as rows of RptAddress.
struct ColumnGrid {
    std::array<std::array<QString, GridLines + 1>, 3> text;
    int column = 0;
    int lines = 0;
    int blocks = 0;
    int sortKey = 0;

    void clear()
    {
        for (auto& c : text)
            c.fill(QString());
        column = 0;
        lines = 0;
    }

    void writeOut(Recordset& rs)
    {
        ++blocks;
        for (int line = 1; line <= lines; ++line)
            addRow(rs, text[0][size_t(line)].trimmed() + QLatin1Char(' '), text[1][size_t(line)].trimmed() + QLatin1Char(' '),
                   text[2][size_t(line)].trimmed() + QLatin1Char(' '));
        addRow(rs, QString(), QString(), QString());
        clear();
    }

    void addRow(Recordset& rs, const QString& a, const QString& b, const QString& c)
    {
        rs.addNew();
        rs.setValue(QStringLiteral("SortKey"), ++sortKey);
        rs.setValue(QStringLiteral("Roof1"), a);
        rs.setValue(QStringLiteral("Roof2"), b);
        rs.setValue(QStringLiteral("Roof3"), c);
        rs.update();
    }

    void setLine(int line, const QString& value)
    {
        if (line <= GridLines)
            text[size_t(column - 1)][size_t(line)] = value;
        lines = std::max(lines, std::min(line, GridLines));
    }
};

QString cityLine(const Recordset& roof)
{
    QString line = NullToText(roof.value(QStringLiteral("City")));
    const QString state = NullToText(roof.value(QStringLiteral("State")));
    const QString zip = NullToText(roof.value(QStringLiteral("Zip")));
    const QString country = NullToText(roof.value(QStringLiteral("Country")));
    if (!state.isEmpty())
        line += QStringLiteral(", ") + state;
    if (!zip.isEmpty())
        line += QLatin1Char(' ') + zip;
    if (!country.isEmpty())
        line += QLatin1Char(' ') + country;
    return line;
}

} // namespace

void FrmAddressRpt::BuildAddressColumns()
{
    ColumnGrid grid;
    grid.clear();
    Recordset rpt = DB.openRecordset(QStringLiteral("RptAddress"));
    const int columns = 0;   // nothing ever changes it: every listing makes a block of its own
    const bool showAddress = chkShowAddress->isChecked();
    const bool showPhone = chkShowPhone->isChecked();
    auto addListing = [&](const QString& name, const Recordset* roof) {
        int line = 1;
        ++grid.column;
        grid.setLine(line, name);
        if (roof && showAddress) {
            for (const char* field : {"Address1", "Address2"}) {
                const QString text = NullToText(roof->value(QLatin1String(field)));
                if (!text.isEmpty())
                    grid.setLine(++line, text);
            }
            const QString city = cityLine(*roof);
            if (!city.isEmpty())
                grid.setLine(++line, city);
        }
        if (roof && showPhone) {
            const QString phone = NullToText(roof->value(QStringLiteral("Phone")));
            if (!phone.isEmpty())
                grid.setLine(++line, phone);
        }
    };
    SQL = QStringLiteral("Select * from Roof order by SortName, RoofName");
    RoofRS = DB.openRecordset(SQL);
    for (; !RoofRS.eof(); RoofRS.moveNext()) {
        if (grid.column > columns - 1)
            grid.writeOut(rpt);
        const QVariant selected = RoofRS.value(QStringLiteral("roofselected"));
        if (!selected.isNull() && selected.toInt() != 0)
            addListing(NullToText(RoofRS.value(QStringLiteral("RoofName"))), &RoofRS);
    }
    if (grid.column > 0)
        grid.writeOut(rpt);
    if (grid.blocks == 0) {
        addListing(QStringLiteral("None Selected"), nullptr);
        grid.writeOut(rpt);
    }
    RoofRS.close();
    rpt.close();
}

// Despite its name it stores the font name chosen in the frame for the current report.
void FrmAddressRpt::BoldFont()
{
    const int id = reportFontId(ReportType);
    LoadFont(id, PictureFont());
    if (FrmMDI* frame = FrmMDI::instance()) {
        if (auto* fonts = frame->findChild<QComboBox*>(QStringLiteral("cmbFonts")))
            PictureFont().setFamily(fonts->currentText());
    }
    SaveFont(id, PictureFont());
}

} // namespace hb
