#include "platform/storage/fielddef.h"

namespace hb::storage {

const FieldDef* TableDef::field(const QString& fieldName) const
{
    for (const FieldDef& f : fields) {
        if (f.name.compare(fieldName, Qt::CaseInsensitive) == 0)
            return &f;
    }
    return nullptr;
}

}  // namespace hb::storage
