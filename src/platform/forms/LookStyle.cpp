#include "LookStyle.h"

#include "Look.h"
#include "Stage.h"

#include <QIconEngine>
#include <QLineEdit>
#include <QPainter>
#include <QPolygonF>
#include <QStyleFactory>
#include <QStyleOptionComplex>

#include <algorithm>
#include <array>

namespace hearthbook {

namespace {

bool growsWithTheStage(QStyle::PixelMetric metric, const QWidget* widget) {
  switch (metric) {
  case QStyle::PM_IndicatorWidth:
  case QStyle::PM_IndicatorHeight:
  case QStyle::PM_ExclusiveIndicatorWidth:
  case QStyle::PM_ExclusiveIndicatorHeight:
  case QStyle::PM_CheckBoxLabelSpacing:
  case QStyle::PM_RadioButtonLabelSpacing:
  case QStyle::PM_ScrollBarExtent:
  case QStyle::PM_ScrollBarSliderMin:
    return true;
  case QStyle::PM_DefaultFrameWidth: // the room before the text of a field
    return qobject_cast<const QLineEdit*>(widget) != nullptr;
  default:
    return false;
  }
}

bool hasArrows(QStyle::ComplexControl control) {
  return control == QStyle::CC_ComboBox || control == QStyle::CC_SpinBox ||
         control == QStyle::CC_ScrollBar;
}

/// The arrows of a control, and where each points in a control that runs across.
struct ArrowPart {
  QStyle::SubControl part;
  Qt::ArrowType points;
  Qt::ArrowType pointsAcross;
};

std::array<ArrowPart, 2> arrowParts(QStyle::ComplexControl control) {
  switch (control) {
  case QStyle::CC_SpinBox:
    return {{{QStyle::SC_SpinBoxUp, Qt::UpArrow, Qt::UpArrow},
             {QStyle::SC_SpinBoxDown, Qt::DownArrow, Qt::DownArrow}}};
  case QStyle::CC_ScrollBar:
    return {{{QStyle::SC_ScrollBarSubLine, Qt::UpArrow, Qt::LeftArrow},
             {QStyle::SC_ScrollBarAddLine, Qt::DownArrow, Qt::RightArrow}}};
  default:
    return {{{QStyle::SC_ComboBoxArrow, Qt::DownArrow, Qt::DownArrow},
             {QStyle::SC_None, Qt::NoArrow, Qt::NoArrow}}};
  }
}

QPolygonF arrowShape(Qt::ArrowType points, double half) {
  switch (points) {
  case Qt::UpArrow:
    return {{{-half, half / 2}, {0, -half / 2}, {half, half / 2}}};
  case Qt::DownArrow:
    return {{{-half, -half / 2}, {0, half / 2}, {half, -half / 2}}};
  case Qt::LeftArrow:
    return {{{half / 2, -half}, {-half / 2, 0}, {half / 2, half}}};
  default:
    return {{{-half / 2, -half}, {half / 2, 0}, {-half / 2, half}}};
  }
}

void drawArrow(QPainter& painter, const QRect& room, Qt::ArrowType points, double scale,
               const QColor& colour) {
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.translate(QRectF(room).center());
  painter.setPen(Qt::NoPen);
  painter.setBrush(colour);
  const double largest = std::min(room.width(), room.height()) / 3.0;
  painter.drawPolygon(arrowShape(points, std::min(4 * scale, largest)));
  painter.restore();
}

/// What a menu bar shows where it is too narrow for its menus. Every menu bar asks for it as it is
/// made, and the stock one is a picture: reading it goes through all of the toolkit's plugins.
class MoreIcon : public QIconEngine {
public:
  void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
             QIcon::State /*state*/) override {
    constexpr double standardSide = 16;
    drawArrow(*painter, rect, Qt::DownArrow, rect.height() / standardSide, look::ink);
  }
  QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
    QPixmap drawn(size);
    drawn.fill(Qt::transparent);
    QPainter painter(&drawn);
    paint(&painter, drawn.rect(), mode, state);
    return drawn;
  }
  [[nodiscard]] QIconEngine* clone() const override { return new MoreIcon; }
};

/// Widens the part at the outer edge by `more` pixels, or takes them from the part inside.
QRect moveEdge(QRect rect, bool isOuterPart, int more, Qt::LayoutDirection direction) {
  const bool atRight = direction == Qt::LeftToRight;
  if (isOuterPart)
    atRight ? rect.setLeft(rect.left() - more) : rect.setRight(rect.right() + more);
  else
    atRight ? rect.setRight(rect.right() - more) : rect.setLeft(rect.left() + more);
  return rect;
}

constexpr int standardArrowWidth = 16;

} // namespace

LookStyle::LookStyle() : QProxyStyle(QStyleFactory::create(QStringLiteral("Fusion"))) {}

int LookStyle::pixelMetric(PixelMetric metric, const QStyleOption* option,
                           const QWidget* widget) const {
  const int standard = QProxyStyle::pixelMetric(metric, option, widget);
  if (!widget || !growsWithTheStage(metric, widget))
    return standard;
  return std::max(qRound(standard * Stage::scaleOf(widget)), std::min(standard, 6));
}

int LookStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                         QStyleHintReturn* more) const {
  if (hint == SH_ItemView_ActivateItemOnSingleClick)
    return 0; // whatever the desktop says: a click chooses, a double click does
  if (hint == SH_DialogButtonBox_ButtonsHaveIcons)
    return 0; // boxes look as the forms do, on every desktop
  if (hint == SH_Menu_Scrollable)
    return 1; // columns beside one another would leave the screen: a family has many sub-albums
  return QProxyStyle::styleHint(hint, option, widget, more);
}

QSize LookStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
                                  const QSize& contents, const QWidget* widget) const {
  QSize size = QProxyStyle::sizeFromContents(type, option, contents, widget);
  if (type == CT_ItemViewItem)
    size.rheight() += qRound(3 * Stage::scaleOf(widget)); // rows of a list need air
  return size;
}

QRect LookStyle::subElementRect(SubElement element, const QStyleOption* option,
                                const QWidget* widget) const {
  if (element == SE_CheckBoxClickRect || element == SE_RadioButtonClickRect)
    return option->rect; // all of the control, not only tick and text
  return QProxyStyle::subElementRect(element, option, widget);
}

QRect LookStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
                                SubControl part, const QWidget* widget) const {
  const QRect standard = QProxyStyle::subControlRect(control, option, part, widget);
  const double scale = Stage::scaleOf(widget);
  if (scale <= 1 || (control != CC_ComboBox && control != CC_SpinBox))
    return standard;
  const bool isArrow =
      part == SC_ComboBoxArrow || (control == CC_SpinBox && part <= SC_SpinBoxDown);
  const bool isField = part == SC_ComboBoxEditField || part == SC_SpinBoxEditField;
  if (!isArrow && !isField)
    return standard;
  const int more = qRound(standardArrowWidth * (scale - 1));
  return moveEdge(standard, isArrow, more, option->direction);
}

QIcon LookStyle::standardIcon(StandardPixmap icon, const QStyleOption* option,
                              const QWidget* widget) const {
  if (icon == SP_ToolBarHorizontalExtensionButton)
    return QIcon(new MoreIcon);
  return QProxyStyle::standardIcon(icon, option, widget);
}

void LookStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
                              QPainter* painter, const QWidget* widget) const {
  const bool isOnSelection =
      element == PE_IndicatorBranch && option->state.testFlag(State_Selected);
  if (!isOnSelection)
    return QProxyStyle::drawPrimitive(element, option, painter, widget);
  QStyleOption light(*option); // the arrow of a chosen folder is as light as its name
  light.palette.setColor(QPalette::WindowText, option->palette.color(QPalette::HighlightedText));
  QProxyStyle::drawPrimitive(element, &light, painter, widget);
}

void LookStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
                                   QPainter* painter, const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  const double scale = Stage::scaleOf(widget);
  if (scale <= 1 || !hasArrows(control))
    return;
  const bool across = option->state.testFlag(State_Horizontal);
  for (const ArrowPart& arrow : arrowParts(control))
    if (arrow.part != SC_None && option->subControls.testFlag(arrow.part))
      drawArrow(*painter, subControlRect(control, option, arrow.part, widget),
                across ? arrow.pointsAcross : arrow.points, scale,
                option->palette.color(QPalette::ButtonText));
}

} // namespace hearthbook
