#include "PrintFixture.h"

#include "HeldPool.h"
#include "ScopedVariable.h"

#include <QTcpServer>
#include <QTimer>

#include <algorithm>
#include <future>
#include <latch>
#include <string>
#include <utility>
#include <vector>

namespace hearthbook::test {

namespace {

using PrintForm = PrintToFileFixture;

std::uint32_t pixelAt(const Picture& page, double x, double y) {
  return *(page.row(static_cast<int>(y / 20)) + static_cast<int>(x / 20));
}

TEST_F(PrintForm, TellsThatThePrintersCannotBeReadAndStillOffersAFile) {
  const frmPrint& form = open("Editor", editorPage());
  EXPECT_EQ(devices(form), QStringList{QStringLiteral("PDF file")});
  EXPECT_TRUE(isEnabled(form, "Command4"));
}

TEST_F(PrintForm, BeginsInColourOfNormalQualityAcrossInItsOriginalSizeOnLetter) {
  const frmPrint& form = open("Search", contactPage(1));
  for (const char* option : {"Option1", "Option4", "Option6", "Option8"})
    EXPECT_TRUE(control<QRadioButton>(form, option)->isChecked()) << option;
  const auto* papers = control<QComboBox>(form, "Combo2");
  EXPECT_EQ(textsOf(*papers->view()), (QStringList{QStringLiteral("Letter (8.5 x 11 in.)"),
                                                   QStringLiteral("Photo Paper (4 x 6 in.)")}));
  EXPECT_EQ(papers->currentIndex(), 0);
  EXPECT_EQ(control<QLineEdit>(form, "Text1")->text(), QStringLiteral("1"));
}

TEST_F(PrintForm, OrientationSizeAndPaperAreForASinglePhotoOnly) {
  const char* const choices[] = {"Option6", "Option7", "Option8", "Option9", "Combo2"};
  const frmPrint& page = open("Viewer", albumPage({0}));
  for (const char* choice : choices)
    EXPECT_FALSE(isEnabled(page, choice)) << choice;
  Forms::get<frmPrint>().Unload();
  boxes_.expectMessage(noPrintersText);
  const frmPrint& single = open("Zoom", editorPage());
  for (const char* choice : choices)
    EXPECT_TRUE(isEnabled(single, choice)) << choice;
}

TEST_F(PrintForm, PrintsThePhotoIntoTheFile) {
  const frmPrint& form = open("Editor", editorPage());
  press(form, "Command4");
  EXPECT_EQ(note(form), QStringLiteral("Saved as ") + toQString(*pdf_));
  const auto pages = pdfPages(*pdf_, 72);
  ASSERT_EQ(pages.size(), 1u);
  EXPECT_EQ(pages.front().size(), (PixelSize{792, 612}));
  // The photo begins 300 below the origin, which stands a quarter of an inch from the edges.
  EXPECT_LE(distance(pixelAt(pages.front(), 400, 720), red), 8);
  EXPECT_LE(distance(pixelAt(pages.front(), 6060, 4920), white), 8);
  EXPECT_LE(distance(pixelAt(pages.front(), 6060, 720), green), 8);
  EXPECT_LE(distance(pixelAt(pages.front(), 400, 4920), blue), 8);
  EXPECT_EQ(pixelAt(pages.front(), 6200, 720), white);
  const std::string words = pdfText(*pdf_);
  EXPECT_NE(words.find("1987, Wedding in Lake"), std::string::npos) << words;
  EXPECT_NE(words.find("Anna, Ben"), std::string::npos) << words;
}

TEST_F(PrintForm, FitsThePhotoToUprightPaper) {
  const frmPrint& form = open("Zoom", editorPage());
  check(form, "Option7");
  check(form, "Option9");
  control<QComboBox>(form, "Combo2")->setCurrentIndex(1);
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 72).front().size(), (PixelSize{288, 432}));
}

TEST_F(PrintForm, PrintsTheFourPlacesOfAnAlbumPage) {
  const frmPrint& form = open("Viewer", albumPage({0, 1, 2, 3}));
  press(form, "Command4");
  const Picture page = pdfPages(*pdf_, 72).front();
  for (const auto& [x, y] :
       {std::pair{2400.0, 504.0}, {9936.0, 504.0}, {2400.0, 6540.0}, {9936.0, 6540.0}}) {
    EXPECT_LE(distance(pixelAt(page, x + 400, y + 400), red), 8) << x << ' ' << y;
    EXPECT_LE(distance(pixelAt(page, x + 360 + 5000, y + 360 + 3750), white), 8);
    EXPECT_LE(distance(pixelAt(page, x + 360 + 5000, y + 400), green), 8);
    EXPECT_LE(distance(pixelAt(page, x + 360 - 2100, y + 360 + 1700), green), 8); // its names
    EXPECT_EQ(pixelAt(page, x + 360 - 2100, y + 360 + 1800), white);
  }
}

TEST_F(PrintForm, PrintsOnlyTheFilledPlaces) {
  const frmPrint& form = open("Viewer", albumPage({0, 2}));
  press(form, "Command4");
  const Picture page = pdfPages(*pdf_, 72).front();
  EXPECT_LE(distance(pixelAt(page, 2400 + 400, 504 + 400), red), 8);
  EXPECT_EQ(pixelAt(page, 9936 + 400, 504 + 400), white);
  EXPECT_EQ(pixelAt(page, 9936 + 400, 6540 + 400), white);
}

TEST_F(PrintForm, PrintsAPageOfThumbnails) {
  const frmPrint& form = open("Search", contactPage(24));
  press(form, "Command4");
  const Picture page = pdfPages(*pdf_, 72).front();
  for (const int place : {0, 7, 16, 23}) {
    const double x = 360 + (240 + place % 8 * 1320) * 1.4;
    const double y = 360 + (120 + place / 8 * 1320) * 1.4;
    EXPECT_LE(distance(pixelAt(page, x + 40, y + 40), red), 8) << place;
    EXPECT_LE(distance(pixelAt(page, x + 1500, y + 1120), red), 8) << place;
    EXPECT_EQ(pixelAt(page, x + 1590, y + 40), white) << place;
    EXPECT_EQ(pixelAt(page, x + 40, y + 1190), white) << place;
  }
}

TEST_F(PrintForm, PrintsInGreyWhatIsToBeMonochrome) {
  const frmPrint& form = open("Editor", editorPage());
  check(form, "Option2");
  press(form, "Command4");
  const Picture page = pdfPages(*pdf_, 36).front();
  for (int y = 0; y < page.height(); ++y)
    for (int x = 0; x < page.width(); ++x) {
      const std::uint32_t pixel = *(page.row(y) + x);
      ASSERT_LE(distance(pixel, 0xff000000 | (pixel & 0xff) * 0x10101), 2);
    }
}

TEST_F(PrintForm, PrintsAPageForEachCopy) {
  const frmPrint& form = open("Editor", editorPage());
  control<QLineEdit>(form, "Text1")->setText(QStringLiteral("3"));
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 20).size(), 3u);
}

TEST_F(PrintForm, AWrongEntryInTheCopiesBoxFails) {
  for (const char* typed : {"", "many", "0", "-2", "100000"}) {
    SCOPED_TRACE(typed);
    const frmPrint& form = open("Editor", editorPage());
    control<QLineEdit>(form, "Text1")->setText(toQString(typed));
    boxes_.expectMessage(printFailureText, QStringLiteral("Print"));
    press(form, "Command4");
    EXPECT_FALSE(std::filesystem::exists(*pdf_));
    EXPECT_FALSE(control<QGroupBox>(form, "Frame7")->isVisible());
    EXPECT_TRUE(note(form).contains(toQString("copies"))) << toUtf8(note(form));
    Forms::get<frmPrint>().Unload();
    boxes_.expectMessage(noPrintersText);
  }
  open("Editor", editorPage());
}

TEST_F(PrintForm, TheArrowsWriteTheirNumberIntoTheCopiesBox) {
  const frmPrint& form = open("Editor", editorPage());
  auto* arrows = control<QScrollBar>(form, "VScroll2");
  const auto* text = control<QLineEdit>(form, "Text1");
  QTest::mouseClick(arrows, Qt::LeftButton, {}, {arrows->width() / 2, 3});
  EXPECT_EQ(text->text(), QStringLiteral("2"));
  QTest::mouseClick(arrows, Qt::LeftButton, {}, {arrows->width() / 2, arrows->height() - 3});
  EXPECT_EQ(text->text(), QStringLiteral("1"));
}

TEST_F(PrintForm, TheArrowsGoOnFromWhatWasTyped) {
  const frmPrint& form = open("Editor", editorPage());
  auto* text = control<QLineEdit>(form, "Text1");
  text->selectAll();
  QTest::keyClicks(text, QStringLiteral("5"));
  control<QScrollBar>(form, "VScroll2")->triggerAction(QAbstractSlider::SliderSingleStepSub);
  EXPECT_EQ(text->text(), QStringLiteral("6"));
}

TEST_F(PrintForm, TheArrowsReachEveryNumberOfCopiesThatCanBeTyped) {
  const frmPrint& form = open("Editor", editorPage());
  auto* text = control<QLineEdit>(form, "Text1");
  auto* arrows = control<QScrollBar>(form, "VScroll2");
  text->selectAll();
  QTest::keyClicks(text, QStringLiteral("998"));
  for (const char* more : {"999", "999"}) {
    arrows->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(text->text(), toQString(more));
  }
  arrows->triggerAction(QAbstractSlider::SliderToMaximum);
  EXPECT_EQ(text->text(), QStringLiteral("1"));
}

TEST_F(PrintForm, TheArrowsBeginWithOneCopyWhereNoneIsTyped) {
  const frmPrint& form = open("Editor", editorPage());
  auto* text = control<QLineEdit>(form, "Text1");
  auto* arrows = control<QScrollBar>(form, "VScroll2");
  for (const Qt::Key typed : {Qt::Key_0, Qt::Key_Backspace}) {
    text->selectAll();
    QTest::keyClick(text, typed);
    arrows->triggerAction(QAbstractSlider::SliderSingleStepSub);
    EXPECT_EQ(text->text(), QStringLiteral("1"));
    arrows->triggerAction(QAbstractSlider::SliderSingleStepAdd);
    EXPECT_EQ(text->text(), QStringLiteral("1"));
  }
}

TEST_F(PrintForm, PrintsWhatTheFormSaidWhenTheFileWasAskedFor) {
  const frmPrint& form = open("Editor", editorPage());
  auto* copies = control<QLineEdit>(form, "Text1");
  copies->setText(QStringLiteral("2"));
  whileAsked_ = [copies] { copies->setText(QStringLiteral("3")); };
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 20).size(), 2u);
}

TEST_F(PrintForm, AWrongEntryIsToldBeforeAFileIsAskedFor) {
  const frmPrint& form = open("Editor", editorPage());
  control<QLineEdit>(form, "Text1")->setText(QStringLiteral("many"));
  boxes_.expectMessage(printFailureText, QStringLiteral("Print"));
  press(form, "Command4");
  EXPECT_EQ(suggested_, QString());
}

TEST_F(PrintForm, NothingIsPrintedWhereTheUserTakesTheFileBack) {
  pdf_.reset();
  const frmPrint& form = open("Editor", editorPage());
  press(form, "Command4");
  EXPECT_TRUE(note(form).isEmpty());
}

TEST_F(PrintForm, SuggestsAFileOfTheFormsCaption) {
  const frmPrint& form = open("Viewer", albumPage({0}));
  press(form, "Command4");
  EXPECT_TRUE(suggested_.endsWith(QStringLiteral("/Viewing Album_ Summer_1987.pdf")))
      << toUtf8(suggested_);
}

TEST_F(PrintForm, AFileThatCannotBeWrittenFails) {
  pdf_ = folder_.path() / "no such folder" / "page.pdf";
  const frmPrint& form = open("Editor", editorPage());
  const std::string why = "Cannot write \"" + pdf_->string() + "\": it is not there.";
  boxes_.expectMessage(toQString("The page could not be saved as a PDF file.\n\n" + why),
                       QStringLiteral("Print"), MsgIcon::Exclamation);
  press(form, "Command4");
  EXPECT_EQ(note(form), toQString(why));
  EXPECT_FALSE(control<QGroupBox>(form, "Frame7")->isVisible());
}

TEST_F(PrintForm, ABrokenPhotoIsPrintedAsItIsOnTheScreenAndThatIsTold) {
  const SinglePrint page = editorPage();
  writeBytes(page.photo->file, "broken");
  const frmPrint& form = open("Editor", page);
  press(form, "Command4");
  EXPECT_EQ(note(form), QStringLiteral("Saved as ") + toQString(*pdf_) +
                            QStringLiteral("\nNot every photo could be read: what the screen shows "
                                           "of it was printed."));
  EXPECT_LE(distance(pixelAt(pdfPages(*pdf_, 72).front(), 400, 720), red), 8);
}

TEST_F(PrintForm, APhotoOfOneByTenThousandIsPrinted) {
  SinglePrint page = editorPage();
  page.photo = PagePicture{{3029.7, 300, 0.576, 5760},
                           photoFile("thin.jpg", plain({1, 10000}, blue)),
                           plain({1, 400}, blue)};
  const frmPrint& form = open("Editor", page);
  check(form, "Option7");
  check(form, "Option9");
  press(form, "Command4");
  EXPECT_EQ(pdfPages(*pdf_, 20).size(), 1u);
}

TEST_F(PrintForm, ShowsItsProgressWhileItPrints) {
  const frmPrint& form = open("Viewer", albumPage({0, 1, 2, 3}));
  auto* frame = control<QGroupBox>(form, "Frame7");
  const auto* bar = control<QProgressBar>(form, "ProgressBar1");
  EXPECT_FALSE(frame->isVisible());
  std::vector<int> values;
  QObject::connect(bar, &QProgressBar::valueChanged, frame, [&](int value) {
    if (frame->isVisible())
      values.push_back(value);
  });
  press(form, "Command4");
  EXPECT_EQ(values, (std::vector{25, 50, 75, 100}));
  EXPECT_FALSE(frame->isVisible());
}

TEST_F(PrintForm, ShowsItsProgressByThumbnails) {
  const frmPrint& form = open("Search", contactPage(24));
  const auto* bar = control<QProgressBar>(form, "ProgressBar1");
  int last = 0;
  QObject::connect(bar, &QProgressBar::valueChanged, bar,
                   [&](int value) { last = std::max(last, value); });
  press(form, "Command4");
  EXPECT_EQ(bar->maximum(), 23);
  EXPECT_EQ(last, 23);
}

TEST_F(PrintForm, TheWindowLivesOnWhileItPrints) {
  const frmPrint& form = open("Viewer", albumPage({0, 1, 2, 3}));
  int beats = 0;
  QTimer heart;
  QObject::connect(&heart, &QTimer::timeout, &heart, [&] { ++beats; });
  heart.start(0);
  press(form, "Command4");
  EXPECT_GT(beats, 0);
}

TEST_F(PrintForm, HasNothingToPrintOfAnEmptyPage) {
  const frmPrint& form = open("Search", contactPage(0));
  EXPECT_FALSE(isEnabled(form, "Command4"));
  EXPECT_EQ(note(form), QStringLiteral("There is nothing to print."));
}

TEST_F(PrintForm, ThePreviewIsTheSheetThatWillBePrinted) {
  const frmPrint& form = open("Editor", editorPage());
  const auto* preview = control<PrintPreview>(form, "preview");
  EXPECT_EQ(preview->sheet().paper, (TwipsSize{15840, 12240}));
  check(form, "Option7");
  EXPECT_EQ(preview->sheet().paper, (TwipsSize{12240, 15840}));
  check(form, "Option9");
  EXPECT_EQ(std::get<SheetPicture>(preview->sheet().operations.at(1)).place.width, 15120);
  control<QComboBox>(form, "Combo2")->setCurrentIndex(1);
  EXPECT_EQ(preview->sheet().paper, (TwipsSize{5760, 8640}));
}

TEST_F(PrintForm, BesideThePreviewStandsWhatTheSheetCutsOff) {
  const frmPrint& form = open("Editor", editorPage());
  EXPECT_EQ(sheetNote(form), QString());
  check(form, "Option9");
  check(form, "Option7");
  EXPECT_EQ(sheetNote(form),
            QStringLiteral("The photo is larger than the paper: its right edge is cut off. Choose "
                           "Landscape to print all of it."));
  check(form, "Option6");
  EXPECT_EQ(sheetNote(form), QString());
}

/// Of lines as fine as those of type, each dark for two pixels and light for two.
TEST(PrintPreviewOfASheet, MixesTheFineLinesOfAPictureThatItShowsSmall) {
  Picture stripes = plain({800, 400}, white);
  for (int y = 0; y < stripes.height(); ++y)
    for (int x = 0; x < stripes.width(); ++x)
      if (x % 4 < 2)
        stripes.writableRow(y)[x] = 0xff000000;
  PrintPreview preview;
  preview.resize(128, 128); // 100 pixels for the paper
  preview.showSheet({{10000, 10000}, {}, {SheetPicture{{0, 0, 10000, 5000}, {}, stripes}}},
                    ColorMode::Color);
  const QImage image = preview.grab().toImage();
  for (int x = 16; x < 112; ++x)
    EXPECT_NEAR(qGray(image.pixel(x, 30)), 127, 40) << x;
}

TEST_F(PrintForm, ThePreviewShowsThePhotoOnWhitePaper) {
  const frmPrint& form = open("Editor", editorPage());
  auto* preview = control<PrintPreview>(form, "preview");
  preview->resize(360, 300);
  const QImage image = preview->grab().toImage();
  // The sheet is as wide as the preview less its edges.
  const double twip = (360 - 28) / 15840.0;
  const double top = (300 - 12240 * twip) / 2;
  const auto at = [&](double x, double y) {
    return image.pixel(static_cast<int>(14 + x * twip), static_cast<int>(top + y * twip));
  };
  EXPECT_LE(distance(at(1000, 1200), red), 8);
  EXPECT_LE(distance(at(5500, 4500), white), 8);
  EXPECT_LE(distance(at(1000, 4500), blue), 8);
  EXPECT_EQ(at(14000, 11000), white);
  check(form, "Option2");
  const QRgb grey = preview->grab().toImage().pixel(static_cast<int>(14 + 1000 * twip),
                                                    static_cast<int>(top + 1200 * twip));
  EXPECT_EQ(qRed(grey), qBlue(grey));
}

TEST_F(PrintForm, CloseUnloadsIt) {
  press(open("Editor", editorPage()), "Command1");
  EXPECT_FALSE(Forms::loaded<frmPrint>());
}

TEST_F(PrintForm, NothingIsPrintedBeforeThePrintersAreKnown) {
  Forms::get<frmPrint>().Unload();
  auto& form = Forms::get<frmPrint>();
  form.Tag = toQString("Editor");
  form.allowPhotoChoices();
  form.setPage(editorPage(), QStringLiteral("Summer"));
  form.Show();
  ASSERT_TRUE(form.devices().isLooking()); // nothing can be told before events come in
  EXPECT_FALSE(isEnabled(form, "Command4"));
  EXPECT_TRUE(waitFor([&] { return !form.devices().isLooking(); }));
  EXPECT_TRUE(isEnabled(form, "Command4"));
}

TEST_F(PrintForm, ClosedWhileAPhotoIsWaitedForNothingIsPrinted) {
  frmPrint& form = open("Editor", editorPage());
  const auto release = holdPool(pool_);
  QTimer user;
  QObject::connect(&user, &QTimer::timeout, &form, [&] {
    if (!control<QGroupBox>(form, "Frame7")->isVisible())
      return;
    user.stop();
    for (const char* choice : {"Combo1", "Text1", "Option1", "Option4", "Option7", "Option9"})
      EXPECT_FALSE(isEnabled(form, choice)) << choice;
    EXPECT_FALSE(isEnabled(form, "Command4"));
    press(form, "Command1");
  });
  user.start(0);
  press(form, "Command4");
  EXPECT_FALSE(Forms::loaded<frmPrint>());
  release();
  EXPECT_FALSE(std::filesystem::exists(*pdf_));
}

TEST_F(PrintForm, WhatCouldBeChosenBeforeCanBeChosenAfterPrinting) {
  const frmPrint& form = open("Editor", editorPage());
  press(form, "Command4");
  for (const char* choice : {"Combo1", "Text1", "Option1", "Option4", "Option7", "Option9"})
    EXPECT_TRUE(isEnabled(form, choice)) << choice;
  EXPECT_TRUE(isEnabled(form, "Command4"));
}

TEST_F(PrintForm, APageThatIsNotThereYetIsWaitedFor) {
  bool isThere = false;
  auto& form = Forms::get<frmPrint>();
  form.setPageWhen([&] { return isThere; }, [this] { return PrintPage(editorPage()); },
                   QStringLiteral("Summer"));
  form.Show();
  EXPECT_TRUE(waitFor([&] { return !form.devices().isLooking(); }));
  EXPECT_FALSE(isEnabled(form, "Command4"));
  EXPECT_EQ(note(form), QStringLiteral("Waiting for the photos..."));
  isThere = true;
  EXPECT_TRUE(waitFor([&] { return isEnabled(form, "Command4"); }));
  EXPECT_EQ(note(form), QString());
  EXPECT_EQ(form.sheet().operations.size(), 3u);
}

TEST_F(PrintForm, ClosedWhileAPageIsWaitedForItIsNotAskedFor) {
  bool isThere = false;
  auto& form = Forms::get<frmPrint>();
  form.setPageWhen([&] { return isThere; },
                   [] {
                     ADD_FAILURE() << "asked for";
                     return PrintPage();
                   },
                   QStringLiteral("Summer"));
  form.Show();
  EXPECT_TRUE(waitFor([&] { return !form.devices().isLooking(); }));
  press(form, "Command1");
  isThere = true;
  boxes_.expectMessage(noPrintersText);
  open("Editor", editorPage());
}

using PrintWithoutAnswer = PrintFixture;

TEST_F(PrintWithoutAnswer, PhotosAreDecodedWhileThePrintingServiceHangs) {
  QTcpServer silent;
  ASSERT_TRUE(silent.listen(QHostAddress::LocalHost));
  const ScopedVariable service("CUPS_SERVER", "127.0.0.1:" + std::to_string(silent.serverPort()));
  auto& form = Forms::get<frmPrint>();
  ASSERT_TRUE(waitFor([&] { return silent.hasPendingConnections(); }));
  std::latch all(pool_.threads());
  std::vector<std::future<void>> photos;
  for (int photo = 0; photo < pool_.threads(); ++photo)
    photos.push_back(pool_.run([&all] { all.arrive_and_wait(); }, {}, true));
  for (auto& photo : photos)
    photo.get();
  QCoreApplication::processEvents();
  EXPECT_TRUE(form.devices().isLooking()); // what hangs, hangs somewhere else
  form.Unload();
  silent.close();
}

TEST_F(PrintForm, CanBeClosedWhilePrintersAreLookedFor) {
  Forms::get<frmPrint>().Unload();
  open("Editor", editorPage()); // what was found for the first one is not told
}

} // namespace

} // namespace hearthbook::test
