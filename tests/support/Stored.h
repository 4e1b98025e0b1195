#pragma once

#include <QString>

namespace testsupport {

// The text stored as ITEM under the current user's KEY, read as the program
// reads it (too long a text reads as absent); FALLBACK when there is none.
QString stored(const QString& key, const QString& item, const QString& fallback = QStringLiteral("<absent>"));

} // namespace testsupport
