// Makes Photo_Album.mdb and Help.mdb as they are before the first start.

#include "DatabaseMaker.h"

#include <cstdio>
#include <exception>
#include <filesystem>

namespace {

namespace fs = std::filesystem;

void tell(const fs::path& file, bool made) {
  std::printf("%s %s\n", made ? "made" : "left as it is:", file.c_str());
}

void makeBoth(const fs::path& output, const fs::path& schema, const fs::path& helpRows) {
  const fs::path album = output / "Photo_Album.mdb";
  const fs::path help = output / "Help.mdb";
  tell(album, hearthbook::makeAlbumDatabase(album, schema));
  tell(help, hearthbook::makeHelpDatabase(help, schema, hearthbook::readHelpRows(helpRows)));
}

} // namespace

int main(int argc, char** argv) {
  if (argc != 4) {
    std::fputs("usage: make-databases <output folder> <schema folder> <help rows>\n", stderr);
    return 2;
  }
  try {
    makeBoth(argv[1], argv[2], argv[3]);
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make-databases: %s\n", error.what());
    return 1;
  }
}
