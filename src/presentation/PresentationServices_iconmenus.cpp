// Icon menus: binding menu items to the images of a form's image list, and the pointer
// test with which a window finds out that the pointer has left its toolbar.
#include "presentation/PresentationServices.h"

#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/widgets/Form.h"
#include "platform/widgets/ImageList.h"
#include "platform/widgets/Screen.h"
#include "presentation/FormControls.h"
#include "presentation/ICOMNU.h"

#include <QCursor>

#include <algorithm>

using platform::resumeNext;
using presentation::controlOf;

namespace {

// Whether a point lies outside a rectangle whose four edges count as inside.
int16_t outside(int32_t x, int32_t y, int16_t left, int16_t right, int16_t top, int16_t bottom)
{
    return (x < left || x > right || y < top || y > bottom) ? 1 : 0;
}

int32_t pixelsX(int32_t twips)
{
    return platform::toInt32(twips / platform::Screen::TwipsPerPixelX());
}
int32_t pixelsY(int32_t twips)
{
    return platform::toInt32(twips / platform::Screen::TwipsPerPixelY());
}

} // namespace

// The item's image is the index in the image list less one, so that the list's
// first image is 0 and -1 is none.
void PresentationServices::ICOMNUSETUP(Form* ICOMNUFORM, Form* IMGLSTFORM, const QString& MENUITEM,
                                       const QString& ICON)
{
    resumeNext([&] {
        zuv::ICOMNU* menus = controlOf<zuv::ICOMNU>(ICOMNUFORM);
        if (!menus)
            return;
        if (ICON.isEmpty()) {
            menus->setItemIcon(MENUITEM, -1);
            return;
        }
        const platform::ImageList* images = IMGLSTFORM ? IMGLSTFORM->imageList() : nullptr;
        const int index = images ? images->indexOf(ICON) : 0;
        if (index == 0)
            throw platform::Error(platform::err::InvalidCall, QStringLiteral("Element not found"));
        menus->setItemIcon(MENUITEM, index - 1);
    });
}

void PresentationServices::MENUCREATE(Form* FORMNAME, const QString& CAPTION, const QString& MENUITEM,
                                      int32_t ITEM, int32_t ParentItemNumber, const QString& ICON,
                                      bool CHECKED, bool Enabled)
{
    resumeNext([&] {
        if (zuv::ICOMNU* menus = controlOf<zuv::ICOMNU>(FORMNAME))
            menus->AddItem(CAPTION, MENUITEM, ITEM, ParentItemNumber, CHECKED, Enabled);
    });
    ICOMNUSETUP(FORMNAME, FORMNAME, MENUITEM, ICON);
}

int16_t PresentationServices::MOUSEMOVE(Form* FORMNAME, int16_t CONTROLLEFT, int16_t CONTROLRIGHT,
                                        int16_t CONTROLTOP, int16_t CONTROLBOTTOM)
{
    const QPoint pointer = QCursor::pos();
    const int32_t x = platform::toInt32(pointer.x() - FORMNAME->Left() / platform::Screen::TwipsPerPixelX());
    const int32_t y = platform::toInt32(pointer.y() - FORMNAME->Top() / platform::Screen::TwipsPerPixelY());
    return outside(x, y, CONTROLLEFT, CONTROLRIGHT, CONTROLTOP, CONTROLBOTTOM);
}

int16_t PresentationServices::MOUSEMOVE(Form* FORMNAME, const QRect& CONTROL)
{
    const auto edge = [](int pixels) { return int16_t(std::clamp(pixels, -32768, 32767)); };
    return MOUSEMOVE(FORMNAME, edge(CONTROL.left()), edge(CONTROL.right()), edge(CONTROL.top()),
                     edge(CONTROL.bottom()));
}

// The same for a frame window: its place is rounded to whole twips first.
int16_t PresentationServices::MOUSEMOVEMDI(Form* FORMNAME, int16_t CONTROLLEFT, int16_t CONTROLRIGHT,
                                           int16_t CONTROLTOP, int16_t CONTROLBOTTOM)
{
    const QPoint pointer = QCursor::pos();
    const int32_t x = pointer.x() - pixelsX(platform::toInt32(FORMNAME->Left()));
    const int32_t y = pointer.y() - pixelsY(platform::toInt32(FORMNAME->Top()));
    return outside(x, y, CONTROLLEFT, CONTROLRIGHT, CONTROLTOP, CONTROLBOTTOM);
}
