#pragma once

#include "BoxScript.h"
#include "Export.h"
#include "ExportFixture.h"
#include "FormControls.h"
#include "Forms.h"
#include "QtPrint.h"
#include "Text.h"
#include "WaitFor.h"

#include <QComboBox>
#include <QLineEdit>
#include <QTreeView>

#include <filesystem>
#include <string>
#include <vector>

namespace hearthbook::test {

/// Export Sub-Album over an album, and a desktop on whose browser one looks.
class ExportFormFixture : public ExportFixture, protected FormControls {
protected:
  ExportFormFixture() {
    Forms::provide<Export>([this] {
      return new Export(album(), pool_, [this](const std::filesystem::path& page) {
        opened_.push_back(page);
        return hasBrowser_;
      });
    });
  }
  ~ExportFormFixture() override { Forms::reset(); }

  static void wait(const Export& dialog) {
    EXPECT_TRUE(waitFor([&] { return !dialog.isReading(); }));
  }
  Export& open() {
    auto& dialog = Forms::get<Export>();
    dialog.Show();
    wait(dialog);
    return dialog;
  }
  /// The dialog with the album chosen and the folder to export to.
  Export& openChosen() {
    auto& dialog = open();
    control<DataList>(dialog, "SubAlbumList")->setBoundText(request_.albumId);
    dialog.showFolder(base_);
    wait(dialog);
    return dialog;
  }
  void expectClosingQuestion(const std::string& name, MsgAnswer answer = MsgAnswer::No) {
    expectClosingQuestion(name, base_ / name, answer);
  }
  void expectClosingQuestion(const std::string& name, const std::filesystem::path& folder,
                             MsgAnswer answer = MsgAnswer::No) {
    boxes_.expectQuestion(toQString("Sub-Album " + name +
                                    " was exported successfully\r\nYou can copy the content of "
                                    "folder: '" +
                                    folder.string() +
                                    "' to your CD-W or upload it to the web.\r\n\r\nWould you like "
                                    "to view the exported album?"),
                          toQString("Export Sub-Album"), MsgIcon::Question, MsgButtons::YesNo,
                          answer);
  }
  static std::string folderShown(const Export& dialog) {
    return toUtf8(control<QLineEdit>(dialog, "folderEdit")->text());
  }

  /// The letter that the list of drives shows, and the name of the folder where the tree stands.
  static std::string driveShown(const Export& dialog) {
    return toUtf8(control<QComboBox>(dialog, "Drive1")->currentText()).substr(0, 2);
  }
  static std::string folderInTree(const Export& dialog) {
    return toUtf8(control<QTreeView>(dialog, "Dir1")->currentIndex().data().toString());
  }

  BoxScript boxes_;
  bool hasBrowser_ = true;
  std::vector<std::filesystem::path> opened_;
};

} // namespace hearthbook::test
