#include "Pointer.h"

#include <QCursor>
#include <QGuiApplication>

namespace hearthbook {

namespace {

int hourglasses = 0;

void setHourglasses(int count) {
  if (count > 0 && hourglasses == 0)
    QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  if (count == 0 && hourglasses > 0)
    QGuiApplication::restoreOverrideCursor();
  hourglasses = count;
}

} // namespace

Hourglass::Hourglass() { setHourglasses(hourglasses + 1); }

Hourglass::~Hourglass() { setHourglasses(hourglasses - 1); }

bool Hourglass::isShown() { return hourglasses > 0; }

int Hourglass::lift() {
  const int lifted = hourglasses;
  setHourglasses(0);
  return lifted;
}

void Hourglass::putBack(int count) { setHourglasses(count); }

} // namespace hearthbook
