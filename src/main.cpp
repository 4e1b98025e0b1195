#include "album/frmMain.h"
#include "platform/App.h"
#include "platform/Form.h"
#include "resources/Icons.h"

#include <QApplication>

int main(int argc, char* argv[])
{
    platform::App::prepareProcess();
    platform::App::chooseDisplayPlatform();
    QApplication app(argc, argv);
    platform::App::restoreDisplayEnvironment();
    QApplication::setApplicationName(platform::App::Title());
    QApplication::setOrganizationName(platform::App::CompanyName());
    QApplication::setWindowIcon(resources::windowIcon());
    // The desktop entry's name: a Wayland desktop and the task bar find the icon by it.
    QGuiApplication::setDesktopFileName(QStringLiteral(VISTARRO_APP_ID));
    Forms::get<frmMain>().Show();
    return QApplication::exec();
}
