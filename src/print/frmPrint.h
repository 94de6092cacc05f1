#pragma once

#include "Form.h"
#include "PrintChoices.h"
#include "PrintPage.h"
#include "PrintSettings.h"
#include "PrintSheet.h"
#include "PrinterThread.h"

#include <filesystem>
#include <functional>
#include <memory>
#include <optional>

class QTimer;

namespace Ui {
class frmPrint;
}

namespace hearthbook {

class PrintDevices;
struct PrintOrder;
struct PrintOutcome;
class WorkPool;

/// Asks where a PDF is to lie, with a name to begin with; nothing where the user thinks better
/// of it.
using AskPdfFile = std::function<std::optional<std::filesystem::path>(const QString& suggested)>;

/// Print: what the family is looking at, on paper. One photo, a page of the album, or a page of
/// thumbnails, as it stands on the screen, with a preview of the sheet.
///
/// The frame's menu opens it, hands it the page of the form in front, and writes the Tag. While
/// something is waited for, closing it ends the waiting.
class frmPrint : public Form {
  Q_OBJECT
public:
  frmPrint(WorkPool& pool, AskPdfFile askPdfFile);
  ~frmPrint() override;

  /// What is printed; `title` names the job and the file.
  void setPage(PrintPage page, const QString& title);
  /// The same as soon as `isReady` says that the page is there.
  void setPageWhen(const std::function<bool()>& isReady, const std::function<PrintPage()>& page,
                   const QString& title);
  [[nodiscard]] bool isWaitingForPage() const;
  /// Orientation, print size and paper can be chosen for a single photo only.
  void allowPhotoChoices();

  [[nodiscard]] const PrintDevices& devices() const { return *devices_; }
  /// The sheet as it would be printed now.
  [[nodiscard]] PrintSheet sheet() const;

protected:
  void load() override;
  bool unloading() override;

private:
  void wireControls();
  void print();
  [[nodiscard]] std::optional<PrintOrder> takeOrder();
  [[nodiscard]] PrintOrder readOrder() const;
  bool chooseFile(PrintOrder& order) const;
  void carryOut(const PrintOrder& order);
  PrintOutcome processed(const PrintOrder& order);
  void showProcessing(bool on);
  void showResult(const PrintOrder& order, const PrintOutcome& outcome);
  void tellFailure(const QString& why);
  void tellNotSaved(const QString& why);
  void tellNoPrinters(const QString& why);
  void choicesChanged();
  void updatePreview();
  void updateEnabled();
  [[nodiscard]] QString suggestedFile() const;
  [[nodiscard]] PrintChoices readChoices() const;
  [[nodiscard]] PrintSettings readSettings() const;

  WorkPool& pool_;
  AskPdfFile askPdfFile_;
  PrintPage page_;
  QString title_;
  std::unique_ptr<Ui::frmPrint> ui;
  PrinterThread printer_;
  PrintDevices* devices_;
  QTimer* pageWait_; ///< runs while the page is not there
  bool isProcessing_ = false;
  bool closed_ = false;
};

/// Asks by the desktop's file dialog.
std::optional<std::filesystem::path> askPdfFile(const QString& suggested);

} // namespace hearthbook
