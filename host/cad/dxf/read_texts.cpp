#include <algorithm>
#include <cmath>

#include "host/cad/dxf/read_entities.h"

namespace dxf_reader {
namespace {

constexpr double kLineDistance = 5.0 / 3;  // of the text's height

// How a text's place is meant: left, centred, right, aligned, middle, fitted.
constexpr int kLeft = 0;
constexpr int kAligned = 3;
constexpr int kFitted = 5;
// Flags of an attribute.
constexpr int kInvisible = 1;
constexpr int kConstant = 2;

bool IsZero(const cad::Point& p) { return p.getX() == 0 && p.getY() == 0 && p.getZ() == 0; }

}  // namespace

// The first point is where the text begins, and the second what it is aligned with. Programs that
// cannot tell where it begins leave the first out, or write zeros.
cad::Point EntityReader::TextPlace() const {
  const int across = fields_.Whole(72, kLeft);
  const bool isAlong = across == kAligned || across == kFitted;
  const bool isAligned = (across != kLeft || fields_.Whole(73) != 0) && !isAlong;
  const cad::Point first = fields_.PointAt(10);
  const bool hasFirst = (fields_.Has(10) || fields_.Has(20)) && !(isAligned && IsZero(first));
  return hasFirst || !fields_.Has(11) ? first : fields_.PointAt(11);
}

void EntityReader::TakeText() {
  const Plane plane = PlaneOf();
  if (plane.IsTilted()) context_.notes.Count(Note::kTiltedText);
  const bool isStretched = fields_.Real(41, 1) != 1 || fields_.Real(51) != 0;
  if (isStretched && !fields_.HasOwnLooks()) context_.notes.Count(Note::kLooks);
  Put(cad::TextShape{plane.ToWorld(TextPlace()), fields_.Real(40),
                     plane.DirectionToWorld(fields_.Real(50)),
                     context_.text.Line(fields_.Text(1))});
}

// ---- Texts of several lines ----

// A long text comes in pieces, which may end within a character.
void EntityReader::ReadLines() {
  lines_.clear();
  fields_.Read(pairs_, [this] {
    const bool isPiece = pairs_.Code() == 1 || pairs_.Code() == 3;
    if (isPiece) lines_ += pairs_.RawText();
    return isPiece;
  });
}

// Its place and the direction of its lines are the world's.
void EntityReader::TakeLines() {
  double direction = fields_.Real(50);
  if (fields_.Has(11) || fields_.Has(21)) {
    direction = WithinTurn(Degrees(std::atan2(fields_.Real(21), fields_.Real(11))));
  }
  if (PlaneOf().IsTilted()) context_.notes.Count(Note::kTiltedText);
  std::string text = context_.text.Lines(lines_);
  const cad::Point at = FirstLinePlace(direction, text);
  Put(cad::TextShape{at, fields_.Real(40), direction, std::move(text)});
}

// The file says where the top, the middle or the bottom of all lines is.
cad::Point EntityReader::FirstLinePlace(double direction, std::string_view text) const {
  const double height = fields_.Real(40);
  const auto lines = static_cast<double>(std::count(text.begin(), text.end(), '\n'));
  const double below = lines * kLineDistance * fields_.Real(44, 1) * height;
  const int attachment = std::clamp(fields_.Whole(71, 1), 1, 9);
  const int row = (attachment - 1) / 3;  // top, middle, bottom
  const double up = row == 0 ? -height : row == 1 ? (below - height) / 2 : below;
  const cad::Point at = fields_.PointAt(10);
  return {at.getX() - up * std::sin(Radians(direction)),
          at.getY() + up * std::cos(Radians(direction)), at.getZ()};
}

// ---- What the attributes of a block are ----

// One that is the same in all inserts is a text of the block.
void EntityReader::TakeAttributeDefinition() {
  if (block_ == nullptr) {
    context_.notes.CountNotRead("ATTDEF");
  } else if (!fields_.HasFlag(70, kConstant)) {
    block_->attributes.push_back(
        {context_.text.Name(fields_.Text(2)), PlaneOf().ToWorld(TextPlace()), fields_.Real(40, 1)});
  } else if (!fields_.HasFlag(70, kInvisible)) {
    TakeText();
  }
}

}  // namespace dxf_reader
