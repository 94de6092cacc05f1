#pragma once

#include <QString>

#include <initializer_list>

class QAbstractButton;

namespace hearthbook {

/// The six faces of buttons, by what the command does.
enum class Face { Gry, Org, Brn, Red, Grn, Ylw };

/// Gives buttons their faces: the picture `file` stretched over each button, the caption on
/// it, with states for hover, press, focus and disabled. A missing file leaves a plain button
/// of the face's colour.
void setFace(Face face, const QString& file, std::initializer_list<QAbstractButton*> buttons);

} // namespace hearthbook
