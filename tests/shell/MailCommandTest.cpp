#include "AlbumStart.h"
#include "BoxScript.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "MDIForm1.h"
#include "QtPrint.h"
#include "ShellFixture.h"
#include "Text.h"
#include "Viewer.h"
#include "Wiring.h"
#include "frmSendMail.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QListWidget>
#include <QTest>
#include <QTimer>

namespace hearthbook {
namespace {

class MailCommandTest : public test::ShellTest {};

TEST_F(MailCommandTest, TheAlbumPagesMailTheirPhotos) {
  addPhoto("HD00002", "1990");
  EXPECT_EQ(startAlbum(album(), [] { return false; }), AlbumStart::Opened);
  MDIForm1 frame(album(), ShellServices());
  const Wiring wiring(album(), frame);
  const test::BoxScript boxes;
  frame.open();
  ASSERT_TRUE(QTest::qWaitForWindowExposed(&frame));
  frame.menu().menu("mnuView").actions().front()->trigger();
  ASSERT_NE(Forms::loaded<Viewer>(), nullptr);

  QString caption;
  int photos = 0;
  QTimer::singleShot(0, &frame, [&] {
    auto* composer = Forms::loaded<frmSendMail>();
    ASSERT_NE(composer, nullptr);
    caption = composer->caption();
    photos = composer->findChild<QListWidget*>(toQString("lstAttachments"))->count();
    composer->Unload();
  });
  auto* mail = Forms::get<Viewer>().findChild<QAbstractButton*>(toQString("Command9"));
  ASSERT_TRUE(mail->isEnabled());
  mail->click();
  EXPECT_EQ(caption, toQString("E-Mail Album Page"));
  EXPECT_EQ(photos, 2);
}

} // namespace
} // namespace hearthbook
