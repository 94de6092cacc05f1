#include "HyperlinkControl.h"

#include <utility>

namespace hearthbook {

HyperlinkControl::HyperlinkControl(QWidget* parent) : QWidget(parent) { hide(); }

void HyperlinkControl::setOpener(Opener opener) { opener_ = std::move(opener); }

bool HyperlinkControl::nav(const std::filesystem::path& page) const {
  return opener_ && opener_(page);
}

} // namespace hearthbook
