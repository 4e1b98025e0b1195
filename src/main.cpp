#include "album/frmMain.h"
#include "platform/App.h"
#include "platform/Form.h"
#include "resources/Icons.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    platform::App::prepareProcess();
    QApplication app(argc, argv);
    QApplication::setApplicationName(platform::App::Title());
    QApplication::setOrganizationName(platform::App::CompanyName());
    QApplication::setWindowIcon(resources::windowIcon());
    Forms::get<frmMain>().Show();
    return QApplication::exec();
}
