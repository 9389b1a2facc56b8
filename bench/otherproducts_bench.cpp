// The import of another Homebook file through the import window: 5 000 listings, each with two
// individuals, under a type the book knows, into an empty book.

#include "scriptedwindows.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"
#include "exchange/formimport.h"

#include <QDir>
#include <QLineEdit>
#include <QRadioButton>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>

using namespace hb;

namespace {

constexpr int Listings = 5000;

// The source is written before the clock runs: only the import is measured.
void writeSource(const QString& path)
{
    schema::createMainShell(path);
    Database db = Database::open(path);
    for (int n = 1; n <= Listings; ++n) {
        const QString roof = QStringLiteral(
            "insert into Roof (RoofNumber, RoofType, SortName, RoofName, Address1, Address2, City, State, Zip, "
            "Country, Phone, Fax, Email, Notes) values (%1, 2, 'Family%1', 'The Family%1', '%1 Elm St', '', "
            "'Springfield', 'IL', '62701', 'USA', '555-0100', '', 'f%1@example.com', '')").arg(n);
        db.execute(roof);
        for (int p = 1; p <= 2; ++p) {
            const QString person = QStringLiteral(
                "insert into Person (RoofNumber, PersonNumber, PersonListed, PersonSelected, FirstName, LastName, "
                "Work, WorkPhone, Email, Notes) values (%1, %2, 0, 0, 'Pat%3', 'Family%1', '', '', '', '')")
                .arg(n).arg(2 * n - 2 + p).arg(p);
            db.execute(person);
        }
    }
    db.close();
}

void BM_HomebookImport(benchmark::State& state)
{
    QTemporaryDir dir;
    QDir(dir.path()).mkpath(QStringLiteral("Data"));
    const QString data = dir.path() + QStringLiteral("/Data/");
    schema::createMainShell(data + QStringLiteral("hb10db.shell"));
    schema::createExportShell(data + QStringLiteral("export.mdb"));
    const QString source = dir.path() + QStringLiteral("/other.mdb");
    writeSource(source);
    auto scripted = std::make_unique<ScriptedWindows>();
    ScriptedWindows* dialogs = scripted.get();
    ui::setWindowService(std::move(scripted));
    resetSession();
    setProgramDirectory(dir.path());
    Setup();
    for (auto _ : state) {
        auto& window = forms::get<FormImport>();
        window.findChild<QRadioButton*>(QStringLiteral("OptionImportHomebook"))->click();
        window.findChild<QLineEdit*>(QStringLiteral("TextFileLocation"))->setText(source);
        window.CommandImport_Click();
    }
    Recordset roofs = DB.openRecordset(QStringLiteral("select count(*) as n from Roof"));
    Recordset persons = DB.openRecordset(QStringLiteral("select count(*) as n from Person"));
    state.counters["listings"] = roofs.value(QStringLiteral("n")).toInt();
    if (roofs.value(QStringLiteral("n")).toInt() != Listings && !dialogs->messages().empty())
        state.SkipWithError(dialogs->messages().back().text.toStdString().c_str());
    state.counters["individuals"] = persons.value(QStringLiteral("n")).toInt();
    roofs.close();
    persons.close();
    forms::unloadAll();
    ImportDB.close();
    DB.close();
    resetSession();
}
BENCHMARK(BM_HomebookImport)->Unit(benchmark::kSecond)->Iterations(1);

} // namespace
