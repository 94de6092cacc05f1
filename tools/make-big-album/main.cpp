#include "BigAlbum.h"

#include <cstdlib>
#include <exception>
#include <iostream>

int main(int argc, char** argv) {
  if (argc != 5) {
    std::cerr << "usage: make-big-album FOLDER PHOTOS SCHEMA_FOLDER HELP_ROWS\n"
                 "Makes the databases of an album of so many photos, without their pictures.\n";
    return 2;
  }
  try {
    hearthbook::makeBigAlbum(argv[1], {argv[3], argv[4], std::atoi(argv[2])});
    return 0;
  } catch (const std::exception& failure) {
    std::cerr << failure.what() << '\n';
    return 1;
  }
}
