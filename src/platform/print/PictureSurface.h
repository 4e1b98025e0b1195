#pragma once

#include "platform/print/Canvas.h"

#include <QColor>
#include <QImage>

#include <memory>

namespace platform {

// A hidden picture box that keeps what is drawn on it as a bitmap: the page
// surface of the print preview. Its size is set in twips and held at the
// screen's resolution; drawing goes into the bitmap until the picture is taken
// with Image() or the surface is refreshed.
class PictureSurface : public Canvas {
public:
    PictureSurface();
    ~PictureSurface() override;
    PictureSurface(const PictureSurface&) = delete;
    PictureSurface& operator=(const PictureSurface&) = delete;

    float Width() const override { return width_; }
    float Height() const override { return height_; }
    // A new size keeps what was drawn, from the top left corner.
    void setWidth(float twips);
    void setHeight(float twips);

    // Empties the picture: the whole surface in the background colour.
    void Cls();
    // Ends the drawing in progress, so that Image() holds all of it.
    void Refresh();
    // The picture as drawn so far.
    QImage Image();

    QColor BackColor() const { return background_; }
    void setBackColor(const QColor& colour);

    QPainter* activePainter() override { return outputPainter(); }
    double dpiX() const override;
    double dpiY() const override;

protected:
    QPainter* outputPainter() override;
    float drawableWidth() const override { return width_; }
    float drawableHeight() const override { return height_; }

private:
    // Makes the bitmap the size in twips; false when it finds no memory.
    bool resize();
    void resizeTo(float width, float height);

    float width_ = 0;
    float height_ = 0;
    QColor background_ = Qt::white;
    QImage image_;
    std::unique_ptr<QPainter> painter_;
};

} // namespace platform
