#pragma once

#include "Forms.h"
#include "QtPrint.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace hearthbook::test {

/// Forms that write down what happens to them.
class NotingForm : public Form {
public:
  NotingForm(const QString& name, Kind kind, QStringList* notes)
      : Form(name, kind), notes_(notes) {}
  ~NotingForm() override { note("destroyed"); }

  bool mayGo = true;
  std::function<void()> onRowsChanged;

  void rowsChanged(const RowsChanged&) override {
    note("rows");
    if (onRowsChanged)
      onRowsChanged();
  }

protected:
  void load() override { note("load"); }
  void activated() override { note("activated"); }
  bool unloading() override {
    note("unloading");
    return mayGo;
  }

private:
  void note(const char* what) {
    notes_->append(name() + QChar::fromLatin1(' ') + QString::fromLatin1(what));
  }

  QStringList* notes_;
};

class PageForm : public NotingForm {
public:
  explicit PageForm(QStringList* notes) : NotingForm(QStringLiteral("Page"), Kind::Work, notes) {}
};

class OtherPageForm : public NotingForm {
public:
  explicit OtherPageForm(QStringList* notes)
      : NotingForm(QStringLiteral("Other"), Kind::Work, notes) {}
};

class AskForm : public NotingForm {
public:
  explicit AskForm(QStringList* notes) : NotingForm(QStringLiteral("Ask"), Kind::Dialog, notes) {}
};

class DeeperForm : public NotingForm {
public:
  explicit DeeperForm(QStringList* notes)
      : NotingForm(QStringLiteral("Deeper"), Kind::Dialog, notes) {}
};

/// Provides the forms above and ends them with the test.
class PlainForms : public testing::Test {
protected:
  PlainForms() {
    Forms::provide<PageForm>([this] { return new PageForm(&notes); });
    Forms::provide<OtherPageForm>([this] { return new OtherPageForm(&notes); });
    Forms::provide<AskForm>([this] { return new AskForm(&notes); });
    Forms::provide<DeeperForm>([this] { return new DeeperForm(&notes); });
  }
  ~PlainForms() override { Forms::reset(); }

  [[nodiscard]] qsizetype count(const QString& note) const { return notes.count(note); }

  QStringList notes;
};

} // namespace hearthbook::test
