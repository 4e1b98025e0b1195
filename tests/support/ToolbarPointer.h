#pragma once

#include <QString>

#include <functional>

class QTimer;
namespace platform {
class Toolbar;
}

// The pointer on each corner pixel of every button of BAR keeps the description
// that LINE reads on view while the pointer test's TIMER ticks; once the pointer
// has left the bar the line is emptied and the timer stops. A failure is
// reported through QTest as usual.
void checkDescriptionsCoverTheBar(platform::Toolbar* bar, QTimer* timer,
                                  const std::function<QString()>& line);
