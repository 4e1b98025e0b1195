#pragma once

#include <QColor>
#include <QWidget>

#include <array>

namespace zuv {

// A flat title strip above a pane: its caption on the button face, with a light
// edge at the left and top and a two-line shadow at the right and bottom. The
// panes' layout moves and sizes it.
class VBAR : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE setCaption)

public:
    // The colours the strip is drawn in. Each is the one set, or else the
    // palette's: the caption in the button text colour, the light edges in the
    // light colour, the inner shadow lines in mid and the outer ones in dark.
    enum class Color {
        ForeColor,
        LeftLightShadowColor,
        TopLightShadowColor,
        RightShadowColor,
        RightDarkShadowColor,
        BottomShadowColor,
        BottomDarkShadowColor,
    };

    explicit VBAR(const QString& caption = QString(), QWidget* parent = nullptr);

    QString caption() const { return caption_; }
    void setCaption(const QString& caption);

    QColor color(Color which) const;
    // An invalid colour goes back to the palette's.
    void setColor(Color which, const QColor& color);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QString caption_;
    std::array<QColor, 7> colors_;
};

} // namespace zuv
