#include "SendingPanel.h"

#include "Look.h"

#include <QFrame>
#include <QLabel>
#include <QProgressBar>

namespace hearthbook {

SendingPanel::SendingPanel(const Parts& parts) : parts_(parts) {
  QPalette paper = parts_.frame->palette();
  paper.setColor(QPalette::Window, look::panelYellow);
  parts_.frame->setPalette(paper);
  QPalette heading = parts_.heading->palette();
  heading.setColor(QPalette::WindowText, look::darkRed);
  parts_.heading->setPalette(heading);
  QFont large = parts_.heading->font();
  large.setPointSizeF(look::headingPoints);
  parts_.heading->setFont(large);
  hide();
}

void SendingPanel::show() {
  tell({});
  setMaximum(1);
  setValue(0);
  parts_.frame->show();
  parts_.frame->raise();
  parts_.frame->repaint();
}

void SendingPanel::hide() { parts_.frame->hide(); }

void SendingPanel::tell(const QString& note) { parts_.note->setText(note); }

void SendingPanel::setMaximum(int maximum) { parts_.bar->setRange(0, maximum); }

void SendingPanel::setValue(int value) { parts_.bar->setValue(value); }

void SendingPanel::setBusy() { setMaximum(0); }

} // namespace hearthbook
