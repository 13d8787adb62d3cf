#include "formats/text/line_pieces.h"

#include "platform/code_page.h"

namespace text {
namespace {

constexpr std::size_t kLongestPiece = 254;
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

struct Measure {
  std::size_t characters = 0;
  bool isOpen = false;  // the last character's sequence may go on
};

// How many bytes a sequence that begins so should have.
std::size_t SequenceLength(char lead) {
  const auto byte = static_cast<unsigned char>(lead);
  if (byte >= 0xF0) return 4;
  if (byte >= 0xE0) return 3;
  return byte >= 0xC2 ? 2 : 1;
}

Measure MeasureOf(std::string_view text) {
  Measure measure;
  while (!text.empty()) {
    if (text.size() < SequenceLength(text.front())) measure.isOpen = true;
    platform::TakeCodePoint(text);
    ++measure.characters;
  }
  return measure;
}

}  // namespace

std::optional<std::string_view> LinePieces::Next() {
  auto piece = file_.NextPiece(kLongestPiece);
  if (!piece) return std::nullopt;
  if (isFirst_) {
    isFirst_ = false;
    if (piece->starts_with(kByteOrderMark)) {
      piece->remove_prefix(kByteOrderMark.size());
      if (piece->empty()) return Next();
      return Completed(*piece);
    }
  }
  if (platform::IsAscii(*piece)) return piece;
  return Completed(*piece);
}

// Brings a piece whose characters are longer than a byte up to its number of characters.
std::optional<std::string_view> LinePieces::Completed(std::string_view piece) {
  piece_ = piece;
  while (piece_.back() != '\n') {
    const Measure measure = MeasureOf(piece_);
    if (measure.characters >= kLongestPiece && !measure.isOpen) break;
    const std::size_t wanted =
        measure.characters >= kLongestPiece ? 1 : kLongestPiece - measure.characters;
    const auto more = file_.NextPiece(wanted);
    if (!more) break;
    piece_ += *more;
    // A sequence that never closes must not go on for ever.
    if (piece_.size() > kLongestPiece * 4) break;
  }
  return piece_;
}

}  // namespace text
