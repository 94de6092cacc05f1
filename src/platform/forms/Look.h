#pragma once

#include <QColor>

class QApplication;

namespace hearthbook {

/// The one palette and type scale of the program: a scrapbook, warm paper, photos the heroes.
namespace look {

inline const QColor paper{0xfb, 0xf6, 0xea};    ///< what windows are made of
inline const QColor sheet{0xff, 0xfd, 0xf7};    ///< what is written on
inline const QColor desk{0xd9, 0xcb, 0xb0};     ///< what lies behind the work forms
inline const QColor linen{0xec, 0xe2, 0xcc};    ///< plain buttons, bars, headers
inline const QColor edge{0x8c, 0x7a, 0x5e};     ///< frames around what can be used
inline const QColor panelYellow{245, 245, 158}; ///< panels and hints
inline const QColor darkRed{110, 0, 0};         ///< the choice, the focus, headings
inline const QColor titleBar{110, 0, 0};        ///< of the work form in front
inline const QColor ink{0x2e, 0x22, 0x1a};      ///< text
inline const QColor fadedInk{0x7d, 0x70, 0x60}; ///< what cannot be used now
inline const QColor quietInk{0x6b, 0x5c, 0x49}; ///< hints in empty fields
inline const QColor onDark{0xff, 0xfa, 0xee};   ///< text on dark red

// The type scale, in points; stages scale their own.
inline constexpr double smallPoints = 9;
inline constexpr double bodyPoints = 10.5;
inline constexpr double headingPoints = 14;
inline constexpr double titlePoints = 22;

} // namespace look

/// How well text can be read on a ground: 1 for equal colours, 21 for black on white.
double contrast(const QColor& text, const QColor& ground);

/// Style, palette and fonts for the whole application; to be called once, before any form.
void applyLook(QApplication& application);

} // namespace hearthbook
