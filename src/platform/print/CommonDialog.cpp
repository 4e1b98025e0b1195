#include "platform/print/CommonDialog.h"

#include "platform/core/Error.h"
#include "platform/print/Printer.h"
#include "platform/widgets/Unattended.h"

#include <QGuiApplication>
#include <QPrintDialog>
#include <QPrinter>
#include <QScreen>
#include <QWidget>

#include <deque>

namespace platform {

namespace {

std::deque<CommonDialog::Answer>& answers()
{
    static std::deque<CommonDialog::Answer> queue;
    return queue;
}

bool centreNext = false;
bool centredLast = false;
int shown = 0;

QWidget* windowOf(QObject* object)
{
    for (; object; object = object->parent())
        if (auto* widget = qobject_cast<QWidget*>(object))
            return widget->window();
    return nullptr;
}

// Asks the person: the toolkit's print dialog on the current printer.
bool askPerson(CommonDialog& dialog, bool centred)
{
    QPrinter& printer = currentPrinter().device();
    QPrintDialog box(&printer, windowOf(&dialog));
    box.setMinMax(1, std::max(1, dialog.Max));
    printer.setFromTo(std::max(1, dialog.FromPage), std::max(1, dialog.ToPage));
    printer.setPrintRange((dialog.Flags & CommonDialog::PD_PAGENUMS)    ? QPrinter::PageRange
                          : (dialog.Flags & CommonDialog::PD_SELECTION) ? QPrinter::Selection
                                                                        : QPrinter::AllPages);
    printer.setCopyCount(std::max(1, dialog.Copies));
    printer.setCollateCopies(dialog.Flags & CommonDialog::PD_COLLATE);
    box.setOption(QAbstractPrintDialog::PrintSelection, !(dialog.Flags & CommonDialog::PD_NOSELECTION));
    box.setOption(QAbstractPrintDialog::PrintPageRange, true);
    if (centred) {
        box.adjustSize();
        if (const QScreen* screen = QGuiApplication::primaryScreen())
            box.move(screen->availableGeometry().center() - box.rect().center());
    }
    if (box.exec() != QDialog::Accepted)
        return false;
    if (printer.printRange() == QPrinter::PageRange) {
        dialog.FromPage = printer.fromPage();
        dialog.ToPage = printer.toPage();
    }
    dialog.Copies = printer.copyCount();
    return true;
}

} // namespace

CommonDialog::CommonDialog(const QString& name, QObject* parent) : QObject(parent)
{
    setObjectName(name);
}

void CommonDialog::ShowPrinter()
{
    ++shown;
    centredLast = centreNext;
    centreNext = false;
    bool accepted;
    if (!answers().empty()) {
        Answer answer = std::move(answers().front());
        answers().pop_front();
        accepted = answer(*this);
    } else {
        if (Unattended::isOn()) {
            const QWidget* window = windowOf(this);
            Unattended::unanswered(QStringLiteral("print dialog"), window ? window->windowTitle() : QString(),
                                   QStringLiteral("pages %1 to %2 of %3, %4 copies")
                                       .arg(FromPage)
                                       .arg(ToPage)
                                       .arg(Max)
                                       .arg(Copies));
        }
        accepted = askPerson(*this, centredLast);
    }
    if (!accepted && CancelError)
        throw Error(err::CancelSelected);
}

void CommonDialog::centreNextDialog(bool centre)
{
    centreNext = centre;
}

void CommonDialog::setNextAnswer(Answer answer)
{
    answers().push_back(std::move(answer));
}

int CommonDialog::shownCount()
{
    return shown;
}

bool CommonDialog::lastCentred()
{
    return centredLast;
}

} // namespace platform
