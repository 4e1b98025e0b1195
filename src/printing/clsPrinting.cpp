#include "printing/clsPrinting.h"

#include "platform/CommonDialog.h"
#include "platform/Error.h"
#include "platform/Form.h"

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
