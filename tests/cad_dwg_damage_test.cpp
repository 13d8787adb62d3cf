// DWG files that are cut off, damaged, or of other versions.
#include <filesystem>

#include "support/dwg_records.h"

using namespace dwg_test;

namespace {

class DwgDamage : public DwgFiles {
 protected:
  void Small() {
    cad::Block block;
    block.name = "B";
    block.entities = {MakeEntity(cad::CircleShape{{1, 2, 3}, 4})};
    cad::InsertShape insert;
    insert.block = engine.AddBlock(block);
    insert.attributes = {{"A", "x"}};
    engine.Add(MakeEntity(insert));
    engine.Add(MakeEntity(cad::PolylineShape{{{0, 0, 1}, {1, 1, 2}}, {}, false}));
    engine.Add(MakeEntity(cad::PolylineShape{{{0, 0, 1}, {1, 1, 1}}, {}, false}));
    engine.Add(MakeEntity(cad::TextShape{{1, 2, 3}, 1, 0, "text"}));
  }
  std::string Bytes(enumTCAD_DXFDWG_VER version) { return ReadBytes(Write(version)); }
  CadLoad Load(const std::string& bytes) {
    WriteBytes(folder.File("damaged.dwg"), bytes);
    back_ = std::make_unique<CTcadEng>(0, nullptr, true);
    return ReadDwg(tdk::WString(folder.File("damaged.dwg")), *back_);
  }
  std::string ErrorOf(const std::string& bytes) {
    const CadLoad loaded = Load(bytes);
    EXPECT_FALSE(loaded.isLoaded);
    return loaded.errorText.ToUtf8();
  }
  /// A file that is refused says why; one that is loaded although it is another tells that, unless
  /// what has changed means nothing to a drawing.
  void ExpectTold(const std::string& bytes, const std::vector<std::string>& whole,
                  std::size_t where) {
    const CadLoad loaded = Load(bytes);
    const bool isSame = loaded.isLoaded && Describer(*back_).All() == whole;
    EXPECT_TRUE(isSame || !loaded.notes.empty() || !loaded.errorText.IsEmpty()) << where;
  }
  std::unique_ptr<CTcadEng> back_;
};

constexpr auto kVersions = {TCAD_DWG_R14, TCAD_DWG_2000};

TEST_F(DwgDamage, OtherVersionsAreRefusedByTheirNames) {
  const std::string rest(200, '\0');
  EXPECT_EQ(ErrorOf("AC1018" + rest),
            "the file is of version 2004 (AC1018), and only R13, R14 and 2000 are read: save the "
            "drawing as version 2000, or as DXF");
  EXPECT_NE(ErrorOf("AC1021" + rest).find("version 2007 (AC1021)"), std::string::npos);
  EXPECT_NE(ErrorOf("AC1024" + rest).find("version 2010 (AC1024)"), std::string::npos);
  EXPECT_NE(ErrorOf("AC1027" + rest).find("version 2013 (AC1027)"), std::string::npos);
  EXPECT_NE(ErrorOf("AC1032" + rest).find("version 2018 (AC1032)"), std::string::npos);
  EXPECT_NE(ErrorOf("AC1099" + rest).find("version ? (AC1099)"), std::string::npos);
  EXPECT_NE(ErrorOf("AC1009" + rest).find("version R12 (AC1009)"), std::string::npos);
}

TEST_F(DwgDamage, WhatIsNoDrawingIsRefused) {
  EXPECT_EQ(ErrorOf(""), "this is no DWG file");
  EXPECT_EQ(ErrorOf("AC101"), "this is no DWG file");
  EXPECT_EQ(ErrorOf("  0\nSECTION\n"), "this is no DWG file");
  EXPECT_EQ(ErrorOf("AC1015"), "byte 6: the file ends within its header");
}

TEST_F(DwgDamage, AMissingFileIsRefused) {
  EXPECT_EQ(ReadDwg(tdk::WString(folder.File("none.dwg")), back).errorText.ToUtf8(),
            "cannot be opened");
}

TEST_F(DwgDamage, CutAnywhereItIsRefusedOrTold) {
  Small();
  for (const auto version : kVersions) {
    const std::string bytes = Bytes(version);
    const std::vector<std::string> whole = [&] {
      Load(bytes);
      return Describer(*back_).All();
    }();
    for (std::size_t size = 0; size < bytes.size(); size += size < 0x100 ? 1 : 17) {
      ExpectTold(bytes.substr(0, size), whole, size);
    }
  }
}

TEST_F(DwgDamage, ACutAwayEndIsRefused) {
  Small();
  for (const auto version : kVersions) {
    const std::string bytes = Bytes(version);
    EXPECT_NE(ErrorOf(bytes.substr(0, bytes.size() - 200))
                  .find("a region lies behind the end of the file"),
              std::string::npos);
  }
}

TEST_F(DwgDamage, EveryFlippedBitIsTold) {
  Small();
  for (const auto version : kVersions) {
    const std::string bytes = Bytes(version);
    Load(bytes);
    const std::vector<std::string> whole = Describer(*back_).All();
    for (std::size_t bit = 0; bit < bytes.size() * 8; bit += 37) {
      std::string damaged = bytes;
      damaged[bit / 8] = static_cast<char>(damaged[bit / 8] ^ (0x80 >> bit % 8));
      ExpectTold(damaged, whole, bit);
    }
  }
}

TEST_F(DwgDamage, EveryByteMayBeAnother) {
  const FullDrawing drawing(engine);
  for (const auto version : kVersions) {
    const std::string bytes = Bytes(version);
    for (const char wrong : {'\0', '\xFF', '\x7F', '\x40'}) {
      for (std::size_t at = 6; at < bytes.size(); at += 53) {
        std::string damaged = bytes;
        damaged[at] = wrong;
        const CadLoad loaded = Load(damaged);
        EXPECT_TRUE(loaded.isLoaded || !loaded.errorText.IsEmpty()) << at;
      }
    }
  }
}

// ---- Files that are in order, and hold what cannot be ----

class DwgStrange : public DwgOfRecords {};

TEST_F(DwgStrange, AFileWithoutRecordsIsEmpty) {
  EXPECT_TRUE(ReadRecords([](dwg::RecordWriter&) {}).isLoaded);
  EXPECT_EQ(Notes(), std::vector<std::string>{});
}

TEST_F(DwgStrange, BlocksInThemselvesAreToldOf) {
  ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    Block(records, 2, "A");
    Block(records, 3, "B");
    Insert(records, 4, 2, 3);
    Insert(records, 5, 3, 2);
    Insert(records, 6, 0, 2);
  });
  EXPECT_TRUE(load.isLoaded);
  EXPECT_EQ(Notes(),
            std::vector<std::string>{"inserts of blocks that contain themselves are left out (1)"});
  EXPECT_EQ(back.Entities().size(), 1U);
}

// Else a small file could have one long name in each of its blocks.
TEST_F(DwgStrange, BlocksHaveTheNamesOfTheirOwnBeginningsOnly) {
  ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    for (const dwg::Handle block : {2U, 3U}) {
      dwg::BlockRecord record;
      record.name = block == 2 ? "*U" : "B";
      record.begin = 9;
      records.Object(dwg::kBlockRecord, block, {}, record);
    }
    dwg::EntityHead head;
    head.space = dwg::Space::kOwner;
    head.owner = 2;
    dwg::BlockBeginRecord begin{"*U77"};
    records.Entity(dwg::kBlockBegin, 9, head, begin);
  });
  EXPECT_EQ(back.Blocks().at(0).name, "*U77");
  EXPECT_EQ(back.Blocks().at(1).name, "B");
}

TEST_F(DwgStrange, OwnersThatAreNotThereAreToldOf) {
  ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    Insert(records, 4, 77, 2);
    Insert(records, 5, 0, 88);
    dwg::EntityHead head;
    head.layer = 99;
    dwg::PointRecord point;
    records.Entity(dwg::kPoint, 6, head, point);
    head.space = dwg::Space::kOwner;
    head.owner = 9;  // itself
    head.layer = 1;
    dwg::SpaceVertexRecord vertex;
    records.Entity(dwg::kSpaceVertex, 9, head, vertex);
  });
  EXPECT_EQ(Notes(),
            (std::vector<std::string>{"inserts of blocks that are not in the file are left out (1)",
                                      "entities whose layer is not in the file lie on layer 0 (1)",
                                      "entities whose owner is not in the file are left out (2)"}));
}

TEST_F(DwgStrange, NumbersThatAreNoneAreLeftOut) {
  ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    dwg::EntityHead head;
    head.layer = 1;
    dwg::PointRecord point;
    point.at.x = std::nan("");
    records.Entity(dwg::kPoint, 6, head, point);
    dwg::CircleRecord circle;
    circle.center.y = HUGE_VAL;
    records.Entity(dwg::kCircle, 7, head, circle);
  });
  EXPECT_EQ(Notes(),
            std::vector<std::string>{"entities whose numbers make no shape are left out (2)"});
}

TEST_F(DwgStrange, HugeArraysOfInsertsAreLeftOut) {
  ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    Block(records, 2, "A");
    dwg::EntityHead head;
    head.layer = 1;
    dwg::InsertArrayRecord record;
    record.insert.block = 2;
    record.columns = record.rows = 65535;
    records.Entity(dwg::kInsertArray, 6, head, record);
  });
  EXPECT_EQ(back.Entities().size(), 1U);
  EXPECT_EQ(Notes(), std::vector<std::string>{
                         "inserts in rows and columns beyond the largest number are left out "
                         "(4294836224)"});
}

TEST_F(DwgStrange, RecordsThatLieOverEachOtherAreRefused) {
  const CadLoad loaded = ReadRecords([](dwg::RecordWriter& records) {
    Layer(records);
    for (dwg::Handle handle = 2; handle < 100; ++handle) {
      records.Map().push_back({handle, records.Map().front().address});
    }
  });
  EXPECT_FALSE(loaded.isLoaded);
  EXPECT_NE(loaded.errorText.ToUtf8().find("the records lie one over the other"),
            std::string::npos);
}

TEST_F(DwgStrange, DamagedRecordsThatLieOverEachOtherAreRefused) {
  std::size_t address = 0;
  ReadRecords([&](dwg::RecordWriter& records) {
    Layer(records);
    address = records.Map().front().address;
    for (dwg::Handle handle = 2; handle < 100; ++handle) {
      records.Map().push_back({handle, records.Map().front().address});
    }
  });
  std::string bytes = ReadBytes(folder.File("records.dwg"));
  constexpr std::size_t kLastByteOfSplit = 6;  // where the references are said to begin
  bytes[address + kLastByteOfSplit] = '\xFF';
  WriteBytes(folder.File("damaged.dwg"), bytes);
  load = ReadDwg(tdk::WString(folder.File("damaged.dwg")), back);
  EXPECT_NE(load.errorText.ToUtf8().find("the records lie one over the other"), std::string::npos);
}

}  // namespace
