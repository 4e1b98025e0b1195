#pragma once

#include <QString>

// Whether anybody is there to answer the program's modal boxes. The tests run
// unattended: there a message box or print dialog that no answer was queued for
// ends the run at once, naming what it asked, instead of waiting for a click that
// never comes until the test's time runs out.
namespace platform::Unattended {

void setOn(bool on);
bool isOn();

// Ends the run with a message that names the box (KIND, "message box" or "print
// dialog"), its TITLE and its TEXT.
[[noreturn]] void unanswered(const QString& kind, const QString& title, const QString& text);

} // namespace platform::Unattended
