#include "ControlChecks.h"
#include "CoverPicture.h"
#include "FaceChecks.h"
#include "HelpRows.h"
#include "ZoomFixture.h"

namespace hearthbook::test {

namespace {

const Control zoomControls[] = {
    {"Picture2", "hearthbook::ZoomPanel"},
    {"Image1", "hearthbook::LargePhoto"},
    {"HScroll1", "QScrollBar"},
    {"VScroll1", "QScrollBar"},
    {"Picture1", "QLabel"},
    {"Info(0)", "hearthbook::FactsPanel"},
    {"txtYear(0)", "QLabel"},
    {"txtPlace(0)", "QLabel"},
    {"BGpaper(0)", "hearthbook::PaperPanel"},
    {"Image2(0)", "QToolButton"},
    {"Image3(0)", "QToolButton"},
    {"CommentsBox", "hearthbook::CommentsBox"},
    {"lblComments", "QLabel"},
    {"Command10", "QPushButton", "X"},
    {"Label3", "QLabel", "Click To Close"},
    {"Check1", "QCheckBox", "Slide", "Slide"},
    {"VScroll2", "QScrollBar"},
    {"Label2", "QLabel", "2 Sec.", "Slide"},
    {"Command4", "QPushButton", "Zoom +", "Zoom In"},
    {"Command5", "QPushButton", "Zoom -", "Zoom Out"},
    {"Command8", "QPushButton", "Full [  ]"},
    {"Command2", "QPushButton", ">>", "Navigation Buttons"},
    {"Command3", "QPushButton", "<<", "Navigation Buttons"},
    {"Command6", "QPushButton", "|<<", "Navigation Buttons"},
    {"Command7", "QPushButton", ">>|", "Navigation Buttons"},
    {"Command1", "QPushButton", "Done"},
};

const Faces zoomFaces = {{"Btn_Grn.jpg", {"Command4", "Command5"}},
                         {"Btn_Gry.jpg", {"Command2", "Command3", "Command6", "Command7"}},
                         {"Btn_Red.jpg", {"Command1"}}};

class ZoomControls : public ZoomFixture {
protected:
  static void expectDrawnAt(const Zoom& zoom, const char* name, TwipsRect place) {
    auto* child = control<QWidget>(zoom, name);
    expectPlace(dynamic_cast<Stage*>(child->parentWidget())->rect(child), place);
  }
};

} // namespace

TEST_F(ZoomControls, TheFormHasEachOfItsControlsOnce) {
  expectControls(openZoom(), "Zoom", zoomControls);
  const auto& zoom = Forms::get<Zoom>();
  EXPECT_EQ(zoom.findChildren<QTimer*>(toQString("Timer1")).size(), 1);
  EXPECT_EQ(zoom.findChildren<MMControl*>(toQString("MMControl1")).size(), 1);
  EXPECT_TRUE(control<QPushButton>(zoom, "Command8")->isCheckable());
}

TEST_F(ZoomControls, ThePanelsStandWhereTheyAreTold) {
  const auto& zoom = openZoom();
  expectDrawnAt(zoom, "Picture2", {3120, 120, 8535, 7215});
  expectDrawnAt(zoom, "Info(0)", {120, 120, 2865, 5355});
  expectDrawnAt(zoom, "BGpaper(0)", {0, 0, 2865, 1855});
  expectDrawnAt(zoom, "gridNames(0)", {0, 1855, 2865, 3500});
  expectDrawnAt(zoom, "VScroll1", {8220, 0, 255, 6885});
  expectDrawnAt(zoom, "HScroll1", {0, 6900, 5865, 255}); // 5870 in whole pixels
  EXPECT_EQ(rectOf(zoom, "VScroll2").left, 1920);
  EXPECT_EQ(rectOf(zoom, "VScroll2").top, 6840);
}

TEST_F(ZoomControls, TheCommandsTakeTheirFacesFromMedia) {
  paintFaces(at("Media"), zoomFaces);
  expectFaces(openZoom(), zoomFaces);
}

TEST_F(ZoomControls, TheFullScreenSwitchIsOrangeAndLooksPressedWhileItIsOn) {
  constexpr unsigned orange = 0xe0a050;
  writeJpeg(at("Media/Btn_Org.jpg"), 32, 16, orange);
  auto& button = *control<QPushButton>(openZoom(), "Command8");
  const auto besideItsCaption = [&] {
    return button.grab().toImage().pixel(4, button.height() / 2);
  };
  EXPECT_LT(distance(besideItsCaption(), 0xff000000U | orange), 4);
  button.setChecked(true);
  EXPECT_GT(distance(besideItsCaption(), 0xff000000U | orange), 20);
  EXPECT_EQ(button.text(), toQString("Full [  ]"));
  button.setChecked(false);
  EXPECT_LT(distance(besideItsCaption(), 0xff000000U | orange), 4);
}

TEST_F(ZoomControls, TheStartScreensPictureLiesBehindTheForm) {
  writeJpeg(at("Media/Startup.jpg"), 1024, 768, 0x3060a0);
  auto& zoom = openZoom();
  auto* background = control<CoverPicture>(zoom, "background");
  waitUntil([&] { return background->hasPicture(); });
  const QImage seen = zoom.grab().toImage();
  for (const QPoint edge : {QPoint(2, 2), QPoint(787, 519), QPoint(400, 519)})
    EXPECT_LT(distance(seen.pixel(edge), 0xff3060a0U), 4);
}

TEST_F(ZoomControls, TheArrowLiesOverThePhotoAndUnderWhatStandsInTheArea) {
  const auto person = folder_.addPerson("Anna");
  const auto id = std::to_string(1000 + person).substr(1);
  set("HD00001", "NamesInPhoto = '" + id + ",', NamesCords = '" + id + "-2880X1440,'");
  const auto& zoom = openZoom();
  names(zoom).setRow(1);
  ASSERT_FALSE(control(zoom, "Picture1")->isHidden());
  const auto height = [&](const char* name) {
    return control(zoom, "Picture2")->children().indexOf(control(zoom, name));
  };
  EXPECT_LT(height("Image1"), height("Picture1"));
  for (const char* over : {"HScroll1", "VScroll1", "Command4", "Command5", "Command8"})
    EXPECT_LT(height("Picture1"), height(over)) << over;
}

TEST_F(ZoomControls, EveryHelpKeyHasItsRow) { expectHelpRows(openZoom(), *vars().rsHelp); }

TEST_F(ZoomControls, TheMouseOverAControlAsksForItsHelp) {
  const auto& zoom = openZoom();
  for (const Control& wanted : zoomControls) {
    if (!*wanted.helpItem)
      continue;
    frame_.keys.clear();
    auto* over = control<QWidget>(zoom, wanted.name);
    QTest::mouseMove(over, {3, 3});
    QTest::mouseMove(over, {5, 4});
    EXPECT_TRUE(frame_.keys.contains(toQString("Zoom*") + toQString(wanted.helpItem)))
        << wanted.name;
  }
  frame_.keys.clear();
  QTest::mouseMove(names(zoom).viewport(), {3, 3});
  QTest::mouseMove(names(zoom).viewport(), {6, 6});
  EXPECT_EQ(frame_.keys.last(), toQString("View Album*Names List"));
}

TEST_F(ZoomControls, TabReachesEveryControlBothWays) {
  set("HD00001", "Description = 'By the boat'");
  auto& zoom = openPhoto(1200, 900);
  press(zoom, "Command4");
  expectTabReachesAll(zoom, &photo(zoom), 15);
}

TEST_F(ZoomControls, EveryCaptionFitsItsControl) {
  auto& zoom = openZoomOf(2);
  control<QLabel>(zoom, "Label1")->setText(toQString("199985 Of 200000"));
  control<QLabel>(zoom, "Label2")->setText(toQString("10 Sec."));
  for (const QSize size : {QSize(790, 522), QSize(1012, 669), QSize(3000, 1982)}) {
    zoom.resize(size);
    settleZoom();
    for (const QAbstractButton* button : zoom.findChildren<QPushButton*>())
      EXPECT_LE(button->fontMetrics().horizontalAdvance(button->text()), button->width() - 8)
          << toUtf8(button->text());
    for (const char* label : {"Label1", "Label2", "Label3"})
      EXPECT_LE(control(zoom, label)
                    ->fontMetrics()
                    .horizontalAdvance(control<QLabel>(zoom, label)->text()),
                control(zoom, label)->width())
          << label;
  }
}

} // namespace hearthbook::test
