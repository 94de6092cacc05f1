#include "FullScreen.h"

#include "Command.h"
#include "MsgBox.h"
#include "PhotoFiles.h"
#include "Text.h"
#include "ZoomMoves.h"
#include "ZoomPicture.h"
#include "ui_FullScreen.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QScreen>
#include <QTimer>

namespace hearthbook {

namespace {

constexpr int restMs = 3000;

Qt::CursorShape shapeOf(DragPointer pointer) {
  switch (pointer) {
  case DragPointer::Both:
    return Qt::SizeAllCursor;
  case DragPointer::UpAndDown:
    return Qt::SizeVerCursor;
  case DragPointer::Sideways:
    return Qt::SizeHorCursor;
  case DragPointer::None:
    break;
  }
  return Qt::ArrowCursor;
}

TwipsSize inTwips(QSizeF pixels) {
  return {pixels.width() * twipsPerPixel, pixels.height() * twipsPerPixel};
}

} // namespace

FullScreen::FullScreen(Album& album, PictureLoader& loader, WorkPool& pool)
    : Form(QStringLiteral("FullScreen"), Kind::Dialog), album_(album),
      ui(std::make_unique<Ui::FullScreen>()), rest_(new QTimer(this)) {
  ui->setupUi(this);
  setMouseTracking(true);
  ui->Image1->setFocusPolicy(Qt::NoFocus); // the keys are the form's
  picture_ = new ZoomPicture(
      *ui->Image1, loader, pool, notFoundPicture(album_), [](PixelSize own) { return own; }, this);
  rest_->setSingleShot(true);
  rest_->setInterval(restMs);
  connect(picture_, &ZoomPicture::placed, this, &FullScreen::photoPlaced);
  connect(picture_, &ZoomPicture::broken, this, &FullScreen::tellBroken);
  connect(ui->Image1, &PictureBox::pressed, this, &FullScreen::takePress);
  connect(ui->Image1, &LargePhoto::mouseMoved, this, &FullScreen::drag);
  connect(rest_, &QTimer::timeout, this, &FullScreen::hidePointer);
}

FullScreen::~FullScreen() = default;

void FullScreen::begin(const ZoomPicture& shown) {
  picture_->adopt(shown);
  picture_->sharpen(picture_->fullSize());
  namePhoto();
}

/// Nothing else on the screen says which photo it is to somebody who cannot see it.
void FullScreen::namePhoto() {
  ui->Image1->setAccessibleName(toQString("Photo " + shownLabel(photos())));
  ui->Image1->setAccessibleDescription(picture_->note());
}

void FullScreen::showNext() {
  LoadFullPhoto(); // and makeFull, as soon as it is there
  moveBehindShown(photos());
  namePhoto();
  Q_EMIT shownAnother();
}

void FullScreen::LoadFullPhoto() {
  resolveImage(album_, photos().Collect("PictureID").toText());
  picture_->show(album_.vars.ImagePicture.file);
}

void FullScreen::tell(const QString& note) {
  picture_->tell(note);
  ui->Image1->setAccessibleDescription(note);
}

void FullScreen::tellBroken(const QString& why) {
  ui->Image1->setAccessibleDescription(why);
  Q_EMIT broken();
}

void FullScreen::photoPlaced() {
  const PixelSize own = picture_->fullSize();
  const TwipsSize size = inTwips(QSizeF(own.width, own.height) / devicePixelRatioF());
  place_.photo.width = size.width;
  place_.photo.height = size.height;
  makeFull();
}

void FullScreen::makeFull() {
  place_.makeFull(sizeInTwips());
  showPlace();
  if (cursor().shape() != Qt::BlankCursor) // a slide show does not bring back what rests
    ui->Image1->setCursor(shapeOf(place_.pointer));
}

void FullScreen::showPlace() {
  const TwipsRect& photo = place_.photo;
  ui->Image1->setGeometry(qRound(photo.left / twipsPerPixel), qRound(photo.top / twipsPerPixel),
                          qRound(photo.width / twipsPerPixel),
                          qRound(photo.height / twipsPerPixel));
}

TwipsSize FullScreen::sizeInTwips() const { return inTwips(size()); }

TwipsSize FullScreen::screenInTwips() const {
  return isFullScreen() && screen() ? inTwips(screen()->size()) : sizeInTwips();
}

void FullScreen::decodeAhead(const std::vector<std::filesystem::path>& files) {
  picture_->decodeAhead(files);
}

bool FullScreen::isWaitingForPicture() const {
  return picture_->isWaiting() || picture_->isSharpening();
}

void FullScreen::activated() {
  makeFull();
  rest_->start();
}

void FullScreen::mapWindow() {
  setWindowFlags(Qt::Window | Qt::FramelessWindowHint | Qt::CustomizeWindowHint);
  Form::mapWindow();
  showFullScreen();
  setFocus();
}

bool FullScreen::unloading() {
  Q_EMIT left();
  return true;
}

/// A key that is held down neither leaves at once what it has opened, nor flickers the show.
void FullScreen::keyPressEvent(QKeyEvent* event) {
  const bool walks = event->key() == Qt::Key_Right || event->key() == Qt::Key_Left;
  if (walks || !event->isAutoRepeat())
    runCommand([&] { takeKey(event->key()); });
}

void FullScreen::takeKey(int key) {
  switch (key) {
  case Qt::Key_Right:
    return nextPhoto();
  case Qt::Key_Left:
    return previousPhoto();
  case Qt::Key_Space:
    Q_EMIT showFlipped();
    return;
  default:
    Unload();
  }
}

void FullScreen::nextPhoto() {
  if (!canGoNext(photos())) {
    const auto answer = MsgBox(QStringLiteral("No More Records, start over?"),
                               QStringLiteral("Next Photo"), MsgIcon::Question, MsgButtons::YesNo);
    if (answer != MsgAnswer::Yes)
      return;
    photos().MoveFirst();
  }
  showNext();
}

void FullScreen::previousPhoto() {
  if (goPrevious(photos()))
    showNext();
  else
    MsgBox(QStringLiteral("First Record"), QStringLiteral("Previous Photo"), MsgIcon::Information);
}

void FullScreen::mousePressEvent(QMouseEvent* event) {
  if (event->button() == Qt::RightButton)
    runCommand([this] { tellKeys(); });
}

void FullScreen::mouseMoveEvent(QMouseEvent*) { showPointer(); }

void FullScreen::takePress(QPointF position, Qt::MouseButton button) {
  lastX_ = qRound(position.x() * twipsPerPixel);
  lastY_ = qRound(position.y() * twipsPerPixel);
  if (button == Qt::RightButton)
    runCommand([this] { tellKeys(); });
}

void FullScreen::drag(QPointF position, bool leftDown) {
  showPointer();
  if (!leftDown)
    return;
  place_.drag({position.x() * twipsPerPixel - lastX_, position.y() * twipsPerPixel - lastY_},
              screenInTwips());
  showPlace();
}

void FullScreen::tellKeys() {
  MsgBox(QStringLiteral("Press LEFT ARROW & RIGHT ARROW keys to navigate.\n"
                        "Press SPACEBAR key to start/stop slide show\n"
                        "Press any other key to exit."),
         QStringLiteral("Full Screen"), MsgIcon::Information);
}

void FullScreen::showPointer() {
  ui->Image1->setCursor(shapeOf(place_.pointer));
  unsetCursor();
  rest_->start();
}

void FullScreen::hidePointer() {
  ui->Image1->setCursor(Qt::BlankCursor);
  setCursor(Qt::BlankCursor);
}

void FullScreen::resizeEvent(QResizeEvent*) { makeFull(); }

void FullScreen::paintEvent(QPaintEvent*) { QPainter(this).fillRect(rect(), Qt::black); }

} // namespace hearthbook
