#include "PrintDevices.h"

#include "Beside.h"
#include "PassOver.h"
#include "Text.h"

#include <QComboBox>

namespace hearthbook {

namespace {

// A printer's entry holds its name, that of the PDF file none.
constexpr int printerRole = Qt::UserRole;

} // namespace

PrintDevices::PrintDevices(QComboBox& list, WorkPool& pool, QObject* parent)
    : QObject(parent), list_(list), pool_(pool) {
  list_.addItem(QStringLiteral("PDF file"));
  connect(&list_, &QComboBox::activated, this, [this] { chosenByUser_ = true; });
}

void PrintDevices::look() {
  looking_ = true;
  runBeside(
      pool_, this, find, [this](const Found& found) { show(found); }, true);
}

PrintDevices::Found PrintDevices::find() {
  Found found;
  try {
    found.printers = listPrinters();
  } catch (const std::exception& failure) {
    found.error = failure.what();
  }
  return found;
}

void PrintDevices::show(const Found& found) {
  looking_ = false;
  int row = 0;
  int current = 0;
  for (const Printer& printer : found.printers) {
    list_.insertItem(row, toQString(printer.name), toQString(printer.name));
    if (printer.isCurrent)
      current = row;
    ++row;
  }
  if (!chosenByUser_)
    list_.setCurrentIndex(current);
  Q_EMIT looked();
  if (!found.error.empty())
    Q_EMIT failed(toQString(found.error));
}

std::string PrintDevices::printer() const {
  return toUtf8(list_.currentData(printerRole).toString());
}

std::optional<TwipsSize> PrintDevices::ownPaper() const {
  const auto known = papers_.find(printer());
  return known == papers_.end() ? std::nullopt : known->second;
}

void PrintDevices::askForPaper() {
  const std::string asked = printer();
  if (asked.empty() || !papers_.try_emplace(asked).second)
    return;
  ++asking_;
  runBeside(
      pool_, this,
      [asked] {
        std::optional<TwipsSize> paper;
        passOver([&] { paper = ownPaperOf(asked); }); // printing on it will tell
        return paper;
      },
      [this, asked](const std::optional<TwipsSize>& paper) {
        --asking_;
        papers_[asked] = paper;
        Q_EMIT paperKnown();
      },
      true);
}

} // namespace hearthbook
