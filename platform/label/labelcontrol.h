#pragma once

// The mail piece control: a list of pieces, each a data text, laid out on a sheet of the catalogue, shown
// a page at a time with zoom, printed through the printer dialog to any printer or to PDF.

#include "platform/label/calibration.h"
#include "platform/label/pagerenderer.h"
#include "platform/label/pieceitems.h"
#include "platform/label/sheet.h"

#include <QStringList>
#include <QWidget>

#include <functional>

class QPrinter;

namespace hb::label {

class SheetCatalogue;

class LabelControl : public QWidget {
    Q_OBJECT
public:
    explicit LabelControl(QWidget* parent = nullptr, const SheetCatalogue* catalogue = nullptr);

    // Setting it selects the sheet; a name that the catalogue does not know leaves the sheet as it is.
    QString piecename() const;
    void setPiecename(const QString& name);
    const Sheet& sheet() const { return sheet_; }
    const SheetCatalogue& catalogue() const { return *catalogue_; }

    void clearPieces();
    QString pieceData;                  // the data text of the next AddPiece
    void addPiece();
    const QStringList& pieces() const { return pieces_; }

    void moveFirstPiece();
    void moveNextPiece();
    void movePreviousPiece();
    void moveLastPiece();
    int currentPiece() const { return currentPiece_; }   // 1-based, the first piece of the page shown
    int pageOfPiece(int piece) const;
    int pageCount() const;

    // The position on the first sheet where the first piece goes, 1 for a new sheet; a sheet partly used
    // starts further on. A new piece starts at 1 again.
    int startPosition() const { return skipped_ + 1; }
    void setStartPosition(int position);
    // The position after the last piece, where the next run on this sheet can start.
    int nextStartPosition() const;
    // The dialog that picks the start position on a drawing of the sheet; true on OK.
    bool showStartDialog();

    int zoom() const { return zoom_; }
    void setZoom(int percent);
    float pageTop = 0;                  // inches; positive moves the printed page up
    bool redraw() const { return redraw_; }
    void setRedraw(bool on);
    bool loading = false;
    int sheetMode = 0;
    bool printOutlines = false;         // the edges of the pieces on paper too, to test a sheet on plain paper
    QString printerName;                // offered by the printer dialog; the one chosen there afterwards

    // Before paper is used: each piece's fit, worked out a slice at a time while the window is idle after
    // recheck(), which a change of pieces, items or sheet calls for; checkDone() when all are known.
    void recheck();
    bool checking() const { return checked_ < pieces_.size(); }
    PieceFit fitOf(int piece) const { return fits_.value(piece - 1, PieceFit::Fits); }   // 1-based
    // Pieces marked in the preview besides those that do not fit, 1-based: the same listing twice.
    QVector<int> repeated;
    // Shows the page of a piece with the piece marked.
    void showPiece(int piece);

    PieceItems& items() { return items_; }
    TextItem& item(int number) { return items_.item(number); }

    // The dialogs of the control; both go through the window service and raise changed() on OK.
    void showLayoutDialog(bool);
    void showPieceDialog(bool);
    // The calibration of a printer by its name, an empty name for a PDF file; none when unset.
    std::function<Calibration(const QString& printerName)> calibrationFor;
    // The printer dialog, then every page, calibrated for the printer chosen; false when cancelled.
    bool printPieces();
    // Every page on a printer already set up (PDF or a queue).
    void printPiecesOn(QPrinter& printer, const Calibration& calibration = {});
    // One page of the sheet with the outlines of its pieces and cross-hairs at their middles, to measure
    // how far a printer is off.
    void printAlignmentPage(QPrinter& printer, const Calibration& calibration) const;
    // Sets paper and orientation of the sheet on a printer: an envelope feeds short edge first.
    void applySheetTo(QPrinter& printer) const;

signals:
    // 10: the piece was changed, 11: the items were changed.
    void changed(int what);
    void checkDone();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void updateSize();
    void moveToPage(int page);
    void checkSlice(int run);
    void paintMarks(QPainter& painter, int page) const;
    double scale() const;   // screen pixels per point

    const SheetCatalogue* catalogue_;
    Sheet sheet_;
    QStringList pieces_;
    PieceItems items_;
    int currentPiece_ = 1;
    int skipped_ = 0;
    QVector<PieceFit> fits_;
    qsizetype checked_ = 0;
    int checkRun_ = 0;        // each recheck starts a new run of slices; the older ones stop
    int shown_ = 0;           // the piece last asked for by showPiece, marked until the pieces change
    int zoom_ = 100;
    bool redraw_ = true;
};

} // namespace hb::label
