#pragma once

#include "FlexGrid.h"
#include "Forms.h"
#include "PictureCommand.h"
#include "PictureLoader.h"
#include "QtPrint.h"
#include "ShellFixture.h"
#include "Startup.h"
#include "Text.h"

#include <QColor>
#include <QImage>
#include <QLabel>
#include <QTest>

namespace hearthbook::test {

/// A start screen with the commands that a test gives it.
class StartupFixture : public ShellTest {
protected:
  StartupFixture() {
    commands.build = [this] { ++built; };
    commands.exit = [this] { ++exited; };
  }
  ~StartupFixture() override { Forms::reset(); }

  void show(QSize size = {1024, 640}) {
    open();
    Forms::provide<Startup>([this] { return new Startup(album(), pool, loader, commands); });
    startup = &Forms::get<Startup>();
    startup->resize(size);
    startup->Show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(startup));
    moveToBackground();
  }

  PictureCommand* command(const char* name) {
    return startup->findChild<PictureCommand*>(QString::fromLatin1(name));
  }
  QLabel* label(const char* name) { return startup->findChild<QLabel*>(QString::fromLatin1(name)); }
  QString description() { return label("Label1")->text(); }
  bool isFramed() { return startup->findChild<QFrame*>(QStringLiteral("Shape4"))->isVisible(); }
  FlexGrid& list() { return *startup->findChild<FlexGrid*>(QStringLiteral("MSFlexGrid1")); }
  QLabel& note() { return *label("Text1"); }

  /// Puts a picture of one colour in the place of one of the program's.
  void putPicture(const char* file, const QColor& colour) {
    QImage picture(50, 50, QImage::Format_RGB32);
    picture.fill(colour);
    const auto media = folder().path("\\Media");
    std::filesystem::create_directories(media);
    EXPECT_TRUE(picture.save(toQString((media / file).string())));
  }
  /// Of the picture on a command, above its caption.
  QColor pictureColour(const char* name) {
    const QImage shown = command(name)->grab().toImage();
    return shown.pixelColor(shown.width() / 2, shown.height() / 3);
  }

  void moveTo(QWidget* control) { QTest::mouseMove(control); }
  /// To where there is nothing but the picture.
  void moveToBackground() {
    QTest::mouseMove(startup, QPoint(3, 3));
    QTest::mouseMove(startup, QPoint(4, 4));
  }

  // No start screen here waits for its picture.
  WorkPool pool{1};
  PictureLoader loader{pool, [](const std::function<void()>&) {}};
  StartupCommands commands;
  int built = 0;
  int exited = 0;
  Startup* startup = nullptr;
};

} // namespace hearthbook::test
