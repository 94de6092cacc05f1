#include "frmAbout.h"

#include "Command.h"
#include "Text.h"
#include "ui_frmAbout.h"

#include <QCoreApplication>
#include <QIcon>

namespace hearthbook {

namespace {

constexpr QSize iconSize{96, 96};

} // namespace

frmAbout::frmAbout() : Form(toQString("frmAbout"), Kind::Dialog), ui(new Ui::frmAbout) {
  ui->setupUi(this);
  onCommand(ui->cmdOK, this, &frmAbout::Unload); // "OK"
}

frmAbout::~frmAbout() = default;

void frmAbout::load() {
  setCaption(toQString("About Hearthbook"));
  ui->imgProgram->setPixmap(windowIcon().pixmap(iconSize));
  ui->lblTitle->setText(toQString("Hearthbook"));
  ui->lblVersion->setText(QStringLiteral("Version ") + QCoreApplication::applicationVersion());
  ui->cmdOK->setDefault(true);
  ui->cmdOK->setFocus();
}

} // namespace hearthbook
