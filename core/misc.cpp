#include "core/misc.h"

#include "core/errors.h"
#include "core/session.h"
#include "platform/files.h"

namespace hb {

QString DoubleQuotes(const QString& text)
{
    QString quoted = text;
    return quoted.replace(QLatin1Char('\''), QStringLiteral("''"));
}

QString DoubleAmpersand(const QString& text)
{
    const qsizetype at = text.indexOf(QLatin1Char('&'));
    if (at < 0)
        return text;
    return text.left(at + 1) + QLatin1Char('&') + text.mid(at + 1);
}

QString CutAfterEllipsis(const QString& text)
{
    const qsizetype at = text.indexOf(QStringLiteral("..."));
    return at < 0 ? text : text.mid(at + 3);
}

QVariant NullToEmpty(const QVariant& value) { return value.isNull() ? QVariant(QString()) : value; }

QString NullToText(const QVariant& value) { return value.isNull() ? QString() : value.toString(); }

QString RoofTypeName(qint16 typeNumber)
{
    for (int i = 1; i < RoofTypeNumbers.size(); ++i) {
        if (RoofTypeNumbers[i] == typeNumber)
            return RoofTypeNames[i].trimmed();
    }
    return QStringLiteral("No Type Assigned");
}

bool IsFileThere(const QString& path) { return files::isFileThere(path); }

bool IsDirectoryThere(const QString& path) { return files::isDirectoryThere(path); }

namespace {
// The run-time error of a failed file copy: the numbers and texts the user knows from the original.
RuntimeError copyError(const files::FileError& failure)
{
    const QString detail = QStringLiteral(" (%1)").arg(failure.path());
    switch (failure.reason()) {
    case files::FileFailure::DiskFull: return RuntimeError(61, QStringLiteral("Disk full") + detail);
    case files::FileFailure::Denied: return RuntimeError(70, QStringLiteral("Permission denied") + detail);
    case files::FileFailure::Missing: return RuntimeError(53, QStringLiteral("File not found") + detail);
    default: return RuntimeError(75, QStringLiteral("Path/File access error") + detail);
    }
}
} // namespace

bool CopyFile(const QString& source, const QString& target)
{
    StandardHandler handler(QStringLiteral("CopyFile"));
    return handler.run([&] {
        try {
            files::copyFileAtomically(source, target);
        } catch (const files::FileError& failure) {
            throw copyError(failure);
        }
    });
}

QString NumText(long long number)
{
    return number < 0 ? QString::number(number) : QLatin1Char(' ') + QString::number(number);
}

QString ListingText(const QString& sortName, const QString& roofName)
{
    return sortName == roofName ? roofName : sortName + QStringLiteral("...") + roofName;
}

QString ListingText(const QVariant& sortName, const QVariant& roofName)
{
    // A null SortName never equals the name and gives "..." before it.
    if (sortName.isNull())
        return QStringLiteral("...") + roofName.toString();
    return ListingText(sortName.toString(), roofName.toString());
}

bool openRow(Recordset& rs, const QString& sql)
{
    rs = DB.openRecordset(sql);
    if (rs.eof()) {
        rs.close();
        return false;
    }
    rs.moveFirst();
    return true;
}

} // namespace hb
