#include "Scan.h"

#include "Command.h"
#include "Guard.h"
#include "ui_Scan.h"

#include <QTimer>

#include <chrono>
#include <utility>

namespace hearthbook {

namespace {

/// What is done sooner than one could read what is being done is not announced.
constexpr std::chrono::milliseconds worthTelling{250};

} // namespace

void Scan::beginWork(Work work, const QString& words) {
  work_ = work;
  ++job_;
  if (work == Work::Saving)
    hourglass_.emplace();
  ui->ProgressBar1->setRange(0, 0);
  if (work != Work::Editing)
    return showWork(words);
  updateEnabled();
  QTimer::singleShot(worthTelling, this, [this, words, job = job_] {
    if (job == job_ && isBusy() && !isWorkShown_)
      showWork(words);
  });
}

void Scan::showWork(const QString& words) {
  isWorkShown_ = true;
  updateEnabled();
  say(words);
}

void Scan::endWork() {
  work_ = Work::None;
  isWorkShown_ = false;
  hourglass_.reset();
  said_.clear();
  showPage();
}

void Scan::stop() {
  if (work_ == Work::Scanning) {
    isPageGivenUp_ = true;
    return scanner_.cancel(); // it answers at once
  }
  const bool wasLoading = work_ == Work::Loading;
  ++job_;
  dropWhatWaits();
  endWork();
  if (wasLoading)
    say(QStringLiteral("It was not opened."));
}

// ---- commands that are given meanwhile

void Scan::onCommandInTurn(QAbstractButton* button, std::function<void()> command) {
  onCommand(button, this, [this, wished = Waiting{std::move(command)}] { doInTurn(wished); });
}

void Scan::onSaveInTurn(QAbstractButton* button, std::function<void()> save) {
  onCommand(button, this, [this, wished = Waiting{std::move(save), true}] { doInTurn(wished); });
}

void Scan::doInTurn(const Waiting& wished) {
  if (work_ != Work::Editing)
    return wished.command();
  waiting_.push_back(wished);
  updateEnabled();
}

void Scan::doWhatWaits() {
  while (!waiting_.empty() && !isBusy()) {
    const std::function<void()> command = std::move(waiting_.front().command);
    waiting_.pop_front();
    if (!guarded(command))
      dropWhatWaits();
  }
  if (!isBusy() && std::exchange(isCloseWished_, false))
    Unload();
}

void Scan::dropWhatWaits() {
  waiting_.clear();
  isCloseWished_ = false;
}

} // namespace hearthbook
