#include "frmPrint.h"

#include "Command.h"
#include "CopiesBox.h"
#include "MsgBox.h"
#include "PrintCopies.h"
#include "PrintDevices.h"
#include "PrintLayout.h"
#include "PrintNote.h"
#include "PrintPreview.h"
#include "PrintRun.h"
#include "SheetText.h"
#include "Text.h"
#include "UserActs.h"
#include "ui_frmPrint.h"

#include <QDir>
#include <QScopeGuard>
#include <QScreen>
#include <QStandardPaths>
#include <QTimer>

#include <utility>

namespace hearthbook {

namespace {

constexpr int msBetweenLooks = 20;

PrintType sheetType() { return {sheetWidthOf, sheetLineHeight()}; }

/// A name that every disk takes.
QString fileNameOf(QString title) {
  for (QChar& c : title)
    if (!c.isLetterOrNumber() && !QStringLiteral(" -_.,()").contains(c))
      c = QLatin1Char('_');
  constexpr int longest = 80;
  return title.trimmed().left(longest);
}

} // namespace

frmPrint::frmPrint(WorkPool& pool, AskPdfFile askPdfFile)
    : Form(QStringLiteral("frmPrint"), Kind::Dialog), pool_(pool),
      askPdfFile_(std::move(askPdfFile)), ui(std::make_unique<Ui::frmPrint>()) {
  ui->setupUi(this);
  resize(size().expandedTo(screen()->availableSize() * 6 / 10)); // a larger preview
  devices_ = new PrintDevices(*ui->Combo1, printer_.work(), this);
  pageWait_ = new QTimer(this);
  new CopiesBox(*ui->Text1, *ui->VScroll2, this);
  QSizePolicy keepsItsPlace = ui->Frame7->sizePolicy();
  keepsItsPlace.setRetainSizeWhenHidden(true);
  ui->Frame7->setSizePolicy(keepsItsPlace);
  ui->Frame7->hide();
  wireControls();
}

frmPrint::~frmPrint() = default;

void frmPrint::wireControls() {
  // What is printed, and on what
  connect(ui->Combo1, &QComboBox::currentIndexChanged, this, &frmPrint::choicesChanged);
  connect(ui->Combo2, &QComboBox::currentIndexChanged, this, &frmPrint::choicesChanged);
  for (QAbstractButton* choice : std::initializer_list<QAbstractButton*>{
           ui->Option1, ui->Option2, ui->Option6, ui->Option7, ui->Option8, ui->Option9})
    connect(choice, &QAbstractButton::toggled, this, &frmPrint::choicesChanged);
  connect(devices_, &PrintDevices::looked, this, &frmPrint::updateEnabled);
  connect(devices_, &PrintDevices::failed, this, &frmPrint::tellNoPrinters);
  connect(devices_, &PrintDevices::paperKnown, this, &frmPrint::updatePreview);
  // The commands
  onCommand(ui->Command4, this, &frmPrint::print);     // "Print"
  onCommand(ui->Command1, this, [this] { Unload(); }); // "Close"
}

void frmPrint::load() {
  ui->Combo2->addItem(QStringLiteral("Letter (8.5 x 11 in.)"));
  ui->Combo2->addItem(QStringLiteral("Photo Paper (4 x 6 in.)"));
  devices_->look();
  updateEnabled();
}

/// An answer that is still on its way is nobody's any more.
bool frmPrint::unloading() {
  devices_->disconnect(this);
  pageWait_->stop();
  closed_ = true;
  return true;
}

void frmPrint::setPage(PrintPage page, const QString& title) {
  page_ = std::move(page);
  title_ = title;
  updatePreview();
  updateEnabled();
}

/// Photos may lie on a disk that does not answer.
void frmPrint::setPageWhen(const std::function<bool()>& isReady,
                           const std::function<PrintPage()>& page, const QString& title) {
  const auto take = [this, isReady, page, title] {
    if (!isReady())
      return false;
    pageWait_->stop();
    setPage(page(), title);
    return true;
  };
  if (take())
    return;
  connect(pageWait_, &QTimer::timeout, this, take);
  pageWait_->start(msBetweenLooks);
  updateEnabled();
}

bool frmPrint::isWaitingForPage() const { return pageWait_->isActive(); }

void frmPrint::allowPhotoChoices() {
  for (QWidget* choice : std::initializer_list<QWidget*>{ui->Option6, ui->Option7, ui->Option8,
                                                         ui->Option9, ui->Combo2})
    choice->setEnabled(true);
}

PrintChoices frmPrint::readChoices() const {
  return {ui->Option7->isChecked() ? PaperOrientation::Portrait : PaperOrientation::Landscape,
          ui->Option8->isChecked() ? PrintSize::Original : PrintSize::FitToPage,
          ui->Combo2->currentIndex() <= 0 ? PaperSize::Letter : PaperSize::Photo};
}

PrintSettings frmPrint::readSettings() const {
  PrintSettings settings;
  settings.copies = copiesOf(toUtf8(ui->Text1->text()));
  settings.colorMode = ui->Option1->isChecked() ? ColorMode::Color : ColorMode::Monochrome;
  settings.quality = ui->Option3->isChecked()   ? PrintQuality::Best
                     : ui->Option4->isChecked() ? PrintQuality::Normal
                                                : PrintQuality::Draft;
  settings.media = paperFor(page_, readChoices(), std::nullopt).media;
  return settings;
}

PrintSheet frmPrint::sheet() const {
  const PrintChoices choices = readChoices();
  return layOut(page_, choices, paperFor(page_, choices, devices_->ownPaper()), sheetType());
}

void frmPrint::choicesChanged() {
  if (leavesPaper(page_, readChoices()))
    devices_->askForPaper();
  updatePreview();
}

void frmPrint::updatePreview() {
  ui->preview->showSheet(sheet(),
                         ui->Option1->isChecked() ? ColorMode::Color : ColorMode::Monochrome);
  ui->sheetNote->setText(
      toQString(printNote(page_, readChoices(), devices_->ownPaper(), sheetType())));
}

void frmPrint::updateEnabled() {
  const bool hasPage = !ui->preview->sheet().operations.empty() && !isWaitingForPage();
  ui->Command4->setEnabled(hasPage && !devices_->isLooking() && // the device may change until then
                           !isProcessing_);
  for (QWidget* group :
       std::initializer_list<QWidget*>{ui->printerGroup, ui->copiesGroup, ui->colorGroup,
                                       ui->qualityGroup, ui->orientationGroup, ui->sizeGroup})
    group->setEnabled(!isProcessing_);
  ui->note->setText(isWaitingForPage()      ? QStringLiteral("Waiting for the photos...")
                    : !hasPage              ? QStringLiteral("There is nothing to print.")
                    : devices_->isLooking() ? QStringLiteral("Looking for printers...")
                                            : QString());
}

void frmPrint::print() {
  std::optional<PrintOrder> order;
  try {
    order = takeOrder();
    if (order)
      carryOut(*order);
  } catch (const std::exception& failure) {
    if (closed_)
      return;
    const QString why = toQString(failure.what());
    if (order && order->printer.empty())
      tellNotSaved(why);
    else
      tellFailure(why);
  }
}

/// The form is read before the file is asked for: a wrong entry is told at once. Nothing where the
/// user thinks better of it.
std::optional<PrintOrder> frmPrint::takeOrder() {
  PrintOrder order;
  {
    showProcessing(true);
    const auto end = qScopeGuard([this] { showProcessing(false); });
    letUserActUntil([this] { return closed_ || !devices_->isAskingForPaper(); });
    order = readOrder();
  }
  return closed_ || !chooseFile(order) ? std::nullopt : std::optional(std::move(order));
}

PrintOrder frmPrint::readOrder() const {
  return {sheet(), readSettings(), toUtf8(title_), devices_->printer(), {}};
}

/// False where the user thinks better of it. Paper needs no file.
bool frmPrint::chooseFile(PrintOrder& order) const {
  if (!order.printer.empty())
    return true;
  const auto file = askPdfFile_(suggestedFile());
  order.file = file.value_or(std::filesystem::path());
  return file.has_value();
}

void frmPrint::carryOut(const PrintOrder& order) {
  if (const PrintOutcome outcome = processed(order); outcome.isDone)
    showResult(order, outcome);
}

PrintOutcome frmPrint::processed(const PrintOrder& order) {
  showProcessing(true);
  const auto end = qScopeGuard([this] { showProcessing(false); });
  ui->ProgressBar1->setMaximum(printSteps(page_));
  const auto tell = [this](PrintStep step, std::size_t pictures) {
    if (const auto value = printStepValue(page_, step, pictures))
      ui->ProgressBar1->setValue(*value);
  };
  return runPrint(pool_, printer_, order, {tell, [this] { return !closed_; }});
}

/// Only closing is possible meanwhile.
void frmPrint::showProcessing(bool on) {
  ui->ProgressBar1->reset();
  ui->Frame7->setVisible(on);
  isProcessing_ = on;
  if (on)
    setFocus(); // not on to Close, which a second Return would press
  updateEnabled();
  if (!on)
    ui->Command4->setFocus();
}

void frmPrint::showResult(const PrintOrder& order, const PrintOutcome& outcome) {
  QString result = order.printer.empty()
                       ? QStringLiteral("Saved as %1").arg(toQString(order.file))
                       : QStringLiteral("Sent to %1.").arg(toQString(order.printer));
  if (outcome.standIns > 0)
    result += QStringLiteral("\nNot every photo could be read: what the screen shows of it was "
                             "printed.");
  ui->note->setText(result);
}

void frmPrint::tellNotSaved(const QString& why) {
  ui->note->setText(why);
  MsgBox(QStringLiteral("The page could not be saved as a PDF file.\n\n") + why,
         QStringLiteral("Print"), MsgIcon::Exclamation);
}

void frmPrint::tellFailure(const QString& why) {
  ui->note->setText(why);
  MsgBox(QStringLiteral("Can not print page, printer not responding or not compatible with this "
                        "action.\r\nPlease make sure your printer is connected and configured, and "
                        "that you selected a valid device!"),
         QStringLiteral("Print"));
}

void frmPrint::tellNoPrinters(const QString& why) {
  MsgBox(QStringLiteral("Can not print page. Please make sure your printer is connected and "
                        "configured, and that you selected a valid device!\n\n%1\nThe page can "
                        "still be saved as a PDF file.")
             .arg(why));
}

QString frmPrint::suggestedFile() const {
  QDir folder(QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation));
  if (!folder.exists())
    folder = QDir::home();
  const QString name = fileNameOf(title_);
  return folder.filePath((name.isEmpty() ? QStringLiteral("Hearthbook") : name) +
                         QStringLiteral(".pdf"));
}

} // namespace hearthbook
