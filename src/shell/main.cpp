#include "FormWindow.h"
#include "Guard.h"
#include "Look.h"
#include "Program.h"
#include "Text.h"

#include <QDesktopServices>
#include <QStandardPaths>
#include <QUrl>

namespace {

bool openInDesktop(const std::filesystem::path& document) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(hearthbook::toQString(document)));
}

std::filesystem::path userFolder() {
  const QString data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
  return hearthbook::toPath(data) / "Hearthbook";
}

} // namespace

int main(int argc, char** argv) {
  hearthbook::EarlyStart early("/proc/self/exe", userFolder());
  hearthbook::GuardedApplication application(argc, argv);
  QCoreApplication::setApplicationName(QStringLiteral("Hearthbook"));
  QCoreApplication::setApplicationVersion(QStringLiteral(HEARTHBOOK_VERSION));
  hearthbook::applyLook(application);
  hearthbook::announceFormWindows();

  hearthbook::ShellServices services;
  services.openDocument = openInDesktop;
  return hearthbook::runHearthbook(early, services);
}
