// clsLibrary: the picture information of the shared image record.

#include "settings/clsLibrary.h"

#include "picinfo/ImageHeader.h"
#include "platform/App.h"
#include "platform/Conversions.h"
#include "platform/Error.h"
#include "platform/MsgBox.h"

void clsLibrary::GETIMAGEFILEINFO()
{
    // A failure leaves the fields as the reading had them at that point, and is the
    // one failure of the program that the user is told about.
    const picinfo::HeaderReading reading = picinfo::readImageFile(IMAGEFILE);
    IMAGETYPE = reading.header.type;
    IMAGEWIDTH = reading.header.width;
    IMAGEHEIGHT = reading.header.height;
    IMAGEDEPTH = reading.header.depth;
    if (reading.failure) {
        platform::MsgBox::ask(nullptr, QMessageBox::NoIcon, platform::App::Title(),
                              QStringLiteral(" Error occurs : ") + reading.failure->text, QMessageBox::Ok,
                              QMessageBox::Ok);
    }
}

QString clsLibrary::GETCOLORDEPTH(const QString& Depth)
{
    // Only these four depths have words; 2, 16 and 32 bits, and a text that isn't a
    // whole number, show as nothing.
    double bits = 0.0;
    try {
        bits = platform::toDouble(Depth);
    } catch (const platform::Error&) {
        return QString();
    }
    if (bits == 1.0)
        return QStringLiteral("2 colors (1 bit)");
    if (bits == 4.0)
        return QStringLiteral("16 colors (4 bit)");
    if (bits == 8.0)
        return QStringLiteral("256 colors (8 bit)");
    if (bits == 24.0)
        return QStringLiteral("16 million colors (24 bit)");
    return QString();
}
