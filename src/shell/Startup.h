#pragma once

#include "ApplicationFolder.h"
#include "Form.h"

#include <functional>
#include <memory>

namespace Ui {
class Startup;
}

namespace hearthbook {

class PictureCommand;
class PictureLoader;
class WorkPool;

/// What the start screen's commands do; an empty one is there and disabled.
struct StartupCommands {
  std::function<void()> build;
  std::function<void()> search;
  std::function<void()> view;
  std::function<void()> exportAlbum;
  std::function<void()> exit;
};

/// The first thing that the family sees: a picture with five commands that stands behind all
/// other forms in the frame, as long as the program runs.
class Startup : public Form {
  Q_OBJECT
public:
  Startup(const ApplicationFolder& folder, WorkPool& pool, PictureLoader& loader,
          StartupCommands commands);
  ~Startup() override;

Q_SIGNALS:
  void cameToFront();

protected:
  void load() override;
  void activated() override;

private:
  void wire(PictureCommand* command, const char* picture, const std::function<void()>& action,
            const char* description);
  void describe(const char* description, bool isPointedAt);

  void stackPictureAndCommands();

  ApplicationFolder folder_;
  WorkPool& pool_;
  PictureLoader& loader_;
  StartupCommands commands_;
  std::unique_ptr<Ui::Startup> ui;
};

} // namespace hearthbook
