#include "platform/widgets/Unattended.h"

#include <QtGlobal>

namespace platform::Unattended {

namespace {
bool unattended = false;
}

void setOn(bool on)
{
    unattended = on;
}

bool isOn()
{
    return unattended;
}

void unanswered(const QString& kind, const QString& title, const QString& text)
{
    qFatal("No answer was queued for the %s \"%s\": %s", qPrintable(kind), qPrintable(title),
           qPrintable(text));
}

} // namespace platform::Unattended
