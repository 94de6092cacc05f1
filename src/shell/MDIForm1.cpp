#include "MDIForm1.h"

#include "AlbumPages.h"
#include "Closing.h"
#include "Command.h"
#include "FormArea.h"
#include "Forms.h"
#include "FrameMenu.h"
#include "NestedLoop.h"
#include "Startup.h"
#include "Text.h"
#include "WorkForms.h"

#include <QApplication>
#include <QCloseEvent>
#include <QMenuBar>
#include <QScreen>
#include <QTimer>

namespace hearthbook {

MDIForm1::MDIForm1(Album& album, ShellServices services)
    : album_(album), commands_(new FrameCommands(album, std::move(services), *this)),
      menu_(new FrameMenu(*menuBar(), *commands_)), area_(new FormArea) {
  setObjectName(toQString("MDIForm1"));
  setWindowTitle(toQString("Hearthbook"));
  setCentralWidget(area_);
  chooseSize();
  Forms::setHost(this);
}

MDIForm1::~MDIForm1() {
  if (Forms::host() == this)
    Forms::setHost(nullptr);
}

// The album wants the whole screen; where the window is made smaller this is what it takes.
void MDIForm1::chooseSize() {
  const QSize room = screen()->availableSize();
  resize(room.boundedTo(QSize(1024, 768).expandedTo(room * 4 / 5)));
  setMinimumSize(QSize(640, 480).boundedTo(room));
}

void MDIForm1::open() {
  state_ = State::Open;
  Forms::get<Startup>().Show();
  showAlbums();
  showMaximized();
}

void MDIForm1::showAlbums() {
  Recordset& albums = album_.data.rsSubAlbums;
  if (albums.RecordCount() < 1)
    return;
  for (albums.MoveFirst(); !albums.atEOF(); albums.MoveNext())
    addAlbumEntry(static_cast<int>(albums.Collect("AlbumID").toInteger()),
                  toQString(albums.Collect("albumName").toText()));
}

void MDIForm1::bringForward() {
  QWidget* modal = QApplication::activeModalWidget();
  for (QWidget* top : {static_cast<QWidget*>(this), modal ? modal->window() : nullptr}) {
    if (!top || !top->isVisible())
      continue;
    top->setWindowState((top->windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    top->raise();
    top->activateWindow();
  }
}

void MDIForm1::closeWhenFree() {
  constexpr int nextTry = 100;
  QWidget* modal = QApplication::activeModalWidget();
  if (!CommandBlock::isActive() && !modal) {
    close();
    return;
  }
  if (CommandBlock::isActive() || modal->close())
    QTimer::singleShot(nextTry, this, &MDIForm1::closeWhenFree);
}

void MDIForm1::showForm(Form& form) { area_->showForm(form); }

void MDIForm1::hideForm(Form& form) { area_->hideForm(form); }

void MDIForm1::removeForm(Form& form) { area_->removeForm(form); }

Form* MDIForm1::activeForm() const { return area_->frontForm(); }

void MDIForm1::findPhoto() { commands_->findPhoto(); }

void MDIForm1::addAlbumEntry(int albumId, const QString& name) { menu_->addAlbum(albumId, name); }

void MDIForm1::renameAlbumEntry(int albumId, const QString& name) {
  menu_->renameAlbum(albumId, name);
  if (auto& chosen = album_.vars.chosenAlbum; chosen.id == albumId)
    chosen.name = toUtf8(name);
  renameAlbumPages(albumId, name);
}

void MDIForm1::removeAlbumEntry(int albumId) { menu_->removeAlbum(albumId); }

void MDIForm1::popUpEdit(QPoint globalPosition) { menu_->menu("mnuEdit").popup(globalPosition); }

// Ignored first: a step that throws must leave the frame open, with what is pending in it.
void MDIForm1::closeEvent(QCloseEvent* event) {
  event->ignore();
  if (state_ == State::Open)
    runCommand([this] { closeOrderly(); });
  event->setAccepted(state_ == State::Closed || state_ == State::Starting);
}

void MDIForm1::closeOrderly() {
  if (!closeWorkFormsTopmostFirst())
    return;
  state_ = State::Closing;
  closeAlbum(album_.data, album_.folder);
  state_ = State::Closed;
}

} // namespace hearthbook
