#include "core/forms.h"
#include "core/routes.h"
#include "mailing/formretaddr.h"
#include "mailing/frmlabels.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"
#include "platform/ui/windowservice.h"

namespace hb {

void showLabels()
{
    FrmLabels& labels = forms::get<FrmLabels>();
    labels.setFormVisible(true);
    labels.show();
}

void showReturnAddress() { ui::showModal(forms::get<FormRetAddr>()); }

void labelsPrint() { forms::get<FrmLabels>().cmdPrint_Click(); }

void printMailPiece()
{
    if (FrmMailIt* preview = forms::loaded<FrmMailIt>())
        preview->PrintItNow();
}

void mailPiecePageSetup()
{
    if (FrmMailIt* preview = forms::loaded<FrmMailIt>())
        preview->PageSetup();
}

// Fonts or piece fields changed: the pieces are built again.
void reloadMailPiecePreview()
{
    if (FrmMailIt* preview = forms::loaded<FrmMailIt>()) {
        preview->ezLabel().clearPieces();
        preview->LoadMailIt();
    }
}

} // namespace hb
