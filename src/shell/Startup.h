#pragma once

#include "Album.h"
#include "Form.h"

#include <array>
#include <functional>
#include <memory>

namespace Ui {
class Startup;
}

namespace hearthbook {

class AlbumPicker;
class PictureCommand;
class PictureLoader;
class Stage;
class WorkPool;

/// What the start screen's commands do; an empty one is there and disabled.
struct StartupCommands {
  std::function<void()> build;
  std::function<void()> search;
  /// Opens an album. `aboutToShow` is called where it has photos, before its pages appear.
  std::function<void(int albumId, const QString& name, const std::function<void()>& aboutToShow)>
      viewAlbum;
  std::function<void()> exportAlbum;
  std::function<void()> exit;
};

/// The first thing that the family sees: a picture with five commands that stands behind all
/// other forms in the frame, as long as the program runs.
class Startup : public Form {
  Q_OBJECT
public:
  Startup(Album& album, WorkPool& pool, PictureLoader& loader, StartupCommands commands);
  ~Startup() override;

Q_SIGNALS:
  void cameToFront();

protected:
  void load() override;
  void activated() override;
  bool event(QEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

private:
  void stackPictureAndCommands();
  void wireCommands();
  void wire(PictureCommand* command, const char* picture, const std::function<void()>& action,
            const char* description);

  void pointAt(const PictureCommand* command);
  void pointAtNothing() { pointAt(nullptr); }
  void describe(const QString& description);
  void openAlbum(int albumId, const QString& name);
  [[nodiscard]] std::array<PictureCommand*, 5> pictureCommands() const;

  Album& album_;
  WorkPool& pool_;
  PictureLoader& loader_;
  StartupCommands commands_;
  std::unique_ptr<Ui::Startup> ui;
  Stage* stage_ = nullptr;
  AlbumPicker* picker_ = nullptr;
};

} // namespace hearthbook
