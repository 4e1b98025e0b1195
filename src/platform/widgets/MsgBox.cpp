#include "platform/widgets/MsgBox.h"

#include "platform/widgets/Unattended.h"

#include <QApplication>
#include <QList>
#include <QQueue>

namespace platform::MsgBox {

namespace {

struct State {
    QQueue<QMessageBox::StandardButton> answers;
    int asked = 0;
    Asked last;
    int beeps = 0;
};

State& state()
{
    static State instance;
    return instance;
}

// The button sets of the flags' low four bits, in the order the original box
// places them, which is the order the default-button bits count in.
QList<QMessageBox::StandardButton> buttonsOf(int32_t flags)
{
    using B = QMessageBox::StandardButton;
    switch (flags & 0xF) {
    case 1: return {B::Ok, B::Cancel};
    case 2: return {B::Abort, B::Retry, B::Ignore};
    case 3: return {B::Yes, B::No, B::Cancel};
    case 4: return {B::Yes, B::No};
    case 5: return {B::Retry, B::Cancel};
    default: return {B::Ok};
    }
}

QMessageBox::Icon iconOf(int32_t flags)
{
    switch (flags & 0xF0) {
    case 16: return QMessageBox::Critical;
    case 32: return QMessageBox::Question;
    case 48: return QMessageBox::Warning;
    case 64: return QMessageBox::Information;
    default: return QMessageBox::NoIcon;
    }
}

int32_t codeOf(QMessageBox::StandardButton button)
{
    switch (button) {
    case QMessageBox::Ok: return 1;
    case QMessageBox::Abort: return 3;
    case QMessageBox::Retry: return 4;
    case QMessageBox::Ignore: return 5;
    case QMessageBox::Yes: return 6;
    case QMessageBox::No: return 7;
    default: return 2; // Cancel, or closed without a button
    }
}

} // namespace

QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton)
{
    State& s = state();
    ++s.asked;
    s.last = Asked{icon, title, text, buttons, defaultButton};
    if (!s.answers.isEmpty())
        return s.answers.dequeue();
    if (Unattended::isOn())
        Unattended::unanswered(QStringLiteral("message box"), title, text);

    QMessageBox box(icon, title, text, buttons, parent);
    box.setDefaultButton(defaultButton);
    box.exec();
    return box.standardButton(box.clickedButton());
}

int32_t askFlags(QWidget* parent, int32_t flags, const QString& title, const QString& text)
{
    const QList<QMessageBox::StandardButton> order = buttonsOf(flags);
    QMessageBox::StandardButtons buttons;
    for (QMessageBox::StandardButton button : order)
        buttons |= button;
    const qsizetype defaultIndex = (flags >> 8) & 0xF;
    const QMessageBox::StandardButton defaultButton = order.value(defaultIndex, order.first());
    return codeOf(ask(parent, iconOf(flags), title, text, buttons, defaultButton));
}

void beep()
{
    ++state().beeps;
    QApplication::beep();
}

void setNextAnswer(QMessageBox::StandardButton answer)
{
    state().answers.enqueue(answer);
}

void clearAnswers()
{
    state().answers.clear();
}

int askedCount()
{
    return state().asked;
}

QString lastText()
{
    return state().last.text;
}

Asked lastAsked()
{
    return state().last;
}

int beepCount()
{
    return state().beeps;
}

} // namespace platform::MsgBox
