#include "printing/PageSettings.h"

#include "platform/print/CommonDialog.h"
#include "platform/widgets/Form.h"
#include "settings/StoreAndFileServices.h"

namespace printing {

QString marginsKey()
{
    return StoreAndFileServices::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items");
}

QString marginName(int number)
{
    return QStringLiteral("Page Margin %1").arg(number);
}

QString headerKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\frmPPrev\\Items\\Header");
}

QString footerKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\frmPPrev\\Items\\Footer");
}

QString mainFileName()
{
    const Form* main = Forms::mainForm();
    const auto* dialog = main ? main->findChild<platform::CommonDialog*>(QStringLiteral("CMD1")) : nullptr;
    return dialog && !dialog->FileName.isEmpty() ? dialog->FileName : QStringLiteral("Untitled");
}

} // namespace printing
