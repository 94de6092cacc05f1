#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <regex>
#include <set>
#include <string>
#include <vector>

namespace hearthbook {

namespace {

const std::map<std::string, std::vector<std::string>> kItems = {
    {"Build Album",
     {"Add Event",
      "Add From File",
      "Add From Scanner",
      "Add Place",
      "Add To Sub-Album",
      "Add/Update Names",
      "Delete",
      "Delete Event",
      "Delete Place",
      "Description",
      "Done",
      "Edit Image",
      "Event",
      "Family Members",
      "Find Next Empty",
      "Find Photo",
      "Find Year",
      "Go To",
      "Mark Names",
      "Names",
      "Names In Photo",
      "Navigation Buttons",
      "Place",
      "Year"}},
    {"Search Album",
     {"Add To Sub-Album", "Batch Edit", "Clear All Selections", "Clear Selection", "Description",
      "Done", "Edit", "Events", "From Year", "Names", "Navigation Buttons", "Places", "Search",
      "Sort By", "Thumbnails", "To Year", "View"}},
    {"View Album",
     {"Done", "E-Mail", "Edit All/Selected", "Names List", "Navigation Buttons", "Photos",
      "Remove From Album", "Zoom"}},
    {"Zoom", {"Navigation Buttons", "Slide", "Zoom In", "Zoom Out"}},
    {"Add From File",
     {"Add Files", "Copy Files", "Directory List", "Drive", "File List", "Help", "Move Files",
      "Transfer Method"}},
    {"Name Properties",
     {"Add New", "Birthday", "First Name", "Help", "Last Name", "Name List", "Relation",
      "Screen Name"}},
    {"E-Mail", {"Message", "Recipient", "Sender", "Subject"}},
    {"Sub-Album Editor",
     {"Add Background Audio", "Add New Sub-Album", "Add Photos To Selected", "Album Name", "Delete",
      "Description", "DragDrop", "Help", "Sort options", "Sub-Album List"}},
};

std::map<std::string, std::string> readRows() {
  std::ifstream in(HELP_ROWS);
  std::map<std::string, std::string> rows;
  std::string line;
  std::string key;
  while (std::getline(in, line)) {
    if (line.size() > 2 && line.front() == '[' && line.back() == ']')
      key = line.substr(1, line.size() - 2);
    else
      rows[key] += line;
  }
  return rows;
}

TEST(HelpRows, EveryKeyThatAFormSendsIsExplained) {
  const auto rows = readRows();
  for (const auto& [screen, items] : kItems) {
    for (const auto& item : items) {
      const std::string key = screen + "*" + item;
      ASSERT_EQ(rows.count(key), 1U) << key;
      EXPECT_GT(rows.at(key).size(), 15U) << key << " is not a sentence";
      EXPECT_EQ(rows.at(key).back(), '.') << key << " is not a sentence";
    }
  }
}

/// The keys that the .ui files give to controls.
std::set<std::string> keysInForms() {
  const std::regex key(R"re(name="helpKey"[^>]*>\s*<string[^>]*>([^<]*)<)re");
  std::set<std::string> keys;
  for (const auto& entry : std::filesystem::recursive_directory_iterator(SOURCES)) {
    if (entry.path().extension() != ".ui")
      continue;
    std::ifstream in(entry.path());
    const std::string text(std::istreambuf_iterator<char>(in), {});
    for (std::sregex_iterator found(text.begin(), text.end(), key), end; found != end; ++found)
      keys.insert((*found)[1]);
  }
  return keys;
}

TEST(HelpRows, EveryKeyInAFormHasItsRow) {
  const auto rows = readRows();
  const auto keys = keysInForms();
  EXPECT_FALSE(keys.empty());
  for (const auto& key : keys)
    EXPECT_EQ(rows.count(key), 1U) << key;
}

TEST(HelpRows, NothingIsExplainedThatNoFormSends) {
  std::size_t known = 0;
  for (const auto& [screen, items] : kItems)
    known += items.size();
  EXPECT_EQ(readRows().size(), known);
}

} // namespace

} // namespace hearthbook
