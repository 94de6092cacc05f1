#pragma once

#include "FittedPictures.h"
#include "StripGeometry.h"
#include "Twips.h"

#include <cstddef>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

namespace hearthbook {

class Stage;

/// The thumbnails that the strip holds as pictures, by the position of their photo: those of
/// the rows in view, however many photos there are.
class StripPictures {
public:
  struct Source {
    PictureLoader& loader;
    WorkPool& pool;
    std::function<std::optional<std::filesystem::path>(const std::string& photoId)> fileOf;
    std::filesystem::path notFound; ///< stands in for what cannot be read
  };
  struct Shown {
    Picture picture;
    TwipsSize size; ///< of its own, or as large as a cell
  };

  StripPictures(const Stage& stage, Source source,
                std::function<void(std::size_t position)> arrived);
  ~StripPictures();

  void load(std::size_t position, const std::string& photoId);
  void blank(StripRange range);
  void clear();
  void loadAgain(); ///< for another size of the stage
  /// A photo was moved, and those between with it.
  void move(std::size_t from, std::size_t to);
  /// Lets go of what is out of view.
  void keepOnly(StripRange range);

  [[nodiscard]] bool holds(std::size_t position) const { return held_.contains(position); }
  [[nodiscard]] std::size_t count() const { return held_.size(); }
  [[nodiscard]] bool isWaiting() const;
  /// Nothing until the pixels are there.
  [[nodiscard]] std::optional<Shown> at(std::size_t position) const;

private:
  struct Held;
  void request(Held& held);
  void arrived(Held& held, const FittedPictures::Loaded& loaded);

  const Stage& stage_;
  Source source_;
  std::function<void(std::size_t)> arrived_;
  FittedPictures pictures_;
  std::map<std::size_t, std::unique_ptr<Held>> held_;
};

} // namespace hearthbook
