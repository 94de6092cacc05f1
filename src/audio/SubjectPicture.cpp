#include "SubjectPicture.h"

#include "Beside.h"
#include "Decode.h"
#include "PictureBox.h"

#include <cmath>

namespace hearthbook {

namespace {

constexpr QSize subjectRoom(250, 190);

} // namespace

SubjectPicture::SubjectPicture(PictureBox& box, WorkPool& pool, QObject* parent)
    : QObject(parent), box_(box), pool_(pool) {}

void SubjectPicture::hide() {
  ++turn_;
  box_.hide();
}

void SubjectPicture::show(const std::filesystem::path& photo) {
  const double longer = subjectRoom.width() * box_.devicePixelRatioF();
  runBeside(
      pool_, this,
      [photo, side = static_cast<int>(std::lround(longer))] {
        return pictureWithinOrNone(photo, side);
      },
      [this, turn = ++turn_](const Picture& picture) {
        if (turn != turn_)
          return;
        box_.setPicture(picture);
        place();
      },
      true);
}

void SubjectPicture::place() {
  const PixelSize picture = box_.picture().size();
  const QSize size = QSize(picture.width, picture.height).scaled(subjectRoom, Qt::KeepAspectRatio);
  box_.setFixedSize(size.expandedTo(QSize(1, 1)));
  box_.setVisible(box_.hasPicture());
}

} // namespace hearthbook
