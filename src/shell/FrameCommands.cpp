#include "FrameCommands.h"

#include "AddSubAlbum.h"
#include "AlbumPages.h"
#include "BuildAlbum.h"
#include "DBeditor.h"
#include "Export.h"
#include "ExportDesigner.h"
#include "Forms.h"
#include "HyperlinkControl.h"
#include "MsgBox.h"
#include "PrintSource.h"
#include "Progress.h"
#include "Search.h"
#include "Text.h"
#include "WorkForms.h"
#include "frmAbout.h"
#include "frmPrint.h"

#include <QMainWindow>
#include <QPointer>
#include <QScopeGuard>

#include <utility>

namespace hearthbook {

namespace {

Progress& showAlbumProgress() {
  auto& progress = Forms::get<Progress>();
  progress.setCaption(toQString("Processing Album, Please Wait"));
  progress.Show();
  return progress;
}

/// There is one Progress, and forms that close may use it too.
void underAlbumProgress(const std::function<void()>& work) {
  const auto unload = qScopeGuard([] {
    if (auto* progress = Forms::loaded<Progress>())
      progress->Unload();
  });
  showAlbumProgress();
  work();
}

void tellEmptyAlbum() {
  MsgBox(toQString("There are no photos in this album\nPlease select another one."),
         toQString("View Album"));
}

} // namespace

FrameCommands::FrameCommands(Album& album, ShellServices services, QMainWindow& frame)
    : QObject(&frame), album_(album), services_(std::move(services)), frame_(frame) {}

void FrameCommands::print() {
  Form* front = Forms::host() ? Forms::host()->activeForm() : nullptr;
  auto* source = dynamic_cast<PrintSource*>(front);
  if (!source) {
    MsgBox(toQString("You can print only from the: Build, Search, View or Zoom Album"),
           toQString("Print"), MsgIcon::Information);
    return;
  }
  auto& dialog = Forms::get<frmPrint>();
  dialog.Tag = toQString(source->printTag());
  const auto isReady = [source, shown = QPointer<Form>(front)] {
    return shown && source->isReadyToPrint();
  };
  const auto page = [source, &dialog] {
    PrintPage shown = source->printPage();
    if (std::holds_alternative<SinglePrint>(shown))
      dialog.allowPhotoChoices();
    return shown;
  };
  dialog.setPageWhen(isReady, page, front->caption());
  dialog.ShowModal();
}

void FrameCommands::quit() { frame_.close(); }

void FrameCommands::buildFromMenu() {
  if (!closeWorkForms())
    return;
  buildFromFirstUndatedPhoto(album_);
  auto& editor = Forms::get<DBeditor>();
  editor.setCaption(toQString(menuBuildCaption));
  editor.Show();
}

void FrameCommands::buildFromStart() {
  buildFromFirstPhoto(album_);
  auto& editor = Forms::get<DBeditor>();
  editor.setCaption(toQString(startBuildCaption));
  editor.Show();
}

void FrameCommands::searchFromMenu() {
  if (closeWorkForms())
    searchFromStart();
}

void FrameCommands::searchFromStart() {
  album_.vars.CallerForm = "Search";
  findPhoto();
}

void FrameCommands::findPhoto() {
  album_.vars.rsSearch = album_.data.rsPhotoAlbum.Clone();
  // The pages of another set would lead to the wrong photos.
  if (auto* open = Forms::loaded<Search>())
    open->startOver();
  Forms::get<Search>().Show();
}

void FrameCommands::viewAlbum(int albumId, const QString& name) {
  bool closed = false;
  std::optional<OpenedAlbum> opened;
  underAlbumProgress([&] {
    closed = closeWorkForms();
    if (closed)
      opened = openAlbumInSight(albumId, toUtf8(name));
  });
  if (!closed)
    return;
  if (opened)
    showAlbumPages(*opened);
  else
    tellEmptyAlbum();
}

void FrameCommands::viewFromStart(int albumId, const QString& name,
                                  const std::function<void()>& aboutToShow) {
  std::optional<OpenedAlbum> opened;
  closeAlbumPages();
  underAlbumProgress([&] { opened = openAlbumInSight(albumId, toUtf8(name)); });
  if (!opened)
    return tellEmptyAlbum();
  opened->caption = "Viewing Album: " + toUtf8(name);
  aboutToShow();
  showAlbumPages(*opened);
}

std::optional<OpenedAlbum> FrameCommands::openAlbumInSight(int albumId, const std::string& name) {
  album_.vars.chosenAlbum = {albumId, name};
  auto& progress = showAlbumProgress(); // a form that closed may have ended the one before
  return openAlbum(album_, albumId, name, [&](int value) { progress.setValue(value); });
}

void FrameCommands::exportAlbum() { Forms::get<Export>().ShowModal(); }

void FrameCommands::designExport() { Forms::get<ExportDesigner>().ShowModal(); }

void FrameCommands::gettingStarted() {
  const auto guide = guideFile(album_.folder);
  if (!fileExists(guide))
    MsgBox(toQString("The guide could not be found:\n" + guide.string()), {}, MsgIcon::Exclamation);
  else
    openOrTell(services_.openDocument, guide, {}, QStringLiteral("guide"));
}

void FrameCommands::switchHelp() { Q_EMIT helpSwitched(); }

void FrameCommands::about() { Forms::get<frmAbout>().ShowModal(); }

void FrameCommands::removeFromSubAlbum() {
  if (auto* editor = Forms::loaded<AddSubAlbum>())
    editor->removePhoto();
}

std::filesystem::path guideFile(const ApplicationFolder& folder) {
  return folder.path("\\help\\help.hlp").replace_filename("index.html");
}

} // namespace hearthbook
