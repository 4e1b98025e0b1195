#pragma once

#include <QFont>
#include <QString>

namespace platform {

// The font a window or control of the design names: the family at its size in
// points. Where the family isn't installed (Tahoma and Arial seldom are on Linux),
// fontconfig gives its nearest match, and failing that the desktop's sans serif.
QFont designFont(const QString& family, qreal pointSize, bool bold = false);

} // namespace platform
