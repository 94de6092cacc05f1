#pragma once

#include "Album.h"
#include "AudioOwner.h"
#include "BoundControls.h"
#include "Form.h"
#include "Navigator.h"
#include "PhotoOrder.h"
#include "PictureLoader.h"

#include <memory>
#include <optional>
#include <string>

namespace Ui {
class AddSubAlbum;
}

namespace hearthbook {

class ModalHelp;

/// Sub-Album Editor: makes sub-albums, names and describes them, and puts their photos in order.
///
/// The album pages open it on the sub-album that they show; the result pages and Build Album
/// bring photos along, which go into the sub-album that one chooses here. There is no save
/// command: the order is stored when one goes on to another sub-album, and at the end.
class AddSubAlbum : public Form, private AudioOwner {
  Q_OBJECT
public:
  AddSubAlbum(Album& album, PictureLoader& loader, WorkPool& pool, Navigator& navigator);
  ~AddSubAlbum() override;

  // Its three tasks; the opener gives one before it is shown.

  void workOnAlbum(const QString& albumId); ///< that the album pages show
  void takeResult();                        ///< the selected photos of rsSearch, or all
  void takeEditedPhoto();                   ///< the one on which rsPhotoAlbum stands

  /// Takes the photo out over which the menu was opened.
  void removePhoto();

  [[nodiscard]] bool isWaitingForPictures() const;

protected:
  void load() override;
  void activated() override;
  bool unloading() override;

private:
  void wireControls();
  void wireStrip();
  void setFaces();
  void showOnPaper();

  void soundChanged(bool attached) override;
  void showViewedName();
  void showTask();
  void showAudio();
  void showProperties(bool shown);
  void showCount();
  void showFirstChoice();
  void refillList();
  [[nodiscard]] std::string chosenId() const;
  [[nodiscard]] QString chosenName() const;

  void chooseAlbum();
  void openAlbum(const std::string& albumId);
  void openViewedAlbum();
  void setThumbs();
  void clearStrip();
  void UpdateAlbum();
  void createAlbum();
  void deleteAlbum();
  void addAudio();
  bool endName();
  void arrange();
  void movePhoto(std::size_t from, std::size_t to);
  void popUpMenu(std::size_t position, QPoint globalPosition);
  void removeAt(std::size_t position);

  void addPhotos();
  void addEditedPhoto();
  void addResult();
  void showAdded();

  Album& album_;
  Recordset& albums_;
  Recordset& members_;
  Navigator& navigator_;
  std::unique_ptr<Ui::AddSubAlbum> ui;
  Binding binding_;
  ModalHelp* modalHelp_ = nullptr;
  PhotoOrder order_;
  QString viewedId_; ///< of the sub-album that the album pages show
};

/// Asks for the name of a new sub-album until it fits; nothing where the user gives up.
std::optional<std::string> askSubAlbumName();

// How the forms that it serves open it.

void editSubAlbum(const QString& albumId);
void addResultToSubAlbum();
void addEditedPhotoToSubAlbum();

} // namespace hearthbook
