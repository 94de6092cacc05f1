#pragma once

#include "Scanner.h"

#include <sane/sane.h>

#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook {

/// The settings of an open scanner, by name. To set one may bring others or take them away.
class SaneOptions {
public:
  explicit SaneOptions(SANE_Handle device);

  /// Sets what the wish asks for as nearly as the scanner can, on the whole of its glass. Throws
  /// ScanFailure where a further setting does not exist or is refused.
  void follow(const ScanWish& wish);

  /// The resolution that it scans at now; 0 where it does not tell.
  [[nodiscard]] int dotsPerInch() const;

private:
  struct Option {
    SANE_Int index;
    const SANE_Option_Descriptor* about;
  };

  void readNames();
  [[nodiscard]] std::optional<Option> find(std::string_view name) const;
  bool write(const Option& option, void* value);
  bool setNumber(std::string_view name, double value);
  bool setText(std::string_view name, const std::string& text);
  bool setNamed(std::string_view name, const std::string& text);
  void chooseColour();
  void chooseResolution(int dotsPerInch);
  void chooseWholeGlass();

  SANE_Handle device_;
  std::map<std::string, SANE_Int, std::less<>> indices_;
};

} // namespace hearthbook
