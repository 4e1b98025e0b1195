#pragma once

#include <QMessageBox>
#include <QString>

class QWidget;

// The modal message box, with a seam for tests: answers queued with setNextAnswer
// are returned by the next ask() calls, in order, without showing anything.
namespace platform::MsgBox {

// Shows a modal message box and returns the button the user chose (the escape
// button when the box is closed).
QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton);

// Tests: queues the answer of a coming ask().
void setNextAnswer(QMessageBox::StandardButton answer);
// Tests: how many times ask() was called, and the text of the last question.
int askedCount();
QString lastText();

} // namespace platform::MsgBox
