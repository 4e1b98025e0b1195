#include "platform/widgets/Application.h"

#include "platform/core/Error.h"

#include <cstdio>
#include <exception>

namespace platform {

bool Application::notify(QObject* receiver, QEvent* event)
{
    try {
        return QApplication::notify(receiver, event);
    } catch (const std::exception& failure) {
        // Written without allocating: the failure may be a want of memory.
        std::fputs("Vistarro: an event handler failed and was left: ", stderr);
        std::fputs(failure.what(), stderr);
        std::fputc('\n', stderr);
        detail::logSwallowed("event handler left", nullptr, 0);
    } catch (...) {
        std::fputs("Vistarro: an event handler failed and was left\n", stderr);
        detail::logSwallowed("event handler left", nullptr, 0);
    }
    return false;
}

} // namespace platform
