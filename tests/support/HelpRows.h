#pragma once

#include "Recordset.h"
#include "Text.h"

#include <gtest/gtest.h>

#include <QWidget>

#include <string>

namespace hearthbook::test {

/// Every help key on the form has its row in the table of explanations, and there are some.
inline void expectHelpRows(const QWidget& form, Recordset& rsHelp) {
  int keys = 0;
  for (const QWidget* control : form.findChildren<QWidget*>()) {
    const std::string key = toUtf8(control->property("helpKey").toString());
    if (key.empty())
      continue;
    ++keys;
    rsHelp.Find("HelpID = '" + key + "'", Recordset::Start::First);
    EXPECT_FALSE(rsHelp.atEOF()) << key;
  }
  EXPECT_GT(keys, 0) << toUtf8(form.objectName());
}

} // namespace hearthbook::test
