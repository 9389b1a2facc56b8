#include "core/fileformat.h"

#include "core/helpers.h"
#include "core/synctables.h"
#include "platform/storage/database.h"

#include <functional>
#include <iterator>

namespace hb {
namespace {

using Step = std::function<void(Database&)>;

// A table made by a step that failed halfway at an earlier start is there already.
void createMissing(Database& db, const TableDef& def)
{
    if (!db.tableDef(def.name))
        db.createTable(def);
}

const Step steps[] = {
    // 1: the import finds duplicates by name among many listings.
    [](Database& db) { db.addTextLookupIndex(QStringLiteral("Roof"), QStringLiteral("RoofName")); },
    // 2: the sync with an address book server keeps its server and what it last synced of each card.
    [](Database& db) {
        createMissing(db, synctables::serverTable());
        createMissing(db, synctables::cardTable());
    },
};

}  // namespace

int currentFormatStep()
{
    return int(std::size(steps));
}

void upgradeFileFormat(Database& db)
{
    int done = 0;
    try {
        for (done = db.formatStep(); done < currentFormatStep(); ++done) {
            steps[done](db);
            db.setFormatStep(done + 1);
        }
    } catch (const DbError& failure) {
        DebugLog(QStringLiteral("The file's layout stays at step %1: %2").arg(done).arg(failure.description()));
    }
}

}  // namespace hb
