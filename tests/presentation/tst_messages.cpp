// The message catalogue: every row's words, icon, buttons, default button, title
// and beep, answered through the message box's test seam, and OVERWRITECHK.

#include "library/clsLibrary.h"
#include "platform/core/App.h"
#include "platform/widgets/MsgBox.h"

#include <QFile>
#include <QTemporaryDir>
#include <QTest>

#include <utility>

using Button = QMessageBox::StandardButton;
using Buttons = QMessageBox::StandardButtons;
using Icon = QMessageBox::Icon;

Q_DECLARE_METATYPE(QMessageBox::Icon)

namespace {

const QString Title = QStringLiteral("Vistarro");

void row(const QString& name, bool question, int number, const QStringList& files, const QString& text,
         Icon icon, const QString& title, Buttons buttons, Button defaultButton, Button answer, int code,
         bool beeps)
{
    QTest::newRow(qPrintable(name)) << question << number << files << text << icon << title << buttons
                                    << defaultButton << answer << code << beeps;
}

// A row of MESSAGEBOX: one OK button.
void statement(const QString& name, int number, const QStringList& files, const QString& text, Icon icon,
               const QString& title, bool beeps = false)
{
    row(name, false, number, files, text, icon, title, Button::Ok, Button::Ok, Button::Ok, 0, beeps);
}

// A row of MESSAGEBOXFCN, answered with answer, which must come back as code.
void question(const QString& name, int number, const QString& file, const QString& text, const QString& title,
              Buttons buttons, Button defaultButton, Button answer, int code)
{
    row(name, true, number, {file}, text, QMessageBox::Question, title, buttons, defaultButton, answer, code,
        false);
}

} // namespace

class tst_messages : public QObject {
    Q_OBJECT

private slots:
    void catalogue_data();
    void catalogue();
    void overwriteCheck();
};

void tst_messages::catalogue_data()
{
    QTest::addColumn<bool>("question");
    QTest::addColumn<int>("number");
    QTest::addColumn<QStringList>("files");
    QTest::addColumn<QString>("text");
    QTest::addColumn<Icon>("icon");
    QTest::addColumn<QString>("title");
    QTest::addColumn<Buttons>("buttons");
    QTest::addColumn<Button>("defaultButton");
    QTest::addColumn<Button>("answer");
    QTest::addColumn<int>("code");
    QTest::addColumn<bool>("beeps");

    const Icon Info = QMessageBox::Information;
    const Icon Warn = QMessageBox::Warning;
    const Icon Stop = QMessageBox::Critical;
    statement("1", 1, {"x"}, "Spell Checker has now finished checking your document.", Info, "Spell Checker");
    // "time" for a count that reads as exactly 1.
    for (const auto& [count, ending] : {std::pair{"1.0", ""}, {"0", "s"}, {"2", "s"}}) {
        statement(QStringLiteral("3 count %1").arg(count), 3, {"abc", count},
                  QStringLiteral("The text 'abc' has been found '%1' time%2.").arg(count, ending), Info,
                  "Find");
    }
    // Filled in one pass: a parameter that looks like a marker is not filled again.
    statement("3 marker in a parameter", 3, {"{FILE2}{CRLF}", "2"},
              "The text '{FILE2}{CRLF}' has been found '2' times.", Info, "Find");
    statement("6", 6, {"a", "b", "3"}, "The text 'a' have all been replaced by 'b' 3 times.", Info,
              "Replace");
    statement("14", 14, {"b.jpg"},
              "There are problems reading b.jpg so the details will be only partly available.", Warn,
              "Properties");
    statement("13", 13, {},
              "There is no printer installed. You will not be able to use the printer functions.", Stop,
              platform::App::Path(), true);
    // The first line ends in a blank and the second starts with one.
    statement(
        "15", 15, {"b.tga"},
        "b.tga is either an invalid format or the document is corrupt. \r\n Try re-saving the image to a "
        "different name from within a paint package and trying again.",
        Stop, Title, true);

    statement("9", 9, {"12"}, "The line number entered is larger than the current 12 lines available.", Warn,
              "Go To");
    statement("10", 10, {"a.txt"},
              "There is a problem saving the document 'a.txt'. This is possibly a read-only document.", Warn,
              "Save");
    statement("12", 12, {}, "You cannot enter a value which leaves you with no room to print.", Warn,
              "Page Setup");
    statement("19", 19, {"a.txt"},
              "The document 'a.txt' cannot be reopened. The document may no longer exist.", Warn, "ReOpen");
    statement("22", 22, {}, "There is a problem with reading TGA 16 bit format, please try another format.",
              Warn, "Picture");
    statement("24", 24, {},
              "You have reached the limit of documents that can be opened in a session, sorry.\r\nYou could "
              "always close Gazetteer and re-launch it.",
              Stop, Title, true);
    statement("25", 25, {"a.txt"},
              "The document a.txt is no longer available and will now be removed from the list.", Warn,
              Title);

    const Buttons yesNo = Button::Yes | Button::No;
    const Buttons yesNoCancel = yesNo | Button::Cancel;
    // Deleting offers No as the default, so that a plain Enter deletes nothing.
    const QString clear = "Are you really sure you want to delete 'a.jpg' to the Recycle Bin ?";
    question("2 yes", 2, "a.jpg", clear, "Clear Picture", yesNo, Button::No, Button::Yes, 6);
    question("2 no", 2, "a.jpg", clear, "Clear Picture", yesNo, Button::No, Button::No, 7);
    question("6", 6, "a.txt", "Do you wish to save 'a.txt' before you close ?", Title, yesNoCancel,
             Button::Yes, Button::Cancel, 2);
    question("5", 5, "notes",
             "Continuing will loose any unsaved changes for the notes\r\nDo you want to continue ?", "ReOpen",
             yesNo, Button::Yes, Button::No, 7);
    question("8", 8, "", "You have unsaved work, do you want to save first ?", "New", yesNoCancel,
             Button::Yes, Button::Yes, 6);

    // Numbers with no row: an empty box with one OK button and no icon, whose OK
    // gives 1. Each kind numbers its rows on its own: a row of one is none of the other.
    for (int number : {0, 2, 26, -1}) {
        row(QStringLiteral("statement %1 has no row").arg(number), false, number, {"a", "1"}, "",
            QMessageBox::NoIcon, Title, Button::Ok, Button::Ok, Button::Ok, 0, false);
    }
    for (int number : {1, 9, -32768}) {
        row(QStringLiteral("question %1 has no row").arg(number), true, number, {"a"}, "",
            QMessageBox::NoIcon, Title, Button::Ok, Button::Ok, Button::Ok, 1, false);
    }
}

void tst_messages::catalogue()
{
    QFETCH(bool, question);
    QFETCH(int, number);
    QFETCH(QStringList, files);
    QFETCH(QString, text);
    QFETCH(Icon, icon);
    QFETCH(QString, title);
    QFETCH(Buttons, buttons);
    QFETCH(Button, defaultButton);
    QFETCH(Button, answer);
    QFETCH(int, code);
    QFETCH(bool, beeps);

    files.resize(4);
    const int asked = platform::MsgBox::askedCount();
    const int beeped = platform::MsgBox::beepCount();
    platform::MsgBox::setNextAnswer(answer);
    if (question)
        QCOMPARE(
            clsLibrary::instance().MESSAGEBOXFCN(int16_t(number), files[0], files[1], files[2], files[3]),
            code);
    else
        clsLibrary::instance().MESSAGEBOX(int16_t(number), files[0], files[1], files[2], files[3]);

    QCOMPARE(platform::MsgBox::askedCount(), asked + 1);
    QCOMPARE(platform::MsgBox::beepCount(), beeped + (beeps ? 1 : 0));
    const platform::MsgBox::Asked box = platform::MsgBox::lastAsked();
    QCOMPARE(box.text, text);
    QCOMPARE(box.title, title);
    QCOMPARE(box.icon, icon);
    QCOMPARE(box.buttons, buttons);
    QCOMPARE(box.defaultButton, defaultButton);
}

// A missing file may be written without a question; a present one only after a Yes.
void tst_messages::overwriteCheck()
{
    QTemporaryDir dir;
    const QString name = dir.filePath(QStringLiteral("a b.txt"));
    const int asked = platform::MsgBox::askedCount();
    platform::MsgBox::setNextAnswer(Button::No);
    QVERIFY(clsLibrary::instance().OVERWRITECHK(name));
    QCOMPARE(platform::MsgBox::askedCount(), asked);
    platform::MsgBox::clearAnswers();

    QFile file(name);
    QVERIFY(file.open(QIODevice::WriteOnly));
    file.close();
    for (const auto& [answer, mayWrite] : {std::pair{Button::Yes, true}, {Button::No, false}}) {
        platform::MsgBox::setNextAnswer(answer);
        QCOMPARE(clsLibrary::instance().OVERWRITECHK(name), mayWrite);
        QCOMPARE(platform::MsgBox::lastAsked().title, QStringLiteral("Save As"));
        QCOMPARE(platform::MsgBox::lastText(),
                 "The document '" + name + "' already exists.\r\nDo you really want to overwrite this ?");
    }
}

QTEST_MAIN(tst_messages)
#include "tst_messages.moc"
