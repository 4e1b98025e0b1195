#pragma once

#include "platform/widgets/Form.h"

#include <QCoreApplication>
#include <QEvent>

namespace testsupport {

// Deletes now what unloaded forms left to be deleted later, so that the next
// Forms::get builds a new form and nothing of the old one outlives the test.
inline void flushDeferredDeletes()
{
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

// Unloads each of the forms, in the order given, and deletes them.
template <typename... Unloaded> void unloadForms()
{
    (Forms::unload<Unloaded>(), ...);
    flushDeferredDeletes();
}

} // namespace testsupport
