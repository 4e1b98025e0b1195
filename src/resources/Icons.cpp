#include "resources/Icons.h"

#include <QApplication>
#include <QStyle>

namespace resources {

namespace {

struct ThemeImage {
    const char* key;
    const char* themeName;
    QStyle::StandardPixmap fallback;
};

constexpr ThemeImage MainImages[] = {
    {"RUN", "media-playback-start", QStyle::SP_MediaPlay},
    {"ADD", "list-add", QStyle::SP_ArrowForward},
    {"ADD ALL", "go-last", QStyle::SP_MediaSeekForward},
    {"REMOVE", "list-remove", QStyle::SP_ArrowBack},
    {"REMOVE ALL", "edit-clear-all", QStyle::SP_DialogResetButton},
    {"PREVIEW", "document-print-preview", QStyle::SP_FileDialogContentsView},
    {"FILE", "image-x-generic", QStyle::SP_FileIcon},
    {"ZUV ONLINE", "internet-web-browser", QStyle::SP_DriveNetIcon},
    {"ABOUT", "help-about", QStyle::SP_MessageBoxInformation},
};

} // namespace

platform::ImageList mainImages()
{
    platform::ImageList images;
    const QStyle* style = QApplication::style();
    for (const ThemeImage& image : MainImages) {
        const QIcon fallback = style ? style->standardIcon(image.fallback) : QIcon();
        images.add(QString::fromLatin1(image.key),
                   QIcon::fromTheme(QString::fromLatin1(image.themeName), fallback));
    }
    return images;
}

} // namespace resources
