#include "resources/Icons.h"

#include "resources/IconPainter.h"

#include <QGuiApplication>

#include <cstddef>
#include <initializer_list>

namespace resources {

namespace {

struct KeyedImage {
    const char* key;
    Glyph glyph;
};

constexpr KeyedImage MainImages[] = {
    {"RUN", Glyph::Run},
    {"ADD", Glyph::Add},
    {"ADD ALL", Glyph::AddAll},
    {"REMOVE", Glyph::Remove},
    {"REMOVE ALL", Glyph::RemoveAll},
    {"PREVIEW", Glyph::Preview},
    {"FILE", Glyph::File},
    {"ZUV ONLINE", Glyph::Online},
    {"ABOUT", Glyph::About},
};

constexpr KeyedImage PreviewImages[] = {
    {"PRINT", Glyph::Print},
    {"ZOOM IN", Glyph::ZoomIn},
    {"ZOOM OUT", Glyph::ZoomOut},
    {"FIRST PAGE", Glyph::FirstPage},
    {"PREVIOUS PAGE", Glyph::PreviousPage},
    {"NEXT PAGE", Glyph::NextPage},
    {"LAST PAGE", Glyph::LastPage},
    {"ABOUT", Glyph::About},
};

QIcon drawnIcon(Glyph glyph, std::initializer_list<int> sizes)
{
    QIcon icon;
    for (int size : sizes)
        icon.addPixmap(paintGlyph(glyph, size));
    return icon;
}

template <size_t N> platform::ImageList imageList(const KeyedImage (&table)[N])
{
    platform::ImageList images;
    for (const KeyedImage& image : table)
        images.add(QString::fromLatin1(image.key), drawnIcon(image.glyph, {16, 32}));
    return images;
}

} // namespace

platform::ImageList mainImages()
{
    return imageList(MainImages);
}

platform::ImageList previewImages()
{
    return imageList(PreviewImages);
}

QCursor magnifierCursor()
{
    // Drawn for the device pixels of the screen, so that the pointer keeps its
    // size and stays sharp on a scaled screen. The X11 platform takes the hot
    // spot in the pixmap's own pixels.
    const qreal ratio = qApp ? qApp->devicePixelRatio() : 1.0;
    QPixmap pixmap = paintGlyph(Glyph::Magnifier, qRound(32 * ratio));
    pixmap.setDevicePixelRatio(ratio);
    return QCursor(pixmap, qRound(9 * ratio), qRound(8 * ratio));
}

QIcon windowIcon()
{
    return drawnIcon(Glyph::Program, {16, 32, 48, 64, 128});
}

} // namespace resources
