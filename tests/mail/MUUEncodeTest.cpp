#include "MUUEncode.h"

#include "FileBytes.h"
#include "RunTimeError.h"
#include "TemporaryFolder.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <numeric>
#include <sstream>
#include <streambuf>
#include <vector>

namespace hearthbook::test {

namespace {

std::string encoded(const std::string& bytes, const std::string& name = "a.jpg") {
  std::istringstream in(bytes);
  std::ostringstream out;
  EXPECT_TRUE(MUUEncode(in, bytes.size(), name, out));
  return out.str();
}

/// What stands between the first line and the closing ones.
std::string dataOf(const std::string& bytes) {
  const std::string begin = "begin 664 a.jpg\r\n";
  const std::string end = "`\r\nend\r\n";
  const std::string block = encoded(bytes);
  EXPECT_TRUE(block.starts_with(begin)) << block;
  EXPECT_TRUE(block.ends_with(end)) << block;
  return block.substr(begin.size(), block.size() - begin.size() - end.size());
}

std::string everyByte(std::size_t count) {
  std::string bytes(count, '\0');
  std::iota(bytes.begin(), bytes.end(), '\0');
  return bytes;
}

/// The bytes as an independent program takes them out of the text.
std::string decoded(const std::string& text) {
  const TemporaryFolder folder;
  writeBytes(folder.path() / "text", text);
  const std::string command = "uudecode -o '" + (folder.path() / "bytes").string() + "' '" +
                              (folder.path() / "text").string() + "' 2>/dev/null";
  [[maybe_unused]] const int said = std::system(command.c_str());
  return readBytes(folder.path() / "bytes");
}

/// Takes so many bytes and no more, as a full disk does.
class FullDisk : public std::streambuf {
public:
  explicit FullDisk(std::streamsize room) : room_(room) {}

protected:
  int_type overflow(int_type byte) override { return room_-- > 0 ? byte : traits_type::eof(); }

private:
  std::streamsize room_;
};

} // namespace

TEST(MUUEncode, AnEmptyFileHasOneEmptyDataLine) {
  EXPECT_EQ(encoded(""), "begin 664 a.jpg\r\n`\r\n`\r\nend\r\n");
}

TEST(MUUEncode, FortyFiveBytesAreAFullLineAndAnEmptyOne) {
  const std::string data = dataOf(std::string(45, 'A'));
  EXPECT_EQ(data.substr(0, 9), "M04%!04%!");
  EXPECT_EQ(data.find("\r\n"), 61U);
  EXPECT_EQ(data.substr(61), "\r\n`\r\n");
}

TEST(MUUEncode, TheLastGroupIsFilledUpWithBlanks) {
  const std::string data = dataOf(std::string(46, 'A'));
  EXPECT_EQ(data.substr(63), "!02`@\r\n"); // 'A', blank, blank
  EXPECT_EQ(dataOf("AB"), "\"04(@\r\n");
  EXPECT_EQ(dataOf("ABC"), "#04)#\r\n");
}

TEST(MUUEncode, TheLastGroupOfALongFileIsFilledUpWithBlanksToo) {
  EXPECT_TRUE(dataOf(std::string(100'036, 'A')).ends_with("\r\n!02`@\r\n"));
}

TEST(MUUEncode, ALastLineOfFourteenBytesBeginsWithADot) {
  for (const std::size_t length : {0, 13, 14, 15, 45, 59, 104}) {
    const std::string data = dataOf(std::string(length, 'A'));
    const std::size_t lastLine = data.rfind("\r\n", data.size() - 3);
    EXPECT_EQ(data.at(lastLine == std::string::npos ? 0 : lastLine + 2) == '.',
              lastUuLineBeginsWithDot(length))
        << length;
  }
  EXPECT_TRUE(lastUuLineBeginsWithDot(59));
  EXPECT_FALSE(lastUuLineBeginsWithDot(45));
}

TEST(MUUEncode, ThreeZeroBytesAreFourBackquotes) {
  EXPECT_EQ(dataOf(std::string(3, '\0')), "#````\r\n");
}

TEST(MUUEncode, NoBlankStandsInALine) {
  const std::string data = dataOf(std::string(90, '\0') + everyByte(256) + std::string(60, ' '));
  EXPECT_EQ(data.find(' '), std::string::npos);
}

TEST(MUUEncode, TheModeIsAlwaysTheSameAndTheNameIsAsGiven) {
  EXPECT_TRUE(encoded("x", "00012.jpg").starts_with("begin 664 00012.jpg\r\n"));
}

TEST(MUUEncode, EveryLineEndsWithCrLf) {
  const std::string block = encoded(everyByte(1000));
  for (std::size_t at = block.find('\n'); at != std::string::npos; at = block.find('\n', at + 1))
    EXPECT_EQ(block[at - 1], '\r') << at;
  EXPECT_TRUE(block.ends_with("end\r\n"));
}

TEST(MUUEncode, AnIndependentProgramTakesTheSameBytesOut) {
  for (const std::size_t length : {0, 1, 2, 3, 44, 45, 46, 90, 135, 256, 4499, 4500, 4501, 44'999,
                                   45'000, 45'001, 90'000, 100'003})
    EXPECT_EQ(decoded(encoded(everyByte(length))), everyByte(length)) << length;
}

TEST(MUUEncode, TellsItsLinesAndYieldsAfterEachHundred) {
  std::istringstream in(everyByte(250 * 45));
  std::ostringstream out;
  std::int64_t lines = 0;
  std::vector<std::int64_t> told;
  std::vector<std::int64_t> yielded;
  UuProgress progress;
  progress.begun = [&](std::int64_t all) { lines = all; };
  progress.atLine = [&](std::int64_t line) { told.push_back(line); };
  progress.yield = [&] {
    yielded.push_back(told.back());
    return true;
  };
  EXPECT_TRUE(MUUEncode(in, 250 * 45, "a.jpg", out, progress));
  EXPECT_EQ(lines, 251);
  ASSERT_EQ(told.size(), 251U);
  EXPECT_EQ(told.front(), 1);
  EXPECT_EQ(told.back(), 251);
  EXPECT_EQ(yielded, (std::vector<std::int64_t>{100, 200}));
}

TEST(MUUEncode, EndsWhereNobodyWantsItAnyMore) {
  std::istringstream in(everyByte(300 * 45));
  std::ostringstream out;
  UuProgress progress;
  int yields = 0;
  progress.yield = [&] { return ++yields < 2; };
  EXPECT_FALSE(MUUEncode(in, 300 * 45, "a.jpg", out, progress));
  EXPECT_EQ(yields, 2);
  EXPECT_EQ(out.str().find("end\r\n"), std::string::npos);
}

TEST(MUUEncode, AFileThatIsShorterThanToldFails) {
  std::istringstream in(everyByte(100));
  std::ostringstream out;
  EXPECT_THROW(MUUEncode(in, 101, "a.jpg", out), RunTimeError);
}

TEST(MUUEncode, AFileThatCannotBeReadFailsEvenWhereItIsEmpty) {
  for (const std::uintmax_t bytes : {0, 100}) {
    std::istringstream in(everyByte(bytes));
    in.setstate(std::ios::failbit);
    std::ostringstream out;
    EXPECT_THROW(MUUEncode(in, bytes, "a.jpg", out), RunTimeError) << bytes;
  }
}

TEST(MUUEncode, ATextThatCannotBeWrittenFails) {
  FullDisk disk(500);
  std::ostream out(&disk);
  std::istringstream in(everyByte(1000));
  EXPECT_THROW(MUUEncode(in, 1000, "a.jpg", out), RunTimeError);
}

} // namespace hearthbook::test
