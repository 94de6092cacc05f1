#pragma once

#include "EditorFixture.h"
#include "FactsPanel.h"
#include "FileBytes.h"
#include "NamesGrid.h"
#include "PageCells.h"
#include "Viewer.h"

#include <QFrame>
#include <QPushButton>

#include <memory>
#include <string>
#include <vector>

namespace hearthbook::test {

/// What opens over the album pages and is built elsewhere, as it is asked for.
struct FakeViewerWindows {
  ViewerWindows asked() {
    ViewerWindows windows;
    windows.showZoom = [this](const QString& caption) { calls << caption; };
    windows.sendMail = [this] { calls << QStringLiteral("mail"); };
    windows.editSubAlbum = [this](const QString& albumId) {
      calls << QStringLiteral("sub-album ") + albumId;
    };
    return windows;
  }

  QStringList calls;
};

/// An album and its pages, with the editor behind them, as the program wires them.
class ViewerFixture : public EditorFixture {
protected:
  ViewerFixture() {
    Forms::provide<Viewer>([this] {
      return new Viewer(album(), loader_, pool_, frame_,
                        hasWindows_ ? windows_.asked() : ViewerWindows());
    });
    vars().chosenAlbum = {0, "Master Album"};
  }
  ~ViewerFixture() override { Forms::reset(); } // before what they were made of

  /// As the frame opens the Master Album.
  Viewer& openPages() {
    vars().CallerForm = "Viewer";
    return openPagesOf("SELECT * FROM PhotoAlbum Order By Year, PictureID");
  }
  /// As Search opens what it has found.
  Viewer& openResults(const std::string& statement = "SELECT * FROM PhotoAlbum") {
    vars().CallerForm = "Search";
    return openPagesOf(statement);
  }
  Viewer& openPagesOf(const std::string& statement) {
    vars().rsViewer = data().rsPhotoAlbum.Clone();
    vars().rsViewer->Open(statement);
    auto& viewer = Forms::get<Viewer>();
    viewer.resize(790, 522);
    viewer.Show();
    settlePages();
    return viewer;
  }
  /// The pages of an album of so many photos.
  Viewer& openAlbumOf(int count) {
    addPhotosUpTo(count);
    return openPages();
  }

  /// Lets the pictures of the page arrive.
  static void settlePages() {
    const auto isWaiting = [] {
      const auto* viewer = Forms::loaded<Viewer>();
      return viewer && (viewer->isWaitingForPictures() || viewer->isLookingForSounds());
    };
    waitUntil([&] { return !isWaiting(); });
    QCoreApplication::processEvents();
  }
  static void press(const QWidget& form, const char* name) {
    FormControls::press(form, name);
    settlePages();
  }
  static void clickPhoto(const Viewer& viewer, int cell) {
    QTest::mouseClick(viewer.cells().at(cell).photo, Qt::LeftButton);
  }
  static void clickIcon(const Viewer& viewer, const char* family, int cell) {
    FormControls::press(viewer, toUtf8(familyName(family, cell)).c_str());
  }

  void execute(const std::string& statement) { data().AlbumDB.execute(statement); }
  void expectNoMoreRecords() { boxes_.expectMessage(toQString("No More Records!")); }

  static std::string position(const Viewer& viewer) { return labelOf(viewer, "PosLabel"); }
  static std::string caption(const Viewer& viewer, const char* command) {
    return toUtf8(control<QPushButton>(viewer, command)->text());
  }
  static TwipsRect placeOf(const Viewer& viewer, const QWidget* control) {
    return viewer.findChild<Stage*>(QString(), Qt::FindDirectChildrenOnly)->rect(control);
  }
  static TwipsRect placeOf(const Viewer& viewer, const char* name) {
    return placeOf(viewer, control<QWidget>(viewer, name));
  }
  static void expectPlace(const TwipsRect& place, const TwipsRect& wanted) {
    EXPECT_NEAR(place.left, wanted.left, 0.01);
    EXPECT_NEAR(place.top, wanted.top, 0.01);
    EXPECT_NEAR(place.width, wanted.width, 0.01);
    EXPECT_NEAR(place.height, wanted.height, 0.01);
  }
  /// The photos on the page by their ids, those of empty cells left out.
  static std::vector<std::string> shownIds(const Viewer& viewer) {
    std::vector<std::string> ids;
    for (int cell = 0; cell < photosOnPage; ++cell)
      if (viewer.cells().at(cell).photo->hasSource())
        ids.push_back(viewer.cells().at(cell).tag);
    return ids;
  }
  static std::vector<std::string> ids(int first, int last) {
    std::vector<std::string> ids;
    for (int number = first; number <= last; ++number)
      ids.push_back("HD" + std::to_string(100000 + number).substr(1));
    return ids;
  }
  static NamesGrid& names(const Viewer& viewer, int cell) {
    return viewer.cells().at(cell).facts->names();
  }
  Recordset& pages() { return *vars().rsViewer; }

  bool hasWindows_ = true;
  FakeViewerWindows windows_;
};

} // namespace hearthbook::test
