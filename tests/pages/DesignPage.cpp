// Makes a page as the program does, in an application folder that has its designs:
//     design_page FOLDER DESIGN [background=FILE] [music=FILE] [text:TAG=WORDS]...
//     [photo:TAG=FILE]...
#include "Decode.h"
#include "DesignByName.h"
#include "DesignedPage.h"

#include <exception>
#include <iostream>
#include <span>
#include <stdexcept>
#include <string>

namespace hearthbook::test {

namespace {

DesignedPage::Photo photoFor(const PageDesign& design, const std::string& tag,
                             const std::filesystem::path& file) {
  for (const DesignBox& box : design.boxes)
    if (box.tag == tag)
      return {tag, decodePicture(file).picture, photoPixels(box)};
  throw std::invalid_argument("no box " + tag);
}

void put(DesignedPage& page, const PageDesign& design, const std::string& told) {
  const auto end = told.find('=');
  const std::string what = told.substr(0, end);
  const std::string value = told.substr(end + 1);
  if (what == "background")
    page.background = value;
  else if (what == "music")
    page.music = value;
  else if (what.starts_with("text:"))
    page.texts.push_back({what.substr(5), value});
  else if (what.starts_with("photo:"))
    page.photos.push_back(photoFor(design, what.substr(6), value));
  else
    throw std::invalid_argument("what is " + told + "?");
}

void makePage(std::span<char*> arguments) {
  const PageDesign& design = designOfName(arguments[1]);
  DesignedPage page{design.name, {}, {}, {}, {}};
  for (const char* told : arguments.subspan(2))
    put(page, design, told);
  std::cout << writeDesignedPage(ApplicationFolder(arguments[0]), page).string() << '\n';
}

} // namespace

} // namespace hearthbook::test

int main(int count, char** arguments) {
  try {
    if (count < 3)
      throw std::invalid_argument("design_page FOLDER DESIGN ...");
    hearthbook::test::makePage({arguments + 1, static_cast<std::size_t>(count - 1)});
    return 0;
  } catch (const std::exception& error) {
    std::cerr << error.what() << '\n';
    return 1;
  }
}
