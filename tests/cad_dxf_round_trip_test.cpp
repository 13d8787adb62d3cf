// Random drawings, written as DXF and read again: they are the same to the last digit.
#include <gmock/gmock.h>

#include "host/cad/dxf/dxf_reader.h"
#include "host/cad/dxf/dxf_writer.h"
#include "platform/numbers.h"
#include "tests/support/exchange_files.h"
#include "tests/support/random.h"

namespace {

// ---- A drawing as lines of text ----

std::string Number(double value) {
  std::string text(" ");
  platform::AppendShortest(text, value == 0 ? 0 : value);
  return text;
}
// Angles go through another unit.
std::string Angle(double degrees) {
  std::string text(" ");
  platform::AppendFixed(text, degrees, 9);
  return text;
}
std::string Place(const cad::Point& p) {
  return Number(p.getX()) + Number(p.getY()) + Number(p.getZ());
}
std::string Places(const std::vector<cad::Point>& points) {
  std::string text;
  for (const cad::Point& point : points) text += Place(point);
  return text;
}

struct Shown {
  const CTcadEng& engine;

  std::string operator()(const cad::PointShape& it) const { return "point" + Place(it.at); }
  std::string operator()(const cad::LineShape& it) const {
    return "line" + Place(it.from) + Place(it.to);
  }
  std::string operator()(const cad::PolylineShape& it) const {
    std::string text = (it.isClosed ? "closed" : "open") + Places(it.points) + " bulges";
    for (const double bulge : it.bulges) text += Number(bulge);
    return text;
  }
  std::string operator()(const cad::CircleShape& it) const {
    return "circle" + Place(it.center) + Number(it.radius);
  }
  std::string operator()(const cad::ArcShape& it) const {
    return "arc" + Place(it.center) + Number(it.radius) + Number(it.start) + Number(it.end);
  }
  std::string operator()(const cad::EllipseShape& it) const {
    return "ellipse" + Place(it.center) + Place(it.major) + Number(it.ratio) + Angle(it.start) +
           Angle(it.end);
  }
  std::string operator()(const cad::TextShape& it) const {
    return "text" + Place(it.at) + Number(it.height) + Number(it.rotation) + " " + it.text;
  }
  std::string operator()(const cad::InsertShape& it) const {
    std::string text = "insert of " + engine.Blocks()[static_cast<std::size_t>(it.block)].name +
                       Place(it.at) + Place(it.scale) + Number(it.rotation);
    for (const cad::Attribute& attribute : it.attributes) {
      text += " [" + attribute.tag + "=" + attribute.text + "]";
    }
    return text;
  }
  std::string operator()(const cad::FaceShape& it) const { return "face" + Places(it.points); }
  std::string operator()(const cad::SolidShape& it) const { return "solid" + Places(it.points); }
};

void Show(const CTcadEng& engine, const std::vector<cad::Entity>& entities,
          std::vector<std::string>& lines) {
  for (const cad::Entity& entity : entities) {
    lines.push_back(engine.GetDrawingName(entity.drawing).ToUtf8() + " " +
                    std::to_string(entity.color) + " " + std::visit(Shown{engine}, entity.shape));
  }
}

std::vector<std::string> Lines(const CTcadEng& engine) {
  std::vector<std::string> lines;
  for (int id = 1; id <= engine.GetNoDrawings(); ++id) {
    bool byLayer = false;
    unsigned color = 0;
    engine.GetDrawingColor(id, byLayer, color);
    lines.push_back("layer " + engine.GetDrawingName(id).ToUtf8() + " " + std::to_string(color) +
                    (engine.IsDrawingVisible(id) ? "" : " hidden") +
                    (engine.IsDrawingLocked(id) ? " locked" : ""));
  }
  for (const cad::Block& block : engine.Blocks()) {
    lines.push_back("block " + block.name + Place(block.base));
    Show(engine, block.entities, lines);
    for (const cad::AttributeDefinition& it : block.attributes) {
      lines.push_back("attribute " + it.tag + Place(it.at) + Number(it.height));
    }
  }
  Show(engine, engine.Entities(), lines);
  return lines;
}

// ---- Random drawings ----

class RandomDrawing {
 public:
  RandomDrawing(Random& random, enumTCAD_DXFDWG_VER version)
      : random_(random), is2000_(version == TCAD_DXF_2000) {}

  void Fill(CTcadEng& engine) {
    for (int i = 0; i < 4; ++i) AddLayer(engine, "LAYER_" + std::to_string(i));
    for (int i = 0; i < 3; ++i) AddBlock(engine, i);
    for (int i = 0; i < 60; ++i) engine.Add(Entity(3));
  }

 private:
  void AddLayer(CTcadEng& engine, const std::string& name) {
    const int id = engine.AddDrawing(0, tdk::WString(name), random_.OneIn(2), random_.OneIn(2),
                                     /*isPrivate=*/false);
    engine.SetDrawingColor(id, true, random_.Whole(1U, 255U));
  }
  // Each may insert those before it.
  void AddBlock(CTcadEng& engine, int number) {
    cad::Block block;
    block.name = "BLOCK_" + std::to_string(number);
    block.base = Point();
    block.attributes = {{"NAME", Point(), 0.5}, {"HEIGHT", Point(), 0.25}};
    for (int i = 0; i < 5; ++i) block.entities.push_back(Entity(number));
    engine.AddBlock(std::move(block));
  }
  cad::Entity Entity(int blocks) {
    const auto color = static_cast<std::uint16_t>(random_.Whole(0, 256));
    return {random_.Whole(1, 5), color, false, cad::Origin::kUser, Shape(blocks)};
  }

  cad::Shape Shape(int blocks) {
    switch (random_.Whole(0, 9)) {
      case 0: return cad::PointShape{Point()};
      case 1: return cad::LineShape{Point(), Point()};
      case 2: return Polyline();
      case 3: return cad::CircleShape{Point(), Size()};
      case 4: return cad::ArcShape{Point(), Size(), random_.Real(0, 360), random_.Real(0, 360)};
      case 5: return Ellipse();
      case 6: return cad::TextShape{Point(), Size(), random_.Real(0, 360), Text()};
      case 7: return blocks > 0 ? cad::Shape(Insert(blocks)) : cad::PointShape{Point()};
      case 8: return cad::FaceShape{Points(random_.Whole(3, 4))};
      default: return Solid();
    }
  }
  cad::Shape Polyline() {
    cad::PolylineShape line{Points(random_.Whole(2, 6)), {}, random_.OneIn(2)};
    if (random_.OneIn(2)) return line;
    for (cad::Point& p : line.points) p = {p.getX(), p.getY(), line.points[0].getZ()};
    for (std::size_t i = 0; i < line.points.size(); ++i) line.bulges.push_back(Coordinate() / 1e6);
    return line;
  }
  cad::Shape Ellipse() {
    if (!is2000_) return cad::PointShape{Point()};  // R12 has none
    return cad::EllipseShape{Point(),
                             {Coordinate(), Size(), 0},
                             random_.Real(0.1, 1),
                             random_.Real(0, 180),
                             random_.Real(181, 350)};
  }
  cad::Shape Solid() {
    std::vector<cad::Point> points = Points(4);
    for (cad::Point& point : points) point = {point.getX(), point.getY(), points[0].getZ()};
    return cad::SolidShape{std::move(points)};
  }
  cad::InsertShape Insert(int blocks) {
    cad::InsertShape insert;
    insert.block = random_.Whole(0, blocks - 1);
    insert.at = Point();
    insert.scale = {Size(), Size(), random_.OneIn(2) ? Size() : -Size()};
    insert.rotation = random_.Real(0, 360);
    if (random_.OneIn(2)) insert.attributes = {{"NAME", Text()}, {"HEIGHT", Text()}};
    return insert;
  }

  double Coordinate() {
    const double number = random_.Real(-1e6, 1e6);
    return random_.OneIn(4) ? std::round(number) : number;
  }
  double Size() { return random_.Real(0.001, 100); }
  cad::Point Point() { return {Coordinate(), Coordinate(), Coordinate()}; }
  std::vector<cad::Point> Points(int count) {
    std::vector<cad::Point> points;
    for (int i = 0; i < count; ++i) points.push_back(Point());
    return points;
  }
  std::string Text() {
    static const std::vector<std::string> kPieces = {
        "a", "Z", "0", " ", "%", "%%", "%%d", "%%%", "^", "^J",       "\\",    "\\P",
        "{", "}", ";", "à", "°", "€",  "Ж",   "東",  "🌲", "\\U+00E0", "\\M+1", "\t"};
    std::string text;
    for (int length = random_.Whole(0, 12); length > 0; --length) {
      text += kPieces[random_.Whole<std::size_t>(0, kPieces.size() - 1)];
    }
    return text;
  }

  Random& random_;
  bool is2000_;
};

class DxfRoundTrip : public testing::TestWithParam<enumTCAD_DXFDWG_VER> {
 protected:
  void WriteAndRead(const CTcadEng& written, CTcadEng& read) {
    CadSave how;
    how.path = tdk::WString(folder.Path("drawing.dxf"));
    how.version = GetParam();
    const CadWritten result = WriteDxfCounting(how, written);
    EXPECT_TRUE(result.isWritten);
    EXPECT_EQ(result.leftOut, 0U);
    const CadLoad load = ReadDxf(how.path, read);
    EXPECT_TRUE(load.isLoaded) << load.errorLine << ' ' << load.errorText.ToUtf8();
    for (const tdk::WString& note : load.notes) ADD_FAILURE() << note.ToUtf8();
  }

  exchange_test::TempFolder folder;
};

TEST_P(DxfRoundTrip, RandomDrawingsAreTheSame) {
  Random random;
  for (int i = 0; i < 30 && !HasFailure(); ++i) {
    CTcadEng written(0, nullptr, false);
    CTcadEng read(0, nullptr, false);
    RandomDrawing(random, GetParam()).Fill(written);
    WriteAndRead(written, read);
    EXPECT_EQ(Lines(read), Lines(written));
  }
}

INSTANTIATE_TEST_SUITE_P(Of, DxfRoundTrip, testing::Values(TCAD_DXF_R12, TCAD_DXF_2000),
                         [](const auto& it) { return it.param == TCAD_DXF_R12 ? "R12" : "V2000"; });

class DxfRoundTripOfLines : public DxfRoundTrip {};

TEST_P(DxfRoundTripOfLines, TextOfSeveralLinesComesBackWhereItWas) {
  const std::string text = "one {x}\\ %%d\n\n" + std::string(600, 'y') + "\nthree 東";
  CTcadEng written(0, nullptr, false);
  CTcadEng read(0, nullptr, false);
  written.Add(
      {1, cad::kByLayer, false, cad::Origin::kUser, cad::TextShape{{5, 6, 7}, 1.5, 30, text}});
  WriteAndRead(written, read);
  ASSERT_EQ(read.Entities().size(), 1U);
  const auto& shape = std::get<cad::TextShape>(read.Entities()[0].shape);
  EXPECT_EQ(shape.text, text);
  EXPECT_NEAR(shape.at.getX(), 5, 1e-9);
  EXPECT_NEAR(shape.at.getY(), 6, 1e-9);
  EXPECT_NEAR(shape.rotation, 30, 1e-9);
}

INSTANTIATE_TEST_SUITE_P(Of, DxfRoundTripOfLines, testing::Values(TCAD_DXF_2000));

}  // namespace
