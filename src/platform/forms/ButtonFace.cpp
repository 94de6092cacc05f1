#include "ButtonFace.h"

#include "Look.h"
#include "Stage.h"
#include "Text.h"

#include <QAbstractButton>
#include <QEvent>
#include <QFile>
#include <QPainter>
#include <QPainterPath>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <cmath>
#include <memory>

namespace hearthbook {

namespace {

constexpr double readable = 4.5; // least contrast of a caption
constexpr int captionFlags = Qt::AlignCenter | Qt::TextWordWrap | Qt::TextShowMnemonic;

QColor plainColour(Face face) {
  switch (face) {
  case Face::Gry:
    return {0xcf, 0xca, 0xc0};
  case Face::Org:
    return {0xeb, 0xa4, 0x55};
  case Face::Brn:
    return {0x73, 0x48, 0x2b};
  case Face::Red:
    return {0xa6, 0x2a, 0x24};
  case Face::Grn:
    return {0x9c, 0xc2, 0x74};
  case Face::Ylw:
    return {0xf3, 0xd5, 0x58};
  }
  return look::linen;
}

const char* pictureOf(Face face) {
  switch (face) {
  case Face::Gry:
    return "Btn_Gry.jpg";
  case Face::Org:
    return "Btn_Org.jpg";
  case Face::Brn:
    return "Btn_Brn.jpg";
  case Face::Red:
    return "Btn_Red.jpg";
  case Face::Grn:
    return "Btn_Grn.jpg";
  case Face::Ylw:
    return "Btn_Ylw.jpg";
  }
  return "";
}

double worstContrast(const QColor& text, const QImage& face) {
  double worst = 21;
  for (int y = 0; y < face.height(); ++y)
    for (int x = 0; x < face.width(); ++x)
      worst = std::min(worst, contrast(text, face.pixelColor(x, y)));
  return worst;
}

void tint(QImage& image, QColor colour, double share) {
  colour.setAlphaF(static_cast<float>(share));
  QPainter(&image).fillRect(image.rect(), colour);
}

/// The picture of a face and the caption's colour on it, the same for all buttons of a call.
struct FaceArt {
  QImage picture;
  QColor text;
};

/// The caption is dark or light, whichever reads better; where neither reads well enough the
/// picture is made paler or deeper until it does.
FaceArt makeArt(Face face, const std::filesystem::path& media) {
  const QString file = toQString(media / pictureOf(face));
  QImage picture;
  if (!QFile::exists(file) || !picture.load(file)) {
    picture = QImage(16, 16, QImage::Format_RGB32);
    picture.fill(plainColour(face));
  }
  picture = picture.convertToFormat(QImage::Format_RGB32);
  QImage sample = picture.scaled(24, 24, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
  const bool darkText = worstContrast(look::ink, sample) >= worstContrast(look::onDark, sample);
  const QColor text = darkText ? look::ink : look::onDark;
  for (int step = 0; step < 20 && worstContrast(text, sample) < readable; ++step) {
    tint(sample, darkText ? Qt::white : Qt::black, 0.1);
    tint(picture, darkText ? Qt::white : Qt::black, 0.1);
  }
  return {picture, text};
}

/// Paints a button in place of the style. What the button is (a push button, a check box) and
/// how it is used stays as it was.
class FacePainter : public QObject {
public:
  FacePainter(QAbstractButton* button, std::shared_ptr<const FaceArt> art)
      : QObject(button), button_(button), art_(std::move(art)) {
    button->setAttribute(Qt::WA_Hover);
    button->installEventFilter(this);
  }

  bool eventFilter(QObject*, QEvent* event) override {
    if (event->type() != QEvent::Paint)
      return false;
    paint();
    return true;
  }

private:
  [[nodiscard]] double devicePixels() const { return button_->devicePixelRatioF(); }
  [[nodiscard]] bool isSunken() const { return button_->isDown() || button_->isChecked(); }
  void paint();
  void paintFace(QPainter& painter, const QPainterPath& outline);
  void paintFocus(QPainter& painter, double unit) const;
  void paintCaption(QPainter& painter, const QRectF& room) const;
  void fitFont(QPainter& painter, const QRectF& room) const;
  void paintTick(QPainter& painter, QRectF& room) const;
  const QPixmap& stretched();

  QAbstractButton* button_;
  std::shared_ptr<const FaceArt> art_;
  QPixmap stretched_;
};

const QPixmap& FacePainter::stretched() {
  const double ratio = devicePixels();
  const QSize pixels = (QSizeF(button_->size()) * ratio).toSize();
  if (stretched_.size() != pixels) {
    stretched_ = QPixmap::fromImage(
        art_->picture.scaled(pixels, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    stretched_.setDevicePixelRatio(ratio);
  }
  return stretched_;
}

void FacePainter::paint() {
  const double unit = std::max(1.0, Stage::scaleOf(button_));
  const QRectF edge = QRectF(button_->rect()).adjusted(0.5, 0.5, -0.5, -0.5);
  QPainterPath outline;
  outline.addRoundedRect(edge, 4 * unit, 4 * unit);
  QPainter painter(button_);
  painter.setRenderHint(QPainter::Antialiasing);
  paintFace(painter, outline);
  if (button_->hasFocus())
    paintFocus(painter, unit);
  const double margin = 3 * unit;
  QRectF room = edge.adjusted(margin, margin, -margin, -margin);
  if (isSunken())
    room.translate(unit, unit);
  paintCaption(painter, room);
}

void FacePainter::paintFace(QPainter& painter, const QPainterPath& outline) {
  painter.fillPath(outline, QBrush(stretched()));
  if (!button_->isEnabled()) {
    QColor veil = look::paper;
    veil.setAlpha(190);
    painter.fillPath(outline, veil);
  } else if (isSunken()) {
    painter.fillPath(outline, QColor(0, 0, 0, 36));
  } else if (button_->underMouse()) {
    painter.fillPath(outline, QColor(255, 255, 255, 40));
  }
  painter.setPen(button_->isEnabled() ? look::edge : look::desk);
  painter.drawPath(outline);
}

/// A light line inside a dark one is seen on every face. Both fill whole pixels: smeared over two
/// the light one is too weak on red.
void FacePainter::paintFocus(QPainter& painter, double unit) const {
  const double line = std::round(unit * devicePixels()) / devicePixels();
  const auto ring = [&](double from, double width, const QColor& colour) {
    const double inset = from + width / 2;
    const double radius = std::max(0.0, 4 * unit - inset / 2);
    painter.setPen(QPen(colour, width));
    painter.drawRoundedRect(QRectF(button_->rect()).adjusted(inset, inset, -inset, -inset), radius,
                            radius);
  };
  ring(line, 2 * line, look::darkRed);
  ring(3 * line, line, look::sheet);
}

void FacePainter::paintCaption(QPainter& painter, const QRectF& room) const {
  painter.setPen(button_->isEnabled() ? art_->text : look::fadedInk);
  QRectF textRoom = room;
  if (!button_->icon().isNull()) {
    const QRect iconRoom = QStyle::alignedRect(
        button_->layoutDirection(),
        button_->text().isEmpty() ? Qt::AlignCenter : Qt::AlignLeft | Qt::AlignVCenter,
        button_->iconSize(), room.toRect());
    button_->icon().paint(&painter, iconRoom, Qt::AlignCenter,
                          button_->isEnabled() ? QIcon::Normal : QIcon::Disabled);
    if (button_->isLeftToRight())
      textRoom.setLeft(iconRoom.right() + 3);
    else
      textRoom.setRight(iconRoom.left() - 3);
  }
  fitFont(painter, textRoom);
  if (button_->isChecked())
    paintTick(painter, textRoom);
  painter.drawText(textRoom, captionFlags, button_->text());
}

/// A caption that is too long for its button breaks into lines; type that is still too large
/// gets smaller, but not so small that nobody reads it.
void FacePainter::fitFont(QPainter& painter, const QRectF& room) const {
  QFont font = button_->font();
  const double smallest = font.pointSizeF() * 0.7;
  const auto fits = [&] {
    const QRectF needed = painter.boundingRect(room, captionFlags, button_->text());
    return needed.height() <= room.height() + 1 && needed.width() <= room.width() + 1;
  };
  painter.setFont(font);
  while (!fits() && font.pointSizeF() - 0.25 >= smallest) {
    font.setPointSizeF(font.pointSizeF() - 0.25);
    painter.setFont(font);
  }
}

/// What is switched on is not told by colour alone.
void FacePainter::paintTick(QPainter& painter, QRectF& room) const {
  const double size = painter.fontMetrics().ascent() * 0.8;
  const double left = button_->isLeftToRight() ? room.left() + size / 2 : room.right() - 1.5 * size;
  const QPointF corner(left, room.center().y() - size / 2);
  QPolygonF tick({{0, 0.55}, {0.35, 0.9}, {1, 0.1}});
  for (QPointF& point : tick)
    point = corner + point * size;
  painter.save();
  painter.setPen(QPen(painter.pen().color(), size / 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.drawPolyline(tick);
  painter.restore();
  if (button_->isLeftToRight())
    room.setLeft(left + size);
  else
    room.setRight(left);
}

} // namespace

void setFace(Face face, const std::filesystem::path& media,
             std::initializer_list<QAbstractButton*> buttons) {
  const auto art = std::make_shared<const FaceArt>(makeArt(face, media));
  for (QAbstractButton* button : buttons)
    new FacePainter(button, art);
}

} // namespace hearthbook
