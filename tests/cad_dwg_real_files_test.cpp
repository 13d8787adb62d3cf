// Drawings of other programs against the same drawings as DXF.
#include <algorithm>
#include <filesystem>

#include "support/dwg_drawings.h"

using namespace dwg_test;

namespace {

class DwgRealFiles : public testing::TestWithParam<const char*> {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(KALVIO_REAL_DATA "/cad")) {
      GTEST_SKIP() << "there are no files of other programs";
    }
  }
  static std::string Path(const std::string& name) { return KALVIO_REAL_DATA "/cad/" + name; }
};

TEST_P(DwgRealFiles, AreTheSameAsTheirTwins) {
  CTcadEng dwg(0, nullptr, true);
  CTcadEng dxf(0, nullptr, true);
  const CadLoad load = ReadDwg(tdk::WString(Path(std::string(GetParam()) + ".dwg")), dwg);
  ASSERT_TRUE(load.isLoaded) << load.errorText.ToUtf8();
  const CadLoad twin = ReadDxf(tdk::WString(Path("sample_AC1015_ascii.dxf")), dxf);
  ASSERT_TRUE(twin.isLoaded);
  for (const auto& n : load.notes) printf("%s\n", n.ToUtf8().c_str());
  printf("--- twin\n");
  for (const auto& n : twin.notes) printf("%s\n", n.ToUtf8().c_str());
  auto a = Describer(dwg).All();
  auto b = Describer(dxf).All();
  printf("%zu %zu\n", a.size(), b.size());
  std::sort(a.begin(), a.end());
  std::sort(b.begin(), b.end());
  std::vector<std::string> d;
  std::set_difference(a.begin(), a.end(), b.begin(), b.end(), std::back_inserter(d));
  printf("only in dwg %zu\n", d.size());
  for (auto& l : d) printf("%s\n", l.substr(0, 250).c_str());
  d.clear();
  std::set_difference(b.begin(), b.end(), a.begin(), a.end(), std::back_inserter(d));
  printf("only in dxf %zu\n", d.size());
  for (auto& l : d) printf("%s\n", l.substr(0, 250).c_str());
}

INSTANTIATE_TEST_SUITE_P(Files, DwgRealFiles, testing::Values("sample_AC1015", "sample_AC1014"),
                         [](const auto& file) { return std::string(file.param); });

}  // namespace
