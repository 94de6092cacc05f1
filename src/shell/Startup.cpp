#include "Startup.h"

#include "AlbumPicker.h"
#include "Command.h"
#include "Look.h"
#include "PictureCommand.h"
#include "Stage.h"
#include "Text.h"
#include "ui_Startup.h"

#include <QGridLayout>
#include <QMouseEvent>

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

Startup::Startup(Album& album, WorkPool& pool, PictureLoader& loader, StartupCommands commands)
    : Form(toQString("Startup"), Kind::Backdrop), album_(album), pool_(pool), loader_(loader),
      commands_(std::move(commands)), ui(new Ui::Startup) {
  ui->setupUi(this);
  stackPictureAndCommands();
  picker_ = new AlbumPicker(*stage_, {ui->MSFlexGrid1, ui->Text1, ui->Image5},
                            album_.data.rsSubAlbums, album_.vars.chosenAlbum, this);
  connect(picker_, &AlbumPicker::picked, this, &Startup::openAlbum);
}

Startup::~Startup() = default;

// The picture covers the whole form; the commands stand before it on a stage that fits.
void Startup::stackPictureAndCommands() {
  const QSizeF drawn = ui->Image1->size() * twipsPerPixel;
  stage_ = new Stage({drawn.width(), drawn.height()}, ui->Image1);
  stage_->placeAsDrawn(ui->Image1);
  stage_->setMouseTracking(true);
  stage_->installEventFilter(this);
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
  ui->Image2->showPicture(loader_, album_.folder.path("\\Media\\Startup.jpg"));
  wireCommands();
  pointAtNothing();
}

void Startup::wireCommands() {
  std::function<void()> openPicker;
  if (commands_.viewAlbum)
    openPicker = [this] { picker_->open(); };
  wire(ui->Image3, "build", commands_.build, buildText);
  wire(ui->Image4, "search", commands_.search, searchText);
  wire(ui->Image5, "view", openPicker, viewText);
  wire(ui->Image6, "export", commands_.exportAlbum, exportText);
  wire(ui->Image7, "exit", commands_.exit, "");

  // What is said of an album stays beside the way out: it is in nobody's way there.
  for (const PictureCommand* command : {ui->Image3, ui->Image4, ui->Image6, ui->Image7})
    connect(command, &PictureCommand::reached, picker_, &AlbumPicker::hideList);
  for (const PictureCommand* command : {ui->Image3, ui->Image4, ui->Image6})
    connect(command, &PictureCommand::reached, picker_, &AlbumPicker::hideDescription);
}

void Startup::wire(PictureCommand* command, const char* picture,
                   const std::function<void()>& action, const char* description) {
  const std::string media = "\\Media\\" + std::string(picture);
  command->showPictures(pool_, toQString(album_.folder.path(media + ".png")),
                        toQString(album_.folder.path(media + "2.png")));
  command->setEnabled(static_cast<bool>(action));
  command->setAccessibleDescription(toQString(description));
  if (action)
    onCommand(command, this, action);
  connect(command, &PictureCommand::reached, this, [this, command] { pointAt(command); });
}

std::array<PictureCommand*, 5> Startup::pictureCommands() const {
  return {ui->Image3, ui->Image4, ui->Image5, ui->Image6, ui->Image7};
}

void Startup::pointAt(const PictureCommand* command) {
  for (PictureCommand* each : pictureCommands())
    each->setPointedAt(each == command);
  describe(command && command->isPointedAt() ? command->accessibleDescription() : QString());
}

void Startup::describe(const QString& description) {
  ui->Label1->setText(description);
  ui->Shape4->setVisible(!description.isEmpty());
}

void Startup::openAlbum(int albumId, const QString& name) {
  commands_.viewAlbum(albumId, name, [this] {
    picker_->hideList();
    picker_->hideDescription();
  });
}

void Startup::activated() {
  lower();
  Q_EMIT cameToFront();
  ui->Image3->setFocus(Qt::ActiveWindowFocusReason);
}

bool Startup::event(QEvent* event) {
  if (event->type() == QEvent::Leave)
    pointAtNothing();
  return Form::event(event);
}

// The stage lies over the picture: where the mouse is over nothing on the stage, it is over that.
bool Startup::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::MouseMove &&
      !stage_->childAt(static_cast<QMouseEvent*>(event)->position().toPoint()))
    pointAtNothing();
  return Form::eventFilter(watched, event);
}

} // namespace hearthbook
