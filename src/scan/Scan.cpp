#include "Scan.h"

#include "ButtonFace.h"
#include "Command.h"
#include "MsgBox.h"
#include "PhotoSaving.h"
#include "Stage.h"
#include "Text.h"
#include "ui_Scan.h"

#include <QLabel>
#include <QPointer>
#include <QScreen>
#include <QShortcut>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

namespace hearthbook {

namespace {

struct Detail {
  const char* words;
  int dotsPerInch;
};
constexpr std::array details{
    Detail{"150 dots per inch: to look at", 150}, Detail{"300 dots per inch: prints", 300},
    Detail{"600 dots per inch: small prints", 600}, Detail{"1200 dots per inch: slides", 1200}};
constexpr int usualDetail = 1;

constexpr const char* drawHint = "Draw a rectangle around a photo with the mouse. Its handles, and "
                                 "the arrow keys, adjust it.";
constexpr const char* editHint = "What you do now concerns the whole photo. Draw a rectangle to "
                                 "change only a part of it.";
constexpr const char* outOfSight =
    "It is zoomed out of sight: Zoom In or Original Size brings it back.";

QSize sizeOnScreen(QSize screen, QSize drawn) {
  return drawn.scaled(screen * 19 / 20, Qt::KeepAspectRatio);
}

} // namespace

Scan::Scan(Album& album, WorkPool& pool, Scanner& scanner)
    : Form(QStringLiteral("Scan"), Kind::Dialog), album_(album), pool_(pool), scanner_(scanner),
      ui(std::make_unique<Ui::Scan>()), kept_(std::make_shared<KeptPage>(album.folder)) {
  ui->setupUi(this);
  const QSize drawn = size();
  auto* stage = new Stage({static_cast<double>(drawn.width()) * twipsPerPixel,
                           static_cast<double>(drawn.height()) * twipsPerPixel},
                          this);
  stage->placeAsDrawn(this);
  ui->viewBox->setParts({ui->ImgX1, ui->NotX1, ui->acrossBar, ui->downBar}, edit_, pool_);
  for (const Detail& detail : details)
    ui->detailBox->addItem(toQString(detail.words), detail.dotsPerInch);
  ui->detailBox->setCurrentIndex(usualDetail);
  setFaces();
  wireControls();
  resize(sizeOnScreen(screen()->availableSize(), drawn));
}

Scan::~Scan() = default;

void Scan::wireControls() {
  // What becomes of it
  onCommand(ui->Command1, this, &Scan::save);            // "Save Selected", "Update Photo"
  onCommand(ui->Command2, this, &Scan::scanAgain);       // "Scan Again"
  onCommand(ui->Command7, this, &Scan::cutAndSaveAsNew); // "Cut And Save As New"
  // Put right
  onCommand(ui->Command10, this, [this] { edit(edits::autoLevels); }); // "Auto Levels"
  onCommand(ui->Command11, this, [this] { edit(edits::brighter); });   // "Brighter"
  onCommand(ui->Command12, this, [this] { edit(edits::darken); });     // "Darken"
  onCommand(ui->Command13, this, [this] { edit(edits::soften); });     // "Soften"
  onCommand(ui->Command14, this, [this] { edit(edits::sharpen); });    // "Sharpen"
  onCommand(ui->Command3, this, [this] { edit(edits::flip); });        // "Flip"
  onCommand(ui->Command4, this, [this] { edit(edits::rotateRight); }); // "Rotate Right"
  onCommand(ui->Command5, this, [this] { edit(edits::rotateLeft); });  // "Rotate Left"
  onCommand(ui->Command6, this, &Scan::crop);                          // "Crop To Selection"
  onCommand(ui->undoButton, this, &Scan::undo);
  // Looked at
  onCommand(ui->Command15, this, &Scan::zoomIn); // "(+)  Zoom In"
  // Where + needs the Shift key, it is meant without it.
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Equal), this), &QShortcut::activated,
          ui->Command15, &QPushButton::click);
  onCommand(ui->Command16, this, &Scan::zoomOut);     // "(--)  Zoom Out"
  onCommand(ui->Command9, this, &Scan::originalSize); // "Original Size"
  onCommand(ui->stopButton, this, &Scan::stop);
  onCommand(ui->BtnClose, this, &Scan::Unload); // "Close"
  // The page
  connect(ui->NotX1, &MarkLayer::selecting, this, [this] { say({}); });
  connect(ui->NotX1, &MarkLayer::buttonPressed, this, &Scan::pressRegionButton);
  connect(ui->NotX1, &MarkLayer::zoomAsked, this,
          [this](int steps) { runCommand([&] { zoomBy(steps); }); });
}

void Scan::setFaces() {
  const std::filesystem::path media = album_.folder.path("\\Media");
  setFace(Face::Grn, media, {ui->Command1, ui->Command2, ui->Command7});
  setFace(Face::Org, media,
          {ui->Command3, ui->Command4, ui->Command5, ui->Command6, ui->Command9, ui->Command10,
           ui->Command11, ui->Command12, ui->Command13, ui->Command14, ui->Command15,
           ui->Command16});
}

void Scan::begin() {
  isEditUse_ = Tag == QStringLiteral("edit");
  const bool isPageLeft = fileExists(kept_->file()); // by a crash, and nobody has seen it again
  keepsPages_ = !isEditUse_ || !isPageLeft;
  showUse();
  if (isEditUse_) {
    loadedAs_ = stampOf(album_.vars.ImagePath);
    return load(album_.vars.ImagePath, [this](const Loaded& loaded) { photoLoaded(loaded); });
  }
  if (wantsKeptPage())
    load(kept_->file(), [this](const Loaded& loaded) { keptPageLoaded(loaded); });
  else
    scanFirst();
  findScanners();
}

void Scan::showUse() {
  ui->Command1->setText(isEditUse_ ? QStringLiteral("Update Photo")
                                   : QStringLiteral("Save Selected"));
  ui->Command1->setToolTip(
      isEditUse_ ? QStringLiteral("Writes the photo as it is now; the old one goes to the trash "
                                  "(Ctrl+S)")
                 : QStringLiteral("Adds what is selected to the album as a photo of its own "
                                  "(Ctrl+S)"));
  ui->Command1->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S)); // a new text has taken it away
  ui->Command7->setVisible(isEditUse_);
  for (QWidget* choice : std::initializer_list<QWidget*>{ui->scannerLabel, ui->scannerBox,
                                                         ui->detailLabel, ui->detailBox})
    choice->setVisible(!isEditUse_);
  updateEnabled();
}

void Scan::updateEnabled() {
  for (QPushButton* button : findChildren<QPushButton*>())
    if (button->objectName().contains(QStringLiteral("Command")))
      button->setEnabled(areCommandsUsable_ && !isBusy());
  ui->Command2->setEnabled(canScanAgain_ && !isBusy());
  ui->undoButton->setEnabled(areCommandsUsable_ && edit_.canUndo() && !isBusy());
  ui->NotX1->setUsable(areCommandsUsable_ && !isBusy());
  ui->ProgressBar1->setVisible(isBusy());
  ui->stopButton->setVisible(isBusy() && work_ != Work::Saving);
}

void Scan::setCommands(bool usable, bool canScanAgain) {
  areCommandsUsable_ = usable;
  canScanAgain_ = canScanAgain;
  updateEnabled();
}

void Scan::showPage() {
  ui->viewBox->showChanged();
  ui->zoomLabel->setText(edit_.isEmpty()
                             ? QString()
                             : QStringLiteral("%1 %").arg(qRound(edit_.view().factor() * 100)));
  updateEnabled();
  showHint();
}

void Scan::pageEdited() {
  isUpdated_ = false;
  showPage();
}

void Scan::say(const QString& words) {
  said_ = words;
  showHint();
}

void Scan::showHint() {
  if (!said_.isEmpty())
    ui->hint->setText(said_);
  else if (edit_.view().isNothingInSight())
    ui->hint->setText(toQString(outOfSight));
  else if (!areCommandsUsable_)
    ui->hint->clear();
  else if (edit_.selection().isThere())
    ui->hint->setText(QStringLiteral("Selected: %1 by %2 pixels")
                          .arg(edit_.selected().width)
                          .arg(edit_.selected().height));
  else
    ui->hint->setText(toQString(isEditUse_ ? editHint : drawHint));
}

bool Scan::isSharp() const { return ui->ImgX1->isSharp(); }

// ---- work beside the window's thread

void Scan::beginWork(Work work, const QString& words) {
  work_ = work;
  ++job_;
  if (work == Work::Saving)
    hourglass_.emplace();
  ui->ProgressBar1->setRange(0, 0);
  updateEnabled();
  say(words);
}

void Scan::endWork() {
  work_ = Work::None;
  hourglass_.reset();
  said_.clear();
  showPage();
}

void Scan::stop() {
  if (work_ == Work::Scanning) {
    isPageGivenUp_ = true;
    return scanner_.cancel(); // it answers at once
  }
  const bool wasLoading = work_ == Work::Loading;
  ++job_;
  endWork();
  if (wasLoading)
    say(QStringLiteral("It was not opened."));
}

// ---- what is done with it

void Scan::edit(const EditOperation& operation) {
  carryOut(edit_.edit(operation));
  previewEdit(operation);
}

/// A small copy is done within a moment; it is shown until the picture itself is.
void Scan::previewEdit(const EditOperation& operation) {
  const Picture small = ui->ImgX1->smallPage();
  if (small.isNull() || !operation.keepsPlaces() || !edit_.selected().isEmpty())
    return;
  const double scale = static_cast<double>(small.width()) / edit_.picture().width();
  runBeside(
      pool_, this,
      [small, operation, scale]() -> Picture {
        try {
          return applied(operation, small, nullptr, scale);
        } catch (const std::exception&) { // the picture itself will tell
          return {};
        }
      },
      [this, job = job_](const Picture& preview) {
        if (job == job_ && work_ == Work::Editing)
          ui->ImgX1->showPreview(preview);
      },
      true);
}

void Scan::crop() {
  if (edit_.selected().isEmpty())
    return say(QStringLiteral("Draw a rectangle around what is to stay."));
  carryOut(edit_.crop());
}

void Scan::carryOut(ImageEdit::Task task) {
  struct Result {
    ImageEdit::Outcome outcome;
    std::exception_ptr failure;
  };
  beginWork(Work::Editing, QStringLiteral("One moment ..."));
  workBeside(
      [task = std::move(task), pool = &pool_]() -> Result {
        try {
          return {ImageEdit::carryOut(task, pool), nullptr};
        } catch (...) {
          return {{}, std::current_exception()};
        }
      },
      [this](Result result) {
        if (result.failure)
          std::rethrow_exception(result.failure);
        edit_.accept(std::move(result.outcome));
        pageEdited();
      });
}

void Scan::undo() {
  edit_.undo();
  pageEdited();
}

void Scan::pressRegionButton(const RegionButton& button) {
  edit_.press(button);
  pageEdited();
}

void Scan::zoomIn() {
  if (edit_.view().zoomIn())
    showPage();
}

void Scan::zoomOut() {
  if (edit_.view().zoomOut())
    showPage();
}

void Scan::zoomBy(int steps) {
  for (int step = 0; step < std::abs(steps); ++step)
    steps > 0 ? zoomIn() : zoomOut();
}

void Scan::originalSize() {
  edit_.view().originalSize();
  showPage();
}

} // namespace hearthbook
