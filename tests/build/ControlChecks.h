#pragma once

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

#include <string>

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
