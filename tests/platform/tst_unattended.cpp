// A test runs unattended: a message box or print dialog that it queued no answer
// for ends the run at once, naming the box, instead of waiting for a click until
// the test's time runs out. Each box is asked in a run of this program of its
// own (the test function named on its command line), which must end by itself.

#include "platform/print/CommonDialog.h"
#include "platform/widgets/MsgBox.h"
#include "platform/widgets/Unattended.h"

#include <QElapsedTimer>
#include <QProcess>
#include <QTest>
#include <QWidget>

namespace {

// Set for the run that asks; the other functions are skipped there.
const char* const AskingRun = "VISTARRO_TEST_ASKING_RUN";

bool askingRun()
{
    return qEnvironmentVariableIsSet(AskingRun);
}

} // namespace

class tst_unattended : public QObject {
    Q_OBJECT

private slots:
    void unansweredBoxEndsTheRunAtOnce_data()
    {
        QTest::addColumn<QString>("function");
        QTest::addColumn<QStringList>("named");
        QTest::newRow("message box") << "askMessage"
                                     << QStringList{"message box", "\"Remove All\"",
                                                    "Remove every picture from the album?"};
        QTest::newRow("print dialog")
            << "askPrinter" << QStringList{"print dialog", "\"Preview\"", "pages 2 to 5 of 9, 3 copies"};
    }

    void unansweredBoxEndsTheRunAtOnce()
    {
        if (askingRun())
            QSKIP("the asking run");
        QFETCH(QString, function);
        QFETCH(QStringList, named);
        QVERIFY(platform::Unattended::isOn());

        QProcess run;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QString::fromLatin1(AskingRun), QStringLiteral("1"));
        // The run ends by an abort: no debugger's stack trace, no core file.
        environment.insert(QStringLiteral("QTEST_DISABLE_STACK_DUMP"), QStringLiteral("1"));
        environment.insert(QStringLiteral("QTEST_DISABLE_CORE_DUMP"), QStringLiteral("1"));
        run.setProcessEnvironment(environment);
        run.setProcessChannelMode(QProcess::MergedChannels);
        QElapsedTimer clock;
        clock.start();
        run.start(QCoreApplication::applicationFilePath(), {function});
        // Far less than the 120 seconds a test may take.
        QVERIFY2(run.waitForFinished(30000), "the box waited for an answer");
        const QString output = QString::fromLocal8Bit(run.readAll());
        QVERIFY2(run.exitStatus() == QProcess::CrashExit || run.exitCode() != 0, qPrintable(output));
        QVERIFY2(!output.contains(QLatin1String("the box returned")), qPrintable(output));
        for (const QString& part : named)
            QVERIFY2(output.contains(part), qPrintable(output));
        qInfo("ended after %lld ms", clock.elapsed());
    }

    // Run only by unansweredBoxEndsTheRunAtOnce.
    void askMessage()
    {
        if (!askingRun())
            QSKIP("asked in a run of its own");
        platform::MsgBox::ask(nullptr, QMessageBox::Question, QStringLiteral("Remove All"),
                              QStringLiteral("Remove every picture from the album?"),
                              QMessageBox::Yes | QMessageBox::No, QMessageBox::No);
        QFAIL("the box returned");
    }

    void askPrinter()
    {
        if (!askingRun())
            QSKIP("asked in a run of its own");
        QWidget window;
        window.setWindowTitle(QStringLiteral("Preview"));
        platform::CommonDialog dialog(QStringLiteral("CMD1"), &window);
        dialog.FromPage = 2;
        dialog.ToPage = 5;
        dialog.Max = 9;
        dialog.Copies = 3;
        dialog.ShowPrinter();
        QFAIL("the box returned");
    }
};

QTEST_MAIN(tst_unattended)
#include "tst_unattended.moc"
