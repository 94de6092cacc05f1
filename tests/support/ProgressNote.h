#pragma once

#include "Forms.h"
#include "Progress.h"

#include <QProgressBar>
#include <QString>

#include <vector>

namespace hearthbook::test {

/// What Progress was when its bar moved: it is gone again when a test comes to look.
struct ProgressNote {
  ProgressNote() {
    Forms::provide<Progress>([this] {
      auto* progress = new Progress;
      const auto* bar = progress->findChild<QProgressBar*>();
      QObject::connect(bar, &QProgressBar::valueChanged, bar, [this, progress, bar](int value) {
        if (progress->isShown())
          caption = progress->caption();
        minimum = bar->minimum();
        maximum = bar->maximum();
        values.push_back(value);
      });
      return progress;
    });
  }
  ~ProgressNote() {
    Forms::provide<Progress>([] { return new Progress; });
  }
  ProgressNote(const ProgressNote&) = delete;
  ProgressNote& operator=(const ProgressNote&) = delete;

  QString caption;
  int minimum = 0;
  int maximum = 0;
  std::vector<int> values;
};

} // namespace hearthbook::test
