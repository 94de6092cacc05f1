#pragma once

#include "AlbumFolder.h"

#include <gtest/gtest.h>

namespace hearthbook::test {

/// For tests that each need an album of their own.
class AlbumFixture : public testing::Test {
protected:
  AlbumFixture() { folder_.open(); }

  [[nodiscard]] Album& album() { return folder_.album(); }
  [[nodiscard]] AlbumData& data() { return folder_.album().data; }
  [[nodiscard]] PublicVar& vars() { return folder_.album().vars; }
  [[nodiscard]] std::filesystem::path at(const std::string& relative) const {
    return folder_.at(relative);
  }

  AlbumFolder folder_;
};

} // namespace hearthbook::test
