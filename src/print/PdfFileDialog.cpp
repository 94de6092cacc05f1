#include "NestedLoop.h"
#include "Text.h"
#include "frmPrint.h"

#include <QApplication>
#include <QFileDialog>

namespace hearthbook {

std::optional<std::filesystem::path> askPdfFile(const QString& suggested) {
  const UserTurn turn;
  QFileDialog dialog(QApplication::activeWindow(), QStringLiteral("Save The Page As PDF"));
  dialog.setAcceptMode(QFileDialog::AcceptSave);
  dialog.setNameFilter(QStringLiteral("PDF files (*.pdf)"));
  dialog.setDefaultSuffix(QStringLiteral("pdf"));
  dialog.selectFile(suggested);
  if (dialog.exec() != QDialog::Accepted || dialog.selectedFiles().isEmpty())
    return std::nullopt;
  return toPath(dialog.selectedFiles().constFirst());
}

} // namespace hearthbook
