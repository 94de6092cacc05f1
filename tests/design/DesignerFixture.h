#pragma once

#include "AlbumFixture.h"
#include "BoxScript.h"
#include "DesignSurface.h"
#include "ExportDesigner.h"
#include "FileBytes.h"
#include "FormControls.h"
#include "Forms.h"
#include "FoundPhotos.h"
#include "PhotoBox.h"
#include "QtPrint.h"
#include "RegionView.h"
#include "Text.h"
#include "WaitFor.h"

#include <QComboBox>
#include <QCoreApplication>
#include <QFrame>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QTimer>

#include <filesystem>
#include <latch>
#include <memory>
#include <optional>
#include <vector>

namespace hearthbook::test {

/// An album with the program's designs, and the designer as the frame opens it.
class DesignerFixture : public AlbumFixture, protected FormControls {
protected:
  DesignerFixture() {
    std::filesystem::create_directories(at("export/templates"));
    std::filesystem::copy(std::filesystem::path(HEARTHBOOK_STAGED) / "export/templates",
                          at("export/templates"),
                          std::filesystem::copy_options::recursive |
                              std::filesystem::copy_options::overwrite_existing);
    Forms::provide<ExportDesigner>([this] {
      DesignFiles files;
      files.chooseBackground = [this] { return background_; };
      files.chooseMusic = [this] { return music_; };
      files.openPage = [this](const std::filesystem::path& page) {
        opened_.push_back(page);
        return hasBrowser_;
      };
      return new ExportDesigner(album(), pool_, files);
    });
  }
  ~DesignerFixture() override { Forms::reset(); }

  ExportDesigner& open() {
    auto& designer = Forms::get<ExportDesigner>();
    designer.resize(990, 690);
    designer.Show();
    return designer;
  }

  /// One of a family of controls, by its index; null where there is none.
  template <class X> static X* member(const QWidget& form, const char* name, int index) {
    for (X* found : form.findChildren<X*>(QString::fromLatin1(name)))
      if (found->property("index").toInt() == index)
        return found;
    return nullptr;
  }
  /// One whose property `Tag` is that and which can be seen.
  template <class X> static X* tagged(const QWidget& form, const char* name, const char* tag) {
    for (X* found : form.findChildren<X*>(QString::fromLatin1(name)))
      if (found->property("Tag").toString() == toQString(tag) && found->isVisible())
        return found;
    return nullptr;
  }
  static void chooseDesign(const ExportDesigner& designer, int index) {
    QTest::mouseClick(member<QAbstractButton>(designer, "optTemplate", index), Qt::LeftButton);
  }
  static PhotoBox& photoBox(const ExportDesigner& designer, const char* tag) {
    return *tagged<PhotoBox>(designer, "img", tag);
  }
  static bool isDecorated(const ExportDesigner& designer, const char* name) {
    return !control<QLabel>(designer, name)->pixmap(Qt::ReturnByValue).isNull();
  }
  static std::string title(const ExportDesigner& designer, const char* group) {
    return toUtf8(control<QGroupBox>(designer, group)->title());
  }
  static bool isSeen(const ExportDesigner& designer, const char* name) {
    return control(designer, name)->isVisible();
  }
  static void chooseIn(const ExportDesigner& designer, const char* list, const char* text) {
    auto* combo = control<QComboBox>(designer, list);
    combo->setCurrentIndex(combo->findText(QString::fromUtf8(text)));
    Q_EMIT combo->activated(combo->currentIndex());
  }
  static PhotoBox& thumbnail(const ExportDesigner& designer, int index) {
    return *member<PhotoBox>(designer, "Image1", index);
  }
  static RegionView& region(const ExportDesigner& designer) {
    return *control<RegionView>(designer, "ImgX1");
  }

  /// A person with photos HD00002 to HD`last`.
  void addPhotosOf(const char* name, int last) {
    const auto id = folder_.addPerson(name);
    const QString key = QStringLiteral("%1,").arg(id, 3, 10, QLatin1Char('0'));
    for (int number = 2; number <= last; ++number)
      folder_.addPhoto(QStringLiteral("HD%1").arg(number, 5, 10, QLatin1Char('0')).toStdString(),
                       {{"NamesInPhoto", toUtf8(key)}, {"Year", 1950 + number}});
  }

  /// Until all that is on its way has arrived.
  void settlePool() {
    const auto all = std::make_shared<std::latch>(pool_.threads() + 1);
    for (int thread = 0; thread < pool_.threads(); ++thread)
      pool_.post([all] { all->arrive_and_wait(); });
    all->arrive_and_wait();
    QCoreApplication::processEvents();
  }

  /// Keeps the pool's threads until the window handles events: work that is waited for is done
  /// only where the window lives on meanwhile.
  void holdPoolUntilTheWindowLives() {
    const auto begun = std::make_shared<std::latch>(pool_.threads());
    const auto lives = std::make_shared<std::latch>(1);
    for (int thread = 0; thread < pool_.threads(); ++thread)
      pool_.post([begun, lives] {
        begun->count_down();
        lives->wait();
      });
    begun->wait();
    windowLived_ = false;
    QTimer::singleShot(0, QCoreApplication::instance(), [this, lives] {
      windowLived_ = true;
      lives->count_down();
    });
  }
  /// True if it handled events since then; lets the pool's threads go.
  bool hasWindowLived() {
    const bool lived = windowLived_;
    QCoreApplication::processEvents();
    return lived;
  }

  /// Up to the marking: a click on the box, a person in the list, a click on the first photo.
  void bringPhoto(ExportDesigner& designer, const char* tag, const char* person) {
    QTest::mouseClick(&photoBox(designer, tag), Qt::LeftButton);
    chooseIn(designer, "Combo1", person);
    QTest::mouseClick(&thumbnail(designer, 0), Qt::LeftButton);
    EXPECT_TRUE(waitFor([&] { return !designer.isWaitingForPhoto(); }));
  }

  void expectLossQuestion(const char* designs, MsgAnswer answer) {
    boxes_.expectQuestion(QStringLiteral("There is no page yet of what you have put into ") +
                              toQString(designs) +
                              QStringLiteral(". It would be lost.\n\n"
                                             "Close without making the page?"),
                          designTitle, MsgIcon::Exclamation, MsgButtons::YesNo, answer);
  }
  void leave(ExportDesigner& designer, MsgAnswer answer = MsgAnswer::Yes) {
    expectLossQuestion("the design Wedding", answer);
    EXPECT_EQ(designer.Unload(), answer == MsgAnswer::Yes);
  }
  [[nodiscard]] std::string madePage() const { return readBytes(at("export/testing1/index.htm")); }

  const QString designTitle = QStringLiteral("Design Export");
  WorkPool pool_{2};
  std::optional<std::filesystem::path> background_;
  std::optional<std::filesystem::path> music_;
  std::vector<std::filesystem::path> opened_;
  bool hasBrowser_ = true;
  bool windowLived_ = false;
  BoxScript boxes_;
};

} // namespace hearthbook::test
