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
  ui->detailBox->setCurrentIndex(ui->detailBox->findData(scanner_.lastWish().dotsPerInch));
  setFaces();
  wireControls();
  resize(sizeOnScreen(screen()->availableSize(), drawn));
}

Scan::~Scan() = default;

void Scan::wireControls() {
  // What becomes of it
  onSaveInTurn(ui->Command1, [this] { save(); });            // "Save Selected", "Update Photo"
  onCommand(ui->Command2, this, &Scan::scanAgain);           // "Scan Again"
  onSaveInTurn(ui->Command7, [this] { cutAndSaveAsNew(); }); // "Cut And Save As New"
  // Put right
  onCommandInTurn(ui->Command10, [this] { edit(edits::autoLevels); }); // "Auto Levels"
  onCommandInTurn(ui->Command11, [this] { edit(edits::brighter); });   // "Brighter"
  onCommandInTurn(ui->Command12, [this] { edit(edits::darken); });     // "Darken"
  onCommandInTurn(ui->Command13, [this] { edit(edits::soften); });     // "Soften"
  onCommandInTurn(ui->Command14, [this] { edit(edits::sharpen); });    // "Sharpen"
  onCommandInTurn(ui->Command3, [this] { edit(edits::flip); });        // "Flip"
  onCommandInTurn(ui->Command4, [this] { edit(edits::rotateRight); }); // "Rotate Right"
  onCommandInTurn(ui->Command5, [this] { edit(edits::rotateLeft); });  // "Rotate Left"
  onCommandInTurn(ui->Command6, [this] { crop(); });                   // "Crop To Selection"
  onCommandInTurn(ui->undoButton, [this] { undo(); });
  // Looked at
  onCommandInTurn(ui->Command15, [this] { zoomIn(); }); // "(+)  Zoom In"
  // Where + needs the Shift key, it is meant without it.
  connect(new QShortcut(QKeySequence(Qt::CTRL | Qt::Key_Equal), this), &QShortcut::activated,
          ui->Command15, &QPushButton::click);
  onCommandInTurn(ui->Command16, [this] { zoomOut(); });     // "(--)  Zoom Out"
  onCommandInTurn(ui->Command9, [this] { originalSize(); }); // "Original Size"
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
  const bool isSaveWaiting = !waiting_.empty() && waiting_.back().isSave;
  const bool isEditing = work_ == Work::Editing && !isSaveWaiting;
  const bool takesCommands = !isBusy() || isEditing;
  for (QPushButton* button : findChildren<QPushButton*>())
    if (button != ui->Command2 && button->objectName().contains(QStringLiteral("Command")))
      setUsable(*button, areCommandsUsable_ && takesCommands);
  setUsable(*ui->Command2, canScanAgain_ && !isBusy());
  setUsable(*ui->undoButton, areCommandsUsable_ && takesCommands && (edit_.canUndo() || isEditing));
  ui->NotX1->setUsable(areCommandsUsable_ && !isBusy());
  ui->ProgressBar1->setVisible(isWorkShown_);
  setShown(*ui->stopButton, isWorkShown_ && work_ != Work::Saving);
}

void Scan::setUsable(QWidget& control, bool usable) {
  if (!usable)
    leave(control);
  control.setEnabled(usable);
}

void Scan::setShown(QWidget& control, bool shown) {
  if (!shown)
    leave(control);
  control.setVisible(shown);
}

/// The toolkit would hand the keyboard on to Close, where the next key would end it all.
void Scan::leave(const QWidget& control) {
  if (focusWidget() == &control)
    ui->NotX1->setFocus();
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
  said_.clear();
  edit_.undo();
  pageEdited();
}

void Scan::pressRegionButton(const RegionButton& button) {
  said_.clear();
  edit_.press(button);
  pageEdited();
}

void Scan::zoomIn() {
  if (edit_.view().zoomIn())
    zoomed();
}

void Scan::zoomOut() {
  if (edit_.view().zoomOut())
    zoomed();
}

void Scan::zoomed() {
  said_.clear();
  showPage();
}

void Scan::zoomBy(int steps) {
  for (int step = 0; step < std::abs(steps); ++step)
    steps > 0 ? zoomIn() : zoomOut();
}

void Scan::originalSize() {
  edit_.view().originalSize();
  zoomed();
}

} // namespace hearthbook
