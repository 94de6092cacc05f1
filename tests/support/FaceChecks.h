#pragma once

#include "FormControls.h"
#include "TestPictures.h"

#include <gtest/gtest.h>

#include <QColor>
#include <QImage>
#include <QPixmap>

#include <filesystem>
#include <utility>
#include <vector>

namespace hearthbook::test {

/// The buttons of a form by the picture of their face.
using Faces = std::vector<std::pair<const char*, std::vector<const char*>>>;

constexpr unsigned faceColour(std::size_t face) {
  return 0xd0a060 + static_cast<unsigned>(face) * 0x040c14;
}

/// Gives each picture a colour of its own, before the form is there.
inline void paintFaces(const std::filesystem::path& media, const Faces& faces) {
  for (std::size_t face = 0; face < faces.size(); ++face)
    writeJpeg(media / faces[face].first, 32, 16, faceColour(face));
}

/// The colour of a button beside its caption.
inline QColor faceOf(QWidget& button) {
  button.setEnabled(true);
  return button.grab().toImage().pixelColor(button.width() / 2, 4);
}

inline void expectFaces(const QWidget& form, const Faces& faces) {
  for (std::size_t face = 0; face < faces.size(); ++face)
    for (const char* name : faces[face].second) {
      const QColor seen = faceOf(*FormControls::control(form, name));
      EXPECT_LT(distance(seen.rgb(), 0xff000000U | faceColour(face)), 4) << name;
    }
}

} // namespace hearthbook::test
