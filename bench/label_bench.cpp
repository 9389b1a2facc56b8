// The label preview and its printout on the largest database: 32767 labels, every piece field on.

#include "largeworld.h"

#include "core/forms.h"
#include "core/options.h"
#include "core/session.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"

#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <sys/resource.h>

namespace {

void openWithAllLabels()
{
    LargeWorld::instance().open();
    hb::DB.execute(QStringLiteral("delete from RptLabels"));
    hb::DB.execute(QStringLiteral("insert into RptLabels (LabelNumber, NameOnLabel, Address1, Address2, citystatezip, RoofNumber) "
                                  "select RoofNumber, RoofName, Address1, Address2, City, RoofNumber from Roof"));
    for (int i = 313; i <= 326; ++i)
        hb::SetNOption(i, 1);
    hb::PieceName = QStringLiteral("5160 - Address");
}

double peakMiB()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_maxrss / 1024.0;
}

// A field of gLabels' comma-separated merge file.
QByteArray csvField(const QString& text)
{
    QByteArray field = text.toUtf8();
    if (field.contains(',') || field.contains('"') || field.contains('\n'))
        field = '"' + field.replace('"', "\"\"") + '"';
    return field;
}

// gLabels documents of the 5160 sheet, each merging the next perRun labels of RptLabels from a file of
// its own: the paths of the documents.
QStringList glabelsDocuments(const QString& folder, int perRun)
{
    const QByteArray document = R"(<?xml version="1.0"?>
<Glabels-document xmlns="http://glabels.org/xmlns/3.0/">
  <Template brand="Avery" part="5160" size="US-Letter" description="Address Labels">
    <Meta category="label"/>
    <Label-rectangle id="0" width="189pt" height="72pt" round="5pt" x_waste="0pt" y_waste="0pt">
      <Markup-margin size="9pt"/>
      <Layout nx="3" ny="10" x0="11.25pt" y0="36pt" dx="200pt" dy="72pt"/>
    </Label-rectangle>
  </Template>
  <Objects id="0" rotate="False">
    <Object-text a0="1" a1="0" a2="0" a3="1" a4="0" a5="0" x="9pt" y="6pt" w="171pt" h="60pt" justify="Left"
                 valign="Top" auto_shrink="False">
      <Span font_family="DejaVu Sans" font_size="9" font_weight="Regular" font_italic="False" color="0x000000ff"
            line_spacing="1"><Field name="name"/><NL/><Field name="line1"/><NL/><Field name="line2"/><NL/><Field name="city"/></Span>
    </Object-text>
  </Objects>
  <Merge type="Text/Comma/Line1Keys" src="%1"/>
</Glabels-document>
)";
    QStringList documents;
    QFile csv;
    hb::Recordset labels = hb::DB.openRecordset(QStringLiteral("RptLabels"));
    for (int n = 0; !labels.eof(); labels.moveNext(), ++n) {
        if (n % perRun == 0) {
            csv.close();
            const QString base = QStringLiteral("%1/run%2").arg(folder).arg(documents.size());
            csv.setFileName(base + QStringLiteral(".csv"));
            csv.open(QIODevice::WriteOnly);
            csv.write("name,line1,line2,city\n");
            QFile file(base + QStringLiteral(".glabels"));
            file.open(QIODevice::WriteOnly);
            file.write(QString::fromUtf8(document).arg(csv.fileName()).toUtf8());
            documents << file.fileName();
        }
        QByteArrayList fields;
        for (const char* name : {"NameOnLabel", "Address1", "Address2", "citystatezip"})
            fields << csvField(labels.value(QString::fromLatin1(name)).toString());
        csv.write(fields.join(',') + '\n');
    }
    labels.close();
    return documents;
}

int pdfPages(const QString& path)
{
    QFile pdf(path);
    if (!pdf.open(QIODevice::ReadOnly))
        return 0;
    const QByteArray bytes = pdf.readAll();
    return int(bytes.count("/Type /Page") - bytes.count("/Type /Pages"));
}

void BM_LoadMailItToFirstPage(benchmark::State& state)
{
    openWithAllLabels();
    int pieces = 0;
    for (auto _ : state) {
        hb::FrmMailIt& preview = hb::forms::get<hb::FrmMailIt>();
        preview.LoadMailIt();
        benchmark::DoNotOptimize(preview.ezLabel().grab());
        pieces = int(preview.ezLabel().pieces().size());
    }
    state.counters["pieces"] = pieces;
    state.counters["peak_MiB"] = peakMiB();
    hb::forms::unloadAll();
    LargeWorld::instance().close();
}
BENCHMARK(BM_LoadMailItToFirstPage)->Unit(benchmark::kMillisecond)->Iterations(3);

void BM_WholePdfOn5160(benchmark::State& state)
{
    openWithAllLabels();
    hb::FrmMailIt& preview = hb::forms::get<hb::FrmMailIt>();
    preview.LoadMailIt();
    QTemporaryDir dir;
    qint64 bytes = 0;
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(dir.filePath(QStringLiteral("labels.pdf")));
        preview.ezLabel().applySheetTo(printer);
        preview.ezLabel().printPiecesOn(printer);
        bytes = QFileInfo(dir.filePath(QStringLiteral("labels.pdf"))).size();
    }
    state.counters["pages"] = preview.ezLabel().pageCount();
    state.counters["pdf_MiB"] = bytes / 1048576.0;
    state.counters["peak_MiB"] = peakMiB();
    hb::forms::unloadAll();
    LargeWorld::instance().close();
}
BENCHMARK(BM_WholePdfOn5160)->Unit(benchmark::kMillisecond)->Iterations(1);

// gLabels beside it: the same 32767 labels on the same sheet, by glabels-3-batch in runs of 33 sheets,
// as its time grows faster than the number of labels in one run. Each label holds the name and the
// address lines (gLabels' text merge); the program's pieces above hold every piece field besides.
void BM_GlabelsChunkedBatchOn5160(benchmark::State& state)
{
    const QString batch = QStandardPaths::findExecutable(QStringLiteral("glabels-3-batch"));
    if (batch.isEmpty()) {
        state.SkipWithError("glabels-3-batch is not installed (Debian's glabels)");
        return;
    }
    openWithAllLabels();
    QTemporaryDir dir;
    const QStringList documents = glabelsDocuments(dir.path(), 33 * 30);
    LargeWorld::instance().close();
    int pages = 0;
    for (auto _ : state) {
        pages = 0;
        for (const QString& document : documents) {
            QProcess run;
            run.start(batch, {QStringLiteral("-o"), document + QStringLiteral(".pdf"), document});
            run.waitForFinished(-1);
            pages += pdfPages(document + QStringLiteral(".pdf"));
        }
    }
    state.counters["runs"] = double(documents.size());
    state.counters["pages"] = pages;
}
BENCHMARK(BM_GlabelsChunkedBatchOn5160)->Unit(benchmark::kMillisecond)->Iterations(1);

} // namespace
