#include "Scan.h"

#include "Decode.h"
#include "MsgBox.h"
#include "PhotoSaving.h"
#include "Text.h"
#include "ui_Scan.h"

#include <QPointer>

#include <algorithm>
#include <utility>

namespace hearthbook {

void Scan::load(const std::filesystem::path& file, std::function<void(const Loaded&)> then) {
  beginWork(Work::Loading, QStringLiteral("The photo is opened ..."));
  workBeside(
      [file] {
        try {
          const Decoded decoded = decodePicture(file);
          return Loaded{decoded.picture, {}, decoded.cut};
        } catch (const std::exception& failure) {
          return Loaded{{}, failure.what(), false};
        }
      },
      std::move(then));
}

void Scan::photoLoaded(const Loaded& loaded) {
  if (loaded.picture.isNull()) {
    say(toQString(loaded.trouble));
    MsgBox(QStringLiteral("The Image Could Not Be Displayed"), QStringLiteral("Edit Image"),
           MsgIcon::Critical);
    return;
  }
  showNewPage(loaded.picture);
  if (loaded.isCut)
    say(QStringLiteral("The end of this photo's file is missing."));
}

bool Scan::wantsKeptPage() const {
  return fileExists(kept_->file()) &&
         MsgBox(
             QStringLiteral("A scanned page was still open when the program ended. Show it again, "
                            "instead of scanning another one?"),
             QStringLiteral("Scan Photo"), MsgIcon::Question, MsgButtons::YesNo) == MsgAnswer::Yes;
}

void Scan::keptPageLoaded(const Loaded& loaded) {
  if (loaded.picture.isNull())
    return scanFirst();
  isScanned_ = true;
  showNewPage(loaded.picture);
}

void Scan::showNewPage(const Picture& picture) {
  edit_.show(picture);
  setCommands(true, true);
  pageEdited();
  ui->NotX1->setFocus();
}

void Scan::findScanners() {
  scanner_.findDevices([form = QPointer<Scan>(this)](const std::vector<ScannerDevice>& devices) {
    if (form)
      form->showScanners(devices);
  });
}

void Scan::showScanners(const std::vector<ScannerDevice>& devices) {
  ui->scannerBox->clear();
  for (const ScannerDevice& device : devices)
    ui->scannerBox->addItem(toQString(device.label), toQString(device.name));
  const int last = ui->scannerBox->findData(toQString(scanner_.lastWish().device));
  ui->scannerBox->setCurrentIndex(std::max(0, last));
}

ScanWish Scan::readWish() const {
  ScanWish wish;
  const bool areScannersKnown = ui->scannerBox->count() > 0;
  wish.device = areScannersKnown ? toUtf8(ui->scannerBox->currentData().toString())
                                 : scanner_.lastWish().device;
  wish.dotsPerInch = ui->detailBox->currentData().toInt();
  return wish;
}

/// `failed` hears of a page that did not come, though nobody has given it up.
void Scan::acquire(std::function<void(const ScannedPage&)> failed) {
  beginWork(Work::Scanning, QStringLiteral("The page is scanned ..."));
  isPageGivenUp_ = false;
  const QPointer<Scan> form(this);
  const auto progress = [form, job = job_](double share) {
    if (!form || form->job_ != job)
      return;
    form->ui->ProgressBar1->setRange(0, 100);
    form->ui->ProgressBar1->setValue(qRound(share * 100));
  };
  const ScanWish wish = readWish();
  scanner_.acquire(wish, progress,
                   [form, job = job_, wish, failed = std::move(failed)](const ScannedPage& page) {
                     if (!form || form->job_ != job)
                       return;
                     form->endWork();
                     form->rememberWish(wish, page.status);
                     if (page.status == ScanStatus::Success)
                       return form->acquired(page);
                     form->say(toQString(page.trouble));
                     if (page.status != ScanStatus::Cancelled || !form->isPageGivenUp_)
                       guarded([&] { failed(page); });
                   });
}

/// One that does not work is not asked again by itself: it may have been carried away.
void Scan::rememberWish(ScanWish wish, ScanStatus outcome) {
  if (outcome == ScanStatus::Cancelled)
    return;
  if (outcome != ScanStatus::Success)
    wish.device.clear();
  scanner_.remember(std::move(wish));
}

void Scan::acquired(const ScannedPage& page) {
  isScanned_ = true;
  showNewPage(page.picture);
  if (!keepsPages_)
    return;
  pool_.post([kept = kept_, picture = page.picture, turn = job_] {
    passOver([&] { kept->keep(picture, turn); }); // a full disk takes no page from the screen
  });
}

void Scan::scanFirst() {
  acquire([](const ScannedPage&) {
    MsgBox(QStringLiteral("Scanner Error! Please make sure your scanner is working."),
           QStringLiteral("Scan Photo"), MsgIcon::Critical);
  });
}

void Scan::scanAgain() {
  if (!mayDropEdits())
    return;
  edit_.selection().clear();
  showPage();
  acquire([this](const ScannedPage& page) {
    setCommands(false, false);
    say(toQString(page.trouble + " To try again, close this window and open it anew."));
  });
}

} // namespace hearthbook
