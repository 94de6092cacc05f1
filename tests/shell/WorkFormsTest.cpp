#include "WorkForms.h"

#include "Forms.h"

#include <gtest/gtest.h>

#include <QStringList>

namespace hearthbook {
namespace {

QStringList unloaded; // in this order

template <int number> class Numbered : public Form {
public:
  explicit Numbered(Kind kind = Kind::Work) : Form(QStringLiteral("Form%1").arg(number), kind) {}
  bool refuses = false;

protected:
  bool unloading() override {
    if (!refuses)
      unloaded << name();
    return !refuses;
  }
};

using StartScreen = Numbered<0>;
using First = Numbered<1>;
using Second = Numbered<2>;
using Third = Numbered<3>;

class WorkFormsTest : public testing::Test {
protected:
  WorkFormsTest() {
    Forms::provide<StartScreen>([] { return new StartScreen(Form::Kind::Backdrop); });
    Forms::provide<First>([] { return new First; });
    Forms::provide<Second>([] { return new Second; });
    Forms::provide<Third>([] { return new Third(Form::Kind::Dialog); });
    Forms::get<StartScreen>();
    Forms::get<First>();
    Forms::get<Second>();
    Forms::get<Third>();
    unloaded.clear();
  }
  ~WorkFormsTest() override { Forms::reset(); }

  static bool isOpen(const char* name) {
    for (const Form* form : Forms::open())
      if (form->name() == QString::fromLatin1(name))
        return true;
    return false;
  }
};

TEST_F(WorkFormsTest, AllFormsButTheStartScreenAreClosedInTheOrderOfLoading) {
  EXPECT_TRUE(closeWorkForms());

  EXPECT_EQ(unloaded, (QStringList{QStringLiteral("Form1"), QStringLiteral("Form2"),
                                   QStringLiteral("Form3")}));
  EXPECT_EQ(Forms::open(), std::vector<Form*>{&Forms::get<StartScreen>()});
}

TEST_F(WorkFormsTest, WithTheStartScreenAloneThereIsNothingToClose) {
  closeWorkForms();
  unloaded.clear();

  EXPECT_TRUE(closeWorkForms());

  EXPECT_TRUE(unloaded.isEmpty());
}

TEST_F(WorkFormsTest, AFormThatRefusesStopsTheCommand) {
  Forms::get<Second>().refuses = true;

  EXPECT_FALSE(closeWorkForms());

  EXPECT_FALSE(isOpen("Form1"));
  EXPECT_TRUE(isOpen("Form2"));
  EXPECT_TRUE(isOpen("Form3"));
  Forms::get<Second>().refuses = false;
}

TEST_F(WorkFormsTest, AtTheEndTheTopmostFormGoesFirst) {
  EXPECT_TRUE(closeWorkFormsTopmostFirst());

  EXPECT_EQ(unloaded, (QStringList{QStringLiteral("Form3"), QStringLiteral("Form2"),
                                   QStringLiteral("Form1")}));
  EXPECT_TRUE(isOpen("Form0"));
}

TEST_F(WorkFormsTest, AFormThatRefusesStopsTheEnd) {
  Forms::get<Second>().refuses = true;

  EXPECT_FALSE(closeWorkFormsTopmostFirst());

  EXPECT_TRUE(isOpen("Form1"));
  EXPECT_FALSE(isOpen("Form3"));
  Forms::get<Second>().refuses = false;
}

} // namespace
} // namespace hearthbook
