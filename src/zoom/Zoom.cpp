#include "Zoom.h"

#include "AudioFiles.h"
#include "ButtonFace.h"
#include "ClipPlayer.h"
#include "Command.h"
#include "CommentsBox.h"
#include "FactsPanel.h"
#include "FilesBeside.h"
#include "Forms.h"
#include "FullScreen.h"
#include "HelpKeys.h"
#include "MsgBox.h"
#include "NamesCords.h"
#include "NamesGrid.h"
#include "PassOver.h"
#include "PhotoFiles.h"
#include "Pointer.h"
#include "ScreenAwake.h"
#include "Stage.h"
#include "Text.h"
#include "Viewer.h"
#include "ZoomArea.h"
#include "ZoomKeys.h"
#include "ZoomMoves.h"
#include "ZoomPicture.h"
#include "ui_Zoom.h"

#include <QPixmap>
#include <QPointer>
#include <QScopeGuard>
#include <QTimer>

#include <optional>

namespace hearthbook {

namespace {

constexpr TwipsRect infoBox{120, 120, 2865, 5355};
constexpr double namesHeight = 3500; // seven rows of 500 twips
constexpr int namesInView = 7;
constexpr TwipsSize descriptionSize{2865, 3675};
constexpr int descriptionSteps = 245;
constexpr double descriptionStep = 15;

FactsPanel::Design factsDesign() {
  return {{infoBox.width, infoBox.height},
          namesHeight,
          namesInView,
          0,
          QStringLiteral("View Album*Names List")};
}

/// The sound behind the album pages, where they are open now.
BackgroundSound* albumsSound() {
  const auto* pages = Forms::loaded<Viewer>();
  return pages ? &pages->background() : nullptr;
}

/// What kept the step from being done.
template <class Step> std::optional<QString> failureOf(Step step) {
  try {
    step();
    return std::nullopt;
  } catch (const std::exception& failure) {
    return toQString(failure.what());
  }
}

void tellNoMoreRecords(const char* title) {
  MsgBox(QStringLiteral("No More Records"), toQString(title));
}

} // namespace

Zoom::Zoom(Album& album, PictureLoader& loader, WorkPool& pool, HoverHelp& help)
    : Form(QStringLiteral("Zoom"), Kind::Work), album_(album), help_(help), loader_(loader),
      pool_(pool), stage_(new Stage(workFormSize, this)), ui(std::make_unique<Ui::Zoom>()),
      clip_(new ClipPlayer(this)), Timer1_(new QTimer(this)),
      awake_(std::make_unique<ScreenAwake>("Slide show")) {
  ui->setupUi(this);
  stage_->placeAsDrawn(this);
  makePanels();
  area_ = new ZoomArea({ui->Picture2, ui->Image1, ui->HScroll1, ui->VScroll1, ui->Picture1,
                        ui->Command4, ui->Command5},
                       loader, pool, notFoundPicture(album_), this);
  Timer1_->setObjectName(QStringLiteral("Timer1"));
  Timer1_->setTimerType(Qt::PreciseTimer);
  new HelpKeys(this, [this](const QString& key) { help_.show(key); });
  wireControls();
  wireKeys();
  orderTabs();
}

Zoom::~Zoom() = default;

void Zoom::makePanels() {
  ui->Picture2->placeDrawn();
  facts_ = new FactsPanel(factsDesign(), stage_);
  stage_->place(facts_, infoBox);
  comments_ = new CommentsBox(descriptionSize, QStringLiteral("Label3"), *stage_);
}

void Zoom::wireControls() {
  // Walking through the photos
  onCommand(ui->Command6, this, &Zoom::firstPhoto);    // "|<<"
  onCommand(ui->Command3, this, &Zoom::previousPhoto); // "<<"
  onCommand(ui->Command2, this, &Zoom::nextPhoto);     // ">>"
  onCommand(ui->Command7, this, &Zoom::lastPhoto);     // ">>|"
  // The photo
  onCommand(ui->Command4, this, &Zoom::magnify);    // "Zoom +"
  onCommand(ui->Command5, this, &Zoom::reduce);     // "Zoom -"
  onCommand(ui->Command8, this, &Zoom::fullScreen); // "Full [  ]"
  connect(area_, &ZoomArea::broken, this, &Zoom::tellBroken);
  // The slide show
  onCommand(ui->Check1, this, &Zoom::slide); // "Slide"
  connect(ui->VScroll2, &QScrollBar::valueChanged, this, &Zoom::setSeconds);
  connect(Timer1_, &QTimer::timeout, this, &Zoom::showNextSlide);
  // What is known of the photo
  connect(&facts_->names(), &NamesGrid::chosen, this, asCommand([this] { pointAtPerson(); }));
  connect(facts_, &FactsPanel::descriptionAsked, this, asCommand([this] { readDescription(); }));
  connect(facts_, &FactsPanel::soundAsked, this, asCommand([this] { playSound(); }));
  connect(clip_, &ClipPlayer::failed, this,
          [](const QString& why) { MsgBox(why, QStringLiteral("Sound"), MsgIcon::Exclamation); });
  onCommand(ui->Command1, this, &Zoom::done); // "Done"
}

void Zoom::wireKeys() {
  auto* keys = new ZoomKeys(*this);
  keys->add({Qt::Key_Left}, [this] { moveAcross(-1); });
  keys->add({Qt::Key_Right}, [this] { moveAcross(1); });
  keys->add({Qt::Key_Up}, [this] { moveDown(-1); });
  keys->add({Qt::Key_Down}, [this] { moveDown(1); });
  keys->add({Qt::Key_PageUp}, [this] { previousPhoto(); });
  keys->add({Qt::Key_PageDown}, [this] { nextPhoto(); });
  keys->add({Qt::Key_Home}, [this] { firstPhoto(); });
  keys->add({Qt::Key_End}, [this] { lastPhoto(); });
  keys->add({Qt::Key_Plus, Qt::Key_Equal, Qt::CTRL | Qt::Key_Plus, Qt::CTRL | Qt::Key_Equal},
            [this] { magnify(); });
  keys->add({Qt::Key_Minus, Qt::CTRL | Qt::Key_Minus}, [this] { reduce(); });
  keys->add({Qt::Key_Escape},
            [this] { comments_->isVisible() ? comments_->putAway() : clip_->end(); });
  for (QWidget* lines : std::initializer_list<QWidget*>{&facts_->names(), comments_, ui->VScroll2})
    keys->leaveUpAndDownTo(*lines);
}

void Zoom::orderTabs() {
  QWidget* last = ui->Image1;
  const auto facts = facts_->tabOrder();
  const auto then = [&last](QWidget* next) {
    setTabOrder(last, next);
    last = next;
  };
  for (QWidget* next : facts)
    then(next);
  for (QWidget* next : std::initializer_list<QWidget*>{
           ui->Command6, ui->Command3, ui->Command2, ui->Command7, ui->Check1, ui->VScroll2,
           ui->HScroll1, ui->VScroll1, ui->Command4, ui->Command5, ui->Command8, ui->Command1})
    then(next);
}

void Zoom::load() {
  setFaces();
  ui->background->showPicture(loader_, album_.folder.path("\\Media\\Startup.jpg"));
  ui->Image1->setFocus(Qt::MouseFocusReason); // the arrow keys work from the beginning
}

void Zoom::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Grn, media, {ui->Command4, ui->Command5});
  setFace(Face::Gry, media, {ui->Command2, ui->Command3, ui->Command6, ui->Command7});
  setFace(Face::Org, media, {ui->Command8});
  setFace(Face::Red, media, {ui->Command1});
  const QPixmap arrow(toQString(media / "Marker.png"));
  area_->setArrow(arrow);
  facts_->setArrow(arrow);
}

void Zoom::ComposeZoomView() {
  if (const auto why = failureOf([this] { compose(); }))
    tellFailure(*why);
}

void Zoom::compose() {
  const Hourglass hourglass;
  area_->hideArrow();
  comments_->putAway();
  if (photos().atEOF())
    return composeNothing();
  shownId_ = photos().Collect("PictureID").toText();
  resolveImage(album_, shownId_);
  area_->show(album_.vars.ImagePicture.file);
  composeFacts();
  ui->Label1->setText(toQString(positionLabel(photos())));
  moveBehindShown(photos());
  // The photo comes first; its neighbours can wait for the next idle moment.
  QTimer::singleShot(0, this, &Zoom::decodeNeighbours);
}

void Zoom::composeNothing() {
  area_->clear();
  facts_->hide();
}

void Zoom::composeFacts() {
  const PhotoFacts facts = photoFacts(album_.data, photos(), namesInView);
  markers_ = facts.markers;
  album_.vars.PageMarkers[0] = facts.markers;
  facts_->showFacts(facts);
  facts_->lookForSound(pool_, album_, shownId_);
  facts_->show();
  ui->Image1->setAccessibleDescription(facts_->summary());
}

void Zoom::decodeNeighbours() {
  passOver([&] {
    findFilesBeside(pool_, this, album_, slideNeighbourIds(photos()), imagePath,
                    [this](const auto& files) { decodeAhead(files); });
  });
}

void Zoom::decodeAhead(const std::vector<std::filesystem::path>& files) {
  if (auto* full = Forms::loaded<FullScreen>())
    full->decodeAhead(files);
  else
    area_->decodeAhead(files);
}

bool Zoom::isLookingForSound() const { return facts_->isLookingForSound(); }

bool Zoom::isWaitingForPicture() const {
  return area_->picture().isWaiting() || area_->picture().isSharpening();
}

PrintPage Zoom::printPage() const {
  SinglePrint page;
  page.from = SinglePrint::From::Zoom;
  const auto& file = area_->picture().shown();
  if (!file)
    return page;
  page.photo = {area_->steps().photo, *file, ui->Image1->picture()};
  page.heading = facts_->heading();
  page.names = facts_->names().shownNames();
  return page;
}

void Zoom::nextPhoto() {
  if (canGoNext(photos()))
    ComposeZoomView();
  else
    tellNoMoreRecords("Next Photo");
}

void Zoom::previousPhoto() {
  if (goPrevious(photos()))
    ComposeZoomView();
  else
    tellNoMoreRecords("Previous Photo");
}

void Zoom::firstPhoto() {
  photos().MoveFirst();
  ComposeZoomView();
}

void Zoom::lastPhoto() {
  photos().MoveLast();
  ComposeZoomView();
}

void Zoom::magnify() { area_->magnify(); }

void Zoom::reduce() { area_->reduce(); }

/// A photo that is wider than the area moves; else one walks on.
void Zoom::moveAcross(int direction) {
  if (area_->scrollAcross(direction))
    return;
  if (direction > 0)
    nextPhoto();
  else
    previousPhoto();
}

void Zoom::moveDown(int direction) { area_->scrollDown(direction); }

void Zoom::setSeconds(int seconds) {
  show_.setSeconds(seconds);
  ui->Label2->setText(toQString(show_.label()));
  Timer1_->setInterval(show_.interval());
}

void Zoom::slide(bool on) {
  show_.runs = on;
  ui->Check1->setText(toQString(show_.caption()));
  awake_->keep(on);
  if (on)
    Timer1_->start(show_.interval());
  else
    Timer1_->stop();
}

/// A photo that takes longer than a tick is waited for, or the show would go by unseen.
bool Zoom::isShowingLate() const {
  const auto* full = Forms::loaded<FullScreen>();
  return full ? full->picture().isWaiting() : area_->picture().isWaiting();
}

/// A message is read first, and what is on its way seen.
void Zoom::showNextSlide() {
  if (isTelling_ || isShowingLate())
    return;
  const auto why = failureOf([this] {
    if (photos().RecordCount() == 0)
      flipShow(); // nothing is left to be shown
    else if (goNextAround(photos()))
      showSlide();
  });
  if (why)
    tellFailure(*why);
}

void Zoom::showSlide() {
  if (ui->Command8->isChecked())
    Forms::get<FullScreen>().showNext();
  else
    ComposeZoomView();
}

/// Why stays on the photo.
void Zoom::tellFailure(const QString& why) {
  if (auto* full = Forms::loaded<FullScreen>()) {
    full->tell(why);
  } else {
    area_->tell(why);
    ui->Image1->setAccessibleDescription(why);
  }
  tellTryAgain();
}

/// Once, however often it happens before it was read.
void Zoom::tellTryAgain() {
  if (isTelling_)
    return;
  const QPointer<Zoom> self(this);
  isTelling_ = true;
  const auto told = qScopeGuard([self] {
    if (self)
      self->isTelling_ = false;
  });
  MsgBox(QStringLiteral("Please try again!"), QStringLiteral("Slide"));
}

/// The full screen, which has asked for the same photo, tells it itself.
void Zoom::tellBroken(const QString& why) {
  ui->Image1->setAccessibleDescription(why);
  if (!Forms::loaded<FullScreen>())
    tellTryAgain();
}

void Zoom::fullScreen(bool on) {
  if (!on)
    return;
  auto& full = Forms::get<FullScreen>();
  connect(&full, &FullScreen::showFlipped, this, &Zoom::flipShow, Qt::UniqueConnection);
  connect(&full, &FullScreen::left, this, &Zoom::leaveFullScreen, Qt::UniqueConnection);
  connect(&full, &FullScreen::broken, this, &Zoom::tellTryAgain, Qt::UniqueConnection);
  connect(&full, &FullScreen::shownAnother, this, &Zoom::decodeNeighbours, Qt::UniqueConnection);
  full.begin(area_->picture());
  decodeNeighbours();
  full.ShowModal();
}

void Zoom::flipShow() {
  ui->Check1->setChecked(!ui->Check1->isChecked());
  slide(ui->Check1->isChecked());
}

void Zoom::leaveFullScreen() {
  ui->Command8->setChecked(false);
  passOver([&] { goBackToShown(photos()); });
  ComposeZoomView();
}

void Zoom::pointAtPerson() {
  if (!markers_)
    return;
  const auto person = facts_->names().chosenPerson();
  const auto marker = person ? placeOfMarker(*markers_, *person) : std::nullopt;
  if (marker)
    area_->pointAt(*marker);
  else
    area_->hideArrow();
}

void Zoom::readDescription() {
  const auto photo = photos().Clone(); // the place of the view stays
  photo->Find("PictureID = '" + shownId_ + "'", Recordset::Start::First);
  if (photo->atEOF())
    return;
  comments_->slideUp(
      toQString(photo->Collect("Description").toText()),
      {infoBox.left, infoBox.top + infoBox.height, descriptionSteps, descriptionStep});
}

void Zoom::playSound() {
  if (const auto sound = attachedAudio(album_, photoAudioName(shownId_)))
    clip_->play(*sound, albumsSound());
}

void Zoom::rowsChanged(const RowsChanged&) {
  if (readAgain(photos(), shownId_))
    ComposeZoomView();
  else
    Unload();
}

void Zoom::done() { Unload(); }

void Zoom::activated() { help_.workFormActive(QStringLiteral("Zoom")); }

bool Zoom::unloading() {
  Timer1_->stop();
  awake_->keep(false);
  if (auto* full = Forms::loaded<FullScreen>()) {
    disconnect(full, nullptr, this, nullptr);
    full->Unload();
  }
  clip_->end();
  return true;
}

} // namespace hearthbook
