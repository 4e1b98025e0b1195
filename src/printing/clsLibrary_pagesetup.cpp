// clsLibrary: the services that open the page setup.
#include "settings/clsLibrary.h"

#include "printing/frmPSetup.h"

#include <QTabBar>

namespace {

void showPageSetup(int tab)
{
    Form* main = Forms::mainForm();
    clsLibrary::instance().STATUSBARCAPTION(main, QStringLiteral("Obtaining settings..."), 11);
    frmPSetup& setup = Forms::get<frmPSetup>();
    setup.TABSTRIP1->setCurrentIndex(tab);
    setup.Show(1, main);
}

} // namespace

void clsLibrary::PAGESETUPPAGESHOW()
{
    showPageSetup(0);
}

void clsLibrary::PAGESETUPHEADFOOTSHOW()
{
    showPageSetup(1);
}
