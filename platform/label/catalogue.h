#pragma once

// Every sheet a user can pick: the program's own, always there, and the templates of the glabels data
// package when it is installed. Read once, on first use.

#include "platform/label/sheet.h"

#include <QHash>
#include <QStringList>

namespace hb::label {

QByteArray builtinSheetsXml();

class SheetCatalogue {
public:
    // The folder where Debian's glabels-data puts its templates.
    static QString packageFolder();
    // The catalogue of the program, read from packageFolder() on first use.
    static const SheetCatalogue& shared();

    // The built-in sheets and, when the folder exists, every template file in it.
    explicit SheetCatalogue(const QString& templateFolder);

    const Sheet* find(const QString& name) const;   // nullptr when unknown
    const QVector<Sheet>& sheets() const { return sheets_; }
    int packageCount() const { return packageRead_; }   // templates of the package read, aliases included
    // What was passed over while reading, one line each.
    const QStringList& problems() const { return problems_; }

    static QString defaultName() { return QStringLiteral("5264 - Shipping"); }

private:
    void add(const QVector<Sheet>& sheets);

    QVector<Sheet> sheets_;
    QHash<QString, int> byName_;
    QStringList problems_;
    int packageRead_ = 0;
};

} // namespace hb::label
