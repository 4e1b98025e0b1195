#include "printing/PageSettings.h"

#include "platform/core/App.h"
#include "platform/print/CommonDialog.h"
#include "platform/widgets/Form.h"
#include "settings/clsLibrary.h"

namespace printing {

QString previewKey()
{
    return clsLibrary::companyKey() + QStringLiteral("\\GLOBAL\\frmPPrev\\Items");
}

QString marginName(int number)
{
    return QString::fromLatin1(Margins.at(size_t(number)).name);
}

QString headerKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\frmPPrev\\Items\\Header");
}

QString footerKey()
{
    return clsLibrary::programKey() + QStringLiteral("\\frmPPrev\\Items\\Footer");
}

QString defaultTitle()
{
    return platform::App::Title() + QStringLiteral(" Report.");
}

QString defaultField1()
{
    return clsLibrary::instance().GETCOMPANYNAME();
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
