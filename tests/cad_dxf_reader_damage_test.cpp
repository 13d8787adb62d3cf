// DXF files that are cut off, or damaged.
#include <filesystem>

#include "tests/support/dxf_full_document.h"

using namespace dxf_test;

namespace {

class DxfReaderDamage : public DxfReading {
 protected:
  /// Reads what lies in the file up to a length; what is wrong with what comes of it, or nothing.
  std::string TroubleOfCut(std::size_t length, std::size_t whole) {
    std::filesystem::resize_file(Path(), length);
    CTcadEng cut(0, nullptr, false);
    const CadLoad loaded = ReadDxf(tdk::WString(Path()), cut);
    const std::string where = " (cut at " + std::to_string(length) + ')';
    if (length >= whole) {
      return loaded.isLoaded ? "" : "refused: " + loaded.errorText.ToUtf8() + where;
    }
    if (!loaded.isLoaded) return loaded.errorLine > 0 ? "" : "no line" + where;
    for (const tdk::WString& note : loaded.notes) {
      if (note.ToUtf8().starts_with("the file has no end mark")) return "";
    }
    return "loaded, and nothing told" + where;
  }
  /// Cuts the file from its end on wherever `mayCut` is true of what stays.
  template <class MayCut>
  void CutWhere(const std::string& bytes, const MayCut& mayCut) {
    exchange_test::WriteFile(Path(), bytes);
    const std::size_t whole = bytes.rfind("EOF") + 3;
    for (std::size_t length = bytes.size(); length > 0; --length) {
      if (!mayCut(length)) continue;
      ASSERT_EQ(TroubleOfCut(length, whole), "");
    }
  }
};

TEST_F(DxfReaderDamage, DocumentWithEverythingIsRead) {
  ReadBytes(Pairs(FullDocument()));
  EXPECT_TRUE(load.isLoaded) << load.errorLine << Error();
  EXPECT_EQ(engine.GetNoDrawings(), 4);
  EXPECT_EQ(engine.Blocks().size(), 2U);
  EXPECT_EQ(engine.Entities().size(), 22U);
  EXPECT_EQ(Notes().size(), 8U) << testing::PrintToString(Notes());
}

TEST_F(DxfReaderDamage, DocumentWithEverythingCutAtAnyLineIsRefusedOrToldOf) {
  const std::string bytes = Pairs(FullDocument());
  CutWhere(bytes, [&](std::size_t length) { return bytes[length - 1] == '\n'; });
}

TEST_F(DxfReaderDamage, SmallDocumentCutAtAnyByteIsRefusedOrToldOf) {
  const std::string bytes =
      Pairs(Header("AC1015", "ANSI_1252") +
            Section("BLOCKS", Block("B", "0 CIRCLE\n8 0\n10 1\n20 2\n40 3\n")) +
            Section("ENTITIES",
                    "0 INSERT\n66 1\n2 B\n10 12.5\n0 ATTRIB\n1 x\n2 T\n0 SEQEND\n"
                    "0 POLYLINE\n70 8\n0 VERTEX\n10 1\n30 5\n0 SEQEND\n") +
            kEnd);
  CutWhere(bytes, [](std::size_t) { return true; });
}

TEST_F(DxfReaderDamage, AnyByteMayBeAnother) {
  const std::string bytes = Pairs(FullDocument());
  for (const char wrong : {'\n', '\r', '0', '-', ' ', '\0', '\xFF', '{'}) {
    for (std::size_t at = 0; at < bytes.size(); at += 11) {
      std::string text = bytes;
      text[at] = wrong;
      exchange_test::WriteFile(Path(), text);
      CTcadEng damaged(0, nullptr, false);
      const CadLoad loaded = ReadDxf(tdk::WString(Path()), damaged);
      EXPECT_TRUE(loaded.isLoaded || (loaded.errorLine > 0 && !loaded.errorText.IsEmpty())) << at;
    }
  }
}

TEST_F(DxfReaderDamage, AnyLineMayBeMissing) {
  const std::string bytes = Pairs(FullDocument());
  for (std::size_t at = 0; at < bytes.size();) {
    const std::size_t end = bytes.find('\n', at) + 1;
    exchange_test::WriteFile(Path(), bytes.substr(0, at) + bytes.substr(end));
    CTcadEng damaged(0, nullptr, false);
    const CadLoad loaded = ReadDxf(tdk::WString(Path()), damaged);
    EXPECT_TRUE(loaded.isLoaded || (loaded.errorLine > 0 && !loaded.errorText.IsEmpty())) << at;
    at = end;
  }
}

}  // namespace
