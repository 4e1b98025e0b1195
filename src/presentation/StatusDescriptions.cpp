#include "presentation/StatusDescriptions.h"

#include "platform/core/Error.h"
#include "platform/widgets/ControlEvents.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/Toolbar.h"
#include "presentation/ICOMNU.h"
#include "presentation/PresentationServices.h"

#include <QTimer>

namespace zuv {

void describeMenus(ICOMNU* menus, Form* form, std::function<Form*()> statusForm, const QString& fileType)
{
    const auto describe =
        platform::guarded([form, statusForm, fileType](int32_t number, int32_t, bool separator) {
            PresentationServices::instance().STATUSTEXTDESC(form, statusForm(), number, separator, fileType);
        });
    // The window commands' menu: the command's own text, whatever the file type.
    const auto describeCommand = platform::guarded([form, statusForm](int32_t number, int32_t, bool) {
        PresentationServices::instance().STATUSTEXTDESC(form, statusForm(), number, false);
    });
    const auto clear = platform::guarded([form, statusForm] {
        PresentationServices::instance().STATUSTEXTDESC(form, statusForm(), 0, false);
    });
    QObject::connect(menus, &ICOMNU::ItemReport, form, describe);
    QObject::connect(menus, &ICOMNU::ItemReportPlain, form, describeCommand);
    QObject::connect(menus, &ICOMNU::StatusResetA, form, clear);
    QObject::connect(menus, &ICOMNU::StatusResetB, form, clear);
    QObject::connect(menus, &ICOMNU::StatusResetC, form, clear);
    QObject::connect(menus, &ICOMNU::StatusResetD, form, clear);
}

// The bar's rectangle is where the bar stands, not a fixed one: the toolkit's bar
// is wider and taller than the designed one, and the window manager's frame moves
// it down.
QTimer* describeToolbar(platform::Toolbar* bar, Form* form, const QString& fileType)
{
    auto* timer = new QTimer(form);
    timer->setInterval(1);
    QObject::connect(timer, &QTimer::timeout, form, platform::guarded([bar, form, timer] {
                         if (PresentationServices::instance().MOUSEMOVE(form, bar->rectInWindowFrame()) ==
                             1) {
                             PresentationServices::instance().STATUSBARCAPTION(form);
                             timer->stop();
                         }
                     }));
    bar->setMouseTracking(true);
    auto* events = new platform::ControlEvents(bar);
    QObject::connect(events, &platform::ControlEvents::MouseMove, form,
                     platform::guarded([bar, form, timer, fileType](int, int, float x, float) {
                         timer->start();
                         PresentationServices::instance().GETTBARDESCRIPTIONS(form, x, bar, fileType);
                     }));
    return timer;
}

} // namespace zuv
