#include "MailAttachments.h"

#include "MUUEncode.h"
#include "MailMessage.h"
#include "MailTitle.h"
#include "MsgBox.h"
#include "PlainFile.h"
#include "SendingPanel.h"
#include "Text.h"
#include "UserActs.h"

#include <fstream>
#include <sstream>
#include <system_error>
#include <utility>

namespace hearthbook {

namespace fs = std::filesystem;

namespace {

/// A file that is there for as long as it is encoded.
class TemporaryJpeg {
public:
  TemporaryJpeg(fs::path file, std::string_view bytes) : TemporaryJpeg(std::move(file)) {
    writePlainFile(file_, bytes); // where it fails, what there is of it is removed
  }
  ~TemporaryJpeg() {
    std::error_code gone;
    fs::remove(file_, gone);
  }
  TemporaryJpeg(const TemporaryJpeg&) = delete;
  TemporaryJpeg& operator=(const TemporaryJpeg&) = delete;

  [[nodiscard]] const fs::path& file() const { return file_; }

private:
  explicit TemporaryJpeg(fs::path file) : file_(std::move(file)) {}

  fs::path file_;
};

} // namespace

MailAttachments::MailAttachments(const ApplicationFolder& folder, SendingPanel& panel,
                                 std::function<bool()> isWanted)
    : folder_(folder), panel_(panel), isWanted_(std::move(isWanted)) {}

void MailAttachments::add(const fs::path& photo, std::string_view jpeg) {
  const TemporaryJpeg temporary(folder_.path("\\media\\" + photo.filename().string()), jpeg);
  text_ += MUUEncode(temporary.file()) + "\r\n";
}

std::string MailAttachments::MUUEncode(const fs::path& file) {
  try {
    return encoded(file);
  } catch (const std::exception&) {
    MsgBox(QStringLiteral("Error Preparing File!"), mailTitle, MsgIcon::Critical);
    return {};
  }
}

std::string MailAttachments::encoded(const fs::path& file) {
  UuProgress progress;
  progress.begun = [this](std::int64_t lines) { panel_.setMaximum(static_cast<int>(lines)); };
  progress.atLine = [this](std::int64_t line) { panel_.setValue(static_cast<int>(line)); };
  progress.yield = [this] {
    letUserAct();
    return isWanted_();
  };
  panel_.tell(QStringLiteral("Preparing File: ") + toQString(file));
  std::ifstream in(file, std::ios::binary);
  std::ostringstream text;
  hearthbook::MUUEncode(in, fs::file_size(file), onOneLine(file.filename().string()), text,
                        progress);
  return std::move(text).str();
}

} // namespace hearthbook
