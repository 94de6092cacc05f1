#pragma once

#include "WorkPool.h"

#include <QObject>

#include <filesystem>

namespace hearthbook {

class PictureBox;

/// The photo that a sound is for: one tells more when one sees what it is about.
class SubjectPicture : public QObject {
  Q_OBJECT
public:
  SubjectPicture(PictureBox& box, WorkPool& pool, QObject* parent);

  void show(const std::filesystem::path& photo); ///< nothing for one that cannot be read
  void hide();

private:
  void place();

  PictureBox& box_;
  WorkPool& pool_;
  int turn_ = 0; ///< what was asked for before is not wanted any more
};

} // namespace hearthbook
