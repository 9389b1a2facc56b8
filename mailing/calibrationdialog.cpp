#include "mailing/calibrationdialog.h"

#include "mailing/calibrations.h"

#include "platform/label/labelcontrol.h"
#include "platform/ui/windowservice.h"

#include <QComboBox>
#include <QDialog>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QGridLayout>
#include <QLabel>
#include <QMap>
#include <QPrinter>
#include <QPrinterInfo>
#include <QPushButton>

namespace hb {

namespace {

const QString PdfFiles = QStringLiteral("(PDF files)");

// ISO paper (A4, B5, C5...) is measured in millimetres, the rest in inches.
bool metricSheet(const label::Sheet& sheet)
{
    const QString id = sheet.paperId;
    return id.size() >= 2 && QStringLiteral("ABC").contains(id.at(0)) && id.at(1).isDigit();
}

QDoubleSpinBox* numberBox(QWidget* parent, const char* name, double low, double high, const QString& suffix)
{
    auto* box = new QDoubleSpinBox(parent);
    box->setObjectName(QString::fromLatin1(name));
    box->setRange(low, high);
    box->setDecimals(3);
    box->setSuffix(suffix);
    return box;
}

class CalibrationDialog : public QDialog {
public:
    explicit CalibrationDialog(label::LabelControl& control) : QDialog(control.window()), control_(control)
    {
        setObjectName(QStringLiteral("PrinterCalibration"));
        setWindowTitle(QStringLiteral("Printer Calibration"));
        build();
        for (const QString& name : QPrinterInfo::availablePrinterNames())
            cmbPrinter->addItem(name, name);
        cmbPrinter->addItem(PdfFiles, QString());
        const int current = cmbPrinter->findData(control.printerName);
        cmbPrinter->setCurrentIndex(std::max(0, current));
        cmbUnit->setCurrentIndex(metricSheet(control.sheet()) ? 0 : 1);
        setUnit();
        show(cmbPrinter->currentData().toString());
        connect(cmbPrinter, &QComboBox::currentIndexChanged, this, [this] {
            edited_[shown_] = read();
            show(cmbPrinter->currentData().toString());
        });
        connect(cmbUnit, &QComboBox::currentIndexChanged, this, [this] {
            const label::Calibration c = read(pointsPer_);
            setUnit();
            write(c);
        });
        connect(cmdAlignmentPage, &QPushButton::clicked, this, &CalibrationDialog::printAlignmentPage);
    }

    void store()
    {
        edited_[shown_] = read();
        for (auto it = edited_.cbegin(); it != edited_.cend(); ++it)
            storeCalibration(it.key(), it.value());
    }

private:
    void build()
    {
        cmbPrinter = new QComboBox(this);
        cmbPrinter->setObjectName(QStringLiteral("cmbPrinter"));
        cmbUnit = new QComboBox(this);
        cmbUnit->setObjectName(QStringLiteral("cmbUnit"));
        cmbUnit->addItems({QStringLiteral("mm"), QStringLiteral("in")});
        spnOffsetX = numberBox(this, "spnOffsetX", -100, 100, QString());
        spnOffsetY = numberBox(this, "spnOffsetY", -100, 100, QString());
        spnScaleX = numberBox(this, "spnScaleX", 90, 110, QStringLiteral(" %"));
        spnScaleY = numberBox(this, "spnScaleY", 90, 110, QStringLiteral(" %"));
        cmdAlignmentPage = new QPushButton(QStringLiteral("Print Alignment Page..."), this);
        cmdAlignmentPage->setObjectName(QStringLiteral("cmdAlignmentPage"));
        auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel, this);
        connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
        connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
        auto* grid = new QGridLayout(this);
        auto row = [&](int r, const QString& caption, QWidget* a, QWidget* b = nullptr) {
            grid->addWidget(new QLabel(caption, this), r, 0);
            grid->addWidget(a, r, 1);
            if (b)
                grid->addWidget(b, r, 2);
        };
        row(0, QStringLiteral("Printer:"), cmbPrinter);
        row(1, QStringLiteral("Unit:"), cmbUnit);
        grid->addWidget(new QLabel(QStringLiteral("Across"), this), 2, 1);
        grid->addWidget(new QLabel(QStringLiteral("Down"), this), 2, 2);
        row(3, QStringLiteral("Offset (right, down):"), spnOffsetX, spnOffsetY);
        row(4, QStringLiteral("Scale:"), spnScaleX, spnScaleY);
        grid->addWidget(new QLabel(QStringLiteral("Print the alignment page, measure how far each cross-hair is from "
                                                  "the middle of its label, and enter the distance and the scale here."),
                                   this),
                        5, 0, 1, 3);
        grid->itemAtPosition(5, 0)->widget()->setProperty("wordWrap", true);
        grid->addWidget(cmdAlignmentPage, 6, 0);
        grid->addWidget(buttons, 6, 1, 1, 2);
        setUnit();
    }

    void setUnit()
    {
        pointsPer_ = cmbUnit->currentIndex() == 0 ? 72.0 / 25.4 : 72.0;
        const QString suffix = cmbUnit->currentIndex() == 0 ? QStringLiteral(" mm") : QStringLiteral(" in");
        const double limit = cmbUnit->currentIndex() == 0 ? 25.0 : 1.0;
        for (QDoubleSpinBox* box : {spnOffsetX, spnOffsetY}) {
            box->setRange(-limit, limit);
            box->setSuffix(suffix);
        }
    }

    void show(const QString& printer)
    {
        shown_ = printer;
        write(edited_.contains(printer) ? edited_.value(printer) : storedCalibration(printer));
    }

    label::Calibration read(double pointsPer = 0) const
    {
        const double p = pointsPer > 0 ? pointsPer : pointsPer_;
        return {spnOffsetX->value() * p, spnOffsetY->value() * p, spnScaleX->value() / 100, spnScaleY->value() / 100};
    }

    void write(const label::Calibration& c)
    {
        spnOffsetX->setValue(c.dx / pointsPer_);
        spnOffsetY->setValue(c.dy / pointsPer_);
        spnScaleX->setValue(c.sx * 100);
        spnScaleY->setValue(c.sy * 100);
    }

    // The page goes out with the values as they stand, so that a second page shows whether they are right.
    void printAlignmentPage()
    {
        QPrinter printer(QPrinter::HighResolution);
        if (!shown_.isEmpty())
            printer.setPrinterName(shown_);
        printer.setDocName(QStringLiteral("Alignment page"));
        control_.applySheetTo(printer);
        if (!ui::windows().choosePrinter(printer, 1))
            return;
        control_.applySheetTo(printer);
        control_.printAlignmentPage(printer, read());
    }

    label::LabelControl& control_;
    QComboBox *cmbPrinter, *cmbUnit;
    QDoubleSpinBox *spnOffsetX, *spnOffsetY, *spnScaleX, *spnScaleY;
    QPushButton* cmdAlignmentPage;
    QMap<QString, label::Calibration> edited_;
    QString shown_;
    double pointsPer_ = 72.0;
};

} // namespace

void showCalibrationDialog(label::LabelControl& control)
{
    CalibrationDialog dialog(control);
    ui::showModal(dialog);
    if (dialog.result() == QDialog::Accepted)
        dialog.store();
}

} // namespace hb
