#include "resources/Icons.h"

#include "resources/IconPainter.h"

#include <initializer_list>

namespace resources {

namespace {

struct MainImage {
    const char* key;
    Glyph glyph;
};

constexpr MainImage MainImages[] = {
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

QIcon drawnIcon(Glyph glyph, std::initializer_list<int> sizes)
{
    QIcon icon;
    for (int size : sizes)
        icon.addPixmap(paintGlyph(glyph, size));
    return icon;
}

} // namespace

platform::ImageList mainImages()
{
    platform::ImageList images;
    for (const MainImage& image : MainImages)
        images.add(QString::fromLatin1(image.key), drawnIcon(image.glyph, {16, 32}));
    return images;
}

QIcon windowIcon()
{
    return drawnIcon(Glyph::Program, {16, 32, 48, 64, 128});
}

} // namespace resources
