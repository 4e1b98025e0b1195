#pragma once

#include <QApplication>

namespace platform {

// The program's application object. An exception that escapes an event handler
// (an allocation that failed, a thread that couldn't be started) ends that
// handler, the way a failed statement is skipped, and the program goes on; the
// toolkit would end the program instead. One line on standard error tells of it,
// and the category vistarro.skipped (Error.h) gets it too when that is on.
class Application : public QApplication {
public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;
};

} // namespace platform
