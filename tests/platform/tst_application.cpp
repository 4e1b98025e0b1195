// An exception out of an event handler ends the handler, not the program: the
// show's timer once ended the program when the worker's thread couldn't start.
#include "platform/widgets/Application.h"

#include <QTest>
#include <QTimer>

#include <new>
#include <system_error>

class tst_Application : public QObject {
    Q_OBJECT

private slots:
    void handlersThatThrowAreLeft()
    {
        int ran = 0;
        QTimer::singleShot(0, this, [&] {
            ++ran;
            throw std::bad_alloc();
        });
        QTimer::singleShot(0, this, [&] {
            ++ran;
            throw std::system_error(std::make_error_code(std::errc::resource_unavailable_try_again));
        });
        QTimer::singleShot(0, this, [&] {
            ++ran;
            throw 42;
        });
        QTimer::singleShot(0, this, [&] { ++ran; });
        QTRY_COMPARE(ran, 4);
    }
};

int main(int argc, char** argv)
{
    platform::Application app(argc, argv);
    tst_Application test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_application.moc"
