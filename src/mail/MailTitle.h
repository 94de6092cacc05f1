#pragma once

#include <QString>

namespace hearthbook {

/// What the boxes of the mail composer are called.
inline const QString mailTitle = QStringLiteral("E-Mail Photos");

} // namespace hearthbook
