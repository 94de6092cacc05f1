#pragma once

#include "EditorFixture.h"

#include <QListView>

#include <filesystem>
#include <string>

namespace hearthbook::test {

/// Add From File, and a folder of files that are no part of the album.
class PickaPicFixture : public EditorFixture {
protected:
  PickaPicFixture() { std::filesystem::create_directories(source_); }

  PickaPic& openPicker() {
    auto& picker = Forms::get<PickaPic>();
    picker.Show();
    wait(picker);
    return picker;
  }
  PickaPic& openPickerAtSource() {
    auto& picker = openPicker();
    picker.showFolder(source_);
    wait(picker);
    return picker;
  }
  static void wait(const PickaPic& picker) {
    waitUntil([&] { return !picker.isReading(); });
  }
  static QStringList listed(const PickaPic& picker) {
    QStringList names;
    const auto* model = control<QListView>(picker, "File1")->model();
    for (int row = 0; row < model->rowCount(); ++row)
      names << model->index(row, 0).data().toString();
    return names;
  }
  /// Clicks a file as the user does; with Ctrl it is added to or taken from the
  /// selection.
  static void click(const PickaPic& picker, int row, Qt::KeyboardModifiers keys = {}) {
    auto* list = control<QListView>(picker, "File1");
    const QRect place = list->visualRect(list->model()->index(row, 0));
    QTest::mouseClick(list->viewport(), Qt::LeftButton, keys, place.center());
    QCoreApplication::processEvents();
  }
  void expectCount(int count) {
    boxes_.expectMessage(QString::number(count) + toQString(" Files added to album."),
                         toQString("Add From File"), MsgIcon::Information);
  }
  void expectError(const std::filesystem::path& source) {
    boxes_.expectMessage(toQString("An error occurred while inserting file: ") + toQString(source),
                         toQString("Error"), MsgIcon::Critical);
  }
  void insert(const PickaPic& picker) {
    press(picker, "OK");
    wait(picker);
  }
  std::filesystem::path add(const std::string& name, unsigned colour = 0x336699) {
    writeJpeg(source_ / name, 160, 120, colour);
    return source_ / name;
  }

  std::filesystem::path source_ = at("Source");
};

} // namespace hearthbook::test
