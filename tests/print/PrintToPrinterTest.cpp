#include "PrintFixture.h"

namespace hearthbook::test {

namespace {

class PrintToPrinter : public PrintFixture {
protected:
  void SetUp() override {
    if (const std::string why = CupsDaemon::whyNot(); !why.empty())
      GTEST_SKIP() << "No printing service to test with: " << why;
    service_.emplace();
  }
  [[nodiscard]] CupsDaemon& service() { return *service_; }

  frmPrint& openTitled(const char* tag, PrintPage page) {
    auto& form = open(tag, page);
    form.setPage(std::move(page), toQString(service().uniqueTitle()));
    return form;
  }
  Picture printed(int dots) {
    const std::string title = service().uniqueTitle();
    EXPECT_TRUE(waitFor([&] { return !service().printed(title).empty(); })) << service().pageLog();
    return pdfPages(service().printed(title), dots).front();
  }

private:
  std::optional<CupsDaemon> service_;
};

TEST_F(PrintToPrinter, ListsThePrintersWithTheCurrentOneChosenAndTheFileLast) {
  service().addPrinter("Album_PDF");
  service().addPrinter("Other_PDF");
  service().makeCurrent("Other_PDF");
  const frmPrint& form = open("Editor", editorPage());
  EXPECT_EQ(devices(form), (QStringList{QStringLiteral("Album_PDF"), QStringLiteral("Other_PDF"),
                                        QStringLiteral("PDF file")}));
  EXPECT_EQ(control<QComboBox>(form, "Combo1")->currentText(), QStringLiteral("Other_PDF"));
}

TEST_F(PrintToPrinter, ThePageGoesToTheChosenPrinterAndNotToTheCurrentOne) {
  service().addPrinter("Album_PDF");
  service().addPrinter("Other_PDF");
  service().makeCurrent("Album_PDF");
  const frmPrint& form = openTitled("Editor", editorPage());
  control<QComboBox>(form, "Combo1")->setCurrentText(QStringLiteral("Other_PDF"));
  press(form, "Command4");
  EXPECT_EQ(note(form), QStringLiteral("Sent to Other_PDF."));
  printed(20);
  EXPECT_NE(service().pageLog().find("Other_PDF "), std::string::npos) << service().pageLog();
  EXPECT_EQ(service().pageLog().find("Album_PDF "), std::string::npos) << service().pageLog();
}

TEST_F(PrintToPrinter, ChoosesTheFirstPrinterWhereNoneIsCurrent) {
  service().addPrinter("Album_PDF");
  service().addPrinter("Other_PDF");
  EXPECT_EQ(control<QComboBox>(open("Editor", editorPage()), "Combo1")->currentText(),
            QStringLiteral("Album_PDF"));
}

TEST_F(PrintToPrinter, WithoutPrintersThereIsTheFileAndNoMessage) {
  EXPECT_EQ(devices(open("Editor", editorPage())), QStringList{QStringLiteral("PDF file")});
}

TEST_F(PrintToPrinter, TheFileIsOfferedBesideThePrinters) {
  service().addPrinter("Album_PDF");
  frmPrint& form = open("Editor", editorPage());
  choosePdf(form);
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 20).size(), 1u);
  EXPECT_TRUE(service().pageLog().empty());
}

TEST_F(PrintToPrinter, AnAlbumPageComesOutOfThePrinter) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Viewer", albumPage({0, 1, 2, 3}));
  control<QLineEdit>(form, "Text1")->setText(QStringLiteral("2"));
  press(form, "Command4");
  EXPECT_EQ(note(form), QStringLiteral("Sent to Album_PDF."));
  const Picture page = printed(72);
  EXPECT_NE(service().pageLog().find("total 2 - localhost " + service().uniqueTitle() +
                                     " na_letter_8.5x11in"),
            std::string::npos)
      << service().pageLog();
  // The sheet lies across and goes through upright: its four photos are there all the same.
  int blues = 0;
  for (int y = 0; y < page.height(); ++y)
    for (int x = 0; x < page.width(); ++x)
      blues += distance(*(page.row(y) + x), blue) < 30;
  const double quarter = 3375 * 1.5 / 20 * (2535 * 1.5 / 20) / 4;
  EXPECT_NEAR(blues, 4 * quarter, quarter / 5);
}

TEST_F(PrintToPrinter, TheChosenQualityReachesThePrinter) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Editor", editorPage());
  for (const auto& [option, told] :
       {std::pair("Option5", "quality 3"), {"Option4", "quality 4"}, {"Option3", "quality 5"}}) {
    check(form, option);
    press(form, "Command4");
    EXPECT_TRUE(waitFor([&] { return service().pageLog().find(told) != std::string::npos; }))
        << service().pageLog();
  }
}

TEST_F(PrintToPrinter, APhotoOnPhotoPaperComesOutOnIt) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Zoom", editorPage());
  control<QComboBox>(form, "Combo2")->setCurrentIndex(1);
  check(form, "Option9");
  press(form, "Command4");
  printed(20);
  EXPECT_NE(service().pageLog().find("na_index-4x6_4x6in"), std::string::npos)
      << service().pageLog();
}

TEST_F(PrintToPrinter, TheOriginalSizeOnPhotoPaperLeavesThePrintersPaper) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Editor", editorPage());
  control<QComboBox>(form, "Combo2")->setCurrentIndex(1);
  press(form, "Command4");
  printed(20);
  const std::string job = service().uniqueTitle() + " ";
  const std::string log = service().pageLog();
  ASSERT_NE(log.find(job), std::string::npos);
  EXPECT_EQ(log.find(job + "na_index"), std::string::npos) << log;
}

TEST_F(PrintToPrinter, ThePrintersOwnPaperIsTheSheet) {
  service().addPrinter("Album_PDF");
  service().setPaper("Album_PDF", "A5");
  frmPrint& form = openTitled("Editor", editorPage());
  control<QComboBox>(form, "Combo2")->setCurrentIndex(1);
  EXPECT_TRUE(waitFor([&] { return !form.devices().isAskingForPaper(); }));
  EXPECT_NEAR(form.sheet().paper.width, 210 / 25.4 * 1440, 40); // it lies across
  EXPECT_NEAR(form.sheet().paper.height, 148 / 25.4 * 1440, 40);
  EXPECT_EQ(control<PrintPreview>(form, "preview")->sheet().paper, form.sheet().paper);
  press(form, "Command4");
  const PixelSize page = printed(72).size();
  EXPECT_NEAR(page.width, 148 / 25.4 * 72, 2); // it goes through upright
  EXPECT_NEAR(page.height, 210 / 25.4 * 72, 2);
}

/// From the first to behind the last pixel that is not white, of a page with 72 dots to the inch.
struct Inked {
  int left = 1 << 20;
  int top = 1 << 20;
  int right = 0;
  int bottom = 0;
};

Inked colouredOf(const Picture& page) {
  Inked box;
  for (int y = 0; y < page.height(); ++y)
    for (int x = 0; x < page.width(); ++x) {
      const std::uint32_t pixel = *(page.row(y) + x);
      if (distance(pixel, red) > 60 && distance(pixel, green) > 60 && distance(pixel, blue) > 60)
        continue;
      box = {std::min(box.left, x), std::min(box.top, y), std::max(box.right, x + 1),
             std::max(box.bottom, y + 1)};
    }
  return box;
}

TEST_F(PrintToPrinter, AnUprightSheetComesOutWithThePhotoInItsPlace) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Editor", editorPage());
  check(form, "Option7");
  press(form, "Command4");
  const Picture page = printed(72);
  EXPECT_EQ(page.size(), (PixelSize{612, 792}));
  const Inked photo = colouredOf(page); // a pixel is 20 twips
  EXPECT_NEAR(photo.left, 360 / 20, 1);
  EXPECT_NEAR(photo.top, (360 + 300) / 20, 1);
  EXPECT_NEAR(photo.right, (360 + 5760) / 20, 1);
  EXPECT_NEAR(photo.bottom, (360 + 300 + 4320) / 20, 1);
}

TEST_F(PrintToPrinter, ASheetThatLiesAcrossComesOutTurnedWithThePhotoInItsPlace) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = openTitled("Editor", editorPage());
  press(form, "Command4");
  const Picture page = printed(72);
  EXPECT_EQ(page.size(), (PixelSize{612, 792}));
  const Inked photo = colouredOf(page);
  // Its left edge lies along one of the paper's short edges, its upper edge along a long one.
  const bool turnedLeft = photo.top > page.height() / 2;
  EXPECT_NEAR(turnedLeft ? page.height() - photo.bottom : photo.top, 360 / 20, 1);
  EXPECT_NEAR(turnedLeft ? photo.left : page.width() - photo.right, (360 + 300) / 20, 1);
  EXPECT_NEAR(photo.bottom - photo.top, 5760 / 20, 1);
  EXPECT_NEAR(photo.right - photo.left, 4320 / 20, 1);
}

TEST_F(PrintToPrinter, APrinterThatVanishesFails) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = open("Editor", editorPage());
  service().takePrinterAway("Album_PDF");
  boxes_.expectMessage(printFailureText, QStringLiteral("Print"));
  press(form, "Command4");
  EXPECT_TRUE(note(form).contains(QStringLiteral("Album_PDF"))) << toUtf8(note(form));
  EXPECT_FALSE(control<QGroupBox>(form, "Frame7")->isVisible());
}

TEST_F(PrintToPrinter, APrinterThatTakesNoPagesFails) {
  service().addPrinter("Album_PDF");
  const frmPrint& form = open("Editor", editorPage());
  service().refuseJobs("Album_PDF");
  boxes_.expectMessage(printFailureText, QStringLiteral("Print"));
  press(form, "Command4");
}

TEST_F(PrintToPrinter, AfterAPrinterHasVanishedThePageCanBeSaved) {
  service().addPrinter("Album_PDF");
  frmPrint& form = open("Editor", editorPage());
  service().kill();
  boxes_.expectMessage(printFailureText, QStringLiteral("Print"));
  press(form, "Command4");
  choosePdf(form);
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 20).size(), 1u);
}

} // namespace

} // namespace hearthbook::test
