#include "HyperlinkControl.h"

#include "MsgBox.h"
#include "Text.h"

#include <utility>

namespace hearthbook {

HyperlinkControl::HyperlinkControl(QWidget* parent) : QWidget(parent) { hide(); }

void HyperlinkControl::setOpener(Opener opener) { opener_ = std::move(opener); }

bool HyperlinkControl::nav(const std::filesystem::path& page) const {
  return opener_ && opener_(page);
}

void openOrTell(const HyperlinkControl::Opener& opener, const std::filesystem::path& page,
                const QString& title, const QString& kind) {
  if (!opener || !opener(page))
    MsgBox(QStringLiteral("The desktop has no program to show the %1:\n").arg(kind) +
               toQString(page),
           title, MsgIcon::Exclamation);
}

} // namespace hearthbook
