#pragma once

#include <QByteArray>
#include <QImage>
#include <QString>

#include <array>
#include <cstdint>

class Form;
class QWidget;

namespace platform {
class PictureBox;
} // namespace platform

// The services of the picture information layer: the image record of the header
// reader, the properties dialog, and bitmaps built from raw pixel rows. One
// instance, reached through PictureServices::instance(), which owns the record,
// the colour tables and the bitmap last built.
class PictureServices {
public:
    static PictureServices& instance();
    PictureServices(const PictureServices&) = delete;
    PictureServices& operator=(const PictureServices&) = delete;

    // --- Picture information --------------------------------------------------
    // The image record of the header reader: set IMAGEFILE, call GETIMAGEFILEINFO,
    // read the others. IMAGETYPE is 0 unknown, 1 GIF, 2 JPEG, 3 PNG, 4 BMP.
    QString IMAGEFILE;
    int32_t IMAGEWIDTH = 0;
    int32_t IMAGEHEIGHT = 0;
    int32_t IMAGEDEPTH = 0; // bits per pixel
    int32_t IMAGETYPE = 0;
    // Fills the record from the file's header bytes; a failure shows a message box
    // and leaves the fields as they stood at that point.
    void GETIMAGEFILEINFO();
    // The words for a depth given as decimal text: 1, 4, 8 and 24 bits have some,
    // any other depth the empty text.
    QString GETCOLORDEPTH(const QString& Depth);
    // Opens the properties dialog that FORMNAME loads, modally over MODALFORM, for the file at FILEPATH,
    // and returns once it is closed. FILETYPE "PICTURE" adds the Picture tab; the document arguments are
    // for a caller that shows a text document's properties.
    void GETPROPERTIES(Form& (*FORMNAME)(), const QString& FILEPATH, Form* MODALFORM, const QString& FILETYPE,
                       const QString& TXTRTFSRC = QString(), const QString& TXTRTFSELSRC = QString(),
                       QWidget* RTFBOXSRC = nullptr);

    // --- Bitmap builders ------------------------------------------------------
    // Raw pixel rows in memory into a bitmap, and the bitmap into a picture box. A
    // caller fills the colour table of an indexed format first, then builds, then
    // draws. The rows stand as in bitmap files: each padded to a multiple of 4 bytes,
    // the first row the bottom one, or the top one with ORIENTATION true. 1, 4 and 8
    // bits per pixel index the format's colour table (the first pixel in the high
    // bits of a byte); 16 bits are little-endian 5-5-5 (blue in the low bits); the
    // "24" format has four bytes a pixel: blue, green, red, unused. An array shorter
    // than the rows demand, or a size that can't be built, leaves BITMAPHANDLE null.
    void CREATEBMP1(const QByteArray& BYTEARRAY, int32_t BMPWIDTH, int32_t BMPHEIGHT, bool ORIENTATION);
    void CREATEBMP4(const QByteArray& BITMAPARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP8(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP16(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    void CREATEBMP24(const QByteArray& BYTEARRAY, int32_t PICWIDTH, int32_t PICHEIGHT, bool ORIENTATION);
    // Colour tables, kept from call to call (black until filled). The arrays hold
    // three bytes a colour: red, green, blue. One that has too few colours writes
    // the entries it has and throws "Subscript out of range".
    void INITCOLORTBL1(); // black, white
    void INITCOLORTBL4(const QByteArray& BYTEARRAY);
    void INITCOLORTBL8(const QByteArray& BYTEARRAY);
    // The bitmap last built, null while none was.
    QImage BITMAPHANDLE() const { return bitmapHandle_; }
    // Clears PICOBJECT and draws the PICWIDTH by PICHEIGHT pixels at the top left of
    // the last bitmap into it, stretched to the drawing size. SCALEVAL 1 first sizes
    // the box to the bitmap. A box with a border is drawn at its outer size and grows
    // by its border, so that the former outer size becomes the inner one; a box
    // without one is drawn at its size.
    void DRAWBITMAP(int32_t PICWIDTH, int32_t PICHEIGHT, platform::PictureBox* PICOBJECT, uint8_t SCALEVAL);

private:
    PictureServices() = default;
    // The colour tables of the indexed formats and the bitmap last built.
    std::array<QRgb, 2> colorTable1_{};
    std::array<QRgb, 16> colorTable4_{};
    std::array<QRgb, 256> colorTable8_{};
    QImage bitmapHandle_;
};
