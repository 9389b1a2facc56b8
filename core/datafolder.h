#pragma once

#include <QString>

// Where a run keeps its database and finds its read-only files.
//
// A copy run from a folder of its own (the build, a portable copy) keeps everything beside the
// executable, in "Data". An installed copy cannot write beside its executable: it keeps its data in the
// user's own data folder and reads the blank databases and the help from the installed share folder.

namespace hb {

struct ProgramFolders {
    QString data;       // the database and its family, with a trailing '/'
    QString resources;  // the help and other read-only files, with a trailing '/'
    QString shells;     // where the blank databases of a first start come from, with a trailing '/'
};

// The installed share folder of a program that runs from appPath, or an empty text when this copy is
// not installed (no share folder beside it holds the blank databases).
QString installedShareFolder(const QString& appPath);

// The user's own folder for the program's data, with a trailing '/'.
QString userProgramFolder();

// The folders of a program that runs from appPath (with a trailing '/'): its own "Data" when that holds
// the database or when appPath may be written and the copy is not installed, else the user's folder.
ProgramFolders chooseFolders(const QString& appPath, bool appPathWritable);
ProgramFolders chooseFolders(const QString& appPath);

// Makes the data folder with its "backup" folder and copies the blank databases that it lacks.
void prepareDataFolder(const ProgramFolders& folders);

} // namespace hb
