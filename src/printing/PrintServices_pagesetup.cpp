// The services that open the page setup, and the request that centres the next
// print dialog on the screen.
#include "printing/PrintServices.h"

#include "platform/print/CommonDialog.h"
#include "presentation/PresentationServices.h"
#include "printing/frmPSetup.h"

#include <QTabBar>

namespace {

void showPageSetup(int tab)
{
    Form* main = Forms::mainForm();
    PresentationServices::instance().STATUSBARCAPTION(main, QStringLiteral("Obtaining settings..."), 11);
    frmPSetup& setup = Forms::get<frmPSetup>();
    setup.TABSTRIP1->setCurrentIndex(tab);
    setup.Show(1, main);
}

} // namespace

PrintServices& PrintServices::instance()
{
    static PrintServices services;
    return services;
}

void PrintServices::PAGESETUPPAGESHOW()
{
    showPageSetup(0);
}

void PrintServices::PAGESETUPHEADFOOTSHOW()
{
    showPageSetup(1);
}

void PrintServices::HOOKFRMLOAD()
{
    platform::CommonDialog::centreNextDialog(true);
}

void PrintServices::HOOKFRMUNLOAD()
{
    platform::CommonDialog::centreNextDialog(false);
}
