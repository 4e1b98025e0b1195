#include "platform/widgets/Fonts.h"

namespace platform {

QFont designFont(const QString& family, qreal pointSize, bool bold)
{
    QFont font(family);
    font.setStyleHint(QFont::SansSerif);
    font.setPointSizeF(pointSize);
    font.setBold(bold);
    return font;
}

} // namespace platform
