#pragma once

#include "Album.h"
#include "Beside.h"
#include "FileStamp.h"
#include "Form.h"
#include "Guard.h"
#include "ImageEdit.h"
#include "Pointer.h"
#include "Scanner.h"
#include "WorkPool.h"

#include <deque>
#include <exception>
#include <filesystem>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>

class QAbstractButton;

namespace Ui {
class Scan;
}

namespace hearthbook {

class KeptPage;
class OwnPhotoTable;
struct PhotoPlaces;

/// Scan Photos, in two uses. A page is taken from the scanner, and one rectangle after the other on
/// it becomes a photo of the album; or the photo of the editor is put right and written back.
///
/// Opened by DBeditor, whose Tag says the use: "Scan" or "edit". What takes time is done beside
/// the window's thread; meanwhile the commands wait and Stop gives up what can be given up. While
/// the page is edited they can be given already, but for Scan Again, and are carried out in turn;
/// a save is the last of them.
class Scan : public Form {
  Q_OBJECT
public:
  Scan(Album& album, WorkPool& pool, Scanner& scanner);
  ~Scan() override;

  /// Begins what Tag says: scans, or loads the picture at ImagePath. To be called before the form
  /// is shown.
  void begin();

  [[nodiscard]] bool isBusy() const { return work_ != Work::None; }
  [[nodiscard]] bool isSharp() const; ///< the pixels on the screen are those of the page
  [[nodiscard]] const ImageEdit& page() const { return edit_; }

Q_SIGNALS:
  void photoCut(); ///< the album has a row more, of which rsPhotoAlbum knows nothing

protected:
  bool unloading() override;

private:
  enum class Work { None, Loading, Scanning, Editing, Saving };
  struct Loaded {
    Picture picture;
    std::string trouble;
    bool isCut = false;
  };
  struct Saved {
    std::exception_ptr failure;
    bool isPhotoWritten = false; ///< though perhaps not its thumbnail
  };
  /// What happens once the files are written, or were not.
  using AfterSaving = std::function<void(const Saved&)>;

  void wireControls();
  struct Waiting {
    std::function<void()> command;
    bool isSave = false; ///< and may end the selection, or close the form
  };
  void onCommandInTurn(QAbstractButton* button, std::function<void()> command);
  void onSaveInTurn(QAbstractButton* button, std::function<void()> save);
  void doInTurn(const Waiting& wished);
  void doWhatWaits();
  void dropWhatWaits();
  void setFaces();
  void showUse();
  void updateEnabled();
  void setUsable(QWidget& control, bool usable);
  void setShown(QWidget& control, bool shown);
  void leave(const QWidget& control); ///< the keyboard goes to the page
  void showPage();
  void pageEdited(); ///< it is another one now than was written
  void showHint();
  void say(const QString& words);

  // Work beside the window's thread
  void beginWork(Work work, const QString& words);
  void showWork(const QString& words);
  void endWork();
  void stop();
  /// What comes of the work is only wanted while nothing else was begun.
  template <class Do, class Then> void workBeside(Do work, Then then) {
    runBeside(
        pool_, this, std::move(work),
        [this, job = job_, then = std::move(then)](auto result) {
          if (job != job_)
            return;
          endWork();
          if (!guarded([&] { then(std::move(result)); }))
            dropWhatWaits();
          doWhatWaits();
        },
        true);
  }

  // Where the picture comes from
  [[nodiscard]] bool wantsKeptPage() const;
  void load(const std::filesystem::path& file, std::function<void(const Loaded&)> then);
  void photoLoaded(const Loaded& loaded);
  void keptPageLoaded(const Loaded& loaded);
  void findScanners();
  void showScanners(const std::vector<ScannerDevice>& devices);
  [[nodiscard]] ScanWish readWish() const;
  void rememberWish(ScanWish wish, ScanStatus outcome);
  void acquire(std::function<void(const ScannedPage&)> failed);
  void acquired(const ScannedPage& page);
  void scanFirst();
  void scanAgain();
  void showNewPage(const Picture& picture);
  void setCommands(bool usable, bool canScanAgain);

  // What is done with it
  void edit(const EditOperation& operation);
  void previewEdit(const EditOperation& operation);
  void crop();
  void carryOut(ImageEdit::Task task);
  void undo();
  void pressRegionButton(const RegionButton& button);
  void zoomIn();
  void zoomOut();
  void zoomBy(int steps);
  void zoomed();
  void originalSize();

  // What becomes of it
  void save();
  void saveSelected();
  void cutAndSaveAsNew();
  void updatePhoto();
  [[nodiscard]] bool askForSelection();
  void saveNewPhoto(const PhotoPlaces& places, std::function<void()> afterwards);
  void writeBeside(ImageEdit::Task task, const PhotoPlaces& places, AfterSaving then);
  void newPhotoWritten(const PhotoPlaces& places, const PixelRect& region, const Saved& saved);
  void photoUpdated(const std::filesystem::path& photo, const Saved& saved);
  [[nodiscard]] bool mayOverwrite(const std::filesystem::path& photo) const;
  [[nodiscard]] bool mayDropEdits() const;

  Album& album_;
  WorkPool& pool_;
  Scanner& scanner_;
  std::unique_ptr<Ui::Scan> ui;
  ImageEdit edit_;
  Work work_ = Work::None;
  bool isWorkShown_ = false;
  std::deque<Waiting> waiting_;        ///< commands given while the page was edited
  std::optional<Hourglass> hourglass_; ///< while files are written
  int job_ = 0;                        ///< what an older job brings is not wanted any more
  bool isEditUse_ = false;
  bool areCommandsUsable_ = false;
  bool canScanAgain_ = true;
  bool isUpdated_ = false;            ///< the photo has been written as it is shown
  bool isScanned_ = false;            ///< what is shown came from the scanner
  bool keepsPages_ = true;            ///< on the disk, until the form is closed
  bool isCloseWished_ = false;        ///< as soon as what is being done is done
  bool isPageGivenUp_ = false;        ///< by the user; a scanner may cancel a page by itself
  QString said_;                      ///< stands in the hint until the next thing happens
  std::optional<FileStamp> loadedAs_; ///< the state of the photo's file when it was loaded
  std::shared_ptr<KeptPage> kept_;
};

} // namespace hearthbook
