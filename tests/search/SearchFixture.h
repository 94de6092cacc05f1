#pragma once

#include "BatchEdit.h"
#include "EditorFixture.h"
#include "FileBytes.h"
#include "PublicVar.h"
#include "ResultCell.h"
#include "ResultGrid.h"
#include "Search.h"

#include <QComboBox>
#include <QLineEdit>
#include <QListWidget>
#include <QTimer>

#include <string>
#include <vector>

namespace hearthbook::test {

/// What is opened over Search and built elsewhere, as it is asked for.
struct FakeWindows {
  SearchWindows asked() {
    SearchWindows windows;
    windows.unloadViewer = [this] { calls << QStringLiteral("unload Viewer"); };
    windows.showViewer = [this](const QString& caption) { calls << caption; };
    windows.showZoom = [this](const QString& caption) { calls << caption; };
    windows.addToSubAlbum = [this] { calls << QStringLiteral("add to sub-album"); };
    return windows;
  }

  QStringList calls;
};

/// An album, its search and what that opens, as the program wires them.
class SearchFixture : public EditorFixture {
protected:
  SearchFixture() {
    Forms::provide<BatchEdit>([this] { return new BatchEdit(album()); });
    Forms::provide<Search>([this] {
      return new Search(album(), loader_, pool_, frame_,
                        hasWindows_ ? windows_.asked() : SearchWindows());
    });
  }

  /// Rows alone, HD00002 to HD`last`: the first photo of the album is there already.
  void addRowsUpTo(int last) {
    data().AlbumDB.execute("BEGIN");
    for (int number = 2; number <= last; ++number)
      folder_.addRow("PhotoAlbum", {{"PictureID", idOf(number)}});
    data().AlbumDB.execute("COMMIT");
    data().rsPhotoAlbum.Requery();
  }

  static std::string idOf(int number) {
    return QStringLiteral("HD%1").arg(number, 5, 10, QLatin1Char('0')).toStdString();
  }

  /// As the frame opens it.
  Search& openSearch() {
    vars().rsSearch = data().rsPhotoAlbum.Clone();
    vars().CallerForm = "Search";
    auto& search = Forms::get<Search>();
    search.resize(790, 522);
    search.Show();
    settleSearch();
    return search;
  }

  /// Opens Search on an album of `count` photos and searches without criteria.
  Search& searchAmong(int count) {
    addRowsUpTo(count);
    auto& search = openSearch();
    press(search, "Command1");
    return search;
  }

  static void settleSearch() {
    auto* search = Forms::loaded<Search>();
    waitUntil([&] { return !search || !search->isWaitingForPictures(); });
    QCoreApplication::processEvents();
  }
  static void press(const QWidget& form, const char* name) {
    EditorFixture::press(form, name);
    settleSearch();
  }

  static ResultCell& cell(const Search& search, int index) {
    for (auto* image : search.findChildren<ResultCell*>(QStringLiteral("Image1")))
      if (image->index() == index)
        return *image;
    throw std::logic_error("no such cell");
  }
  static QWidget& frame(const Search& search, int index) {
    for (auto* shape : search.findChildren<QWidget*>(QStringLiteral("Shape1")))
      if (shape->property("index").toInt() == index)
        return *shape;
    throw std::logic_error("no such frame");
  }
  static void click(const Search& search, int index, Qt::KeyboardModifiers held = {},
                    Qt::MouseButton button = Qt::LeftButton) {
    QTest::mouseClick(&cell(search, index), button, held);
  }
  /// As the mouse does it: the second click comes as one of its own kind.
  static void doubleClick(const Search& search, int index) {
    click(search, index);
    QTest::mouseDClick(&cell(search, index), Qt::LeftButton);
    QTest::mouseRelease(&cell(search, index), Qt::LeftButton);
  }

  static std::string text(const Search& search, const char* name) {
    return toUtf8(control<QAbstractButton>(search, name)->text());
  }
  /// The cells whose frames are seen.
  static std::vector<int> framed(const Search& search) {
    std::vector<int> cells;
    for (int index = 0; index < resultsPerPage; ++index)
      if (!frame(search, index).isHidden())
        cells.push_back(index);
    return cells;
  }
  static int filledCells(const Search& search) {
    int filled = 0;
    for (int index = 0; index < resultsPerPage; ++index)
      filled += cell(search, index).hasPhoto() ? 1 : 0;
    return filled;
  }
  /// The colour in the middle of a cell's picture.
  static QRgb colourOf(const Search& search, int index) {
    const Picture& picture = cell(search, index).picture();
    if (picture.isNull())
      return 0;
    return picture.row(picture.size().height / 2)[picture.size().width / 2];
  }
  static std::string tipOf(const Search& search, int index) {
    return toUtf8(cell(search, index).toolTip());
  }
  static std::string position(const Search& search) { return labelOf(search, "PosLabel"); }
  static void choose(const Search& search, const char* list, const char* entry) {
    auto* items = control<QListWidget>(search, list);
    for (auto* item : items->findItems(toQString(entry), Qt::MatchExactly))
      item->setSelected(true);
  }
  static void type(const Search& search, const char* field, const char* typed) {
    control<QLineEdit>(search, field)->setText(toQString(typed));
  }

  /// What the user does in the dialog that Batch Edit is about to open.
  template <class Act> void inBatch(Act act) {
    QTimer::singleShot(0, qApp, [act] {
      auto* batch = Forms::loaded<BatchEdit>();
      ASSERT_NE(batch, nullptr);
      act(*batch);
      if (Forms::loaded<BatchEdit>() == batch)
        batch->Unload();
    });
  }

  SelectionSet& selection() { return vars().selection; }
  Recordset& result() { return *vars().rsSearch; }

  bool hasWindows_ = true;
  FakeWindows windows_;
};

} // namespace hearthbook::test
