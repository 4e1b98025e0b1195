#include "album/frmMain.h"
#include "config.h"
#include "platform/core/App.h"
#include "platform/widgets/Application.h"
#include "platform/widgets/Form.h"
#include "resources/Icons.h"

#include <cstdio>
#include <new>

int main(int argc, char* argv[])
{
    platform::App::prepareProcess();
    platform::App::chooseDisplayPlatform();
    platform::Application app(argc, argv);
    platform::App::restoreDisplayEnvironment();
    // Too little memory to make the main window ends the program with a message.
    try {
        QApplication::setApplicationName(platform::App::Title());
        QApplication::setOrganizationName(platform::App::CompanyName());
        QApplication::setWindowIcon(resources::windowIcon());
        // The desktop entry's name: a Wayland desktop and the task bar find the icon by it.
        QGuiApplication::setDesktopFileName(QStringLiteral(VISTARRO_APP_ID));
        Forms::get<frmMain>().Show();
    } catch (const std::bad_alloc&) {
        std::fputs("Vistarro: not enough memory to start\n", stderr);
        return 1;
    }
    return QApplication::exec();
}
