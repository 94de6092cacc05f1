#pragma once

#include "Form.h"

#include <memory>

namespace Ui {
class frmAbout;
}

namespace hearthbook {

/// Tells the program's name and version. Opened from the Help menu; closes on OK.
class frmAbout : public Form {
  Q_OBJECT
public:
  frmAbout();
  ~frmAbout() override;

protected:
  void load() override;

private:
  std::unique_ptr<Ui::frmAbout> ui;
};

} // namespace hearthbook
