#include "largeworld.h"

#include "scriptedwindows.h"
#include "testdata.h"

#include "core/forms.h"
#include "core/schema.h"
#include "core/session.h"
#include "core/setup.h"

#include <QDir>

using namespace hb;

LargeWorld& LargeWorld::instance()
{
    static LargeWorld world;
    return world;
}

LargeWorld::LargeWorld()
{
    QDir(dir_.path()).mkpath(QStringLiteral("Data"));
    const QString data = dir_.path() + QStringLiteral("/Data/");
    schema::createMainShell(data + QStringLiteral("hb10db.shell"));
    schema::createExportShell(data + QStringLiteral("export.mdb"));
    ui::setWindowService(std::make_unique<ScriptedWindows>());
    open();
    fillLargeDatabase(Listings);
    // Keep the counter away from a compaction during the runs.
    DB.execute(QStringLiteral("update CompactCount set CompactCounter = -100000"));
    close();
}

void LargeWorld::open()
{
    resetSession();
    setProgramDirectory(dir_.path());
    Setup();
}

void LargeWorld::close()
{
    forms::unloadAll();
    DB.close();
    resetSession();
}
