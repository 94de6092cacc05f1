#pragma once

#include "Album.h"
#include "DesignFiles.h"
#include "Form.h"
#include "Pointer.h"
#include "WorkPool.h"

#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace Ui {
class ExportDesigner;
}

namespace hearthbook {

struct PageDesign;
class DesignSurface;
class PhotoChooser;

/// Design Export: the family chooses the design of a page, writes into its boxes, and for each
/// photo box looks for a photo and marks the part of it that is to be seen.
///
/// Opened from the frame's menu. "Done" makes the page in a folder beside the exported albums and
/// offers to show it; the album is not changed.
class ExportDesigner : public Form {
  Q_OBJECT
public:
  ExportDesigner(Album& album, WorkPool& pool, DesignFiles files);
  ~ExportDesigner() override;

  /// As drawn, and larger where the screen has room.
  static QSize sizeOn(QSize screen, QSize drawn);

  /// Makes the page as it is designed now, and tells its file.
  std::filesystem::path CreatePage();

  /// True while a photo is on its way to be marked.
  [[nodiscard]] bool isWaitingForPhoto() const { return waiting_.has_value(); }

protected:
  void load() override;
  bool unloading() override;

private:
  /// What the left panel is for, and with it the rest of the form.
  enum class Role { Template, Search, Region };

  void orderTabs();
  void wireControls();
  void makeTemplateButtons();
  void showRole(Role role);
  void chooseTemplate(const PageDesign& design);

  void customizeBackground();
  void playWelcomeMusic(bool on);

  void askForPhoto(int index);
  void takePhoto(const std::string& pictureId);
  struct Arrived;
  void photoArrived(const Arrived& arrived);
  void showRegion();
  void selectRegion();
  void returnToTemplates();
  void done();
  [[nodiscard]] bool mayMakePage() const; ///< asks where the family may want something else
  void offerToView(const std::filesystem::path& page);
  [[nodiscard]] std::vector<std::string> unmade() const; ///< designs with something to lose

  Album& album_;
  WorkPool& pool_;
  DesignFiles files_;
  std::unique_ptr<Ui::ExportDesigner> ui;
  DesignSurface* surface_;
  PhotoChooser* chooser_ = nullptr;
  std::filesystem::path background_;
  std::optional<std::filesystem::path> music_;
  QString musicTip_; ///< without music; with one its name is told
  int asked_ = 0;    ///< the box for which a photo is chosen
  int request_ = 0;  ///< counts the photos asked for, so that a late one is not shown
  std::optional<Hourglass> waiting_;
  bool dressedAnew_ = false; ///< no page has been made with this background and music
};

} // namespace hearthbook
