#include "PdfPages.h"

#include "ChildProcess.h"
#include "Decode.h"
#include "FileBytes.h"
#include "TemporaryFolder.h"

#include <stdexcept>

namespace hearthbook::test {

namespace {

void run(const std::vector<std::string>& command, const std::filesystem::path& folder) {
  if (runProcess(command, {"HOME=" + folder.string()}) != 0)
    throw std::runtime_error(command.front() + " cannot read " + command.at(command.size() - 2));
}

} // namespace

std::vector<Picture> pdfPages(const std::filesystem::path& file, int dotsPerInch) {
  const TemporaryFolder folder;
  run({"pdftoppm", "-png", "-r", std::to_string(dotsPerInch), file.string(),
       (folder.path() / "page").string()},
      folder.path());
  std::vector<Picture> pages;
  for (const std::string& name : namesIn(folder.path()))
    pages.push_back(decodePicture(folder.path() / name).picture);
  return pages;
}

std::string pdfText(const std::filesystem::path& file) {
  const TemporaryFolder folder;
  const auto text = folder.path() / "text";
  run({"pdftotext", "-layout", file.string(), text.string()}, folder.path());
  return readBytes(text);
}

} // namespace hearthbook::test
