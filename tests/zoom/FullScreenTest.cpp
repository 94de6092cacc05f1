#include "ZoomFixture.h"

#include "FileBytes.h"
#include "PhotoFiles.h"
#include "TestPictures.h"

namespace hearthbook::test {

namespace {

/// What one does while the form is modal: each step runs in its loop, the last one leaves.
class FullScreenView : public ZoomFixture {
protected:
  using Step = std::function<void(FullScreen& full)>;

  /// Presses "Full [  ]", runs the steps, and leaves by Escape where none of them has left.
  void watch(const Zoom& zoom, const Step& steps) {
    watchAtOnce(zoom, [&](FullScreen& full) {
      settleZoom();
      steps(full);
    });
  }
  /// The same, while its photo may still be on its way.
  static void watchAtOnce(const Zoom& zoom, const Step& steps) {
    QTimer opened;
    QObject::connect(&opened, &QTimer::timeout, [&] {
      auto* full = Forms::loaded<FullScreen>();
      if (!full || !full->isVisible())
        return;
      opened.stop();
      steps(*full);
      if (Forms::loaded<FullScreen>())
        QTest::keyClick(full, Qt::Key_Escape);
    });
    opened.start(0);
    FormControls::press(zoom, "Command8");
    settleZoom();
  }
  void expectQuestion(MsgAnswer answer) {
    boxes_.expectQuestion(toQString("No More Records, start over?"), toQString("Next Photo"),
                          MsgIcon::Question, MsgButtons::YesNo, answer);
  }
  /// Presses the photo, drags it there, and looks where it lies then.
  static void expectDragged(LargePhoto& image, QPoint from, QPoint to, QPoint wanted) {
    QTest::mousePress(&image, Qt::LeftButton, {}, from);
    QTest::mouseMove(&image, to);
    QTest::mouseRelease(&image, Qt::LeftButton, {}, to);
    EXPECT_EQ(image.pos(), wanted);
  }
};

} // namespace

TEST_F(FullScreenView, ShowsThePhotoAtItsOwnSizeInTheMiddleOfBlack) {
  const auto& zoom = openPhoto(300, 200);
  watch(zoom, [](FullScreen& full) {
    EXPECT_TRUE(full.isFullScreen());
    EXPECT_EQ(photo(full).size(), QSize(300, 200));
    EXPECT_EQ(pixels(full), QSize(300, 200));
    EXPECT_EQ(photo(full).x(), full.width() / 2 - 150);
    EXPECT_EQ(photo(full).y(), full.height() / 2 - 100);
    EXPECT_EQ(full.place().pointer, DragPointer::None);
    EXPECT_EQ(full.grab().toImage().pixelColor(1, 1), QColor(Qt::black));
  });
}

TEST_F(FullScreenView, AtAnotherSizeOfTheScreenThePhotoIsInTheMiddleAgain) {
  const auto& zoom = openPhoto(300, 200);
  watch(zoom, [](FullScreen& full) {
    full.resize(1000, 280);
    EXPECT_EQ(photo(full).pos(), QPoint(350, 40));
    full.resize(640, 120);
    EXPECT_EQ(photo(full).pos(), QPoint(170, 0));
    EXPECT_EQ(full.place().pointer, DragPointer::UpAndDown);
    EXPECT_EQ(photo(full).cursor().shape(), Qt::SizeVerCursor);
  });
}

TEST_F(FullScreenView, AnyButtonThatIsPressedBeginsADrag) {
  const auto& zoom = openPhoto(2000, 1500);
  watch(zoom, [](FullScreen& full) {
    auto& image = photo(full);
    QTest::mouseClick(&image, Qt::MiddleButton, {}, {500, 500});
    QMouseEvent move(QEvent::MouseMove, QPointF(460, 490), image.mapToGlobal(QPointF(460, 490)),
                     Qt::NoButton, Qt::LeftButton, {});
    QCoreApplication::sendEvent(&image, &move);
    EXPECT_EQ(image.pos(), QPoint(-40, -10));
  });
}

TEST_F(FullScreenView, APhotoOfTwoHundredMegapixelsIsShownFromAQuarterOfThem) {
  writeBytes(at("Photos/00001.jpg"), plainGreyJpeg({16000, 12500}, 180));
  watch(openZoom(), [](FullScreen& full) {
    EXPECT_EQ(photo(full).size(), QSize(16000, 12500));
    EXPECT_EQ(pixels(full), QSize(8000, 6250));
  });
}

TEST_F(FullScreenView, StandsInWithThePixelsOfTheZoomViewUntilItsOwnAreThere) {
  const auto& zoom = openPhoto(2000, 1500);
  const auto freePool = holdPool();
  watchAtOnce(zoom, [&](FullScreen& full) {
    EXPECT_TRUE(photo(full).hasPicture());
    EXPECT_EQ(photo(full).size(), QSize(2000, 1500));
    freePool();
    settleZoom();
    EXPECT_EQ(pixels(full), QSize(2000, 1500));
  });
}

TEST_F(FullScreenView, OpenedWhileThePhotoIsStillOnItsWayItShowsThatOne) {
  const auto& zoom = openZoomOf(2);
  const auto freePool = holdPool();
  writePhoto(2, 300, 200);
  FormControls::press(zoom, "Command2");
  watchAtOnce(zoom, [&](FullScreen& full) {
    EXPECT_TRUE(photo(full).hasPicture()); // the one before, until then
    freePool();
    settleZoom();
    EXPECT_EQ(pixels(full), QSize(300, 200));
    EXPECT_EQ(photo(full).size(), QSize(300, 200));
  });
}

TEST_F(FullScreenView, OpenedBeforeAnyPhotoIsThereItShowsTheFirstThatComes) {
  const auto freePool = holdPool();
  writePhoto(1, 300, 200);
  const auto& zoom = openZoomAtOnce();
  watchAtOnce(zoom, [&](FullScreen& full) {
    EXPECT_FALSE(photo(full).hasPicture());
    freePool();
    settleZoom();
    EXPECT_EQ(pixels(full), QSize(300, 200));
  });
}

TEST_F(FullScreenView, ABrokenPhotoThatBothViewsAskedForIsToldOnce) {
  const auto& zoom = openZoomOf(2);
  const auto freePool = holdPool();
  writeBytes(at("Photos/00002.jpg"), "no photo at all");
  FormControls::press(zoom, "Command2");
  watchAtOnce(zoom, [&](FullScreen& full) {
    expectTryAgain();
    freePool();
    settleZoom();
    EXPECT_TRUE(boxes_.isDone());
    EXPECT_TRUE(photo(full).hasPicture());
    key(full, Qt::Key_Left);
  });
}

TEST_F(FullScreenView, TheArrowsWalk) {
  const auto& zoom = openZoomOf(3);
  watch(zoom, [&](FullScreen& full) {
    EXPECT_EQ(photo(full).accessibleName(), toQString("Photo 1 Of 3"));
    key(full, Qt::Key_Right);
    EXPECT_EQ(vars().ImagePath.filename(), "00002.jpg");
    key(full, Qt::Key_Right);
    EXPECT_EQ(vars().ImagePath.filename(), "00003.jpg");
    EXPECT_TRUE(slides().atEOF());
    EXPECT_EQ(photo(full).accessibleName(), toQString("Photo 3 Of 3"));
    key(full, Qt::Key_Left);
    EXPECT_EQ(vars().ImagePath.filename(), "00002.jpg");
  });
  EXPECT_EQ(position(zoom), "2 Of 3");
}

TEST_F(FullScreenView, BehindTheLastPhotoTheUserIsAskedAndNoKeepsThePhoto) {
  const auto& zoom = openZoomOf(2, 2);
  watch(zoom, [&](FullScreen& full) {
    expectQuestion(MsgAnswer::No);
    key(full, Qt::Key_Right);
    EXPECT_TRUE(boxes_.isDone());
    EXPECT_EQ(vars().ImagePath.filename(), "00002.jpg");
    EXPECT_TRUE(slides().atEOF());
    expectQuestion(MsgAnswer::Yes);
    key(full, Qt::Key_Right);
    EXPECT_EQ(vars().ImagePath.filename(), "00001.jpg");
    EXPECT_EQ(slides().AbsolutePosition(), 2);
  });
  EXPECT_EQ(position(zoom), "1 Of 2");
}

TEST_F(FullScreenView, BeforeTheFirstPhotoTheUserIsTold) {
  const auto& zoom = openZoomOf(2);
  watch(zoom, [&](FullScreen& full) {
    boxes_.expectMessage(toQString("First Record"), toQString("Previous Photo"),
                         MsgIcon::Information);
    key(full, Qt::Key_Left);
    EXPECT_TRUE(boxes_.isDone());
  });
  EXPECT_EQ(position(zoom), "1 Of 2");
}

TEST_F(FullScreenView, SpaceStartsTheShowAtTheIntervalOfTheZoomViewAndStopsIt) {
  const auto& zoom = openZoomOf(3);
  bar(zoom, "VScroll2").setValue(7);
  watch(zoom, [&](FullScreen& full) {
    key(full, Qt::Key_Space);
    EXPECT_TRUE(timer(zoom).isActive());
    EXPECT_EQ(timer(zoom).interval(), 7000);
    EXPECT_TRUE(control<QCheckBox>(zoom, "Check1")->isChecked());
    key(full, Qt::Key_Space);
    EXPECT_FALSE(timer(zoom).isActive());
    EXPECT_FALSE(control<QCheckBox>(zoom, "Check1")->isChecked());
  });
}

TEST_F(FullScreenView, TheShowOfTheZoomViewPaintsHere) {
  addPhotosUpTo(3);
  writePhoto(2, 300, 200);
  writePhoto(3, 200, 300);
  const auto& zoom = openZoom();
  watch(zoom, [&](FullScreen& full) {
    tick(zoom);
    EXPECT_EQ(pixels(full), QSize(300, 200));
    EXPECT_EQ(position(zoom), "1 Of 3"); // behind the screen nothing changes
    tick(zoom);
    EXPECT_EQ(pixels(full), QSize(200, 300));
    tick(zoom);
    EXPECT_EQ(pixels(full), QSize(200, 300));
    tick(zoom);
    EXPECT_EQ(vars().ImagePath.filename(), "00001.jpg");
  });
  EXPECT_EQ(position(zoom), "1 Of 3");
}

TEST_F(FullScreenView, WhatComesNextIsDecodedAheadAtItsOwnSize) {
  addPhotosUpTo(4);
  for (int number = 1; number <= 4; ++number)
    writePhoto(number, 1200, 900);
  watch(openZoom(), [&](FullScreen& full) {
    awaitPicturesAhead();
    const auto freePool = holdPool();
    QTest::keyClick(&full, Qt::Key_Right);
    EXPECT_FALSE(full.picture().isWaiting());
    EXPECT_EQ(full.picture().shown()->filename(), "00002.jpg");
    freePool();
    settleZoom();
  });
}

TEST_F(FullScreenView, ATickOntoAMissingPhotoShowsTheStandIn) {
  const auto& zoom = openZoomOf(3);
  std::filesystem::remove(at("Photos/00002.jpg"));
  watch(zoom, [&](FullScreen& full) {
    tick(zoom);
    EXPECT_FALSE(vars().ImagePicture.found);
    EXPECT_EQ(full.picture().shown(), notFoundPicture(album()));
    EXPECT_TRUE(photo(full).hasPicture());
    tick(zoom);
    EXPECT_EQ(full.picture().shown()->filename(), "00003.jpg");
  });
}

TEST_F(FullScreenView, ATickOfTheShowWaitsForThePhotoOfTheOneBefore) {
  const auto& zoom = openZoomOf(4);
  watch(zoom, [&](FullScreen& full) {
    const auto freePool = holdPool();
    writePhoto(2, 300, 200);
    tickAtOnce(zoom);
    tickAtOnce(zoom);
    EXPECT_EQ(photo(full).accessibleName(), toQString("Photo 2 Of 4"));
    freePool();
    settleZoom();
    EXPECT_EQ(pixels(full), QSize(300, 200));
    tick(zoom);
    EXPECT_EQ(photo(full).accessibleName(), toQString("Photo 3 Of 4"));
  });
}

TEST_F(FullScreenView, AnErrorInATickIsToldAndTheShowGoesOn) {
  const auto& zoom = openZoomOf(3);
  watch(zoom, [&](FullScreen& full) {
    key(full, Qt::Key_Space);
    const std::string former = slides().Source();
    slides().Close();
    expectTryAgain();
    tick(zoom);
    EXPECT_TRUE(boxes_.isDone());
    EXPECT_TRUE(timer(zoom).isActive());
    EXPECT_TRUE(photo(full).hasPicture());
    slides().Open(former);
    tick(zoom);
    EXPECT_EQ(vars().ImagePath.filename(), "00001.jpg");
    key(full, Qt::Key_Space);
  });
}

TEST_F(FullScreenView, AnyOtherKeyGoesBackToThePhotoThatWasSeen) {
  for (const auto key : {Qt::Key_Escape, Qt::Key_Return, Qt::Key_A, Qt::Key_Up, Qt::Key_Tab,
                         Qt::Key_Backtab, Qt::Key_Shift}) {
    const auto& zoom = openZoomOf(1);
    watch(zoom, [&](FullScreen& full) {
      QTest::keyClick(&full, key);
      EXPECT_EQ(Forms::loaded<FullScreen>(), nullptr) << key; // before another one leaves
    });
    EXPECT_EQ(Forms::loaded<FullScreen>(), nullptr) << key;
    EXPECT_FALSE(control<QPushButton>(zoom, "Command8")->isChecked()) << key;
  }
}

TEST_F(FullScreenView, LeavingOnTheLastPhotoShowsTheLastPhoto) {
  const auto& zoom = openZoomOf(3, 2);
  watch(zoom, [&](FullScreen& full) { key(full, Qt::Key_Right); });
  EXPECT_EQ(position(zoom), "3 Of 3");
  EXPECT_TRUE(photo(zoom).hasPicture());
}

TEST_F(FullScreenView, LeavingInTheTickWithoutAChangeShowsTheLastPhoto) {
  const auto& zoom = openZoomOf(2, 2);
  watch(zoom, [&](FullScreen&) { tick(zoom); });
  EXPECT_EQ(position(zoom), "2 Of 2");
}

TEST_F(FullScreenView, ClosingItsWindowIsLeavingToo) {
  const auto& zoom = openZoomOf(3);
  watch(zoom, [&](FullScreen& full) {
    key(full, Qt::Key_Right);
    full.close();
  });
  EXPECT_EQ(position(zoom), "2 Of 3");
}

TEST_F(FullScreenView, AKeyThatIsStillHeldDownDoesNotLeave) {
  const auto& zoom = openZoomOf(2);
  watch(zoom, [&](FullScreen& full) {
    QKeyEvent held(QEvent::KeyPress, Qt::Key_Return, {}, QString(), true);
    QCoreApplication::sendEvent(&full, &held);
    EXPECT_NE(Forms::loaded<FullScreen>(), nullptr);
  });
}

TEST_F(FullScreenView, ARightPressOnThePhotoOrBesideItTellsTheKeys) {
  const auto& zoom = openPhoto(300, 200);
  watch(zoom, [&](FullScreen& full) {
    for (QWidget* place : {static_cast<QWidget*>(&full), static_cast<QWidget*>(&photo(full))}) {
      boxes_.expectMessage(toQString("Press LEFT ARROW & RIGHT ARROW keys to navigate.\n"
                                     "Press SPACEBAR key to start/stop slide show\n"
                                     "Press any other key to exit."),
                           toQString("Full Screen"), MsgIcon::Information);
      QTest::mouseClick(place, Qt::RightButton, {}, {2, 2});
    }
    EXPECT_TRUE(boxes_.isDone());
  });
}

TEST_F(FullScreenView, ALargePhotoIsDraggedWithinItsEdges) {
  const auto& zoom = openPhoto(2000, 1500);
  watch(zoom, [&](FullScreen& full) {
    EXPECT_EQ(full.place().pointer, DragPointer::Both);
    EXPECT_EQ(photo(full).cursor().shape(), Qt::SizeAllCursor);
    auto& image = photo(full);
    QTest::mousePress(&image, Qt::LeftButton, {}, {500, 500});
    QTest::mouseMove(&image, {450, 480});
    EXPECT_EQ(image.pos(), QPoint(-50, -20));
    QTest::mouseMove(&image, {900, 900});
    EXPECT_EQ(image.pos(), QPoint(0, 0));
    QTest::mouseMove(&image, {-5000, -5000});
    EXPECT_EQ(image.pos(), QPoint(full.width() - 2000, full.height() - 1500));
    QTest::mouseRelease(&image, Qt::LeftButton, {}, {500, 500});
  });
}

TEST_F(FullScreenView, AHigherPhotoIsDraggedUpAndDownWithinItsEdges) {
  const auto& zoom = openPhoto(300, 2000);
  watch(zoom, [&](FullScreen& full) {
    auto& image = photo(full);
    const int left = full.width() / 2 - 150;
    EXPECT_EQ(full.place().pointer, DragPointer::UpAndDown);
    EXPECT_EQ(image.pos(), QPoint(left, 0));
    expectDragged(image, {100, 500}, {40, 450}, {left, -50});
    expectDragged(image, {100, 500}, {160, 900}, {left, 0});
    expectDragged(image, {100, 500}, {100, -5000}, {left, full.height() - 2000});
  });
}

TEST_F(FullScreenView, AWiderPhotoIsDraggedSidewaysWithinItsEdges) {
  const auto& zoom = openPhoto(2000, 300);
  watch(zoom, [&](FullScreen& full) {
    auto& image = photo(full);
    const int top = full.height() / 2 - 150;
    EXPECT_EQ(full.place().pointer, DragPointer::Sideways);
    EXPECT_EQ(photo(full).cursor().shape(), Qt::SizeHorCursor);
    EXPECT_EQ(image.pos(), QPoint(0, top));
    expectDragged(image, {500, 100}, {450, 40}, {-50, top});
    expectDragged(image, {500, 100}, {900, 160}, {0, top});
    expectDragged(image, {500, 100}, {-5000, 100}, {full.width() - 2000, top});
  });
}

TEST_F(FullScreenView, BehindAPhotoThatWasDraggedToItsEdgeASmallerOneStillCoversTheScreen) {
  addPhotosUpTo(2);
  writePhoto(1, 3000, 2400);
  writePhoto(2, 1000, 900);
  watch(openZoom(), [](FullScreen& full) {
    auto& image = photo(full);
    expectDragged(image, {500, 500}, {-5000, -5000}, {full.width() - 3000, full.height() - 2400});
    key(full, Qt::Key_Right);
    ASSERT_EQ(full.place().pointer, DragPointer::Both);
    EXPECT_EQ(image.pos(), QPoint(full.width() - 1000, full.height() - 900));
  });
}

TEST_F(FullScreenView, OpenedOnALargePhotoItShowsItFromItsCorner) {
  const auto& zoom = openPhoto(1000, 900); // narrower than the form before it fills the screen
  watch(zoom, [](FullScreen& full) {
    ASSERT_EQ(full.place().pointer, DragPointer::Both);
    EXPECT_EQ(photo(full).pos(), QPoint(0, 0));
  });
}

TEST_F(FullScreenView, ADraggedPhotoStaysWhereItIsUntilTheNextOneIsThere) {
  const auto& zoom = openZoomOf(2);
  writePhoto(1, 300, 2000);
  watch(openZoom(), [&](FullScreen& full) {
    auto& image = photo(full);
    const int left = image.x();
    expectDragged(image, {100, 500}, {100, 450}, {left, -50});
    const auto freePool = holdPool();
    writePhoto(2, 300, 200);
    QTest::keyClick(&full, Qt::Key_Right);
    EXPECT_EQ(image.pos(), QPoint(left, -50));
    freePool();
    settleZoom();
    EXPECT_EQ(image.y(), full.height() / 2 - 100);
  });
  EXPECT_EQ(position(zoom), "2 Of 2");
}

TEST_F(FullScreenView, APhotoThatFitsIsNotDragged) {
  const auto& zoom = openPhoto(300, 200);
  watch(zoom, [&](FullScreen& full) {
    auto& image = photo(full);
    const QPoint before = image.pos();
    QTest::mousePress(&image, Qt::LeftButton, {}, {50, 50});
    QTest::mouseMove(&image, {80, 90});
    EXPECT_EQ(image.pos(), before);
    QTest::mouseRelease(&image, Qt::LeftButton, {}, {80, 90});
  });
}

TEST_F(FullScreenView, ThePointerGoesAfterAWhileAndComesBackWithTheMouse) {
  const auto& zoom = openPhoto(2000, 1500);
  watch(zoom, [&](FullScreen& full) {
    auto& image = photo(full);
    waitUntil([&] { return image.cursor().shape() == Qt::BlankCursor; });
    EXPECT_EQ(full.cursor().shape(), Qt::BlankCursor);
    EXPECT_EQ(full.place().pointer, DragPointer::Both);
    full.resize(full.size() - QSize(10, 10)); // placed anew, as the next slide is
    EXPECT_EQ(image.cursor().shape(), Qt::BlankCursor);
    QTest::mouseMove(&image, {40, 40});
    EXPECT_EQ(image.cursor().shape(), Qt::SizeAllCursor);
  });
}

TEST_F(FullScreenView, AMissingPhotoIsStoodInForAndABrokenOneIsToldOnce) {
  addPhotosUpTo(3);
  std::filesystem::remove(at("Photos/00002.jpg"));
  writeBytes(at("Photos/00003.jpg"), "no photo at all");
  const auto& zoom = openZoom();
  watch(zoom, [&](FullScreen& full) {
    key(full, Qt::Key_Right);
    EXPECT_FALSE(vars().ImagePicture.found);
    EXPECT_TRUE(photo(full).hasPicture());
    expectTryAgain();
    key(full, Qt::Key_Right);
    EXPECT_TRUE(boxes_.isDone());
    EXPECT_TRUE(photo(full).note().contains(toQString("00003.jpg cannot be read")));
    EXPECT_EQ(photo(full).accessibleDescription(), photo(full).note());
    key(full, Qt::Key_Left);
    EXPECT_EQ(photo(full).note(), QString());
    EXPECT_EQ(photo(full).accessibleDescription(), QString());
  });
  EXPECT_EQ(position(zoom), "2 Of 3");
}

TEST_F(FullScreenView, OpenedOnABrokenPhotoItTellsWhyToo) {
  writeBytes(at("Photos/00001.jpg"), "no photo at all");
  expectTryAgain();
  watch(openZoom(), [&](FullScreen& full) {
    EXPECT_TRUE(photo(full).hasPicture());
    EXPECT_TRUE(photo(full).note().contains(toQString("00001.jpg cannot be read")));
    expectTryAgain(); // behind it
  });
}

TEST_F(FullScreenView, TheZoomViewMayBeUnloadedBehindIt) {
  auto& zoom = openZoomOf(2);
  watch(zoom, [&](FullScreen&) { zoom.Unload(); });
  EXPECT_EQ(Forms::loaded<FullScreen>(), nullptr);
  EXPECT_EQ(Forms::loaded<Zoom>(), nullptr);
}

} // namespace hearthbook::test
