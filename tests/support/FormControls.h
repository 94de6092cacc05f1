#pragma once

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QStringList>
#include <QTest>

#include <stdexcept>
#include <string>

namespace hearthbook::test {

/// What tests of forms do with controls, which they know by their given names.
struct FormControls {
  template <class X = QWidget> static X* control(const QWidget& form, const char* name) {
    X* found = form.findChild<X*>(QString::fromLatin1(name));
    if (!found)
      throw std::logic_error(std::string("no control ") + name);
    return found;
  }
  static void press(const QWidget& form, const char* name) {
    QTest::mouseClick(control(form, name), Qt::LeftButton);
  }
  static bool isEnabled(const QWidget& form, const char* name) {
    return control(form, name)->isEnabled();
  }
  /// What a list shows, from the first row to the last.
  static QStringList textsOf(const QAbstractItemView& list) {
    QStringList texts;
    for (int row = 0; row < list.model()->rowCount(); ++row)
      texts << list.model()->index(row, 0).data().toString();
    return texts;
  }
};

} // namespace hearthbook::test
