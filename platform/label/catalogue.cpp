#include "platform/label/catalogue.h"

#include "platform/label/templatereader.h"

#include <QDir>
#include <QFile>

namespace hb::label {

QString SheetCatalogue::packageFolder() { return QStringLiteral("/usr/share/libglabels-3.0/templates"); }

const SheetCatalogue& SheetCatalogue::shared()
{
    static const SheetCatalogue catalogue(packageFolder());
    return catalogue;
}

SheetCatalogue::SheetCatalogue(const QString& templateFolder)
{
    PaperSizes papers = standardPaperSizes();
    TemplateRead own;
    readTemplates(builtinSheetsXml(), QStringLiteral("built-in"), papers, own);
    add(own.sheets);
    problems_ << own.problems;

    const QDir folder(templateFolder);
    if (templateFolder.isEmpty() || !folder.exists())
        return;
    QFile paperFile(folder.filePath(QStringLiteral("paper-sizes.xml")));
    if (paperFile.open(QIODevice::ReadOnly))
        readPaperSizes(paperFile.readAll(), papers);
    TemplateRead package;
    const QStringList files = folder.entryList({QStringLiteral("*-templates.xml")}, QDir::Files, QDir::Name);
    for (const QString& name : files) {
        QFile file(folder.filePath(name));
        if (!file.open(QIODevice::ReadOnly)) {
            problems_ << name + QStringLiteral(": cannot be read");
            continue;
        }
        readTemplates(file.readAll(), name, papers, package);
    }
    resolveAliases(package);
    packageRead_ = int(package.sheets.size());
    add(package.sheets);
    problems_ << package.problems;
}

void SheetCatalogue::add(const QVector<Sheet>& sheets)
{
    for (const Sheet& sheet : sheets) {
        const QString name = sheet.name();
        if (byName_.contains(name))
            continue;
        byName_.insert(name, int(sheets_.size()));
        sheets_.append(sheet);
    }
}

const Sheet* SheetCatalogue::find(const QString& name) const
{
    const auto found = byName_.constFind(name.trimmed());
    return found == byName_.constEnd() ? nullptr : &sheets_[*found];
}

} // namespace hb::label
