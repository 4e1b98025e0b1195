// The picture information of the shared image record.

#include "picinfo/PictureServices.h"

#include "platform/core/App.h"
#include "platform/core/Conversions.h"
#include "platform/core/Error.h"
#include "platform/core/ImageHeader.h"
#include "platform/widgets/MsgBox.h"

PictureServices& PictureServices::instance()
{
    static PictureServices services;
    return services;
}

void PictureServices::GETIMAGEFILEINFO()
{
    // A failure leaves the fields as the reading had them at that point, and is the
    // one failure of the program that the user is told about.
    const platform::HeaderReading reading = platform::readImageFile(IMAGEFILE);
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

QString PictureServices::GETCOLORDEPTH(const QString& Depth)
{
    return platform::colorDepthWords(Depth);
}
