#pragma once

#include <QMessageBox>
#include <QString>

#include <cstdint>

class QWidget;

// The modal message box, with a seam for tests: answers queued with setNextAnswer
// are returned by the next ask() calls, in order, without showing anything. Run
// unattended (platform/widgets/Unattended.h), a box with no answer queued ends the
// run.
namespace platform::MsgBox {

// Shows a modal message box and returns the button the user chose (the escape
// button when the box is closed).
QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton);

// The box that a flags number of the original platform's message box describes,
// shown through ask(). The low four bits choose the buttons (0 OK, 1 OK and
// Cancel, 2 Abort, Retry and Ignore, 3 Yes, No and Cancel, 4 Yes and No, 5 Retry
// and Cancel; any other value OK), the next four the icon (16 critical, 32
// question, 48 exclamation, 64 information; any other value none), and the next
// four which button is the default (0 the first, 256 the second, 512 the third;
// one beyond the buttons means the first). Returns the pressed button's code:
// 1 OK, 2 Cancel, 3 Abort, 4 Retry, 5 Ignore, 6 Yes, 7 No; a box closed without
// a button gives 2.
int32_t askFlags(QWidget* parent, int32_t flags, const QString& title, const QString& text);

// The desktop's warning sound.
void beep();

// Tests: queues the answer of a coming ask().
void setNextAnswer(QMessageBox::StandardButton answer);
// Tests: forgets the answers that no ask() has taken.
void clearAnswers();
// Tests: how many times ask() was called, and the text of the last question.
int askedCount();
QString lastText();

// Tests: everything the last ask() was given.
struct Asked {
    QMessageBox::Icon icon = QMessageBox::NoIcon;
    QString title;
    QString text;
    QMessageBox::StandardButtons buttons;
    QMessageBox::StandardButton defaultButton = QMessageBox::NoButton;
};
Asked lastAsked();
// Tests: how many times beep() sounded.
int beepCount();

} // namespace platform::MsgBox
