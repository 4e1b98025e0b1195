#pragma once

#include <QWidget>

namespace zuv {

// A horizontal rule across the control, etched into the surface, at its middle
// height. With a caption, the caption stands at the left and the rule runs on
// from behind it, as the title of the group of controls below.
class TXTSEP : public QWidget {
    Q_OBJECT
    Q_PROPERTY(QString caption READ caption WRITE setCaption)

public:
    explicit TXTSEP(const QString& caption = QString(), QWidget* parent = nullptr);

    QString caption() const { return caption_; }
    void setCaption(const QString& caption);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    // Where the rule starts, in pixels from the left: behind the caption, or 0.
    int ruleStart() const;

    QString caption_;
};

} // namespace zuv
