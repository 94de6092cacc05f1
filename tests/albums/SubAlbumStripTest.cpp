#include "SubAlbumFixture.h"

#include "PhotoFiles.h"
#include "StripPage.h"
#include "StripZone.h"

#include <QApplication>
#include <QContextMenuEvent>
#include <QTimer>

#include <filesystem>

namespace hearthbook::test {

namespace {

class SubAlbumStripForm : public SubAlbumFixture {
protected:
  AddSubAlbum& openAlbum(int last) {
    album_ = addAlbumUpTo(last + 1); // the photos HD00002 and on
    auto& form = openForEditor();
    choose(form, album_);
    return form;
  }
  /// The numbers that stand at positions, which begin with 2 at the first.
  static Numbers shownFrom(int position, int count) {
    return fromTo(position + 2, position + count + 1);
  }

  static TwipsRect markOf(const AddSubAlbum& form) {
    return page(form).rect(control<QWidget>(form, "Shape1"));
  }
  static StripPage& page(const AddSubAlbum& form) { return *form.findChild<StripPage*>(); }
  static bool isTimed(const AddSubAlbum& form, const char* timer) {
    return form.findChild<QTimer*>(toQString(timer))->isActive();
  }
  /// As soon as its interval has gone by.
  static void tick(const AddSubAlbum& form, const char* timer) {
    auto* found = form.findChild<QTimer*>(toQString(timer));
    EXPECT_EQ(found->interval(), 200);
    found->setInterval(0);
    EXPECT_TRUE(QTest::qWaitFor([&] { return !found->isActive(); }));
    found->setInterval(200);
  }

  void press(StripCell& cell) {
    source_ = &cell;
    QTest::mousePress(source_, Qt::LeftButton, {}, source_->rect().center());
  }
  void pullTo(const QWidget& target, QPoint inside) {
    const QPoint global = target.mapToGlobal(inside);
    QMouseEvent move(QEvent::MouseMove, source_->mapFromGlobal(global), global, Qt::NoButton,
                     Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(source_, &move);
  }
  void pullTo(const QWidget& target) { pullTo(target, target.rect().center()); }
  void letGo(const QWidget& target) {
    const QPoint inside = source_->mapFromGlobal(target.mapToGlobal(target.rect().center()));
    QTest::mouseRelease(source_, Qt::LeftButton, {}, inside);
    settle();
  }
  void drag(const AddSubAlbum& form, int from, int to) {
    press(cell(form, from));
    pullTo(cell(form, to));
    letGo(cell(form, to));
  }
  static void type(const AddSubAlbum& form, int position, Qt::Key key,
                   Qt::KeyboardModifiers held = {}) {
    cell(form, position).setFocus();
    QTest::keyClick(QApplication::focusWidget(), key, held);
    settle();
  }

  std::int64_t album_ = 0;
  StripCell* source_ = nullptr;
};

} // namespace

TEST_F(SubAlbumStripForm, FiveDraggedToTwoLetsTheOthersGoBack) {
  auto& form = openAlbum(8);
  drag(form, 5, 2);
  EXPECT_EQ(shown(form), (Numbers{2, 3, 7, 4, 5, 6, 8, 9}));
  EXPECT_EQ(text(form, "Combo1"), "Manually");
  leave();
  EXPECT_EQ(storedNumbers(folder_, album_), (Numbers{2, 3, 7, 4, 5, 6, 8, 9}));
}

TEST_F(SubAlbumStripForm, TwoDraggedToFiveLetsTheOthersComeForward) {
  auto& form = openAlbum(8);
  drag(form, 2, 5);
  EXPECT_EQ(shown(form), (Numbers{2, 3, 5, 6, 7, 4, 8, 9}));
  leave();
  EXPECT_EQ(storedNumbers(folder_, album_), (Numbers{2, 3, 5, 6, 7, 4, 8, 9}));
}

TEST_F(SubAlbumStripForm, DroppedOnItselfNothingChanges) {
  auto& form = openAlbum(8);
  data().AlbumDB.execute("UPDATE SubAlbumPhotos SET [Index] = [Index] + 100");
  press(cell(form, 3));
  pullTo(cell(form, 4));
  pullTo(cell(form, 3));
  letGo(cell(form, 3));
  EXPECT_EQ(text(form, "Combo1"), "Select Auto Arrange:");
  leave();
  EXPECT_EQ(storedOrder(folder_, album_).front().second, 100); // nothing was written
}

TEST_F(SubAlbumStripForm, AClickMovesNothing) {
  auto& form = openAlbum(8);
  QTest::mouseClick(&cell(form, 3), Qt::LeftButton);
  EXPECT_FALSE(isShown(form, "Shape1"));
  EXPECT_EQ(shown(form), shownFrom(0, 8));
}

TEST_F(SubAlbumStripForm, DroppedBesideThePhotosNothingChanges) {
  auto& form = openAlbum(8);
  press(cell(form, 3));
  pullTo(cell(form, 5));
  EXPECT_TRUE(isShown(form, "Shape1"));
  pullTo(page(form), {1, 1});
  EXPECT_FALSE(isShown(form, "Shape1"));
  QTest::mouseRelease(source_, Qt::LeftButton, {},
                      source_->mapFromGlobal(page(form).mapToGlobal(QPoint(1, 1))));
  EXPECT_EQ(shown(form), shownFrom(0, 8));
}

TEST_F(SubAlbumStripForm, EscapeEndsADragAndNotTheForm) {
  auto& form = openAlbum(8);
  cell(form, 3).setFocus();
  press(cell(form, 3));
  pullTo(cell(form, 5));
  QTest::keyClick(&cell(form, 3), Qt::Key_Escape);
  EXPECT_FALSE(isShown(form, "Shape1"));
  pullTo(cell(form, 6));
  EXPECT_FALSE(isShown(form, "Shape1"));
  letGo(cell(form, 6));
  EXPECT_EQ(shown(form), shownFrom(0, 8));
  EXPECT_NE(Forms::loaded<AddSubAlbum>(), nullptr);
}

TEST_F(SubAlbumStripForm, TheMarkStandsInFrontOfOrBehindThePhotoUnderThePointer) {
  auto& form = openAlbum(8);
  press(cell(form, 4));
  pullTo(cell(form, 1));
  EXPECT_EQ(markOf(form).left, 1395 - 60);
  EXPECT_EQ(markOf(form).top, 120);
  pullTo(cell(form, 7));
  EXPECT_EQ(markOf(form).left, 1395 + 1155 + 60);
  EXPECT_EQ(markOf(form).top, 1395);
  letGo(cell(form, 7));
  EXPECT_FALSE(isShown(form, "Shape1"));
}

TEST_F(SubAlbumStripForm, TheMarkStandsBesideThePhotoInScrolledRowsToo) {
  auto& form = openAlbum(40);
  scroll(form).setValue(2); // positions 12 to 29
  settle();
  press(cell(form, 12));
  pullTo(cell(form, 20));
  EXPECT_EQ(markOf(form).left, 2670 + 1155 + 60);
  EXPECT_EQ(markOf(form).top, 1395);
  letGo(cell(form, 12));
}

TEST_F(SubAlbumStripForm, ThePointerSaysWhetherADropIsPossible) {
  auto& form = openAlbum(8);
  const auto pointer = [&] { return source_->cursor(); };
  const auto icon = [&](const char* name) { return control<QWidget>(form, name)->cursor(); };
  press(cell(form, 4));
  pullTo(cell(form, 1));
  EXPECT_TRUE(pointer() == icon("Image3"));
  for (const char* nowhere : {"Picture3", "Picture4", "VScroll1"}) {
    pullTo(*control<QWidget>(form, nowhere));
    EXPECT_TRUE(pointer() == icon("Image2")) << nowhere;
    EXPECT_FALSE(isShown(form, "Shape1"));
    pullTo(cell(form, 1));
  }
  EXPECT_NE(icon("Image2").pixmap().toImage(), icon("Image3").pixmap().toImage());
  letGo(cell(form, 1));
  EXPECT_EQ(source_->cursor().shape(), Qt::ArrowCursor);
}

TEST_F(SubAlbumStripForm, ThePointerGrowsWithTheThumbnails) {
  auto& form = openAlbum(8);
  const auto side = [&] { return control<QWidget>(form, "Image3")->cursor().pixmap().width(); };
  const int drawn = side();
  form.resize(form.size() * 2);
  EXPECT_GT(side(), drawn);
}

TEST_F(SubAlbumStripForm, WithEighteenPhotosNothingScrolls) {
  auto& form = openAlbum(18);
  EXPECT_FALSE(scroll(form).isEnabled());
  EXPECT_EQ(scroll(form).maximum(), 0);
  EXPECT_EQ(shown(form), shownFrom(0, 18));
  press(cell(form, 4));
  for (const char* zone : {"Picture3", "Picture4", "VScroll1"}) {
    pullTo(*control<QWidget>(form, zone));
    EXPECT_FALSE(isTimed(form, "Timer1")) << zone;
    EXPECT_FALSE(isTimed(form, "Timer2")) << zone;
  }
  letGo(cell(form, 4));
}

TEST_F(SubAlbumStripForm, WithNineteenPhotosThereIsOneRowMore) {
  auto& form = openAlbum(19);
  EXPECT_TRUE(scroll(form).isEnabled());
  EXPECT_EQ(scroll(form).maximum(), 1);
  scroll(form).setValue(1);
  settle();
  EXPECT_EQ(shown(form), shownFrom(6, 13));
  EXPECT_LE(strip(form).heldPictures(), 18u);
}

TEST_F(SubAlbumStripForm, ASubAlbumOfAnySizeIsShownAndCountedWhole) {
  addPhotoRows(folder_, 20);
  auto& form = openForEditor();
  for (const int size : {0, 1, 18, 19}) {
    album_ = addSubAlbum(folder_, "Lake", size ? fromTo(2, size + 1) : Numbers{});
    control<DataList>(form, "SubAlbumList")->ReFill();
    choose(form, album_);
    EXPECT_EQ(text(form, "lblCount"), std::to_string(size) + " photos in sub-album");
    EXPECT_EQ(shown(form).size(), static_cast<std::size_t>(std::min(size, 18)));
    EXPECT_EQ(scroll(form).isEnabled(), size > 18) << size;
  }
}

TEST_F(SubAlbumStripForm, AZoneScrollsByOneRowAndWaitsForThePointerToMove) {
  auto& form = openAlbum(40);
  press(cell(form, 2));
  const auto& below = *control<QWidget>(form, "Picture4");
  pullTo(below);
  EXPECT_TRUE(isTimed(form, "Timer1"));
  tick(form, "Timer1");
  EXPECT_EQ(scroll(form).value(), 1);
  EXPECT_FALSE(isTimed(form, "Timer1"));
  pullTo(below, {5, 3});
  tick(form, "Timer1");
  EXPECT_EQ(scroll(form).value(), 2);
  const auto& above = *control<QWidget>(form, "Picture3");
  pullTo(above);
  EXPECT_TRUE(isTimed(form, "Timer2"));
  tick(form, "Timer2");
  EXPECT_EQ(scroll(form).value(), 1);
  pullTo(cell(form, 20));
  letGo(cell(form, 20));
  settle();
  leave();
  const auto numbers = storedNumbers(folder_, album_);
  EXPECT_EQ(numbers.at(20), 4);
  EXPECT_EQ(numbers.at(19), 22);
}

TEST_F(SubAlbumStripForm, TheEndsOfTheScrollBarScrollToo) {
  auto& form = openAlbum(40);
  auto& bar = scroll(form);
  press(cell(form, 2));
  const auto at = [&](double twips) {
    return QPoint(3, qRound(twips / twipsPerPixel * Stage::scaleOf(&bar)));
  };
  pullTo(bar, at(2000));
  EXPECT_FALSE(isTimed(form, "Timer1"));
  pullTo(bar, at(900));
  EXPECT_FALSE(isTimed(form, "Timer2")); // it is at its beginning
  pullTo(bar, at(3200));
  tick(form, "Timer1");
  EXPECT_EQ(bar.value(), 1);
  pullTo(bar, at(900));
  tick(form, "Timer2");
  EXPECT_EQ(bar.value(), 0);
  letGo(cell(form, 2));
}

TEST_F(SubAlbumStripForm, ADropEndsTheScrolling) {
  auto& form = openAlbum(40);
  press(cell(form, 2));
  pullTo(*control<QWidget>(form, "Picture4"));
  letGo(*control<QWidget>(form, "Picture4"));
  EXPECT_FALSE(isTimed(form, "Timer1"));
  EXPECT_EQ(scroll(form).value(), 0);
}

TEST_F(SubAlbumStripForm, APhotoCanBeDraggedFarBelow) {
  auto& form = openAlbum(40);
  press(cell(form, 0));
  pullTo(cell(form, 1));
  scroll(form).setValue(4); // the last row has four photos: the cell that is pulled is in it
  settle();
  pullTo(cell(form, 39));
  letGo(cell(form, 39));
  EXPECT_EQ(shown(form).back(), 2);
  EXPECT_EQ(strip(form).heldPictures(), 16u);
  leave();
  EXPECT_EQ(storedNumbers(folder_, album_).back(), 2);
}

TEST_F(SubAlbumStripForm, NoMoreThanEighteenPicturesAreHeld) {
  auto& form = openAlbum(200);
  for (const int row : {1, 2, 3, 30, 29, 7, 0}) {
    scroll(form).setValue(row);
    settle();
    EXPECT_EQ(shown(form), shownFrom(6 * row, 18)) << row;
    EXPECT_EQ(strip(form).heldPictures(), 18u) << row;
  }
}

TEST_F(SubAlbumStripForm, OfTenThousandPhotosOnlyThoseInViewAreDecoded) {
  const auto album = addAlbumUpTo(10001);
  data().rsSubAlbumPhotos.Open(stripQuery(std::to_string(album)));
  PhotoOrder order;
  order.read(data().rsSubAlbumPhotos);
  std::size_t asked = 0;
  SubAlbumStrip strip;
  strip.setSource({loader_, pool_,
                   [&asked](const std::string&) -> std::optional<std::filesystem::path> {
                     ++asked;
                     return std::nullopt;
                   },
                   notFoundPicture(this->album())},
                  order);
  strip.showOrder();
  EXPECT_EQ(asked, 18u);
  strip.findChild<QScrollBar*>()->setValue(1);
  EXPECT_EQ(asked, 24u);
}

TEST_F(SubAlbumStripForm, APhotoWithoutAThumbnailShowsTheNotFoundPictureAndStays) {
  folder_.addPhoto("HD00002");
  folder_.addPhoto("HD00003");
  std::filesystem::remove(at("Thumbnails/00003.jpg"));
  album_ = addSubAlbum(folder_, "Lake", {2, 3, 99});
  auto& form = openForEditor();
  choose(form, album_);
  const auto size = [&](int position) { return cell(form, position).picture().size(); };
  EXPECT_TRUE(cell(form, 0).hasPicture());
  EXPECT_TRUE(cell(form, 1).hasPicture()); // and not the photo in its full size
  EXPECT_EQ(size(1), size(2));
  EXPECT_NE(size(0), size(1));
  EXPECT_EQ(storedNumbers(folder_, album_), (Numbers{2, 3, 99}));
}

TEST_F(SubAlbumStripForm, AThumbnailStandsInTheMiddleOfItsCell) {
  folder_.addPhoto("HD00002");
  album_ = addSubAlbum(folder_, "Lake", {2});
  auto& form = openForEditor();
  choose(form, album_);
  const TwipsRect place = page(form).rect(&cell(form, 0));
  EXPECT_EQ(place.left + place.width / 2, 120 + 1155 / 2.0);
  EXPECT_EQ(place.top + place.height / 2, 120 + 1155 / 2.0);
  EXPECT_LT(place.height, 1155);
  EXPECT_LE(place.width, 1155);
}

TEST_F(SubAlbumStripForm, ATipTellsWhatIsKnownOfAPhoto) {
  folder_.addPhoto("HD00002", {{"Year", 1987},
                               {"EventID", folder_.addEvent("Wedding")},
                               {"PlaceID", folder_.addPlace("Lake")}});
  album_ = addSubAlbum(folder_, "Lake", {2});
  auto& form = openForEditor();
  choose(form, album_);
  EXPECT_EQ(cell(form, 0).toolTip(), toQString("1987, Wedding in Lake"));
  EXPECT_EQ(cell(form, 0).accessibleName(), toQString("Photo 1, 1987, Wedding in Lake"));
}

TEST_F(SubAlbumStripForm, WhatIsNotKnownOfAPhotoIsNotReadOut) {
  folder_.addPhoto("HD00002", {{"PlaceID", folder_.addPlace("Lake")}});
  folder_.addPhoto("HD00003", {{"Year", 1987}});
  folder_.addPhoto("HD00004", {{"EventID", folder_.addEvent("Wedding")}});
  album_ = addSubAlbum(folder_, "Lake", {1, 2, 3, 4});
  auto& form = openForEditor();
  choose(form, album_);
  const char* spoken[] = {"Photo 1", "Photo 2, in Lake", "Photo 3, 1987", "Photo 4, Wedding"};
  for (int position = 0; position < 4; ++position)
    EXPECT_EQ(cell(form, position).accessibleName(), toQString(spoken[position]));
  EXPECT_EQ(cell(form, 0).toolTip(), toQString(",  in "));
}

TEST_F(SubAlbumStripForm, FourPhotosOfAPageShareAGrey) {
  auto& form = openAlbum(10);
  const QImage picture = page(form).grab().toImage();
  const auto cornerOf = [&](std::size_t position) {
    return picture.pixelColor(page(form).toPixels(stripCell(position)).topLeft() + QPoint(3, 3));
  };
  const QColor light(0xE0, 0xE0, 0xE0);
  const QColor dark(0x80, 0x80, 0x80);
  EXPECT_EQ(cornerOf(7), dark);
  EXPECT_EQ(cornerOf(8), light);
  EXPECT_EQ(cornerOf(9), light);
  EXPECT_NE(cornerOf(10), dark);
  EXPECT_NE(cornerOf(10), light); // no photo, no cell
}

TEST_F(SubAlbumStripForm, ArrowsWalkAndScroll) {
  auto& form = openAlbum(40);
  type(form, 0, Qt::Key_Right);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 1));
  type(form, 13, Qt::Key_Down);
  EXPECT_EQ(scroll(form).value(), 1);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 19));
  type(form, 19, Qt::Key_End);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 39));
  type(form, 39, Qt::Key_Home);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 0));
  EXPECT_EQ(scroll(form).value(), 0);
}

TEST_F(SubAlbumStripForm, ArrowsWithControlMoveThePhotoAndItKeepsTheFocus) {
  auto& form = openAlbum(40);
  type(form, 1, Qt::Key_Right, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 2));
  type(form, 2, Qt::Key_Down, Qt::ControlModifier);
  type(form, 8, Qt::Key_Home, Qt::ControlModifier);
  EXPECT_EQ(text(form, "Combo1"), "Manually");
  type(form, 0, Qt::Key_End, Qt::ControlModifier);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 39));
  leave();
  EXPECT_EQ(storedNumbers(folder_, album_).back(), 3);
}

TEST_F(SubAlbumStripForm, DeleteTakesAPhotoOut) {
  auto& form = openAlbum(8);
  type(form, 2, Qt::Key_Delete);
  EXPECT_EQ(shown(form), (Numbers{2, 3, 5, 6, 7, 8, 9}));
  EXPECT_EQ(storedNumbers(folder_, album_).size(), 7u);
}

TEST_F(SubAlbumStripForm, DeleteStaysAtItsPlaceForTheNext) {
  auto& form = openAlbum(40);
  scroll(form).setValue(4); // positions 24 to 39
  type(form, 38, Qt::Key_Delete);
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 38));
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Delete);
  settle();
  EXPECT_EQ(QApplication::focusWidget(), &cell(form, 37));
  EXPECT_EQ(storedNumbers(folder_, album_), shownFrom(0, 38));
}

TEST_F(SubAlbumStripForm, TheMenuKeyAsksForThePhotoThatHasTheFocus) {
  auto& form = openAlbum(8);
  QContextMenuEvent asked(QContextMenuEvent::Keyboard, {}, {});
  QApplication::sendEvent(&cell(form, 3), &asked);
  EXPECT_EQ(vars().ContextPhotoID, photoId(5));
  EXPECT_EQ(menu_.popUps, 1);
}

TEST_F(SubAlbumStripForm, TheMenuOfAPhotoIsAskedForThatPhoto) {
  auto& form = openAlbum(8);
  QContextMenuEvent asked(QContextMenuEvent::Mouse, {5, 5},
                          cell(form, 4).mapToGlobal(QPoint(5, 5)));
  QApplication::sendEvent(&cell(form, 4), &asked);
  EXPECT_EQ(vars().ContextPhotoID, photoId(6));
  EXPECT_EQ(menu_.popUps, 1);
}

TEST_F(SubAlbumStripForm, TheWheelScrolls) {
  auto& form = openAlbum(40);
  const QPointF at = cell(form, 4).mapTo(&page(form), QPoint(5, 5));
  QWheelEvent wheel(at, page(form).mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                    Qt::NoScrollPhase, false);
  QApplication::sendEvent(&strip(form), &wheel);
  EXPECT_GT(scroll(form).value(), 0);
}

TEST_F(SubAlbumStripForm, TenThousandPhotosCanBeArranged) {
  auto& form = openAlbum(10000);
  EXPECT_EQ(text(form, "lblCount"), "10000 photos in sub-album");
  EXPECT_EQ(scroll(form).maximum(), 1664);
  EXPECT_EQ(strip(form).heldPictures(), 18u);
  scroll(form).setValue(1664);
  settle();
  EXPECT_EQ(shown(form), shownFrom(9984, 16));
  drag(form, 9999, 9984);
  EXPECT_EQ(shown(form).front(), 10001);
}

} // namespace hearthbook::test
