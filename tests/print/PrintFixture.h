#pragma once

#include "BoxScript.h"
#include "CupsDaemon.h"
#include "FileBytes.h"
#include "FormControls.h"
#include "Forms.h"
#include "PdfPages.h"
#include "PrintDevices.h"
#include "PrintPreview.h"
#include "PrintTexts.h"
#include "QtPrint.h"
#include "TemporaryFolder.h"
#include "TestPictures.h"
#include "Text.h"
#include "WaitFor.h"
#include "WorkPool.h"
#include "frmPrint.h"

#include <gtest/gtest.h>

#include <QComboBox>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>
#include <QRadioButton>
#include <QScrollBar>

#include <functional>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook::test {

/// The print form, opened as the frame does it, with a file for its PDF.
class PrintFixture : public testing::Test, protected FormControls {
protected:
  PrintFixture() {
    Forms::provide<frmPrint>([this] {
      return new frmPrint(pool_, [this](const QString& suggested) {
        suggested_ = suggested;
        whileAsked_();
        return pdf_;
      });
    });
  }
  ~PrintFixture() override { Forms::reset(); }

  frmPrint& open(const char* tag, PrintPage page) {
    const bool isSingle = std::holds_alternative<SinglePrint>(page);
    auto& form = Forms::get<frmPrint>();
    form.Tag = toQString(tag);
    if (isSingle)
      form.allowPhotoChoices();
    form.setPage(std::move(page), QStringLiteral("Viewing Album: Summer/1987"));
    form.Show();
    EXPECT_TRUE(waitFor([&] { return !form.devices().isLooking(); }));
    return form;
  }

  std::filesystem::path photoFile(const std::string& name, const Picture& picture) {
    const auto file = folder_.path() / name;
    writeBytes(file, jpegOf(picture));
    return file;
  }
  /// A photo of the record editor, its four corners coloured.
  SinglePrint editorPage() {
    SinglePrint page;
    page.heading = "1987, Wedding in Lake";
    page.photo = PagePicture{{150, 1020, 5760, 4320},
                             photoFile("editor.jpg", corners({1600, 1200})),
                             corners({400, 300})};
    page.names = {"Anna", "Ben"};
    return page;
  }
  AlbumPrint albumPage(const std::vector<int>& places) {
    AlbumPrint page;
    for (const int place : places) {
      AlbumPrintCell cell;
      cell.place = place;
      cell.photo = {{place % 2 == 0 ? 2400.0 : 8280.0, place < 2 ? 420.0 : 3900.0, 3375, 2535},
                    photoFile("album.jpg", corners({1600, 1200})),
                    corners({200, 150})};
      cell.infoWidth = 2175;
      cell.gridSize = {2175, 1740};
      cell.grid = plain({300, 240}, green);
      cell.caption = "1987, Wedding in Lake";
      page.cells.push_back(std::move(cell));
    }
    return page;
  }
  ContactPrint contactPage(int count) {
    ContactPrint page;
    for (int place = 0; place < count; ++place)
      page.cells.push_back({place,
                            {{240 + place % 8 * 1320.0, 120 + place / 8 * 1320.0, 1090, 820},
                             photoFile("thumbnail.jpg", plain({73, 55}, red)),
                             plain({73, 55}, red)}});
    return page;
  }

  static QString note(const frmPrint& form) { return control<QLabel>(form, "note")->text(); }
  static QString sheetNote(const frmPrint& form) {
    return control<QLabel>(form, "sheetNote")->text();
  }
  static QStringList devices(const frmPrint& form) {
    return textsOf(*control<QComboBox>(form, "Combo1")->view());
  }
  static void choosePdf(frmPrint& form) {
    auto* list = control<QComboBox>(form, "Combo1");
    list->setCurrentIndex(list->count() - 1);
  }
  static void check(const frmPrint& form, const char* option) {
    control<QRadioButton>(form, option)->click();
  }

  TemporaryFolder folder_;
  std::optional<std::filesystem::path> pdf_ = folder_.path() / "page.pdf";
  QString suggested_;
  std::function<void()> whileAsked_ = [] {}; ///< while the question for the file stands
  WorkPool pool_;
  BoxScript boxes_;
};

/// Where pages can only go into a file: the printers cannot be read, and the form says so.
class PrintToFileFixture : public PrintFixture {
protected:
  PrintToFileFixture() { boxes_.expectMessage(noPrintersText); }

  NoCupsDaemon noService_;
};

} // namespace hearthbook::test
