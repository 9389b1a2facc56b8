#include "core/fileformat.h"

#include "core/helpers.h"
#include "platform/storage/database.h"

#include <functional>
#include <iterator>

namespace hb {
namespace {

using Step = std::function<void(Database&)>;

const Step steps[] = {
    // 1: the import finds duplicates by name among many listings.
    [](Database& db) { db.addTextLookupIndex(QStringLiteral("Roof"), QStringLiteral("RoofName")); },
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
