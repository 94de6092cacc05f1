#include "Wiring.h"

#include "AddAudio.h"
#include "AddSubAlbum.h"
#include "Album.h"
#include "AlbumPages.h"
#include "BatchEdit.h"
#include "DBeditor.h"
#include "Export.h"
#include "ExportDesigner.h"
#include "Forms.h"
#include "FrameCommands.h"
#include "FullScreen.h"
#include "Help.h"
#include "MDIForm1.h"
#include "NamesManager.h"
#include "PageToMail.h"
#include "PickaPic.h"
#include "Progress.h"
#include "Scan.h"
#include "Search.h"
#include "Startup.h"
#include "Viewer.h"
#include "YearWizard.h"
#include "Zoom.h"
#include "ZoomWindow.h"
#include "frmAbout.h"
#include "frmPrint.h"
#include "frmSendMail.h"

#include <QApplication>

namespace hearthbook {

namespace {

StartupCommands startupCommands(FrameCommands& commands) {
  StartupCommands start;
  start.build = [&commands] { commands.buildFromStart(); };
  start.search = [&commands] { commands.searchFromStart(); };
  start.viewAlbum = [&commands](int albumId, const QString& name, const auto& aboutToShow) {
    commands.viewFromStart(albumId, name, aboutToShow);
  };
  start.exportAlbum = [&commands] { commands.exportAlbum(); };
  start.exit = [&commands] { commands.quit(); };
  return start;
}

SearchWindows searchWindows() {
  SearchWindows windows;
  windows.showZoom = showZoom;
  windows.addToSubAlbum = addResultToSubAlbum;
  windows.unloadViewer = closeAlbumPages;
  windows.showViewer = showResultPages;
  return windows;
}

ViewerWindows viewerWindows() {
  ViewerWindows windows;
  windows.showZoom = showZoom;
  windows.sendMail = [] { Forms::get<frmSendMail>().ShowModal(); };
  windows.editSubAlbum = editSubAlbum;
  return windows;
}

/// Hands finished pictures over in the window's event loop.
PictureLoader::Deliver deliverHere() {
  return [](std::function<void()> work) {
    QMetaObject::invokeMethod(qApp, std::move(work), Qt::QueuedConnection);
  };
}

/// Two pages of thumbnails at the size of a large screen: enough for the next one to be ready,
/// little enough for a hundred thousand to go by.
constexpr PictureCache::Room thumbnailRoom{std::size_t{12} << 20};

/// An album page with its two neighbours, and the photos of the editor.
constexpr PictureCache::Room photoRoom{std::size_t{256} << 20, 20};

/// The photo on the full screen and its neighbours, of 12 megapixels each; one of them magnified.
constexpr PictureCache::Room largePhotoRoom{std::size_t{192} << 20, 6};

} // namespace

Wiring::Wiring(Album& album, MDIForm1& frame, const ShellServices& services)
    : loader_(pool_, deliverHere(), photoRoom), thumbnails_(pool_, deliverHere(), thumbnailRoom),
      largePhotos_(pool_, deliverHere(), largePhotoRoom), scanner_(deliverHere()),
      help_(album.vars, frame) {
  Forms::provide<Startup>([this, &album, &frame] {
    auto* start = new Startup(album, pool_, loader_, startupCommands(frame.commands()));
    QObject::connect(start, &Startup::cameToFront, &help_, &FrameHelp::startScreenActive);
    return start;
  });
  Forms::provide<Help>([this] {
    auto* help = new Help;
    QObject::connect(help, &Help::closedByUser, &help_, &FrameHelp::hiddenByUser);
    return help;
  });
  Forms::provide<DBeditor>(
      [this, &album, &frame] { return new DBeditor(album, loader_, pool_, frame, help_); });
  Forms::provide<Search>(
      [this, &album] { return new Search(album, thumbnails_, pool_, help_, searchWindows()); });
  Forms::provide<Viewer>(
      [this, &album] { return new Viewer(album, loader_, pool_, help_, viewerWindows()); });
  Forms::provide<Zoom>([this, &album] { return new Zoom(album, largePhotos_, pool_, help_); });
  Forms::provide<FullScreen>([this, &album] { return new FullScreen(album, largePhotos_, pool_); });
  Forms::provide<BatchEdit>([&album] { return new BatchEdit(album); });
  Forms::provide<PickaPic>([this, &album] { return new PickaPic(album, pool_); });
  Forms::provide<Scan>([this, &album] { return new Scan(album, pool_, scanner_); });
  Forms::provide<AddAudio>([this, &album] { return new AddAudio(album, pool_); });
  Forms::provide<AddSubAlbum>(
      [this, &album, &frame] { return new AddSubAlbum(album, thumbnails_, pool_, frame); });
  Forms::provide<Export>([this, &album, openPage = services.openDocument] {
    return new Export(album, pool_, openPage);
  });
  Forms::provide<ExportDesigner>([this, &album, openPage = services.openDocument] {
    DesignFiles files = designFileDialogs();
    files.openPage = openPage;
    return new ExportDesigner(album, pool_, std::move(files));
  });
  Forms::provide<NamesManager>([&album] { return new NamesManager(album); });
  Forms::provide<YearWizard>([&album] { return new YearWizard(album); });
  Forms::provide<frmSendMail>([this, &album] {
    return new frmSendMail(album, pool_, pageToMail(Forms::get<Viewer>().cells()));
  });
  Forms::provide<frmPrint>([this] { return new frmPrint(pool_, askPdfFile); });
  Forms::provide<frmAbout>([] { return new frmAbout; });
  Forms::provide<Progress>([] { return new Progress; });
}

Wiring::~Wiring() { Forms::reset(); }

} // namespace hearthbook
