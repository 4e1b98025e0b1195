#pragma once

#include "platform/widgets/ImageList.h"

#include <QCursor>
#include <QIcon>

namespace resources {

// The images of the main window's toolbar, menus and lists, by key and in this
// order (an image's index counts in it): "RUN", "ADD", "ADD ALL", "REMOVE",
// "REMOVE ALL", "PREVIEW", "FILE", "ZUV ONLINE", "ABOUT". Each is drawn at 16 by
// 16 and at 32 by 32 for high-density screens.
platform::ImageList mainImages();

// The images of the print preview's toolbar and menus, by key and in this order:
// "PRINT", "ZOOM IN", "ZOOM OUT", "FIRST PAGE", "PREVIOUS PAGE", "NEXT PAGE",
// "LAST PAGE", "ABOUT"; at 16 and 32 pixels.
platform::ImageList previewImages();

// The pointer over the print preview's page: a magnifying glass of 32 by 32
// pixels with its hot spot at (9, 8), in the middle of the lens.
QCursor magnifierCursor();

// The program's own icon, for its windows and the desktop's task bar, drawn at
// 16, 32, 48, 64 and 128 pixels.
QIcon windowIcon();

} // namespace resources
