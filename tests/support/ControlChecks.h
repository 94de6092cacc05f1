#pragma once

#include "HelpEntry.h"
#include "QtPrint.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QAccessible>
#include <QApplication>
#include <QGroupBox>
#include <QLabel>
#include <QSet>
#include <QTest>

#include <array>
#include <functional>
#include <optional>
#include <ostream>
#include <string>

namespace hearthbook {
inline void PrintTo(const HelpEntry& entry, std::ostream* out) {
  *out << entry.caption << ": " << entry.text;
}
} // namespace hearthbook

namespace hearthbook::test {

/// One control of a form: its name, the kind that it is, the caption that it bears at first and
/// the item by which its help is found.
struct Control {
  const char* name;
  const char* kind;
  const char* caption = "";
  const char* helpItem = "";
};

inline std::string captionOf(const QWidget& control) {
  if (const auto* label = qobject_cast<const QLabel*>(&control))
    return toUtf8(label->text());
  if (const auto* button = qobject_cast<const QAbstractButton*>(&control))
    return toUtf8(button->text());
  if (const auto* group = qobject_cast<const QGroupBox*>(&control))
    return toUtf8(group->title());
  return {};
}

/// Each control stands on the form exactly once, as told.
template <std::size_t count>
void expectControls(const QWidget& form, const char* screen, const Control (&controls)[count]) {
  for (const Control& wanted : controls) {
    const auto found = form.findChildren<QWidget*>(toQString(wanted.name));
    ASSERT_EQ(found.size(), 1) << wanted.name;
    EXPECT_STREQ(found.front()->metaObject()->className(), wanted.kind) << wanted.name;
    EXPECT_EQ(captionOf(*found.front()), wanted.caption) << wanted.name;
    const std::string key =
        *wanted.helpItem ? std::string(screen) + "*" + wanted.helpItem : std::string();
    EXPECT_EQ(toUtf8(found.front()->property("helpKey").toString()), key) << wanted.name;
  }
}

/// A point of the control on which no other control lies; nothing where the control is covered.
inline std::optional<QPoint> bareSpot(const QWidget& control) {
  const QRect inside = control.rect().adjusted(2, 2, -2, -2);
  const bool isFrame = qobject_cast<const QGroupBox*>(&control);
  const auto spots = isFrame ? std::array{inside.bottomRight(), inside.topRight()}
                             : std::array{inside.center(), inside.topLeft()};
  for (const QPoint spot : spots)
    if (!isFrame || !control.childAt(spot))
      return spot;
  return std::nullopt;
}

/// The mouse goes over each control in sight: the row of its key is then in the pane. A control
/// without a key leaves there what was there. Returns how many were explained.
template <std::size_t count>
int expectMouseExplains(const QWidget& form, const char* screen, const Control (&controls)[count],
                        const std::function<HelpEntry()>& pane, Recordset& rsHelp) {
  int explained = 0;
  for (const Control& wanted : controls) {
    auto* control = form.findChild<QWidget*>(toQString(wanted.name));
    const auto spot = control && control->isVisible() ? bareSpot(*control) : std::nullopt;
    if (!spot)
      continue;
    const HelpEntry before = pane();
    // Twice: a pointer that is there already would not be seen to move.
    QTest::mouseMove(control, *spot - QPoint(1, 0));
    QTest::mouseMove(control, *spot);
    const bool isExplained = *wanted.helpItem && !control->property("helpOnFocus").toBool();
    const std::string key = std::string(screen) + "*" + wanted.helpItem;
    EXPECT_EQ(pane(), isExplained ? findHelp(rsHelp, key) : before) << wanted.name;
    explained += isExplained;
  }
  return explained;
}

inline QWidgetList tabRound(QWidget& form, Qt::Key key) {
  QWidgetList round;
  QSet<QWidget*> seen;
  while (QWidget* at = QApplication::focusWidget()) {
    if (seen.contains(at))
      break;
    seen.insert(at);
    round << at;
    QTest::keyClick(at, key, key == Qt::Key_Backtab ? Qt::ShiftModifier : Qt::NoModifier);
  }
  EXPECT_TRUE(form.isAncestorOf(QApplication::focusWidget()));
  return round;
}

/// Tab and Backtab reach the same controls, and each of them can be named by a screen reader.
inline void expectTabReachesAll(QWidget& form, QWidget* start, int least = 5) {
  form.activateWindow();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
  start->setFocus();
  const QWidgetList forward = tabRound(form, Qt::Key_Tab);
  start->setFocus();
  const QWidgetList back = tabRound(form, Qt::Key_Backtab);
  EXPECT_GE(forward.size(), least);
  EXPECT_EQ(forward.size(), back.size());
  for (const QWidget* reached : forward) {
    const auto* accessible = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(reached));
    ASSERT_NE(accessible, nullptr);
    EXPECT_FALSE(accessible->text(QAccessible::Name).trimmed().isEmpty())
        << toUtf8(reached->objectName());
  }
}

} // namespace hearthbook::test
