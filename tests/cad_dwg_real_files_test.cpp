// Drawings of other programs against the same drawings as DXF.
#include <algorithm>
#include <filesystem>

#include "support/dwg_drawings.h"

using namespace dwg_test;

namespace {

// The old version has its names in capitals, without blanks and signs. A block that changes is
// called by its own name in one of the files, and by a number in the others.
std::string InOldNames(std::string line) {
  for (char& c : line) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
    if (c == ' ' || c == '@') c = '_';
  }
  constexpr std::string_view kNumbered = "*U17";
  const std::size_t at = line.find(kNumbered);
  if (at != std::string::npos) line.replace(at, kNumbered.size(), "MY-DYNAMIC-BLOCK");
  return line;
}

class DwgRealFiles : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(KALVIO_REAL_DATA "/cad")) {
      GTEST_SKIP() << "there are no files of other programs";
    }
  }
  static tdk::WString Path(const char* name) {
    return tdk::WString(std::string(KALVIO_REAL_DATA "/cad/") + name);
  }
  /// All that an engine holds, in no order.
  static std::vector<std::string> Lines(const CTcadEng& engine) {
    std::vector<std::string> lines = Describer(engine).All();
    std::transform(lines.begin(), lines.end(), lines.begin(), InOldNames);
    std::sort(lines.begin(), lines.end());
    return lines;
  }
  static std::vector<std::string> Texts(const std::vector<tdk::WString>& notes) {
    std::vector<std::string> texts;
    for (const tdk::WString& note : notes) texts.push_back(note.ToUtf8());
    return texts;
  }
  /// The same text file without line weights, which the old version does not have.
  static std::string WithoutLineWeights(const std::string& text) {
    std::string without;
    for (std::size_t at = 0; at < text.size();) {
      const std::size_t end = text.find('\n', text.find('\n', at) + 1);
      const std::string_view pair = std::string_view(text).substr(at, end - at);
      if (!pair.starts_with("370\n")) without.append(pair).append("\n");
      at = end == std::string::npos ? text.size() : end + 1;
    }
    return without;
  }
  TemporaryFolder folder_;
  CTcadEng dwg_{0, nullptr, true};
  CTcadEng dxf_{0, nullptr, true};
};

TEST_P(DwgRealFiles, AreTheSameAsTheirTwin) {
  const CadLoad load = ReadDwg(Path(GetParam()), dwg_);
  ASSERT_TRUE(load.isLoaded) << load.errorText.ToUtf8();
  std::string text = ReadBytes(KALVIO_REAL_DATA "/cad/sample_AC1015_ascii.dxf");
  if (std::string(GetParam()) == "sample_AC1014.dwg") text = WithoutLineWeights(text);
  WriteBytes(folder_.File("twin.dxf"), text);
  const CadLoad twin = ReadDxf(tdk::WString(folder_.File("twin.dxf")), dxf_);
  ASSERT_TRUE(twin.isLoaded) << twin.errorLine;
  EXPECT_EQ(Lines(dwg_).size(), 324U);
  EXPECT_EQ(Lines(dwg_), Lines(dxf_));
  EXPECT_EQ(Texts(load.notes), Texts(twin.notes));
}

INSTANTIATE_TEST_SUITE_P(Files, DwgRealFiles,
                         testing::Values("sample_AC1015.dwg", "sample_AC1014.dwg"),
                         [](const auto& file) { return std::string(file.param, 13); });

}  // namespace
