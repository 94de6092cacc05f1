#pragma once

#include "FileStamp.h"
#include "PictureLoader.h"

#include <QObject>

#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace hearthbook {

/// Pictures at the size at which they will be shown, which their own proportions decide.
///
/// The head of a file tells the proportions. It is read beside the window's thread and
/// remembered for as long as the file stays as it is, so that a picture that was decoded ahead
/// is there at once. Another picture may stand in for those that cannot be read.
class FittedPictures : public QObject {
  Q_OBJECT
public:
  struct Loaded {
    std::filesystem::path file; ///< whose picture it is: the stand-in's where `error` is not empty
    PixelSize fullSize{};       ///< of the file's picture
    Picture picture{};          ///< none where nothing could stand in
    std::string error{};        ///< why the file asked for cannot be shown, naming it
  };
  /// The size in device pixels at which a picture of this size is wanted; asked on the window's
  /// thread.
  using Fit = std::function<PixelSize(PixelSize picture)>;
  using Callback = std::function<void(const Loaded&)>;
  /// Letting it go forgets the request.
  using Ticket = std::shared_ptr<void>;

  /// Nothing stands in where `standIn` is empty.
  FittedPictures(PictureLoader& loader, WorkPool& pool, std::filesystem::path standIn = {});
  ~FittedPictures() override;

  /// If the picture is ready the callback runs before load() returns.
  [[nodiscard]] Ticket load(const std::filesystem::path& file, Fit fit, Callback callback);

  /// A picture that will probably be asked for.
  struct Wish {
    std::filesystem::path file;
    Fit fit;
  };

  /// Has pictures decoded that will probably be asked for next, the likeliest first. Newer
  /// wishes replace older ones; a broken or missing file is left out.
  void decodeAhead(std::vector<Wish> wishes);
  void decodeAhead(const std::vector<std::filesystem::path>& files, const Fit& fit);

private:
  struct Request;
  struct Head {
    FileStamp stamp;
    PixelSize size;
  };
  struct ReadHead {
    std::filesystem::path file;
    std::optional<Head> head;
    std::string error;
  };

  static ReadHead readHead(const std::filesystem::path& file);
  [[nodiscard]] std::optional<PixelSize> knownSize(const std::filesystem::path& file) const;
  void remember(const ReadHead& read);
  void begin(const std::shared_ptr<Request>& request);
  void start(const std::shared_ptr<Request>& request, PixelSize size);
  void headRead(const std::weak_ptr<Request>& asked, const ReadHead& read);
  void fail(const std::shared_ptr<Request>& request, const std::string& why);
  void beginAhead(const std::vector<Wish>& wishes);

  PictureLoader& loader_;
  WorkPool& pool_;
  std::filesystem::path standIn_;
  std::map<std::filesystem::path, Head> heads_;
  int wishes_ = 0; ///< counts decodeAhead(), so that a late head does not bring old wishes back
};

} // namespace hearthbook
