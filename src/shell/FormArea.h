#pragma once

#include "FormWindow.h"

#include <QMargins>

#include <memory>
#include <vector>

namespace hearthbook {

/// The frame's inside: the start screen behind, the work forms over it, the last one shown in
/// front, on the desk that the frame paints.
class FormArea : public QWidget {
  Q_OBJECT
public:
  explicit FormArea(QWidget* parent = nullptr);
  ~FormArea() override;

  void showForm(Form& form); ///< to the front; the backdrop always behind
  void hideForm(Form& form);
  void removeForm(Form& form);

  /// The work form in front, else the backdrop, else null.
  [[nodiscard]] Form* frontForm() const;

  /// What a work form has for itself below its title bar, were nothing left free.
  [[nodiscard]] QSize formRoom() const;
  /// Edges of that room which the work forms leave to a window that lies over the frame.
  void leaveFree(QMargins edges);

protected:
  void resizeEvent(QResizeEvent* event) override;

private:
  void showBackdrop(Form& form);
  void fitBackdrop();
  void settleFront();
  void focusFront();
  void watch(Form& form);
  void forget(const QObject* form);
  [[nodiscard]] FormWindow* windowOf(const Form& form) const;

  Form* backdrop_ = nullptr;
  QMargins free_;
  std::vector<FormWindow*> windows_; ///< shown ones, the front one last
  const Form* focused_ = nullptr;    ///< the front form that was given the focus
};

} // namespace hearthbook
