#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace hearthbook {

/// The name under which `folder` holds an entry called `name` in any case: `name` itself where
/// that is there, else the first other spelling in the order of the alphabet, else `name`.
std::string spellingIn(const std::filesystem::path& folder, std::string_view name);

} // namespace hearthbook
