#include "Stage.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QChildEvent>
#include <QResizeEvent>
#include <QVBoxLayout>

#include <algorithm>
#include <cmath>
#include <stdexcept>
#include <vector>

namespace hearthbook {

namespace {

constexpr double smallestScale = 0.6; // below it one-line fields are lower than their type

struct Actor {
  QWidget* widget;
  TwipsRect rect;
  double points;
  double presentPoints; ///< 0 before the first layout
  QSize iconSize;
};

QSize iconSizeOf(const QWidget* widget) {
  if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
    return button->iconSize();
  if (const auto* view = qobject_cast<const QAbstractItemView*>(widget))
    return view->iconSize();
  return {};
}

void setIconSizeOf(QWidget* widget, QSize size) {
  if (auto* button = qobject_cast<QAbstractButton*>(widget))
    button->setIconSize(size);
  if (auto* view = qobject_cast<QAbstractItemView*>(widget))
    view->setIconSize(size);
}

/// Quarter points: few distinct fonts while the user drags the frame, and even hinting.
double quarterPoints(double points) { return std::max(0.25, std::floor(points * 4) / 4); }

void setPointsOf(QWidget* widget, double points) {
  QFont font = widget->font();
  font.setPointSizeF(points * 96.0 / widget->logicalDpiY());
  widget->setFont(font);
}

bool isHiddenOnPurpose(const QWidget* widget) {
  return widget->isHidden() && widget->testAttribute(Qt::WA_WState_ExplicitShowHide);
}

double drawnPoints(const QWidget* widget) {
  const bool hasOwnSize =
      widget->testAttribute(Qt::WA_SetFont) && (widget->font().resolveMask() & QFont::SizeResolved);
  return hasOwnSize ? widget->font().pointSizeF() : Stage::standardPoints;
}

} // namespace

struct Stage::Impl {
  explicit Impl(TwipsSize size) : design(size) {}

  TwipsSize design;
  std::vector<Actor> actors;
  double scale = 1;
  QPointF origin;

  Actor& of(const QWidget* widget) {
    const auto found = std::ranges::find(actors, widget, &Actor::widget);
    if (found == actors.end())
      throw std::logic_error("the widget does not stand on this stage");
    return *found;
  }

  [[nodiscard]] double pixelsPerTwip() const { return scale / twipsPerPixel; }
  void fit(QSize room);
  void layOut(Actor& actor) const;
  [[nodiscard]] QRect toPixels(const TwipsRect& rect) const;
};

void Stage::Impl::fit(QSize room) {
  const QSizeF standard(design.width / twipsPerPixel, design.height / twipsPerPixel);
  if (room.isEmpty() || standard.isEmpty())
    return;
  scale = std::min(room.width() / standard.width(), room.height() / standard.height());
  origin = {(room.width() - standard.width() * scale) / 2,
            (room.height() - standard.height() * scale) / 2};
}

/// Both edges are rounded, not place and size: neighbours meet without a gap.
QRect Stage::Impl::toPixels(const TwipsRect& rect) const {
  const double ratio = pixelsPerTwip();
  const QPoint topLeft(qRound(origin.x() + rect.left * ratio),
                       qRound(origin.y() + rect.top * ratio));
  const QPoint behindBottomRight(qRound(origin.x() + (rect.left + rect.width) * ratio),
                                 qRound(origin.y() + (rect.top + rect.height) * ratio));
  return {topLeft, QSize(behindBottomRight.x() - topLeft.x(), behindBottomRight.y() - topLeft.y())};
}

void Stage::Impl::layOut(Actor& actor) const {
  const double points = quarterPoints(actor.points * scale);
  if (points != actor.presentPoints) {
    actor.presentPoints = points;
    setPointsOf(actor.widget, points);
    if (!actor.iconSize.isEmpty())
      setIconSizeOf(actor.widget, actor.iconSize * scale);
  }
  actor.widget->setGeometry(toPixels(actor.rect));
}

Stage::Stage(TwipsSize design, QWidget* parent)
    : QWidget(parent), impl_(std::make_unique<Impl>(design)) {
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
}

Stage::~Stage() = default;

void Stage::place(QWidget* child, TwipsRect rect, double points) {
  if (child->parentWidget() != this) {
    const bool hidden = isHiddenOnPurpose(child);
    child->setParent(this);
    child->setHidden(hidden);
  }
  std::erase_if(impl_->actors, [child](const Actor& actor) { return actor.widget == child; });
  impl_->actors.push_back({child, rect, points, 0, iconSizeOf(child)});
  impl_->layOut(impl_->actors.back());
}

void Stage::placeAsDrawn(QWidget* drawn) {
  const auto children = drawn->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
  for (QWidget* child : children) {
    if (child == this || child->isWindow())
      continue;
    const QRect place = child->geometry();
    this->place(child,
                {static_cast<double>(place.x() * twipsPerPixel),
                 static_cast<double>(place.y() * twipsPerPixel),
                 static_cast<double>(place.width() * twipsPerPixel),
                 static_cast<double>(place.height() * twipsPerPixel)},
                drawnPoints(child));
  }
  auto* whole = new QVBoxLayout(drawn);
  whole->setContentsMargins({});
  whole->addWidget(this);
}

void Stage::setRect(const QWidget* child, TwipsRect rect) {
  Actor& actor = impl_->of(child);
  actor.rect = rect;
  impl_->layOut(actor);
}

TwipsRect Stage::rect(const QWidget* child) const { return impl_->of(child).rect; }

void Stage::setDesign(TwipsSize design) {
  impl_->design = design;
  updateGeometry();
  fitIn();
}

TwipsSize Stage::design() const { return impl_->design; }

double Stage::scale() const { return impl_->scale; }

double Stage::scaleOf(const QWidget* widget) {
  for (; widget; widget = widget->parentWidget())
    if (const auto* stage = qobject_cast<const Stage*>(widget))
      return stage->scale();
  return 1;
}

QRect Stage::toPixels(TwipsRect rect) const { return impl_->toPixels(rect); }

QSize Stage::toDevicePixels(TwipsRect rect) const {
  return (QSizeF(toPixels(rect).size()) * devicePixelRatioF()).toSize().expandedTo({1, 1});
}

TwipsPoint Stage::toTwips(QPointF pixels) const {
  const QPointF inside = (pixels - impl_->origin) / impl_->pixelsPerTwip();
  return {inside.x(), inside.y()};
}

QSize Stage::sizeHint() const {
  return {qRound(impl_->design.width / twipsPerPixel),
          qRound(impl_->design.height / twipsPerPixel)};
}

QSize Stage::minimumSizeHint() const { return sizeHint() * smallestScale; }

void Stage::resizeEvent(QResizeEvent*) { fitIn(); }

void Stage::fitIn() {
  if (const auto* below = qobject_cast<const Stage*>(parentWidget()))
    impl_->scale = below->scale();
  else
    impl_->fit(size());
  for (Actor& actor : impl_->actors) {
    impl_->layOut(actor);
    auto* panel = qobject_cast<Stage*>(actor.widget);
    if (panel && panel->scale() != scale()) // its size in pixels may have stayed the same
      panel->fitIn();
  }
  Q_EMIT scaled();
}

bool Stage::event(QEvent* event) {
  if (event->type() == QEvent::ChildRemoved) {
    const QObject* gone = static_cast<QChildEvent*>(event)->child();
    std::erase_if(impl_->actors, [gone](const Actor& actor) { return actor.widget == gone; });
  }
  return QWidget::event(event);
}

} // namespace hearthbook
