#pragma once

#include "Navigator.h"
#include "PictureLoader.h"

namespace hearthbook {

struct Album;
class MDIForm1;

/// Stands where the help window will: with "Show Help" off nothing is shown.
class NoHelp : public HoverHelp {
public:
  void workFormActive(const QString& /*screen*/) override {}
  void show(const QString& /*key*/) override {}
};

/// Says how each form of the program is made, and forgets it at its end.
class Wiring {
public:
  Wiring(Album& album, MDIForm1& frame);
  ~Wiring();
  Wiring(const Wiring&) = delete;
  Wiring& operator=(const Wiring&) = delete;

private:
  WorkPool pool_;
  PictureLoader loader_;
  NoHelp help_;
};

} // namespace hearthbook
