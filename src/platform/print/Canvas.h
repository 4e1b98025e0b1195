#pragma once

#include <QString>

#include <cstdint>

class QPainter;

namespace platform {

// The device capabilities that the print code asks of a device, by their
// classic index numbers.
enum DeviceCap : int {
    PHYSICALWIDTH = 110, // whole sheet, device pixels
    PHYSICALHEIGHT = 111,
    PHYSICALOFFSETX = 112, // unprintable margin at the left, device pixels
    PHYSICALOFFSETY = 113, // unprintable margin at the top
};

// Scale modes of a drawing object: user units (set by ScaleWidth/ScaleHeight),
// twips, and device pixels.
enum ScaleModes : int { ScaleUser = 0, ScaleTwips = 1, ScalePixels = 3 };

// A drawing object in the manner of a printer or a picture box: its sizes in
// twips, a current position, a font, and text and line output at that position.
// Coordinates count from the top left corner of the drawable area. Printer and
// PictureSurface are the two kinds; the page formatter and the header and footer
// drawing take either.
class Canvas {
public:
    virtual ~Canvas() = default;

    // The whole sheet or box, in twips.
    virtual float Width() const = 0;
    virtual float Height() const = 0;

    // The drawable area in the current scale: twips unless ScaleWidth or
    // ScaleHeight was set, which switches to user units until ScaleMode is set.
    float ScaleWidth() const;
    float ScaleHeight() const;
    void setScaleWidth(float units);
    void setScaleHeight(float units);
    int ScaleMode() const { return scaleMode_; }
    // Only twips and pixels can be chosen; other modes, and a user scale of zero
    // units, are an invalid value.
    void setScaleMode(int mode);

    // Converts a length between pixels of this device and twips (modes 3 and 1).
    float ScaleX(float value, int fromScale, int toScale) const;
    float ScaleY(float value, int fromScale, int toScale) const;

    // Device pixels of the sheet and its unprintable margins (DeviceCap).
    virtual int GetDeviceCaps(int index) const;

    float CurrentX() const { return currentX_; }
    float CurrentY() const { return currentY_; }
    void setCurrentX(float x) { currentX_ = x; }
    void setCurrentY(float y) { currentY_ = y; }
    float FontSize() const { return fontSize_; }
    void setFontSize(float points) { fontSize_ = points; }
    QString FontName() const { return fontName_; }
    void setFontName(const QString& name) { fontName_ = name; }

    // Writes TEXT with its top left corner at the current position in black, then
    // moves to the start of the next line.
    void Print(const QString& text);
    // A one-pixel line from (x1, y1) to (x2, y2); COLOR has red in its low byte.
    void Line(float x1, float y1, float x2, float y2, uint32_t color);

    // The painter of an output in progress, or null when nothing is open to draw
    // on (a printer before its document is started). Drawing goes in device pixels.
    virtual QPainter* activePainter() = 0;
    // Resolution of the device in dots per inch.
    virtual double dpiX() const = 0;
    virtual double dpiY() const = 0;

protected:
    // The painter for text and lines, opening the output if it isn't yet.
    virtual QPainter* outputPainter() = 0;
    // The drawable area in twips.
    virtual float drawableWidth() const = 0;
    virtual float drawableHeight() const = 0;

private:
    // Device pixels of a position in the current scale.
    double toPixelsX(float units) const;
    double toPixelsY(float units) const;
    float fromPixelsY(double pixels) const;

    int scaleMode_ = ScaleTwips;
    float userWidth_ = 0;
    float userHeight_ = 0;
    float currentX_ = 0;
    float currentY_ = 0;
    float fontSize_ = 8.25f;
    QString fontName_;
};

} // namespace platform
