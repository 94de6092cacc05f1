#include "Look.h"
#include "ButtonFace.h"
#include "QtPrint.h"
#include "TemporaryFolder.h"
#include "Text.h"

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFontInfo>
#include <QFontMetricsF>
#include <QMenu>
#include <QPushButton>
#include <QScreen>
#include <QSignalSpy>
#include <QStandardItemModel>
#include <QStyle>
#include <QTest>
#include <QTreeView>

#include <gtest/gtest.h>

#include <algorithm>
#include <map>

namespace hearthbook::test {

namespace {

constexpr double readable = 4.5;

/// The most common colour of a picture's middle: a button's face behind its caption.
QColor ground(const QImage& image) {
  std::map<QRgb, int> counts;
  const QRect middle = image.rect().adjusted(8, 8, -8, -8);
  for (int y = middle.top(); y <= middle.bottom(); ++y)
    for (int x = middle.left(); x <= middle.right(); ++x)
      ++counts[image.pixel(x, y)];
  return {
      std::ranges::max_element(counts, {}, [](const auto& count) { return count.second; })->first};
}

/// The best contrast that any pixel has to the ground: the strokes of the caption.
double captionContrast(const QImage& image) {
  const QColor behind = ground(image);
  double best = 1;
  const QRect middle = image.rect().adjusted(8, 8, -8, -8);
  for (int y = middle.top(); y <= middle.bottom(); ++y)
    for (int x = middle.left(); x <= middle.right(); ++x)
      best = std::max(best, contrast(image.pixelColor(x, y), behind));
  return best;
}

QImage grabbed(QWidget& widget) {
  return widget.grab().toImage().convertToFormat(QImage::Format_RGB32);
}

} // namespace

TEST(Look, TheArrowOfAChosenFolderCanBeSeen) {
  QStandardItemModel folders;
  auto* album = new QStandardItem(QStringLiteral("Album"));
  album->appendRow(new QStandardItem(QStringLiteral("Photos")));
  folders.appendRow(album);
  QTreeView tree;
  tree.setHeaderHidden(true);
  tree.setModel(&folders);
  tree.resize(200, 100);
  tree.setCurrentIndex(album->index());
  tree.show();
  QRect arrow = tree.visualRect(album->index());
  arrow.setLeft(0);
  arrow.setWidth(tree.indentation());
  const QImage drawn = tree.viewport()->grab(arrow).toImage();
  double best = 1;
  for (int y = 0; y < drawn.height(); ++y)
    for (int x = 0; x < drawn.width(); ++x)
      best = std::max(best, contrast(drawn.pixelColor(x, y), drawn.pixelColor(0, 0)));
  EXPECT_GE(best, readable);
}

TEST(Look, AMenuOfTwoHundredEntriesStaysOnTheScreenAndTheLastOneIsReached) {
  QMenu menu;
  for (int number = 1; number <= 200; ++number)
    menu.addAction(toQString("Summer at the lake ") + QString::number(number));
  menu.popup(QPoint(10, 10));
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&menu));
  const QSize screen = menu.screen()->availableSize();
  EXPECT_LE(menu.width(), screen.width() / 2); // one column
  EXPECT_LE(menu.height(), screen.height());
  QTest::keyClick(&menu, Qt::Key_End);
  const QAction* last = menu.actions().last();
  EXPECT_EQ(menu.activeAction(), last);
  EXPECT_TRUE(menu.rect().contains(menu.actionGeometry(const_cast<QAction*>(last))));
  menu.close();
}

TEST(Look, ContrastIsThatOfTheGuidelines) {
  EXPECT_NEAR(contrast(Qt::black, Qt::white), 21, 0.01);
  EXPECT_NEAR(contrast(Qt::white, Qt::white), 1, 0.01);
  EXPECT_NEAR(contrast(QColor(0x77, 0x77, 0x77), Qt::white), 4.48, 0.01);
}

TEST(Look, EveryTextCanBeReadOnItsGround) {
  const QPalette palette = QApplication::palette();
  const std::pair<QPalette::ColorRole, QPalette::ColorRole> pairs[] = {
      {QPalette::WindowText, QPalette::Window},
      {QPalette::Text, QPalette::Base},
      {QPalette::Text, QPalette::AlternateBase},
      {QPalette::ButtonText, QPalette::Button},
      {QPalette::PlaceholderText, QPalette::Base},
      {QPalette::HighlightedText, QPalette::Highlight},
      {QPalette::ToolTipText, QPalette::ToolTipBase},
      {QPalette::Link, QPalette::Window},
      {QPalette::LinkVisited, QPalette::Window},
      {QPalette::BrightText, QPalette::Window}};
  for (const auto& [text, behind] : pairs)
    EXPECT_GE(contrast(palette.color(text), palette.color(behind)), readable) << text << behind;
  EXPECT_GE(contrast(look::ink, look::panelYellow), readable);
  EXPECT_GE(contrast(look::darkRed, look::panelYellow), readable);
  EXPECT_GE(contrast(look::darkRed, look::paper), readable);
  EXPECT_GE(contrast(look::ink, look::desk), readable);
}

TEST(Look, WhatCannotBeUsedCanStillBeMadeOut) {
  const QPalette palette = QApplication::palette();
  EXPECT_GE(contrast(palette.color(QPalette::Disabled, QPalette::WindowText),
                     palette.color(QPalette::Disabled, QPalette::Window)),
            3);
}

TEST(Look, EdgesOfControlsStandOutFromThePaper) {
  EXPECT_GE(contrast(look::edge, look::paper), 3);
  EXPECT_GE(contrast(look::edge, look::sheet), 3);
}

TEST(Look, ButtonsOfBoxesBearTheirCaptionAlone) {
  QDialogButtonBox box(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
  for (const QAbstractButton* button : box.buttons())
    EXPECT_TRUE(button->icon().isNull());
}

TEST(Look, AMenuBarWithTooLittleRoomShowsAnArrow) {
  const QImage icon = QApplication::style()
                          ->standardIcon(QStyle::SP_ToolBarHorizontalExtensionButton)
                          .pixmap(16, 16)
                          .toImage();

  EXPECT_EQ(qAlpha(icon.pixel(0, 0)), 0);
  EXPECT_EQ(qAlpha(icon.pixel(8, 8)), 255);
}

TEST(ButtonFace, EveryFaceHasAReadableCaption) {
  for (const Face face : {Face::Gry, Face::Org, Face::Brn, Face::Red, Face::Grn, Face::Ylw}) {
    QPushButton button(QStringLiteral("MMMM"));
    button.resize(120, 40);
    setFace(face, {}, {&button});
    EXPECT_GE(captionContrast(grabbed(button)), readable) << static_cast<int>(face);
  }
}

TEST(ButtonFace, APictureTooPlainForTextIsMadePalerUntilItCanBeRead) {
  const TemporaryFolder folder;
  const QString file = toQString(folder.path() / "Btn_Org.jpg");
  QImage grey(32, 16, QImage::Format_RGB32);
  grey.fill(QColor(0x78, 0x78, 0x78)); // neither ink nor white reads well on it
  ASSERT_TRUE(grey.save(file, "PNG")) << "each colour as it is";
  QPushButton button(QStringLiteral("MMMM"));
  button.resize(120, 40);
  setFace(Face::Org, folder.path(), {&button});
  EXPECT_GE(captionContrast(grabbed(button)), readable);
}

TEST(ButtonFace, ThePictureIsStretchedOverTheButton) {
  const TemporaryFolder folder;
  const QString file = toQString(folder.path() / "Btn_Gry.jpg");
  QImage halves(20, 10, QImage::Format_RGB32);
  halves.fill(QColor(250, 240, 160));
  for (int y = 0; y < 10; ++y)
    for (int x = 10; x < 20; ++x)
      halves.setPixelColor(x, y, QColor(180, 220, 250));
  ASSERT_TRUE(halves.save(file, "PNG")) << "each colour as it is";
  QPushButton button;
  button.resize(200, 60);
  setFace(Face::Gry, folder.path(), {&button});
  const QImage shown = grabbed(button);
  EXPECT_EQ(shown.pixelColor(40, 30), QColor(250, 240, 160));
  EXPECT_EQ(shown.pixelColor(160, 30), QColor(180, 220, 250));
}

TEST(ButtonFace, StatesLookDifferent) {
  QWidget form;
  QPushButton button(QStringLiteral("Done"), &form);
  button.resize(120, 40);
  setFace(Face::Brn, {}, {&button});
  const QImage atRest = grabbed(button);
  button.setDown(true);
  EXPECT_NE(grabbed(button), atRest);
  button.setDown(false);
  button.setEnabled(false);
  EXPECT_NE(grabbed(button), atRest);
  button.setEnabled(true);
  EXPECT_EQ(grabbed(button), atRest);
}

TEST(ButtonFace, APictureIsDarkerWhilePressedAndFadesWhereItCannotBeUsed) {
  const TemporaryFolder folder;
  const QString file = toQString(folder.path() / "Btn_Grn.jpg");
  QImage green(32, 16, QImage::Format_RGB32);
  green.fill(QColor(0x9c, 0xc2, 0x74));
  ASSERT_TRUE(green.save(file, "PNG")) << "each colour as it is";
  QWidget form;
  QPushButton button(QStringLiteral("Add"), &form);
  button.resize(120, 40);
  setFace(Face::Grn, folder.path(), {&button});
  const QColor atRest = ground(grabbed(button));
  EXPECT_EQ(atRest, QColor(0x9c, 0xc2, 0x74));
  button.setDown(true);
  EXPECT_LT(ground(grabbed(button)).lightness(), atRest.lightness());
  button.setDown(false);
  button.setEnabled(false);
  EXPECT_GT(contrast(ground(grabbed(button)), look::ink), contrast(atRest, look::ink));
  EXPECT_GE(captionContrast(grabbed(button)), 3);
}

TEST(ButtonFace, TheFocusIsSeenOnEveryFace) {
  for (const Face face : {Face::Gry, Face::Org, Face::Brn, Face::Red, Face::Grn, Face::Ylw}) {
    QWidget form;
    QPushButton button(&form);
    button.resize(120, 40);
    setFace(face, {}, {&button});
    const QColor plain = ground(grabbed(button));
    form.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&form));
    button.setFocus();
    button.setAttribute(Qt::WA_UnderMouse, false); // wherever the test before has left the mouse
    const QImage ringed = grabbed(button);
    double best = 1;
    for (int x = 0; x < 8; ++x)
      best = std::max(best, contrast(ringed.pixelColor(x, 20), plain));
    EXPECT_GE(best, 3) << static_cast<int>(face);
  }
}

TEST(ButtonFace, ASwitchedOnCheckBoxShowsATick) {
  QCheckBox box(QStringLiteral("Mark Names"));
  box.resize(140, 30);
  setFace(Face::Ylw, {}, {&box});
  const QImage off = grabbed(box);
  box.setChecked(true);
  EXPECT_NE(grabbed(box), off);
}

TEST(ButtonFace, AButtonStaysWhatItIs) {
  QCheckBox box(QStringLiteral("Mark Names"));
  box.resize(140, 30);
  QPushButton button(QStringLiteral("Done"));
  setFace(Face::Ylw, {}, {&box, &button});
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&box)->role(), QAccessible::CheckBox);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->role(), QAccessible::Button);
  EXPECT_EQ(QAccessible::queryAccessibleInterface(&button)->text(QAccessible::Name),
            QStringLiteral("Done"));
  box.show();
  QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(120, 15));
  EXPECT_TRUE(box.isChecked()) << "the whole face can be clicked";
}

} // namespace hearthbook::test
