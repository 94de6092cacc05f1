#pragma once

#include "Album.h"
#include "AudioOwner.h"
#include "BoundControls.h"
#include "Form.h"
#include "NamePicking.h"
#include "Navigator.h"
#include "PeopleForm.h"
#include "PictureLoader.h"
#include "PrintSource.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class DBeditor;
}

namespace hearthbook {

class NameMarking;
class PeopleCommands;
class PeopleControls;
class RecordPicture;
class Stage;

/// Build Album: one photo at a time, with its year, place, event, people and description.
///
/// The family goes through the album here and writes down what it knows of each photo; new
/// photos come in through "Add From File". There is no save command: what was typed is stored
/// when the editor leaves the photo. The frame, the start screen and the result pages open
/// it, on the row of rsPhotoAlbum on which that stands.
class DBeditor : public Form, public PrintSource, private AudioOwner {
  Q_OBJECT
public:
  DBeditor(Album& album, PictureLoader& loader, WorkPool& pool, Navigator& navigator,
           HoverHelp& help);
  ~DBeditor() override;

  /// Shows the current row of rsPhotoAlbum; callers position the set first. A step that fails
  /// does not stop those behind it.
  void ComposeRecord();

  /// True while the photo's pixels are on their way.
  [[nodiscard]] bool isWaitingForPicture() const;
  /// True until it is known whether the photo has a sound.
  [[nodiscard]] bool isLookingForSound() const;

  void rowsChanged(const RowsChanged& change) override;

  [[nodiscard]] const char* printTag() const override { return "Editor"; }
  [[nodiscard]] bool isReadyToPrint() const override { return !isWaitingForPicture(); }
  [[nodiscard]] PrintPage printPage() const override;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;
  void keyPressEvent(QKeyEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void wireControls();
  void wireNames();
  [[nodiscard]] NamePicking::Keeper namesKeeper();
  void bindFields();
  void setFaces();
  void colourLabels();
  void updateEnabled();

  void showPosition();
  void showImage();
  void showAudio();
  void showNameFilter();
  void placeImagePath();
  void decodeNeighbours();
  [[nodiscard]] std::string currentId() const;
  [[nodiscard]] std::optional<PhotoNames> shownNames() const;

  void firstRecord();
  void previousRecord();
  void nextRecord();
  void lastRecord();
  void goToRecord();
  void findPhoto();
  void findNextEmpty();
  bool searchNextEmpty();
  void addFromFile();
  void scanPhotos();
  void editPhoto();
  void addAudio();
  void soundChanged(bool attached) override;
  void deleteRecord();
  void done();

  void cancelEdits();
  void endYear();

  Album& album_;
  Recordset& photos_;
  WorkPool& pool_;
  Navigator& navigator_;
  HoverHelp& help_;
  Stage* stage_;
  std::unique_ptr<Ui::DBeditor> ui;
  RecordPicture* picture_;
  std::unique_ptr<PeopleControls> people_;
  std::unique_ptr<PeopleCommands> peopleCommands_;
  NameMarking* marking_;
  std::unique_ptr<NamePicking> picking_;
  Binding binding_;
  std::string composedId_;             ///< of the row that is on the screen
  std::optional<std::string> soundOf_; ///< the photo whose sound is looked for
};

} // namespace hearthbook
