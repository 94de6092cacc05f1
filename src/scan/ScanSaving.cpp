#include "Scan.h"

#include "MsgBox.h"
#include "PhotoSaving.h"
#include "Text.h"

#include <utility>

namespace hearthbook {

namespace {

QString wordsOf(const std::exception_ptr& failure) {
  try {
    if (failure)
      std::rethrow_exception(failure);
  } catch (const std::exception& told) {
    return toQString(told.what());
  }
  return {};
}

} // namespace

void Scan::save() { isEditUse_ ? updatePhoto() : saveSelected(); }

bool Scan::askForSelection() {
  if (!edit_.selected().isEmpty())
    return true;
  dropWhatWaits(); // the user is to go on with the page
  MsgBox(QStringLiteral("Please Make A Selection\nBy Draging Your Mouse On The Image."),
         QStringLiteral("Save Selected Image"));
  return false;
}

void Scan::saveSelected() {
  if (askForSelection())
    saveNewPhoto(addPhotoRow(album_, album_.data.rsPhotoAlbum), [] {});
}

void Scan::cutAndSaveAsNew() {
  if (!askForSelection())
    return;
  auto photos = std::make_shared<OwnPhotoTable>(album_);
  const PhotoPlaces places = addPhotoRow(album_, photos->rows());
  Q_EMIT photoCut();
  saveNewPhoto(places, [photos]() mutable { photos.reset(); });
}

/// `afterwards` runs when the files have been written and looked for.
void Scan::saveNewPhoto(const PhotoPlaces& places, std::function<void()> afterwards) {
  const ImageEdit::Task task = edit_.cutOut();
  writeBeside(
      task, places,
      [this, places, region = task.region, afterwards = std::move(afterwards)](const Saved& saved) {
        afterwards();
        newPhotoWritten(places, region, saved);
      });
}

/// The box has words of its own; why it is so stands below the page, for as long as it is of use.
void Scan::newPhotoWritten(const PhotoPlaces& places, const PixelRect& region, const Saved& saved) {
  if (!fileExists(places.photo)) {
    say(wordsOf(saved.failure));
    MsgBox(QStringLiteral("File Could Not Be Saved, Please Scan Photo Again"),
           QStringLiteral("Save Selected"), MsgIcon::Exclamation);
    return;
  }
  if (saved.isPhotoWritten) {
    edit_.markSaved(region);
    showPage();
  }
  if (saved.failure)
    std::rethrow_exception(saved.failure);
  say(QStringLiteral("Saved as photo %1.").arg(toQString(places.photo.stem())));
}

void Scan::writeBeside(ImageEdit::Task task, const PhotoPlaces& places, AfterSaving then) {
  beginWork(Work::Saving, QStringLiteral("The photo is saved ..."));
  workBeside(
      [task = std::move(task), places, pool = &pool_] {
        try {
          writePhoto(ImageEdit::asSeen(task, pool), places);
          return Saved{nullptr, true};
        } catch (const ThumbnailFailure&) {
          return Saved{std::current_exception(), true};
        } catch (...) {
          return Saved{std::current_exception(), false};
        }
      },
      [this, then = std::move(then)](const Saved& saved) {
        if (!saved.isPhotoWritten)
          dropWhatWaits(); // Close among it: nothing may be lost
        then(saved);
      });
}

void Scan::updatePhoto() {
  const PhotoPlaces places = placesOfCurrentPhoto(album_);
  if (!mayOverwrite(places.photo))
    return;
  writeBeside(edit_.whole(), places,
              [this, photo = places.photo](const Saved& saved) { photoUpdated(photo, saved); });
}

void Scan::photoUpdated(const std::filesystem::path& photo, const Saved& saved) {
  if (saved.isPhotoWritten) {
    isUpdated_ = true;
    loadedAs_ = stampOf(photo);
  }
  if (saved.failure)
    std::rethrow_exception(saved.failure);
  Unload();
}

bool Scan::mayOverwrite(const std::filesystem::path& photo) const {
  return stampOf(photo) == loadedAs_ ||
         MsgBox(QStringLiteral("Another program has changed this photo since it was opened here. "
                               "Update it all the same? What is there now goes to the trash."),
                QStringLiteral("Update Photo"), MsgIcon::Exclamation,
                MsgButtons::YesNo) == MsgAnswer::Yes;
}

bool Scan::mayDropEdits() const {
  const bool isChanged = edit_.canUndo() || isScanned_;
  return !isEditUse_ || isUpdated_ || !areCommandsUsable_ || !isChanged ||
         MsgBox(QStringLiteral("The photo was not updated: what you have changed will be lost."),
                QStringLiteral("Edit Image"), MsgIcon::Exclamation,
                MsgButtons::OkCancel) == MsgAnswer::Ok;
}

bool Scan::unloading() {
  if (work_ == Work::Saving) {
    isCloseWished_ = true;
    say(QStringLiteral("This closes as soon as the photo is saved."));
    return false;
  }
  if (work_ == Work::Editing) { // what was asked for before comes first
    isCloseWished_ = true;
    showWork(QStringLiteral("This closes as soon as what was asked for is done."));
    return false;
  }
  if (!mayDropEdits())
    return false;
  if (work_ == Work::Scanning)
    scanner_.cancel();
  scanner_.release();
  dropWhatWaits();
  ++job_;                        // what is still on its way comes too late
  if (isScanned_ && keepsPages_) // a page that a crash has left and nobody has seen again stays
    passOver([this] { kept_->forget(); });
  return true;
}

} // namespace hearthbook
