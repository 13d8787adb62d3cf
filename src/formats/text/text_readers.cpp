#include "formats/text/text_readers.h"

#include <string>
#include <string_view>

#include "formats/text/character_filter.h"
#include "formats/text/line_pieces.h"
#include "formats/text/point_import.h"
#include "model/change_event_scope.h"
#include "platform/numbers.h"
#include "services/message_box.h"
#include "services/number_text.h"
#include "services/progress.h"

namespace text {
namespace {

constexpr char kQuote = '"';
constexpr std::size_t kShortestDelimitedLine = 3;  // with its line end
constexpr int kLinesPerProgress = 16384;

std::string_view Trimmed(std::string_view text) {
  if (!text.empty() && text.front() != ' ' && text.back() != ' ') return text;
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

// The text between the first and the last quote; after a quote that stands alone, what follows it.
std::string_view WithoutQuotes(std::string_view text) {
  const std::size_t first = text.find(kQuote);
  if (first == std::string_view::npos) return text;
  const std::size_t last = text.rfind(kQuote);
  return last == first ? text.substr(first + 1) : text.substr(first + 1, last - first - 1);
}

bool BeginsANumber(std::string_view text) {
  const std::size_t digit = text.find_first_not_of("+-.,");
  return digit != std::string_view::npos && text[digit] >= '0' && text[digit] <= '9';
}

// In characters, of which the longest take four bytes.
bool IsShorter(std::string_view line, std::size_t characters) {
  return line.size() < characters * 4 && tdk::WString(line).Length() < characters;
}

tdk::WString Number(std::uint64_t value) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(value));
  return tdk::WString(std::move(text));
}

// Lines of one sort, of which only the first is named.
struct Remark {
  std::uint64_t count = 0;
  std::uint64_t line = 0;
  std::size_t column = 0;
  std::string text;
};

/// One import: the frame that both readers share.
class TextImport {
 public:
  TextImport(CWnd* parent, const Libraries& into, const TextExchangeSettings& settings)
      : parent_(parent), into_(into), settings_(settings) {}

  /// Calls `split(line)` for each line that is to become a point.
  template <class Split>
  void Run(std::size_t shortest, char kept, bool cutAtNul, Split split) {
    LinePieces file;
    if (!file.Open(settings_.filePath.ToUtf8())) return;
    const ChangeEventScope scope(into_.totalStation->GetCmpContext());
    PointImport target(into_, settings_);
    while (const auto line = file.Next()) {
      if (++line_ % kLinesPerProgress == 0) TellProgress(file.Position(), file.Size());
      if (line_ <= static_cast<std::uint64_t>(settings_.headerRows)) continue;
      if (IsShorter(*line, shortest)) continue;
      point_ = {};
      split(filter_.Filter(*line, kept, cutAtNul));
      Follow(replaced_, filter_.Replaced());
      Follow(removed_, filter_.Removed());
      if (!target.Add(point_)) Count(noPoint_);
    }
  }

  bool HasMarks() const { return filter_.HasMarks(); }

  /// Takes the text of a column, counted from 0; what lies beyond the layout is dropped.
  void TakeColumn(std::size_t column, std::string_view text, bool removeQuotes) {
    if (column >= kBasicColumns) return;
    text = Trimmed(text);
    switch (settings_.fieldCode[column]) {
      case kName: point_.name = removeQuotes ? WithoutQuotes(text) : text; break;
      case kNorth: point_.north = NumberOf(column, text); break;
      case kEast: point_.east = NumberOf(column, text); break;
      case kElev: point_.elev = NumberOf(column, text); break;
      case kDescr: point_.descr = removeQuotes ? WithoutQuotes(text) : text; break;
      default: break;
    }
  }

  void TellTheEnd() const {
    if (replaced_.count + removed_.count > 0) {
      CreateMessageBox(parent_, Xlate("Info"),
                       Xlate("Some invalid characters were removed or replaced ."),
                       kBoxExclamation);
    }
    Tell(replaced_,
         ToXlate("accented letters that became plain ones: {1}; the first is on line {2}"));
    Tell(removed_, ToXlate("characters that were dropped: {1}; the first is on line {2}"));
    Tell(noPoint_, ToXlate("lines that became no point: {1}; the first is line {2}"));
    Tell(noNumber_, ToXlate("columns that should hold a number and do not, read as 0: {1}; the "
                            "first is column {3} of line {2}: \"{4}\""));
  }

 private:
  double NumberOf(std::size_t column, std::string_view text) {
    const double value = DoubleDaCString(text);
    if (value == 0 && !text.empty() && !BeginsANumber(text)) {
      if (noNumber_.count == 0) {
        noNumber_.column = column + 1;
        noNumber_.text = text;
      }
      Count(noNumber_);
    }
    return value;
  }

  void Count(Remark& remark) const {
    if (remark.count++ == 0) remark.line = line_;
  }

  // A count that is kept elsewhere.
  void Follow(Remark& remark, std::uint64_t count) const {
    if (remark.count == 0 && count > 0) remark.line = line_;
    remark.count = count;
  }

  void Tell(const Remark& remark, const char* pattern) const {
    if (remark.count == 0 || parent_ == nullptr || parent_->GetViews() == nullptr) return;
    parent_->GetViews()->TakeNote(
        {settings_.filePath, remark.line,
         Fill(Xlate(pattern), {Number(remark.count), Number(remark.line), Number(remark.column),
                               tdk::WString(remark.text)})});
  }

  CWnd* parent_;
  const Libraries& into_;
  const TextExchangeSettings& settings_;
  CharacterFilter filter_;
  PointLine point_;
  std::uint64_t line_ = 0;
  Remark replaced_;
  Remark removed_;
  Remark noPoint_;
  Remark noNumber_;
};

// Cuts a line at its separators and line ends. `take` gets the columns that are not empty.
class DelimitedLine {
 public:
  /// `hasMarks`: the line may hold quotes and carriage returns.
  DelimitedLine(std::string_view line, char separator, bool hasMarks)
      : line_(WithoutLineFeed(line)), separator_(separator), hasMarks_(hasMarks) {}

  template <class Take>
  void Cut(Take take) {
    std::size_t column = 0;
    std::size_t start = 0;
    while (start < line_.size()) {
      const std::size_t end = EndOfColumn(start);
      if (end > start) take(column++, line_.substr(start, end - start));
      start = SkipBlanks(end + 1);
    }
  }

 private:
  static std::string_view WithoutLineFeed(std::string_view line) {
    if (line.ends_with('\n')) line.remove_suffix(1);
    return line;
  }

  std::size_t EndOfColumn(std::size_t at) const {
    if (hasMarks_) return EndOfMarkedColumn(at);
    while (at < line_.size() && line_[at] != separator_) ++at;
    return at;
  }

  // A quote hides separators up to the next quote, or to the end of the line.
  std::size_t EndOfMarkedColumn(std::size_t at) const {
    bool isQuoted = false;
    for (; at < line_.size() && line_[at] != '\r'; ++at) {
      if (line_[at] == separator_ && !isQuoted) break;
      if (line_[at] == kQuote) isQuoted = !isQuoted;
    }
    return at;
  }

  std::size_t SkipBlanks(std::size_t at) const {
    while (at < line_.size() && line_[at] == ' ') ++at;
    return at;
  }

  std::string_view line_;
  char separator_;
  bool hasMarks_;
};

}  // namespace

void ReadDelimited(CWnd* parent, const Libraries& into, const TextExchangeSettings& settings) {
  TextImport import(parent, into, settings);
  const auto separator = static_cast<char>(settings.separator);
  import.Run(kShortestDelimitedLine, separator, /*cutAtNul=*/false, [&](std::string_view line) {
    DelimitedLine(line, separator, import.HasMarks()).Cut([&](std::size_t column, std::string_view text) {
      import.TakeColumn(column, text, settings.quoteNames);
});
}  // namespace text
);
import.TellTheEnd();
}

void ReadFixedLength(CWnd* parent, const Libraries& into, const TextExchangeSettings& settings) {
  TextImport import(parent, into, settings);
  import.Run(/*shortest=*/0, /*kept=*/'\0', /*cutAtNul=*/true, [&](std::string_view line) {
    line = line.substr(0, line.find_first_of("\r\n"));
  for (std::size_t i = 0; i < kBasicColumns; ++i) {
    const auto width = static_cast<std::size_t>(settings.fieldLength[i]);
    import.TakeColumn(i, line.substr(0, width), /*removeQuotes=*/false);
    line.remove_prefix(std::min(width, line.size()));
  }
});
import.TellTheEnd();
}

}  // namespace text
