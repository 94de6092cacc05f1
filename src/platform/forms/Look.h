#pragma once

#include <QColor>

class QApplication;

namespace hearthbook {

/// The one palette and type scale of the program: a scrapbook, warm paper, photos the heroes.
namespace look {
inline const QColor paper{0xfb, 0xf6, 0xea};
inline const QColor panelYellow{245, 245, 158};
inline const QColor darkRed{110, 0, 0};
inline const QColor ink{0x2e, 0x22, 0x1a};
} // namespace look

/// Style, palette and fonts for the whole application; to be called once, before any form.
void applyLook(QApplication& application);

} // namespace hearthbook
