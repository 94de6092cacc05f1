#include "Printers.h"

#include "CupsDaemon.h"
#include "PdfPages.h"
#include "RunTimeError.h"
#include "SheetPdf.h"
#include "TestPictures.h"
#include "WaitFor.h"

#include <gtest/gtest.h>

#include <optional>
#include <thread>

namespace hearthbook {
namespace {

/// What the client of the service remembers, it remembers for each thread.
template <class Work> auto onAThreadOfItsOwn(Work work) {
  std::optional<decltype(work())> result;
  std::exception_ptr failure;
  std::thread([&] {
    try {
      result = work();
    } catch (...) {
      failure = std::current_exception();
    }
  }).join();
  if (failure)
    std::rethrow_exception(failure);
  return *result;
}

std::vector<Printer> listed() { return onAThreadOfItsOwn(listPrinters); }

bool print(const std::string& printer, const std::string& title, const PrintSettings& settings) {
  const PrintSheet sheet{
      {15840, 12240}, {360, 360}, {SheetPicture{{1000, 1000, 6000, 4500}, {}, {}}}};
  const std::string pdf = sheetAsPdf(sheet, {test::corners({600, 450})}, 1, title);
  return onAThreadOfItsOwn([&] { return printPdf(printer, title, settings, pdf), true; });
}

std::string failureOf(const std::function<void()>& work) {
  try {
    work();
  } catch (const RunTimeError& failure) {
    return failure.what();
  }
  return {};
}

class PrintersTest : public testing::Test {
protected:
  void SetUp() override {
    if (const std::string why = test::CupsDaemon::whyNot(); !why.empty())
      GTEST_SKIP() << "No printing service to test with: " << why;
    service_.emplace();
  }
  [[nodiscard]] test::CupsDaemon& service() { return *service_; }

  std::filesystem::path printedOf(const std::string& title) {
    EXPECT_TRUE(test::waitFor([&] { return !service().printed(title).empty(); }))
        << service().pageLog();
    return service().printed(title);
  }

private:
  std::optional<test::CupsDaemon> service_;
};

TEST(NoPrinters, WhereNoServiceAnswersTheListFails) {
  const test::NoCupsDaemon nothing;
  EXPECT_EQ(failureOf([] { listed(); }), "The printing service does not answer.");
}

TEST_F(PrintersTest, AServiceWithoutPrintersHasAnEmptyList) { EXPECT_TRUE(listed().empty()); }

TEST_F(PrintersTest, AreListedByNameWithTheCurrentOneKnown) {
  service().addPrinter("Album_PDF");
  service().addPrinter("Other_PDF");
  service().makeCurrent("Other_PDF");
  const auto printers = listed();
  ASSERT_EQ(printers.size(), 2u);
  EXPECT_EQ(printers.at(0).name, "Album_PDF");
  EXPECT_FALSE(printers.at(0).isCurrent);
  EXPECT_EQ(printers.at(1).name, "Other_PDF");
  EXPECT_TRUE(printers.at(1).isCurrent);
}

TEST_F(PrintersTest, ASetOfTheUsersOwnChoicesIsAPrinterToo) {
  service().addPrinter("Album_PDF");
  service().addPrinter("Other_PDF");
  service().makeCurrent("Other_PDF");
  service().keepChoices("Album_PDF/photo", "job-priority=77 PageSize=A3 print-quality=3");
  const auto printers = listed();
  ASSERT_EQ(printers.size(), 3u);
  EXPECT_EQ(printers.at(1).name, "Album_PDF/photo");
  EXPECT_TRUE(printers.at(1).isCurrent);
  EXPECT_FALSE(printers.at(2).isCurrent);

  PrintSettings settings;
  settings.media = "na_letter_8.5x11in";
  const std::string title = service().uniqueTitle();
  print("Album_PDF/photo", title, settings);
  printedOf(title);
  const std::string log = service().pageLog();
  EXPECT_NE(log.find("quality 4 priority 77"), std::string::npos)
      << log; // the form's own counts more
  EXPECT_NE(log.find(title + " na_letter_8.5x11in"), std::string::npos) << log;
}

TEST_F(PrintersTest, AreToldTheQuality) {
  service().addPrinter("Album_PDF");
  for (const auto& [quality, told] : {std::pair(PrintQuality::Draft, "quality 3"),
                                      {PrintQuality::Normal, "quality 4"},
                                      {PrintQuality::Best, "quality 5"}}) {
    PrintSettings settings;
    settings.quality = quality;
    print("Album_PDF", service().uniqueTitle(), settings);
    EXPECT_TRUE(test::waitFor([&] { return service().pageLog().find(told) != std::string::npos; }))
        << service().pageLog();
  }
}

TEST_F(PrintersTest, TellTheirOwnPaper) {
  service().addPrinter("Album_PDF");
  struct Expected {
    const char* name;
    double width; ///< in millimetres
    double height;
  };
  for (const auto& [name, width, height] :
       {Expected{"A4", 210, 297}, Expected{"A5", 148, 210}, Expected{"Letter", 215.9, 279.4}}) {
    SCOPED_TRACE(name);
    service().setPaper("Album_PDF", name);
    const auto paper = onAThreadOfItsOwn([] { return ownPaperOf("Album_PDF"); });
    ASSERT_TRUE(paper);
    EXPECT_NEAR(paper->width, width / 25.4 * 1440, 40); // a driver's papers are of whole points
    EXPECT_NEAR(paper->height, height / 25.4 * 1440, 40);
  }
}

TEST_F(PrintersTest, AColourPageComesOutInItsPlace) {
  service().addPrinter("Album_PDF");
  PrintSettings settings;
  settings.media = "na_letter_8.5x11in";
  const std::string title = service().uniqueTitle();
  print("Album_PDF", title, settings);
  const auto pages = test::pdfPages(printedOf(title), 72);
  ASSERT_EQ(pages.size(), 1u);
  // Across on paper that goes through upright: turned by a quarter.
  EXPECT_EQ(pages.front().size(), (PixelSize{612, 792}));
  int red = 0;
  int green = 0;
  for (int y = 0; y < 792; ++y)
    for (int x = 0; x < 612; ++x) {
      red += test::distance(*(pages.front().row(y) + x), test::red) < 30;
      green += test::distance(*(pages.front().row(y) + x), test::green) < 30;
    }
  const double quarter = 3000.0 / 20 * 2250 / 20; // of the picture, in pixels
  EXPECT_NEAR(red, quarter, quarter / 10);
  EXPECT_NEAR(green, quarter, quarter / 10);
}

TEST_F(PrintersTest, CopiesPaperAndGreyReachThePrinter) {
  service().addPrinter("Album_PDF");
  PrintSettings settings;
  settings.copies = 3;
  settings.media = "na_letter_8.5x11in";
  settings.colorMode = ColorMode::Monochrome;
  const std::string title = service().uniqueTitle();
  print("Album_PDF", title, settings);
  const auto pages = test::pdfPages(printedOf(title), 20);
  EXPECT_NE(service().pageLog().find("total 3 - localhost " + title + " na_letter_8.5x11in"),
            std::string::npos)
      << service().pageLog();
  ASSERT_FALSE(pages.empty());
  for (const Picture& page : pages)
    for (int y = 0; y < page.height(); ++y)
      for (int x = 0; x < page.width(); ++x) {
        const std::uint32_t pixel = *(page.row(y) + x);
        ASSERT_EQ(pixel >> 16 & 0xff, pixel & 0xff);
        ASSERT_EQ(pixel >> 8 & 0xff, pixel & 0xff);
      }
}

TEST_F(PrintersTest, APrinterThatIsGoneFails) {
  service().addPrinter("Album_PDF");
  service().takePrinterAway("Album_PDF");
  const std::string why = failureOf([&] { print("Album_PDF", service().uniqueTitle(), {}); });
  EXPECT_NE(why.find("Album_PDF is not there"), std::string::npos) << why;
}

TEST_F(PrintersTest, APrinterThatTakesNoJobsFails) {
  service().addPrinter("Album_PDF");
  service().refuseJobs("Album_PDF");
  const std::string why = failureOf([&] { print("Album_PDF", service().uniqueTitle(), {}); });
  EXPECT_NE(why.find("takes no pages"), std::string::npos) << why;
}

TEST_F(PrintersTest, AServiceThatIsGoneFails) {
  service().addPrinter("Album_PDF");
  service().kill();
  EXPECT_FALSE(failureOf([&] { print("Album_PDF", service().uniqueTitle(), {}); }).empty());
}

} // namespace
} // namespace hearthbook
