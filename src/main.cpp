#include "album/frmMain.h"
#include "platform/App.h"
#include "platform/Application.h"
#include "platform/Form.h"
#include "resources/Icons.h"

#include <cstdio>
#include <new>

int main(int argc, char* argv[])
{
    platform::App::prepareProcess();
    platform::Application app(argc, argv);
    // Too little memory to make the main window ends the program with a message.
    try {
        QApplication::setApplicationName(platform::App::Title());
        QApplication::setOrganizationName(platform::App::CompanyName());
        QApplication::setWindowIcon(resources::windowIcon());
        Forms::get<frmMain>().Show();
    } catch (const std::bad_alloc&) {
        std::fputs("Vistarro: not enough memory to start\n", stderr);
        return 1;
    }
    return QApplication::exec();
}
