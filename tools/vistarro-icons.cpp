// vistarro-icons: writes the program's icon for the desktop, drawn by the same
// code that draws the icon of its windows.
//
//   vistarro-icons ICON_NAME FOLDER
//
// writes FOLDER/scalable/apps/ICON_NAME.svg and FOLDER/NxN/apps/ICON_NAME.png for
// the sizes of the hicolor theme that menus and docks ask for. Run by the build;
// the files are installed under share/icons/hicolor.
// Exit status: 0, 1 when a file can't be written, 2 for a usage error.

#include "resources/IconPainter.h"

#include <QDir>
#include <QGuiApplication>
#include <QPainter>
#include <QString>
#include <QSvgGenerator>

#include <cstdio>

namespace {

constexpr int PixelSizes[] = {16, 22, 24, 32, 48, 64, 128, 256};

// The scalable icon's canvas, in SVG user units.
constexpr int SvgSize = 256;

bool writeSvg(const QString& file, const QString& title)
{
    QSvgGenerator generator;
    generator.setFileName(file);
    generator.setSize(QSize(SvgSize, SvgSize));
    generator.setViewBox(QRect(0, 0, SvgSize, SvgSize));
    generator.setTitle(title);
    QPainter painter;
    if (!painter.begin(&generator))
        return false;
    resources::drawGlyph(painter, resources::Glyph::Program, SvgSize);
    return painter.end();
}

} // namespace

int main(int argc, char** argv)
{
    // The SVG writer records the painter's font; without the toolkit's fonts it
    // would write a font of size -1. No window is opened, so no screen is needed.
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    QGuiApplication app(argc, argv);
    if (argc != 3) {
        std::fputs("Usage: vistarro-icons ICON_NAME FOLDER\n", stderr);
        return 2;
    }
    const QString name = QString::fromLocal8Bit(argv[1]);
    const QDir folder(QString::fromLocal8Bit(argv[2]));

    const QString scalable = QStringLiteral("scalable/apps");
    if (!folder.mkpath(scalable) ||
        !writeSvg(folder.filePath(scalable + QLatin1Char('/') + name + ".svg"), name)) {
        std::fprintf(stderr, "vistarro-icons: can't write the scalable icon in %s\n", argv[2]);
        return 1;
    }
    for (const int size : PixelSizes) {
        const QString sized = QStringLiteral("%1x%1/apps").arg(size);
        const QString file = folder.filePath(sized + QLatin1Char('/') + name + ".png");
        if (!folder.mkpath(sized) ||
            !resources::glyphImage(resources::Glyph::Program, size).save(file, "PNG")) {
            std::fprintf(stderr, "vistarro-icons: can't write %s\n", qPrintable(file));
            return 1;
        }
    }
    return 0;
}
