#include "DatabaseMemory.h"

#include "Connection.h"
#include "Machine.h"
#include "Recordset.h"

#include <cstdio>
#include <memory>
#include <stdexcept>
#include <string>

namespace hearthbook::bench {

std::size_t residentWithOpened(const std::filesystem::path& album) {
  const auto self = std::filesystem::read_symlink("/proc/self/exe");
  const std::string command = self.string() + " --resident " + album.string();
  const std::unique_ptr<FILE, int (*)(FILE*)> output(popen(command.c_str(), "r"), pclose);
  std::size_t bytes = 0;
  if (!output || std::fscanf(output.get(), "%zu", &bytes) != 1)
    throw std::runtime_error("cannot measure memory");
  return bytes;
}

int openAndTell(const char* album) {
  Connection connection;
  connection.Open(album);
  Recordset photos(connection);
  photos.Open("SELECT * FROM PhotoAlbum ORDER BY PictureID");
  std::printf("%zu\n", residentBytes());
  return 0;
}

} // namespace hearthbook::bench
