// Linked into every test program: nobody answers a test's modal boxes, so one
// that no answer was queued for ends the test at once with what it asked.
#include "platform/widgets/Unattended.h"

#include <QCoreApplication>

namespace {

void runUnattended()
{
    platform::Unattended::setOn(true);
}

} // namespace

Q_COREAPP_STARTUP_FUNCTION(runUnattended)
