#pragma once

#include <QIcon>

namespace hearthbook {

/// A note of music: the mark of what has to do with a photo's sound.
QIcon soundIcon();

} // namespace hearthbook
