#pragma once

#include "AddAudio.h"
#include "AlbumFixture.h"
#include "BoxScript.h"
#include "DBeditor.h"
#include "FakeScanner.h"
#include "FormControls.h"
#include "Forms.h"
#include "Guard.h"
#include "NamesManager.h"
#include "Navigator.h"
#include "PickaPic.h"
#include "PictureBox.h"
#include "PictureLoader.h"
#include "Progress.h"
#include "Scan.h"
#include "Stage.h"
#include "Text.h"
#include "YearWizard.h"

#include <QLabel>
#include <QTest>

#include <functional>
#include <future>
#include <latch>
#include <memory>

namespace hearthbook::test {

/// What stands above the forms of building, as they see it.
class FakeFrame : public Navigator, public HoverHelp {
public:
  void findPhoto() override { ++searches; }
  [[nodiscard]] bool canFindPhoto() const override { return canSearch; }
  void addAlbumEntry(int, const QString&) override {}
  void renameAlbumEntry(int, const QString&) override {}
  void removeAlbumEntry(int) override {}
  void popUpEdit(QPoint) override {}

  void workFormActive(const QString& screen) override { active = screen; }
  void show(const QString& key) override { keys << key; }

  bool canSearch = false;
  int searches = 0;
  QString active;
  QStringList keys;
};

/// An album, its editor and Add From File, as the program wires them.
class EditorFixture : public AlbumFixture, protected FormControls {
protected:
  EditorFixture() {
    Forms::provide<Progress>([] { return new Progress; });
    Forms::provide<DBeditor>(
        [this] { return new DBeditor(album(), loader_, pool_, frame_, frame_); });
    Forms::provide<PickaPic>([this] { return new PickaPic(album(), pool_); });
    Forms::provide<Scan>([this] { return new Scan(album(), pool_, scanner_); });
    Forms::provide<AddAudio>([this] { return new AddAudio(album(), pool_); });
    Forms::provide<NamesManager>([this] { return new NamesManager(album()); });
    Forms::provide<YearWizard>([this] { return new YearWizard(album(), [] { return 2026; }); });
  }
  ~EditorFixture() override { Forms::reset(); }

  /// Adds photos HD00002 to HD`last`, so that the album has `last` of them.
  void addPhotosUpTo(int last) {
    for (int number = 2; number <= last; ++number)
      folder_.addPhoto(QStringLiteral("HD%1").arg(number, 5, 10, QLatin1Char('0')).toStdString());
  }

  DBeditor& openEditor() {
    auto& editor = Forms::get<DBeditor>();
    editor.Show();
    settle();
    return editor;
  }

  /// Lets pictures that are on their way arrive.
  static void settle() {
    auto* editor = Forms::loaded<DBeditor>();
    const auto isWaiting = [editor] {
      return editor && (editor->isWaitingForPicture() || editor->isLookingForSound());
    };
    waitUntil([&] { return !isWaiting(); });
    QCoreApplication::processEvents();
  }

  static void press(const QWidget& form, const char* name) {
    FormControls::press(form, name);
    settle();
  }
  static std::string labelOf(const QWidget& form, const char* name) {
    return toUtf8(control<QLabel>(form, name)->text());
  }
  static TwipsRect rectOf(const QWidget& form, const char* name) {
    return form.findChild<Stage*>()->rect(control<QWidget>(form, name));
  }

  /// Keeps all threads beside the window's busy until the answer is called.
  [[nodiscard]] std::function<void()> holdPool() {
    auto free = std::make_shared<std::promise<void>>();
    const std::shared_future<void> isFree = free->get_future().share();
    for (int thread = 0; thread < pool_.threads(); ++thread)
      pool_.post([isFree] { isFree.wait(); }, true);
    return [free] { free->set_value(); };
  }

  /// Lets all be done that is only done ahead: one picture to each turn.
  void awaitPicturesAhead() {
    for (int turn = 0; turn < 30; ++turn) {
      QCoreApplication::processEvents();
      awaitPool();
    }
  }
  /// When all of its threads have met, nothing that was begun before is still running.
  void awaitPool() {
    const auto met = std::make_shared<std::latch>(pool_.threads() + 1);
    for (int thread = 0; thread < pool_.threads(); ++thread)
      pool_.post([met] { met->arrive_and_wait(); });
    met->arrive_and_wait();
  }

  Recordset& photos() { return data().rsPhotoAlbum; }
  std::string currentId() { return photos().Collect("PictureID").toText(); }
  /// Changes a photo as another program would, and reads the photos again.
  void set(const std::string& id, const std::string& assignment) {
    data().AlbumDB.execute("UPDATE PhotoAlbum SET " + assignment + " WHERE PictureID = '" + id +
                           "'");
    photos().Requery();
  }
  /// What is on the disk, not what a record set remembers.
  Value stored(const std::string& id, const char* field) {
    Recordset rows(data().AlbumDB);
    rows.Open("SELECT * FROM PhotoAlbum WHERE PictureID = '" + id + "'");
    return rows.Collect(field);
  }

  /// Hands work over in the window's event loop.
  static void deliver(std::function<void()> task) {
    QMetaObject::invokeMethod(QCoreApplication::instance(), std::move(task), Qt::QueuedConnection);
  }

  WorkPool pool_{2};
  PictureLoader loader_{pool_, deliver};
  FakeScanner scanner_{deliver};
  FakeFrame frame_;
  BoxScript boxes_;
};

} // namespace hearthbook::test
