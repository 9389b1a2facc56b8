// The label and mail piece windows as the frame and the other subsystems reach them.

#include "mailing/mailingroutes.h"

#include "core/forms.h"
#include "core/routes.h"
#include "mailing/formretaddr.h"
#include "mailing/frmlabels.h"
#include "mailing/frmmailit.h"
#include "platform/label/labelcontrol.h"
#include "platform/ui/windowservice.h"

namespace hb {

namespace {

void showLabelList()
{
    FrmLabels& labels = forms::get<FrmLabels>();
    labels.setFormVisible(true);
    labels.show();
}

// Fonts or piece fields changed: the pieces are built again.
void reloadPreview()
{
    if (FrmMailIt* preview = forms::loaded<FrmMailIt>()) {
        preview->ezLabel().clearPieces();
        preview->LoadMailIt();
    }
}

} // namespace

void registerMailingRoutes()
{
    setRoute(RouteId::Labels, showLabelList);
    setRoute(RouteId::ReturnAddress, [] { ui::showModal(forms::get<FormRetAddr>()); });
    setRoute(RouteId::LabelsPrint, [] { forms::get<FrmLabels>().cmdPrint_Click(); });
    setRoute(RouteId::PrintMailPiece, forms::whenLoaded<FrmMailIt, &FrmMailIt::PrintItNow>);
    setRoute(RouteId::MailPiecePageSetup, forms::whenLoaded<FrmMailIt, &FrmMailIt::PageSetup>);
    setRoute(RouteId::ReloadMailPiecePreview, reloadPreview);
}

} // namespace hb
