#include "printing/clsPrinting.h"

#include "platform/core/Error.h"
#include "platform/print/CommonDialog.h"
#include "platform/widgets/Form.h"

int32_t TEXTLEN = 0;

clsPrinting& clsPrinting::instance()
{
    static clsPrinting printing;
    return printing;
}

platform::CommonDialog& clsPrinting::dialogOf(Form* form)
{
    auto* dialog =
        form ? form->findChild<platform::CommonDialog*>(QStringLiteral("CMD1"), Qt::FindDirectChildrenOnly)
             : nullptr;
    if (!dialog)
        throw platform::Error(platform::err::ObjectDoesntSupport);
    return *dialog;
}
