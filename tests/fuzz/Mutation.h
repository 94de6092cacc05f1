#pragma once

#include <cstddef>
#include <random>
#include <string>
#include <string_view>
#include <vector>

namespace hearthbook::test {

/// Damages texts in the same way in every run.
class Mutation {
public:
  explicit Mutation(unsigned seed, std::vector<std::string> fragments)
      : random_(seed), fragments_(std::move(fragments)) {}

  /// One to eight places are cut, doubled, or filled with fragments and odd bytes.
  std::string damaged(std::string text) {
    for (std::size_t times = 1 + below(8); times > 0; --times)
      damageOnce(text);
    return text;
  }

  std::size_t below(std::size_t bound) { return bound == 0 ? 0 : random_() % bound; }

private:
  void damageOnce(std::string& text) {
    const std::size_t at = below(text.size() + 1);
    switch (below(4)) {
    case 0:
      text.erase(at, 1 + below(6));
      break;
    case 1:
      text.insert(at, fragments_[below(fragments_.size())]);
      break;
    case 2:
      text.insert(at, text.substr(below(text.size() + 1), below(20)));
      break;
    default:
      text.insert(at, 1, static_cast<char>(below(256)));
    }
  }

  std::mt19937 random_;
  std::vector<std::string> fragments_;
};

} // namespace hearthbook::test
