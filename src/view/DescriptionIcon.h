#pragma once

#include <QIcon>

namespace hearthbook {

/// A written sheet: the mark of a photo that has a description.
QIcon descriptionIcon();

} // namespace hearthbook
