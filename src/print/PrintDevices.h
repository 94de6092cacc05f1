#pragma once

#include "Printers.h"
#include "Twips.h"

#include <QObject>

#include <map>
#include <optional>
#include <string>
#include <vector>

class QComboBox;

namespace hearthbook {

class WorkPool;

/// The list of devices on the print form: the desktop's printers, which are looked for on the
/// printer's thread, and last a PDF file, which is always there.
class PrintDevices : public QObject {
  Q_OBJECT
public:
  PrintDevices(QComboBox& list, WorkPool& printer, QObject* parent);

  void look(); ///< for printers

  [[nodiscard]] bool isLooking() const { return looking_; }
  /// The chosen printer; empty for the PDF file.
  [[nodiscard]] std::string printer() const;

  /// The chosen device's own paper, upright, as far as it is known.
  [[nodiscard]] std::optional<TwipsSize> ownPaper() const;
  /// Asks the chosen printer for it; paperKnown tells.
  void askForPaper();
  [[nodiscard]] bool isAskingForPaper() const { return asking_ > 0; }

Q_SIGNALS:
  void looked();                   ///< the list is complete
  void failed(const QString& why); ///< the printers cannot be read
  void paperKnown();

private:
  struct Found {
    std::vector<Printer> printers;
    std::string error;
  };
  static Found find();
  void show(const Found& found);

  QComboBox& list_;
  WorkPool& pool_;
  bool looking_ = false;
  bool chosenByUser_ = false;
  int asking_ = 0;
  std::map<std::string, std::optional<TwipsSize>> papers_;
};

} // namespace hearthbook
