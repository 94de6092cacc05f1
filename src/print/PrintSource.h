#pragma once

#include "PrintPage.h"

namespace hearthbook {

/// A form whose page can be printed.
class PrintSource {
public:
  virtual ~PrintSource() = default;
  /// "Editor", "Zoom", "Search" or "Viewer": from where printing is called.
  [[nodiscard]] virtual const char* printTag() const = 0;
  /// False while pictures of another page may still be on the screen.
  [[nodiscard]] virtual bool isReadyToPrint() const = 0;
  [[nodiscard]] virtual PrintPage printPage() const = 0;
};

} // namespace hearthbook
