// Makes the template waves of the application folder.

#include "TemplateWaves.h"

#include <cstdio>
#include <exception>

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fputs("usage: make-waves <application folder>\n", stderr);
    return 2;
  }
  try {
    hearthbook::makeTemplateWaves(hearthbook::ApplicationFolder(argv[1]));
    return 0;
  } catch (const std::exception& error) {
    std::fprintf(stderr, "make-waves: %s\n", error.what());
    return 1;
  }
}
