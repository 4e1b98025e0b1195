#pragma once

#include "platform/ImageList.h"

namespace resources {

// The 16 by 16 images of the main window's toolbar, menus and lists, by key:
// "RUN", "ADD", "ADD ALL", "REMOVE", "REMOVE ALL", "PREVIEW", "FILE",
// "ZUV ONLINE", "ABOUT". They come from the desktop's icon theme, so they match
// the user's other programs, with the toolkit's own images where a theme lacks one.
platform::ImageList mainImages();

} // namespace resources
