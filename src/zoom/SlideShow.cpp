#include "SlideShow.h"

#include <algorithm>

namespace hearthbook {

void SlideShow::setSeconds(int wanted) { seconds = std::clamp(wanted, shortest, longest); }

std::string SlideShow::label() const { return std::to_string(seconds) + " Sec."; }

std::string SlideShow::caption() const { return runs ? "Stop" : "Slide"; }

} // namespace hearthbook
