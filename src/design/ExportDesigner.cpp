#include "ExportDesigner.h"

#include "Awaited.h"
#include "Beside.h"
#include "Command.h"
#include "Decode.h"
#include "DesignSurface.h"
#include "DesignedPage.h"
#include "HyperlinkControl.h"
#include "MsgBox.h"
#include "PageDesign.h"
#include "PassOver.h"
#include "PhotoChooser.h"
#include "PhotoFiles.h"
#include "Regions.h"
#include "Resample.h"
#include "Text.h"
#include "ui_ExportDesigner.h"

#include <QLineEdit>
#include <QScreen>
#include <QStringList>

#include <utility>

namespace hearthbook {

namespace {

const QString designerTitle = QStringLiteral("Design Export");

/// Enough of a photo for every region of it to fill a box on a large screen.
constexpr int photoSide = 3000;
/// So many times the pixels of the finished page are kept for the screen.
constexpr int sharpness = 3;

Picture pictureOrNone(const std::filesystem::path& file) {
  Picture picture;
  if (fileExists(file)) // a design need not have it, and what is not a picture is none
    passOver([&] { picture = decodePicture(file).picture; });
  return picture;
}

/// As much of a picture as the surface has room for: of a photograph that is not all of it.
Picture groundOf(const std::filesystem::path& file) {
  constexpr PixelRect seen{0, 0, static_cast<int>(designSurface.width) / twipsPerPixel,
                           static_cast<int>(designSurface.height) / twipsPerPixel};
  return cropped(decodePicture(file).picture, seen);
}

bool isYes(const QString& question, MsgIcon icon) {
  return MsgBox(question, designerTitle, icon, MsgButtons::YesNo) == MsgAnswer::Yes;
}

QString listOf(const std::vector<std::string>& texts, const QString& between) {
  QStringList list;
  for (const std::string& text : texts)
    list << toQString(text);
  return list.join(between);
}

/// One of the two is in sight. The other goes before it comes: the window would grow for both.
void showFirst(bool first, QWidget* one, QWidget* other) {
  (first ? other : one)->hide();
  (first ? one : other)->show();
}

/// The region as sharp as the box can show it.
Picture pieceOf(const Picture& photo, const PixelRect& region, PixelSize box) {
  const Picture piece = cropped(photo, region);
  const PixelSize most{box.width * sharpness, box.height * sharpness};
  return piece.width() > most.width ? resample(piece, most) : piece;
}

} // namespace

/// A photo that was decoded beside the window, or what stands in for it.
struct ExportDesigner::Arrived {
  PhotoLevels picture;
  bool isPhoto = false;
};

ExportDesigner::ExportDesigner(Album& album, WorkPool& pool, DesignFiles files)
    : Form(QStringLiteral("ExportDesigner"), Kind::Dialog), album_(album), pool_(pool),
      files_(std::move(files)), ui(std::make_unique<Ui::ExportDesigner>()),
      surface_(new DesignSurface) {
  ui->setupUi(this);
  resize(sizeOn(screen()->availableSize(), size()));
  ui->templateColumn->addWidget(surface_);
  ui->ImgX1->setParts(ui->HScroll2, ui->VScroll2, ui->boxRegion);
  ui->frmThumbCells->setSource(
      pool_, ui->VScroll1,
      {[&album = album_](const DesignHit& hit) {
         return thumbnailPath(album, hit.pictureId).value_or(std::filesystem::path());
       },
       [&album = album_](const DesignHit& hit) {
         return imagePath(album, hit.pictureId).value_or(std::filesystem::path());
       }},
      notFoundPicture(album_));
  chooser_ = new PhotoChooser(
      PhotoChooser::Lists{{{DesignSearch::Person, ui->radPerson, ui->Combo1, "Search for person"},
                           {DesignSearch::Place, ui->radPlace, ui->Combo2, "Search for place"},
                           {DesignSearch::Event, ui->radEvent, ui->Combo3, "Search for event"}}},
      ui->frmThumbCells, album_.data.AlbumDB, this);
  makeTemplateButtons();
  orderTabs();
  wireControls();
}

ExportDesigner::~ExportDesigner() = default;

QSize ExportDesigner::sizeOn(QSize screen, QSize drawn) { return drawn.expandedTo(screen * 4 / 5); }

void ExportDesigner::makeTemplateButtons() {
  int index = 0;
  for (const PageDesign& design : pageDesigns()) {
    auto* button = new QRadioButton(toQString(design.name), ui->templatePage);
    button->setObjectName(QStringLiteral("optTemplate"));
    button->setProperty("index", index);
    button->setChecked(index == 0);
    button->setToolTip(QStringLiteral("Another design of the page; what you have put into this one "
                                      "is kept"));
    ui->optTemplates->addWidget(button);
    onCommand(button, this, [this, &design] { chooseTemplate(design); });
    ++index;
  }
}

/// What is made here comes behind what was drawn: the choice of designs is to be the first stop,
/// "Done" the last.
void ExportDesigner::orderTabs() {
  QWidget* last = surface_->findChildren<QLineEdit*>().back();
  setTabOrder(last, ui->Command1);
  last = ui->Command1;
  for (auto* button : ui->templatePage->findChildren<QRadioButton*>()) {
    setTabOrder(last, button);
    last = button;
  }
  setTabOrder(last, ui->Command2);
  setTabOrder(ui->Command2, ui->chkMusic);
}

void ExportDesigner::wireControls() {
  onCommand(ui->Command1, this, &ExportDesigner::done);                // "Done"
  onCommand(ui->Command2, this, &ExportDesigner::customizeBackground); // "Customize Background..."
  onCommand(ui->Command3, this, &ExportDesigner::returnToTemplates);   // "Cancel"
  onCommand(ui->Command4, this, &ExportDesigner::selectRegion);        // "Select"
  onCommand(ui->chkMusic, this, &ExportDesigner::playWelcomeMusic);    // "Play Welcome Music"
  connect(surface_, &DesignSurface::photoAsked, this,
          [this](int index) { runCommand([this, index] { askForPhoto(index); }); });
  connect(ui->frmThumbCells, &FoundPhotos::chosen, this,
          [this](const std::string& id) { runCommand([this, id] { takePhoto(id); }); });
  connect(ui->ImgX1, &RegionView::regionChanged, this,
          [this] { ui->Command4->setEnabled(!ui->ImgX1->region().isEmpty()); });
}

void ExportDesigner::load() {
  musicTip_ = ui->chkMusic->toolTip();
  background_ = paperPicture(album_.folder);
  surface_->tile(pictureOrNone(background_));
  chooser_->fillLists();
  chooseTemplate(pageDesigns().front());
  showRole(Role::Template);
  ui->templatePage->findChild<QRadioButton*>()->setFocus();
}

void ExportDesigner::showRole(Role role) {
  const bool templates = role == Role::Template;
  const bool marks = role == Role::Region;
  showFirst(templates, ui->templatePage, ui->boxSearch);
  showFirst(marks, ui->frameRegion, ui->frmTemplate);
  ui->Command1->setEnabled(!marks);
  ui->frameLeft->setTitle(templates ? QStringLiteral("Select Template")
                                    : QStringLiteral("Select photo for ") +
                                          toQString(surface_->box(asked_).caption));
}

void ExportDesigner::chooseTemplate(const PageDesign& design) {
  const auto folder = designFolder(album_.folder, design.name);
  // Read by the toolkit, which keeps clear what is not drawn.
  surface_->showDesign(design, QPixmap(toQString(folder / "left_img.gif")),
                       QPixmap(toQString(folder / "right_img.gif")));
  ui->frmTemplate->setTitle(toQString(design.name) +
                            QStringLiteral(" Template (click on boxes to select photo)"));
}

void ExportDesigner::customizeBackground() {
  const auto file = files_.chooseBackground();
  if (!file)
    return;
  const Hourglass hourglass;
  surface_->tile(awaited(pool_.run([file = *file] { return groundOf(file); }, {}, true)));
  background_ = *file;
  dressedAnew_ = true;
}

void ExportDesigner::playWelcomeMusic(bool on) {
  music_ = on ? files_.chooseMusic() : std::nullopt;
  dressedAnew_ = true;
  ui->chkMusic->setChecked(music_.has_value());
  ui->chkMusic->setToolTip(music_ ? toQString(music_->filename()) : musicTip_);
}

void ExportDesigner::askForPhoto(int index) {
  asked_ = index;
  chooser_->startOver();
  showRole(Role::Search);
  ui->Combo1->setFocus();
}

void ExportDesigner::takePhoto(const std::string& pictureId) {
  if (!waiting_)
    waiting_.emplace();
  showRegion();
  runBeside(
      pool_, this,
      [&album = album_, pictureId] {
        Arrived arrived;
        const auto file = imagePath(album, pictureId).value_or(std::filesystem::path());
        if (fileExists(file))
          passOver([&] {
            arrived.picture = PhotoLevels(decodePictureRoughly(file, photoSide).picture);
          });
        arrived.isPhoto = !arrived.picture.photo().isNull();
        if (!arrived.isPhoto)
          arrived.picture = PhotoLevels(pictureOrNone(notFoundPicture(album)));
        return arrived;
      },
      [this, request = ++request_](const Arrived& arrived) {
        if (request == request_)
          photoArrived(arrived);
      },
      true);
}

void ExportDesigner::showRegion() {
  ui->ImgX1->clear();
  showRole(Role::Region);
  ui->ImgX1->setFocus();
}

void ExportDesigner::photoArrived(const Arrived& arrived) {
  waiting_.reset();
  if (arrived.isPhoto)
    ui->ImgX1->showPhoto(arrived.picture, photoPixels(surface_->box(asked_)));
  else
    ui->ImgX1->showOnly(arrived.picture.photo());
}

void ExportDesigner::selectRegion() {
  const PixelSize box = photoPixels(surface_->box(asked_));
  const auto piece = [photo = ui->ImgX1->photo(), region = ui->ImgX1->region(), box] {
    return pieceOf(photo, region, box);
  };
  surface_->setPhoto(asked_, awaited(pool_.run(piece, {}, true)));
  returnToTemplates();
}

void ExportDesigner::returnToTemplates() {
  ++request_;
  waiting_.reset();
  ui->ImgX1->clear();
  showRole(Role::Template);
  surface_->focusPhoto(asked_);
}

std::filesystem::path ExportDesigner::CreatePage() {
  DesignedPage page = surface_->content();
  if (fileExists(background_) || background_ != paperPicture(album_.folder))
    page.background = background_; // one that the family has chosen is not left out in silence
  page.music = music_;
  const Hourglass hourglass;
  auto file = awaited(pool_.run(
      [&folder = album_.folder, page] { return writeDesignedPage(folder, page); }, {}, true));
  surface_->pageMade();
  dressedAnew_ = false;
  return file;
}

void ExportDesigner::done() {
  if (!mayMakePage())
    return;
  offerToView(CreatePage());
  Unload();
}

bool ExportDesigner::mayMakePage() const {
  const auto markup = textsWithMarkup(surface_->content());
  if (!markup.empty() &&
      !isYes(QStringLiteral("A browser takes some of your words for markup, such as <b>, and may "
                            "not show them as they are meant:\n") +
                 listOf(markup, QStringLiteral("\n")) +
                 QStringLiteral("\n\nWould you like to make the page all the same?"),
             MsgIcon::Exclamation))
    return false;
  const auto former = designedPageFile(album_.folder);
  return !fileExists(former) ||
         isYes(toQString("The page that was made before lies in the folder '" +
                         former.parent_path().string() +
                         "'. Copy that folder if you want to keep it.\n\n"
                         "Would you like to put the new page in its place?"),
               MsgIcon::Exclamation);
}

void ExportDesigner::offerToView(const std::filesystem::path& page) {
  const bool isWanted =
      isYes(toQString("The page was made. You can upload the content of folder: '" +
                      page.parent_path().string() + "' to the web.\r\n\r\n" +
                      "Would you like to view it?"),
            MsgIcon::Question);
  if (isWanted)
    openOrTell(files_.openPage, page, designerTitle);
}

std::vector<std::string> ExportDesigner::unmade() const {
  auto designs = surface_->unmade();
  const bool isDressed = background_ != paperPicture(album_.folder) || music_;
  if (designs.empty() && dressedAnew_ && isDressed)
    designs.push_back(surface_->chosen());
  return designs;
}

bool ExportDesigner::unloading() {
  const auto designs = unmade();
  return designs.empty() ||
         isYes(QStringLiteral("There is no page yet of what you have put into the design ") +
                   listOf(designs, QStringLiteral(" and the design ")) +
                   QStringLiteral(". It would be lost.\n\nClose without making the page?"),
               MsgIcon::Exclamation);
}

} // namespace hearthbook
