#include "FoundAlbum.h"
#include "KilledTest.h"
#include "PhotoOrder.h"
#include "SubAlbums.h"

#include <string>
#include <vector>

namespace hearthbook {
namespace {

namespace fs = std::filesystem;
using test::FoundAlbum;

constexpr int orderedPhotos = 300; // so that their rows fill several pages of the file

std::string orderedId(int number) {
  const std::string digits = std::to_string(number);
  return "HD" + std::string(5 - digits.size(), '0') + digits;
}

class KilledOrder : public test::KilledTest {
protected:
  KilledOrder() {
    folder_.open();
    folder_.album().data.AlbumDB.transaction([&] {
      for (int number = 1; number <= orderedPhotos; ++number)
        folder_.album().data.AlbumDB.execute(
            "INSERT INTO SubAlbumPhotos (AlbumID, PhotoID, [Index]) VALUES (1, '" +
            orderedId(number) + "', " + std::to_string(number - 1) + ")");
    });
    folder_.close();
    fs::remove_all(folder_.at("Media")); // less to copy at each step
  }

  static std::vector<std::string> order(FoundAlbum& found) {
    Recordset& members = found.data().rsSubAlbumPhotos;
    members.Open(stripQuery("1"));
    std::vector<std::string> ids;
    for (; !members.atEOF(); members.MoveNext())
      ids.push_back(members.Collect("PhotoID").toText());
    return ids;
  }

  test::AlbumFolder folder_;
};

TEST_F(KilledOrder, IsTheFormerOneOrTheNewOneAndNeverAMix) {
  std::vector<std::string> former;
  for (int number = 1; number <= orderedPhotos; ++number)
    former.push_back(orderedId(number));
  std::vector<std::string> written = former;
  written.insert(written.begin(), written.back());
  written.pop_back();

  killAtEachStep(
      folder_.root(),
      [](const fs::path& root) {
        FoundAlbum found(root);
        Recordset& members = found.data().rsSubAlbumPhotos;
        members.Open(stripQuery("1"));
        PhotoOrder order;
        order.read(members);
        order.move(orderedPhotos - 1, 0);
        order.writeBack(members);
      },
      [&](const fs::path& root) {
        FoundAlbum found(root);
        const auto is = order(found);
        EXPECT_TRUE(is == former || is == written);
      });
}

TEST_F(KilledOrder, AResultIsAddedWholeOrNotAtAll) {
  std::vector<std::string> added;
  for (int number = 1001; number <= 1300; ++number)
    added.push_back(orderedId(number));
  killAtEachStep(
      folder_.root(),
      [&](const fs::path& root) {
        FoundAlbum found(root);
        Recordset& members = found.data().rsSubAlbumPhotos;
        members.Open(stripQuery("1"));
        addMembers(members, "1", added);
      },
      [](const fs::path& root) {
        FoundAlbum found(root);
        const auto count = found.count("SELECT * FROM SubAlbumPhotos");
        EXPECT_TRUE(count == orderedPhotos || count == 2 * orderedPhotos) << count;
      });
}

} // namespace
} // namespace hearthbook
