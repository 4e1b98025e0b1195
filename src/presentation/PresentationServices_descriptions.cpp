#include "presentation/PresentationServices.h"

#include "platform/core/App.h"
#include "platform/core/Error.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/StatusBar.h"
#include "platform/widgets/Toolbar.h"
#include "platform/widgets/Twips.h"
#include "presentation/CommandDescriptions.h"
#include "presentation/FormControls.h"
#include "presentation/ICOMNU.h"

#include <QApplication>

#include <algorithm>

using platform::resumeNext;
using presentation::controlOf;

namespace {

// The print preview while it is on the screen.
Form* visiblePreview()
{
    const QList<QWidget*> windows = QApplication::topLevelWidgets();
    for (QWidget* window : windows) {
        auto* form = qobject_cast<Form*>(window);
        if (form && form->isPrintPreview() && form->isVisible())
            return form;
    }
    return nullptr;
}

// Looks the caption up and writes its description to FORM's status line; a caption
// that no row knows clears the line.
void CAPTIONTEXT(Form* FORM, const QString& CAPTION, const QString& FILETYPE)
{
    Form* preview = visiblePreview();
    const std::optional<descriptions::Description> description =
        descriptions::describe(CAPTION, {FILETYPE, platform::App::Title(), preview != nullptr});
    if (!description) {
        PresentationServices::instance().STATUSBARCAPTION(FORM);
        return;
    }
    PresentationServices::instance().STATUSBARCAPTION(description->toPreview ? preview : FORM,
                                                      description->text, 0);
}

// A window command's text; any other number leaves the line as it is.
void SYSMENUTEXT(Form* FORM, int32_t MENUNUMBER)
{
    if (const std::optional<QString> text = descriptions::systemCommandText(MENUNUMBER))
        PresentationServices::instance().STATUSBARCAPTION(FORM, *text, 0);
}

} // namespace

void PresentationServices::STATUSBARCAPTION(Form* SBFORM, const QString& STATUSTEXT, int16_t MOUSEPOINTERVAL)
{
    const QString text = STATUSTEXT.isEmpty() ? STATUSTEXT : STATUSTEXT + QLatin1Char('.');
    resumeNext([&] {
        if (platform::StatusBar* bar = controlOf<platform::StatusBar>(SBFORM))
            bar->setPanelText(1, text);
    });
    resumeNext([&] {
        if (SBFORM)
            SBFORM->setMousePointer(MOUSEPOINTERVAL);
    });
}

void PresentationServices::STATUSTEXTDESC(Form* CURRENTFORM, Form* STATUSFORM, int32_t MENUNUMBER,
                                          bool SEPARATOR, const QString& FILETYPE)
{
    // A form that describes its own menus (the popup menus, the print preview) is
    // read; any other window describes the menus of the window with the status line.
    const bool ownMenus = CURRENTFORM && CURRENTFORM->describesOwnMenus();
    const zuv::ICOMNU* menus = controlOf<zuv::ICOMNU>(ownMenus ? CURRENTFORM : STATUSFORM);
    const QString caption = menus ? menus->CAPTION(MENUNUMBER) : QString();

    if (SEPARATOR) {
        STATUSBARCAPTION(STATUSFORM);
    } else {
        // While the print preview is open its own status line describes.
        if (Form* preview = visiblePreview())
            STATUSFORM = preview;
        CAPTIONTEXT(STATUSFORM, caption, FILETYPE);
    }
    // A window command has no caption: the line was cleared above and gets its text here.
    SYSMENUTEXT(STATUSFORM, MENUNUMBER);
}

void PresentationServices::GETTBARDESCRIPTIONS(Form* form, float X, QToolBar* toolbar,
                                               const QString& FILETYPE)
{
    if (!toolbar)
        return;
    const QList<QAction*> buttons = toolbar->actions();
    for (QAction* button : buttons) {
        resumeNext([&] {
            QWidget* shown = toolbar->widgetForAction(button);
            if (!shown || shown->isHidden())
                return;
            const platform::Twips place(shown);
            // Strictly inside: a pointer on the very edge of a button describes nothing.
            if (place.Left() < X && place.Left() + place.Width() > X)
                CAPTIONTEXT(form, platform::Toolbar::Description(button), FILETYPE);
        });
    }
}
