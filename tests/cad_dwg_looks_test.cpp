// Looks that drawings of the engine do not have, in DWG files.
#include <gmock/gmock.h>

#include "support/dwg_records.h"

using namespace dwg_test;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

using dwg::EntityHead;
using dwg::Handle;
using dwg::RecordWriter;
using dwg::Version;

constexpr Handle kDashed = 0x30;
constexpr Handle kContinuous = 0x31;
constexpr Handle kRoman = 0x32;
constexpr Handle kStandard = 0x33;
constexpr const char* kLines =
    "layers and entities whose lines are dashed or the like become continuous (1)";
constexpr const char* kRest =
    "layers and entities lose thickness, width, line weight, true colour or text style (1)";

class DwgLooks : public DwgOfRecords {
 protected:
  /// Reads one entity, beside a layer, line types and text styles.
  template <class Record>
  std::vector<std::string> NotesOf(dwg::Type type, Record record, EntityHead head = {},
                                   Version version = Version::k2000) {
    head.layer = 1;
    ReadRecords(
        [&](RecordWriter& records) {
          Layer(records);
          Named(records);
          records.Entity(type, 0x40, head, record);
        },
        version);
    EXPECT_EQ(back.Entities().size(), ++read_);
    return Notes();
  }
  static void Named(RecordWriter& records) {
    dwg::LineTypeRecord dashed{"Dashed", ""};
    dwg::LineTypeRecord solid{"CONTINUOUS", ""};
    dwg::StyleRecord roman{"Roman", "romans"};
    dwg::StyleRecord standard{"STANDARD", "txt"};
    records.Object(dwg::kLineType, kDashed, {}, dashed);
    records.Object(dwg::kLineType, kContinuous, {}, solid);
    records.Object(dwg::kStyle, kRoman, {}, roman);
    records.Object(dwg::kStyle, kStandard, {}, standard);
  }
  static EntityHead WithLineType(Handle lineType) {
    EntityHead head;
    head.lineKind = dwg::kByHandle;
    head.isLineByLayer = false;
    head.lineType = lineType;
    return head;
  }
  static EntityHead WithWeight(std::uint8_t weight) {
    EntityHead head;
    head.lineWeight = weight;
    return head;
  }
  template <class Record>
  static Record Thick() {
    Record record;
    record.thickness = 0.5;
    return record;
  }
  static dwg::TextRecord Text() {
    dwg::TextRecord text;
    text.height = 1;
    text.text = "x";
    text.style = kStandard;
    return text;
  }

 private:
  std::size_t read_ = 0;
};

TEST_F(DwgLooks, LinesThatAreDashedAreTold) {
  for (const Version version : {Version::kR14, Version::k2000}) {
    EXPECT_THAT(NotesOf(dwg::kPoint, dwg::PointRecord(), WithLineType(kDashed), version),
                ElementsAre(kLines));
    EXPECT_THAT(NotesOf(dwg::kPoint, dwg::PointRecord(), WithLineType(kContinuous), version),
                IsEmpty());
    // One that is not there.
    EXPECT_THAT(NotesOf(dwg::kPoint, dwg::PointRecord(), WithLineType(0x99), version), IsEmpty());
    EXPECT_THAT(NotesOf(dwg::kPoint, dwg::PointRecord(), {}, version), IsEmpty());
  }
}

TEST_F(DwgLooks, LayersAreTold) {
  ReadRecords([](RecordWriter& records) {
    Named(records);
    dwg::LayerRecord layer;
    layer.name = "A";
    layer.lineType = kDashed;
    records.Object(dwg::kLayer, 1, {}, layer);
    layer.name = "B";
    layer.lineType = kContinuous;
    layer.lineWeight = 9;
    records.Object(dwg::kLayer, 2, {}, layer);
    layer.name = "C";
    layer.lineWeight = dwg::kUsualWeight;
    records.Object(dwg::kLayer, 3, {}, layer);
  });
  EXPECT_EQ(back.GetNoDrawings(), 4);
  EXPECT_THAT(Notes(), ElementsAre(kLines, kRest));
}

TEST_F(DwgLooks, LineWeightsAreTold) {
  for (const int weight : {1, 9, 23}) {
    EXPECT_THAT(
        NotesOf(dwg::kPoint, dwg::PointRecord(), WithWeight(static_cast<std::uint8_t>(weight))),
        ElementsAre(kRest))
        << weight;
  }
  for (const int weight : {0, 24, 29, 30, 31}) {
    EXPECT_THAT(
        NotesOf(dwg::kPoint, dwg::PointRecord(), WithWeight(static_cast<std::uint8_t>(weight))),
        IsEmpty())
        << weight;
  }
}

TEST_F(DwgLooks, ThicknessIsTold) {
  EXPECT_THAT(NotesOf(dwg::kPoint, Thick<dwg::PointRecord>()), ElementsAre(kRest));
  EXPECT_THAT(NotesOf(dwg::kLine, Thick<dwg::LineRecord>()), ElementsAre(kRest));
  EXPECT_THAT(NotesOf(dwg::kSolid, Thick<dwg::SolidRecord>()), ElementsAre(kRest));
  auto circle = Thick<dwg::CircleRecord>();
  circle.radius = 2;
  EXPECT_THAT(NotesOf(dwg::kCircle, circle), ElementsAre(kRest));
  EXPECT_THAT(NotesOf(dwg::kArc, dwg::ArcRecord{circle, 0, 1}), ElementsAre(kRest));
}

TEST_F(DwgLooks, WidthsOfPolylinesAreTold) {
  dwg::LightPolylineRecord line;
  line.points = {{0, 0, 0}, {1, 1, 0}};
  EXPECT_THAT(NotesOf(dwg::kLightPolyline, line), IsEmpty());
  line.width = 0.5;
  EXPECT_THAT(NotesOf(dwg::kLightPolyline, line), ElementsAre(kRest));
  line.width = 0;
  line.thickness = 1;
  EXPECT_THAT(NotesOf(dwg::kLightPolyline, line), ElementsAre(kRest));
}

TEST_F(DwgLooks, TextStylesAreTold) {
  dwg::TextRecord text = Text();
  EXPECT_THAT(NotesOf(dwg::kText, text), IsEmpty());
  text.style = kRoman;
  EXPECT_THAT(NotesOf(dwg::kText, text), ElementsAre(kRest));
  text.thickness = 2;  // which is told once of an entity
  EXPECT_THAT(NotesOf(dwg::kText, text), ElementsAre(kRest));
  dwg::MultiTextRecord lines;
  lines.height = 1;
  lines.text = "x";
  lines.style = kRoman;
  EXPECT_THAT(NotesOf(dwg::kMultiText, lines), ElementsAre(kRest));
}

TEST_F(DwgLooks, LettersThatAreWideOrSlantedAreTold) {
  dwg::TextRecord text = Text();
  text.width = 0.8;
  EXPECT_THAT(NotesOf(dwg::kText, text), ElementsAre(kRest));
  text.width = 1;
  text.slant = 0.25;
  EXPECT_THAT(NotesOf(dwg::kText, text), ElementsAre(kRest));
}

TEST_F(DwgLooks, WhatIsLeftOutIsNotTold) {
  EntityHead head = WithLineType(kDashed);
  head.invisible = 1;
  head.layer = 1;
  dwg::PointRecord point;
  ReadRecords([&](RecordWriter& records) {
    Layer(records);
    Named(records);
    records.Entity(dwg::kPoint, 0x40, head, point);
  });
  EXPECT_THAT(Notes(), ElementsAre("invisible entities are left out (1)"));
}

}  // namespace
