#include "host/cad/dxf/write_entities.h"
#include "host/cad/dxf/write_text.h"
#include "host/cad/writing/geometry.h"

namespace dxf_writer {
namespace {

constexpr EntityKind kText{"0\nTEXT\n", "100\nAcDbText\n"};
constexpr EntityKind kMultiLine{"0\nMTEXT\n", "100\nAcDbMText\n"};

constexpr int kTopLeft = 1;
constexpr int kLeftToRight = 1;
constexpr int kExactDistance = 2;  // of the lines, 5/3 of the height times a factor

}  // namespace

void EntityWriter::operator()(const cad::TextShape& text) {
  if (text.text.find('\n') == std::string::npos) {
    WriteTextLine({text.at, text.height, text.rotation, text.text});
  } else if (tags_.Is2000()) {
    WriteMultiLine(text);
  } else {
    WriteLines(text);
  }
}

void EntityWriter::PutTextLine(const TextLine& line) {
  tags_.Place<10>(line.at);
  tags_.Real<40>(line.height);
  tags_.Code<1>();
  AppendText(tags_.Buffer(), line.text);
  tags_.Buffer() += '\n';
  tags_.RealUnless<50>(0, line.rotation);
}

void EntityWriter::WriteTextLine(const TextLine& line) {
  Begin(kText);
  PutTextLine(line);
  tags_.Class("AcDbText\n");
}

// It hangs from the top of its first line.
void EntityWriter::WriteMultiLine(const cad::TextShape& text) {
  const Direction direction = DirectionOf(text.rotation);
  Begin(kMultiLine);
  tags_.Place<10>(Below(text.at, direction, -text.height));
  tags_.Real<40>(text.height);
  tags_.Real<41>(0);
  tags_.Whole<71>(kTopLeft);
  tags_.Whole<72>(kLeftToRight);
  AppendMultiLineText(tags_.Buffer(), text.text);
  if (direction.sin != 0 || direction.cos != 1) {
    tags_.Place<11>({direction.cos, direction.sin, 0});
  }
  tags_.Whole<73>(kExactDistance);
  tags_.Real<44>(1);
}

void EntityWriter::WriteLines(const cad::TextShape& text) {
  const Direction direction = DirectionOf(text.rotation);
  LineSplitter splitter(text.text);
  std::string_view line;
  for (int above = 0; splitter.Next(line); ++above) {
    if (line.empty()) continue;
    const double down = above * kLineDistance * text.height;
    WriteTextLine({Below(text.at, direction, down), text.height, text.rotation, line});
  }
}

}  // namespace dxf_writer
