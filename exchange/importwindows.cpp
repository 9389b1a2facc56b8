#include "exchange/importwindows.h"

#include "exchange/formcommadelimitedimport.h"
#include "exchange/formduplicatewarning.h"
#include "exchange/formimport.h"
#include "exchange/formimportprogress.h"
#include "platform/ui/windowservice.h"

#include <QPointer>

namespace hb::importwindows {

void hideSources()
{
    if (auto* source = forms::loaded<FormCommaDelimitedImport>())
        source->setFormVisible(false);
    if (auto* import = forms::loaded<FormImport>())
        import->setFormVisible(false);
}

void showProgress(qint32 index, qint32 total) { forms::get<FormImportProgress>().showRecord(index, total); }

QString askAboutDuplicate(const QString& text)
{
    auto& window = forms::get<FormDuplicateWarning>();
    window.setWarning(text);
    QPointer<FormDuplicateWarning> guard(&window);
    ui::showModal(window);
    return guard ? guard->Tag : QString();
}

bool homebookSource()
{
    const auto* import = forms::loaded<FormImport>();
    return import && import->homebookChosen();
}

void unloadImportWindows()
{
    forms::unload(FormImportProgress::staticFormName());
    forms::unload(FormDuplicateWarning::staticFormName());
}

} // namespace hb::importwindows
