// An exception out of an event handler ends the handler, not the program: the
// show's timer once ended the program when the worker's thread couldn't start.
// Handlers connected through platform::guarded end their failures themselves, and
// what is swallowed is written to the "vistarro.skipped" category when it is on.
#include "platform/core/Error.h"
#include "platform/widgets/Application.h"

#include <QLoggingCategory>
#include <QTest>
#include <QTimer>

#include <new>
#include <stdexcept>
#include <system_error>

namespace {

QStringList logged;

void keepSkipped(QtMsgType type, const QMessageLogContext& context, const QString& message)
{
    if (type == QtDebugMsg && qstrcmp(context.category, "vistarro.skipped") == 0)
        logged.append(message);
}

} // namespace

class Sender : public QObject {
    Q_OBJECT
signals:
    void fired(int value, const QString& text);
};

class tst_Application : public QObject {
    Q_OBJECT

    int bumped_ = 0;
    QtMessageHandler previous_ = nullptr;

public:
    void bump() { ++bumped_; }

private slots:
    void init()
    {
        logged.clear();
        previous_ = qInstallMessageHandler(keepSkipped);
    }

    void cleanup()
    {
        qInstallMessageHandler(previous_);
        QLoggingCategory::setFilterRules(QString());
    }

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

    // A signal sent by code, outside of any event: only the guard stands between
    // the failure and the code that sent it.
    void guardedHandlersEndTheirFailures()
    {
        Sender sender;
        int value = 0;
        QString text;
        connect(&sender, &Sender::fired, this,
                platform::guarded([](int) { throw platform::Error(platform::err::FileNotFound); }));
        connect(&sender, &Sender::fired, this,
                platform::guarded([](int, const QString&) { throw std::bad_alloc(); }));
        connect(&sender, &Sender::fired, this, platform::guarded([&](int v, const QString& t) {
            value = v;
            text = t;
        }));
        connect(&sender, &Sender::fired, this, platform::guarded(this, &tst_Application::bump));
        emit sender.fired(5, QStringLiteral("five"));
        QCOMPARE(value, 5);
        QCOMPARE(text, QStringLiteral("five"));
        QCOMPARE(bumped_, 1);
    }

    void swallowedFailuresAreLoggedWhenAsked()
    {
        QLoggingCategory::setFilterRules(QStringLiteral("vistarro.skipped.debug=true"));
        platform::resumeNext([] { throw platform::Error(platform::err::FileNotFound); });
        const int skippedAt = __LINE__ - 1;
        platform::resumeNext([] { throw std::bad_alloc(); });
        platform::resumeNext([] { throw std::runtime_error("the disk went away"); });
        platform::resumeNext([] { throw 42; });
        platform::resumeNext([] {});
        Sender sender;
        connect(&sender, &Sender::fired, this,
                platform::guarded([] { throw platform::Error(platform::err::InvalidPicture); }));
        const int connectedAt = __LINE__ - 1;
        emit sender.fired(0, QString());
        QTimer::singleShot(0, this, [] { throw platform::Error(platform::err::PermissionDenied); });
        QTRY_COMPARE(logged.size(), 6);

        QCOMPARE(
            logged.at(0),
            QStringLiteral("tst_application.cpp:%1: step skipped: error 53: File not found").arg(skippedAt));
        QVERIFY2(logged.at(1).endsWith(QLatin1String(": step skipped: error 7: Out of memory")),
                 qPrintable(logged.at(1)));
        QVERIFY2(logged.at(2).endsWith(QLatin1String(": step skipped: the disk went away")),
                 qPrintable(logged.at(2)));
        QVERIFY2(logged.at(3).endsWith(QLatin1String(": step skipped: an unknown failure")),
                 qPrintable(logged.at(3)));
        QCOMPARE(logged.at(4),
                 QStringLiteral("tst_application.cpp:%1: handler left: error 481: Invalid picture")
                     .arg(connectedAt));
        QCOMPARE(logged.at(5), QStringLiteral("event handler left: error 70: Permission denied"));
    }

    void nothingIsLoggedByDefault()
    {
        if (qEnvironmentVariableIsSet("QT_LOGGING_RULES"))
            QSKIP("the environment sets logging rules");
        QVERIFY(!platform::skippedLog().isDebugEnabled());
        platform::resumeNext([] { throw platform::Error(platform::err::FileNotFound); });
        Sender sender;
        connect(&sender, &Sender::fired, this, platform::guarded([] { throw std::bad_alloc(); }));
        emit sender.fired(0, QString());
        QCOMPARE(logged, QStringList());
    }
};

int main(int argc, char** argv)
{
    platform::Application app(argc, argv);
    tst_Application test;
    return QTest::qExec(&test, argc, argv);
}

#include "tst_application.moc"
