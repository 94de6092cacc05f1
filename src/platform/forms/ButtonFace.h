#pragma once

#include <filesystem>
#include <initializer_list>

class QAbstractButton;

namespace hearthbook {

/// The six faces of buttons, by what the command does.
enum class Face { Gry, Org, Brn, Red, Grn, Ylw };

/// Gives buttons their faces: the face's picture of the folder `media` ("Btn_Gry.jpg") stretched
/// over each button, the caption on it, with states for hover, press, focus and disabled. A
/// missing picture leaves a plain button of the face's colour.
void setFace(Face face, const std::filesystem::path& media,
             std::initializer_list<QAbstractButton*> buttons);

} // namespace hearthbook
