// Makes the blank databases that a fresh installation carries, from the schema code.

#include "core/schema.h"
#include "platform/storage/dberror.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <cstdio>

using namespace hb::storage;

int main(int argc, char** argv)
{
    QCoreApplication app(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: hbmkshell <data folder>\n");
        return 2;
    }
    const QDir data(QString::fromLocal8Bit(argv[1]));
    data.mkpath(QStringLiteral("."));
    try {
        for (const auto& [name, make] : {std::pair{"hb10db.shell", &hb::schema::createMainShell},
                                         std::pair{"export.mdb", &hb::schema::createExportShell}}) {
            const QString path = data.filePath(QString::fromLatin1(name));
            const QString temporary = path + QStringLiteral(".new");
            QFile::remove(temporary);
            make(temporary);
            QFile::remove(path);
            if (!QFile::rename(temporary, path))
                throw std::runtime_error("cannot put the new file in place");
        }
    } catch (const DbError& failure) {
        std::fprintf(stderr, "hbmkshell: %d %s\n", failure.number(), qPrintable(failure.description()));
        return 1;
    } catch (const std::exception& failure) {
        std::fprintf(stderr, "hbmkshell: %s\n", failure.what());
        return 1;
    }
    return 0;
}
