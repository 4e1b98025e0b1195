#include "platform/MsgBox.h"

#include <QQueue>

namespace platform::MsgBox {

namespace {

struct State {
    QQueue<QMessageBox::StandardButton> answers;
    int asked = 0;
    QString lastText;
};

State& state()
{
    static State instance;
    return instance;
}

} // namespace

QMessageBox::StandardButton ask(QWidget* parent, QMessageBox::Icon icon, const QString& title,
                                const QString& text, QMessageBox::StandardButtons buttons,
                                QMessageBox::StandardButton defaultButton)
{
    State& s = state();
    ++s.asked;
    s.lastText = text;
    if (!s.answers.isEmpty())
        return s.answers.dequeue();

    QMessageBox box(icon, title, text, buttons, parent);
    box.setDefaultButton(defaultButton);
    box.exec();
    return box.standardButton(box.clickedButton());
}

void setNextAnswer(QMessageBox::StandardButton answer)
{
    state().answers.enqueue(answer);
}

int askedCount()
{
    return state().asked;
}

QString lastText()
{
    return state().lastText;
}

} // namespace platform::MsgBox
