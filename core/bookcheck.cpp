#include "core/bookcheck.h"

#include "platform/storage/database.h"

#include <QFileInfo>
#include <QLocale>

#include <unistd.h>

namespace hb {

namespace {

const char* const bookTables[] = {"Roof", "Person", "RoofType", "ProgramVersion"};

// The oldest version of the program's files; a newer one than this program's opens as it is.
constexpr double FirstVersion = 1.0;

QString fileFault(const QFileInfo& info)
{
    if (info.isDir())
        return QStringLiteral("it is a folder, not a file");
    if (!info.exists())
        return QStringLiteral("the file is missing");
    if (::access(QFile::encodeName(info.absoluteFilePath()).constData(), R_OK) != 0)
        return QStringLiteral("the file may not be read (its permissions do not allow it)");
    if (info.size() == 0)
        return QStringLiteral("the file is empty");
    return {};
}

QString contentFault(Database& db)
{
    const QStringList tables = db.tableNames();
    for (const char* table : bookTables) {
        if (!tables.contains(QString::fromLatin1(table), Qt::CaseInsensitive))
            return QStringLiteral("it is not a Homebook database (it has no table %1)").arg(QString::fromLatin1(table));
    }
    Recordset version = db.openRecordset(QStringLiteral("ProgramVersion"));
    // A file without a version row is taken as the oldest, as the start always has.
    const QVariant value = version.eof() ? QVariant(FirstVersion) : version.value(QStringLiteral("programversion"));
    version.close();
    bool number = false;
    const double read = value.toDouble(&number);
    if (!number || read < FirstVersion)
        return QStringLiteral("its version (%1) is not one this program knows").arg(value.toString());
    return {};
}

// "2.0", "1.01", "1.2": as the versions are named.
QString versionText(double version)
{
    QString text = QString::number(version, 'g', 6);
    if (!text.contains(QLatin1Char('.')))
        text += QStringLiteral(".0");
    return text;
}

} // namespace

QString bookFault(const QString& path)
{
    const QString fault = fileFault(QFileInfo(path));
    if (!fault.isEmpty())
        return fault;
    try {
        Database db = Database::open(path, false, true);
        const QString content = contentFault(db);
        db.close();
        return content;
    } catch (const DbError& failure) {
        if (failure.number() == 3343 || failure.number() == 3049)
            return QStringLiteral("it is not a Homebook database, or it is damaged");
        return QStringLiteral("it can not be opened (%1)").arg(failure.description());
    }
}

std::optional<BookSummary> summaryOf(const QString& path)
{
    if (!bookFault(path).isEmpty())
        return std::nullopt;
    try {
        Database db = Database::open(path, false, true);
        Recordset counts = db.openRecordset(QStringLiteral(
            "select (select count(*) from Roof) as Listings, (select count(*) from Person) as Individuals, "
            "(select max(programversion) from ProgramVersion) as Version"));
        BookSummary summary;
        summary.saved = QFileInfo(path).lastModified();
        summary.listings = counts.value(QStringLiteral("Listings")).toInt();
        summary.individuals = counts.value(QStringLiteral("Individuals")).toInt();
        summary.version = counts.value(QStringLiteral("Version")).toDouble();
        counts.close();
        db.close();
        return summary;
    } catch (const DbError&) {
        return std::nullopt;
    }
}

QString summaryText(const BookSummary& summary)
{
    const QLocale locale;
    auto count = [&locale](int n, const char* one, const char* many) {
        return locale.toString(n) + QLatin1Char(' ') + QLatin1String(n == 1 ? one : many);
    };
    return QStringLiteral("Saved %1, %2, %3, version %4")
        .arg(locale.toString(summary.saved, QStringLiteral("d MMMM yyyy HH:mm")),
             count(summary.listings, "listing", "listings"), count(summary.individuals, "individual", "individuals"),
             versionText(summary.version));
}

} // namespace hb
