#include "Startup.h"

#include "Command.h"
#include "Look.h"
#include "PictureCommand.h"
#include "Stage.h"
#include "Text.h"
#include "ui_Startup.h"

#include <QGridLayout>

namespace hearthbook {

namespace {

constexpr auto buildText =
    "Build or maintain your family album. Scan or choose from files and fill in the pictures "
    "date, event, place and family members.";
constexpr auto searchText =
    "Search for specific photos by Events, Places or Appearances. View results and select images "
    "to Edit, View or Add to Sub-Albums.";
constexpr auto viewText =
    "View the Master Album or the Sub-Albums you created before. Edit selected photos or Remove "
    "them from the Album.";
constexpr auto exportText =
    "Export your Sub-Albums into CD or Hard Drive. The exported sub album can also be upload to "
    "the internet as a web-site.";

} // namespace

Startup::Startup(const ApplicationFolder& folder, WorkPool& pool, PictureLoader& loader,
                 StartupCommands commands)
    : Form(toQString("Startup"), Kind::Backdrop), folder_(folder), pool_(pool), loader_(loader),
      commands_(std::move(commands)), ui(new Ui::Startup) {
  ui->setupUi(this);
  stackPictureAndCommands();
}

Startup::~Startup() = default;

// The picture covers the whole form; the commands stand before it on a stage that fits.
void Startup::stackPictureAndCommands() {
  const QSizeF drawn = ui->Image1->size() * twipsPerPixel;
  auto* stage = new Stage({drawn.width(), drawn.height()}, ui->Image1);
  stage->placeAsDrawn(ui->Image1);
  auto* stack = new QGridLayout(this);
  stack->setContentsMargins(0, 0, 0, 0);
  stack->addWidget(ui->Image2, 0, 0);
  stack->addWidget(ui->Image1, 0, 0);
  ui->Image1->raise();

  QPalette parchment = ui->Shape4->palette();
  parchment.setColor(QPalette::Window, look::paper);
  ui->Shape4->setPalette(parchment);
  ui->Shape4->setAutoFillBackground(true);
}

void Startup::load() {
  ui->Image2->showPicture(loader_, folder_.path("\\Media\\Startup.jpg"));
  wire(ui->Image3, "build", commands_.build, buildText);
  wire(ui->Image4, "search", commands_.search, searchText);
  wire(ui->Image5, "view", commands_.view, viewText);
  wire(ui->Image6, "export", commands_.exportAlbum, exportText);
  wire(ui->Image7, "exit", commands_.exit, "");
  describe("", false);
}

void Startup::wire(PictureCommand* command, const char* picture,
                   const std::function<void()>& action, const char* description) {
  const std::string media = "\\Media\\" + std::string(picture);
  command->showPictures(pool_, toQString(folder_.path(media + ".png")),
                        toQString(folder_.path(media + "2.png")));
  command->setEnabled(static_cast<bool>(action));
  command->setAccessibleDescription(toQString(description));
  if (action)
    onCommand(command, this, action);
  connect(command, &PictureCommand::pointedAt, this,
          [this, description](bool isPointedAt) { describe(description, isPointedAt); });
}

void Startup::describe(const char* description, bool isPointedAt) {
  const bool hasText = isPointedAt && *description;
  ui->Label1->setText(hasText ? toQString(description) : QString());
  ui->Shape4->setVisible(hasText);
}

void Startup::activated() {
  lower();
  Q_EMIT cameToFront();
  ui->Image3->setFocus(Qt::ActiveWindowFocusReason);
}

} // namespace hearthbook
