#include "ToolbarPointer.h"

#include "platform/widgets/Toolbar.h"

#include <QAction>
#include <QCursor>
#include <QSignalSpy>
#include <QTest>
#include <QTimer>

void checkDescriptionsCoverTheBar(platform::Toolbar* bar, QTimer* timer, const std::function<QString()>& line)
{
    for (QAction* action : bar->actions()) {
        // Separators and the controls standing in the bar have no description.
        if (platform::Toolbar::Description(action).isEmpty())
            continue;
        QWidget* button = bar->widgetForAction(action);
        const QRect r = button->rect();
        for (const QPoint corner : {r.topLeft(), r.topRight(), r.bottomLeft(), r.bottomRight()}) {
            QCursor::setPos(button->mapToGlobal(corner));
            QTest::mouseMove(button, corner);
            QTRY_VERIFY2(!line().isEmpty(), qPrintable(button->objectName()));
            // A tick of the pointer test has run with the pointer there.
            QSignalSpy ticks(timer, &QTimer::timeout);
            QVERIFY(ticks.wait(1000));
            QVERIFY2(!line().isEmpty(), qPrintable(QStringLiteral("%1 at (%2, %3)")
                                                       .arg(button->objectName())
                                                       .arg(corner.x())
                                                       .arg(corner.y())));
        }
    }
    // Just below the bar.
    QCursor::setPos(bar->mapToGlobal(QPoint(bar->width() / 2, bar->height())));
    QTRY_COMPARE(line(), QString());
    QVERIFY(!timer->isActive());
}
