// The readers of the other sources of the import window. They come with their own files; until then the
// window says plainly that the source cannot be read.

#include "exchange/formimport.h"

#include "core/session.h"
#include "platform/ui/windowservice.h"

namespace hb {

namespace {

void notYet()
{
    ui::msgBox(QStringLiteral("Importing from this source is not available in this version."), MsgWarning,
               QStringLiteral("Import Error"));
}

} // namespace

void FormImport::ImportBK() { notYet(); }
void FormImport::ImportHB() { notYet(); }
void FormImport::ImportQuillon() { notYet(); }

} // namespace hb
