#include "printing/PageSettings.h"

#include "platform/core/App.h"
#include "platform/print/CommonDialog.h"
#include "platform/widgets/Form.h"
#include "settings/StoreAndFileServices.h"

namespace printing {

QString previewKey()
{
    return StoreAndFileServices::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items");
}

QString marginName(int number)
{
    return QString::fromLatin1(Margins.at(size_t(number)).name);
}

QString headerKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\frmPPrev\\Items\\Header");
}

QString footerKey()
{
    return StoreAndFileServices::programKey() + QStringLiteral("\\frmPPrev\\Items\\Footer");
}

QString defaultTitle()
{
    return platform::App::Title() + QStringLiteral(" Report.");
}

QString defaultField1()
{
    return StoreAndFileServices::instance().GETCOMPANYNAME();
}

QString defaultField2()
{
    return mainFileName();
}

QString mainFileName()
{
    const Form* main = Forms::mainForm();
    const auto* dialog = main ? main->findChild<platform::CommonDialog*>(QStringLiteral("CMD1")) : nullptr;
    return dialog && !dialog->FileName.isEmpty() ? dialog->FileName : QStringLiteral("Untitled");
}

} // namespace printing
