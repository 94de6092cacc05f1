#include "FormArea.h"

#include "Look.h"
#include "StartupPlace.h"

#include <algorithm>
#include <utility>

namespace hearthbook {

FormArea::FormArea(QWidget* parent) : QWidget(parent) {
  QPalette desk = palette();
  desk.setColor(QPalette::Window, look::desk);
  setPalette(desk);
  setAutoFillBackground(true);
}

FormArea::~FormArea() {
  for (FormWindow* window : windows_)
    window->release();
  if (backdrop_)
    backdrop_->setParent(nullptr);
}

FormWindow* FormArea::windowOf(const Form& form) const {
  const auto found = std::find_if(windows_.begin(), windows_.end(),
                                  [&](const FormWindow* w) { return &w->form() == &form; });
  return found == windows_.end() ? nullptr : *found;
}

void FormArea::showForm(Form& form) {
  if (form.kind() == Form::Kind::Backdrop) {
    showBackdrop(form);
    return;
  }
  FormWindow* window = windowOf(form);
  if (!window) {
    window = new FormWindow(form, this);
    window->leaveFree(free_);
    watch(form);
  }
  std::erase(windows_, window);
  windows_.push_back(window);
  window->setGeometry(rect());
  form.show();
  window->show();
  window->raise();
  settleFront();
}

void FormArea::showBackdrop(Form& form) {
  backdrop_ = &form;
  watch(form);
  form.setParent(this);
  form.setWindowFlags(Qt::SubWindow | Qt::FramelessWindowHint);
  fitBackdrop();
  form.lower();
  form.show();
  settleFront();
}

void FormArea::watch(Form& form) {
  connect(&form, &QObject::destroyed, this, &FormArea::forget, Qt::UniqueConnection);
}

// A form that refuses to be unloaded at the very end is destroyed as it stands.
void FormArea::forget(const QObject* form) {
  if (form == backdrop_)
    backdrop_ = nullptr;
  std::erase_if(windows_, [&](FormWindow* window) {
    if (&window->form() != form)
      return false;
    window->deleteLater();
    return true;
  });
}

void FormArea::hideForm(Form& form) { removeForm(form); }

void FormArea::removeForm(Form& form) {
  if (&form == backdrop_) {
    form.hide();
    form.setParent(nullptr);
    backdrop_ = nullptr;
  }
  if (FormWindow* window = windowOf(form)) {
    std::erase(windows_, window);
    window->release();
    window->hide();
    window->deleteLater();
  }
  settleFront();
}

Form* FormArea::frontForm() const {
  return windows_.empty() ? backdrop_ : &windows_.back()->form();
}

QSize FormArea::formRoom() const {
  return windows_.empty() ? size() : size() - QSize(0, windows_.back()->titleHeight());
}

void FormArea::leaveFree(QMargins edges) {
  free_ = edges;
  for (FormWindow* window : windows_)
    window->leaveFree(edges);
}

// The commands of the start screen assume that no work form is open, so they rest while one is. A
// covered form is hidden, or its shortcuts would be there beside those of the front one; not before
// the focus has gone, so that it comes back to where it was.
void FormArea::settleFront() {
  if (!windows_.empty())
    windows_.back()->show();
  if (backdrop_)
    backdrop_->setEnabled(windows_.empty());
  focusFront();
  for (FormWindow* window : windows_)
    window->setVisible(window == windows_.back());
}

void FormArea::focusFront() {
  const Form* front = frontForm();
  if (std::exchange(focused_, front) == front)
    return;
  if (!windows_.empty())
    windows_.back()->focusForm();
  else if (backdrop_)
    backdrop_->setFocus(Qt::ActiveWindowFocusReason);
}

void FormArea::fitBackdrop() {
  if (!backdrop_)
    return;
  const QSize frame = window()->frameSize();
  const auto told = startupSize({static_cast<double>(frame.width()) * twipsPerPixel,
                                 static_cast<double>(frame.height()) * twipsPerPixel});
  if (!told)
    return;
  QRect place(0, 0, static_cast<int>(told->width / twipsPerPixel),
              static_cast<int>(told->height / twipsPerPixel));
  place.moveCenter(rect().center());
  backdrop_->setGeometry(place);
}

void FormArea::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitBackdrop();
  for (FormWindow* window : windows_)
    window->setGeometry(rect());
}

} // namespace hearthbook
