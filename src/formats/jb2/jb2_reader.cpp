#include "formats/jb2/jb2_reader.h"

#include <cmath>
#include <utility>

#include "formats/jb2/field_cursor.h"
#include "formats/jb2/jb2_records.h"
#include "model/change_event_scope.h"
#include "platform/numbers.h"
#include "platform/text_reader.h"
#include "services/progress.h"
#include "services/translate.h"

namespace jb2 {
namespace {

constexpr double kGonPerRadian = 63.66197722844561;
constexpr double kHorizontalZenith = 100;
constexpr int kPiecesPerProgress = 16384;

// Zenith angle in gon, within 0..200, from a height difference and a horizontal distance.
double ZenithFromReduced(double heightDifference, double horizontalDistance) {
  if (heightDifference == 0) return kHorizontalZenith;
  const double zenith = std::atan(horizontalDistance / heightDifference) * kGonPerRadian;
  return zenith < 0 ? zenith + 200 : zenith;
}

// What a string function sees of a piece: nothing after a NUL.
std::string_view UpToNul(std::string_view piece) { return piece.substr(0, piece.find('\0')); }

// The rest of an undefined distance written in full: 201 digits, of which nothing is missed.
bool IsTailOfNumber(std::string_view piece) {
  return piece.find_first_not_of("0123456789.\x1d\r\n") == std::string_view::npos;
}

tdk::WString Number(std::uint64_t value) {
  std::string text;
  platform::AppendWhole(text, static_cast<std::int64_t>(value));
  return tdk::WString(std::move(text));
}

}  // namespace

struct Jb2Reader::PointRecord {
  tdk::WString name;
  tdk::WString code;
  double prismHeight;
  double horizontal;
  double zenith;
  double slopeDistance;
};

Jb2Reader::Jb2Reader(CWnd* parent, CLibCmp* library, tdk::WString path)
    : parent_(parent),
      library_(library),
      path_(std::move(path)),
      currentJob_(library->GetJobArSize() - 1) {}

bool Jb2Reader::Run() {
  if (path_.IsEmpty()) return false;
  platform::TextReader file;
  if (!file.Open(path_.ToUtf8())) return false;
  const ChangeEventScope scope(library_->GetCmpContext());
  ReadLines(file);
  TellLeftOut(noRecord_,
              ToXlate("lines without a record that were skipped: {1}; the first is line {2}"));
  TellLeftOut(
      cut_, ToXlate("lines longer than 254 characters that were cut: {1}; the first is line {2}"));
  TellLeftOut(refused_, ToXlate("records that the job refused: {1}; the first is on line {2}"));
  return true;
}

void Jb2Reader::ReadLines(platform::TextReader& file) {
  int untilProgress = kPiecesPerProgress;
  while (const auto piece = file.NextPiece(kLongestPiece)) {
    ReadPiece(*piece);
    continuesLine_ = piece->back() != '\n';
    if (!continuesLine_) ++line_;
    if (--untilProgress == 0) {
      untilProgress = kPiecesPerProgress;
      TellProgress(file.Position(), file.Size());
    }
  }
}

void Jb2Reader::ReadPiece(std::string_view piece) {
  const std::string_view text = UpToNul(piece);
  switch (piece.front()) {
    case kJobLetter: return ReadJob(FieldCursor(text));
    case kStationLetter: return ReadStation(FieldCursor(text));
    case kPolarLetter: return ReadPolarPoint(FieldCursor(text));
    case kReducedLetter: return ReadReducedPoint(FieldCursor(text));
    default: break;
  }
  if (continuesLine_) {
    // However many pieces a line has, it is one line.
    if (!IsTailOfNumber(piece) && lastCutLine_ != line_) {
      Count(cut_);
      lastCutLine_ = line_;
    }
  } else if (piece != "\n") {
    Count(noRecord_);
  }
}

void Jb2Reader::ReadJob(FieldCursor fields) {
  const tdk::WString name = fields.NextText();
  const tdk::WString surveyor = fields.NextText();
  const tdk::WString instrument = fields.NextText();
  fields.Next();
  const tdk::WString date = fields.NextText();
  if (CJob* const job = library_->AddJob(true)) {
    job->SetLabels(name, surveyor, instrument, date);
    ++currentJob_;
  } else {
    currentJob_ = -1;
    Count(refused_);
  }
  currentStation_ = -1;
}

void Jb2Reader::ReadStation(FieldCursor fields) {
  const tdk::WString name = fields.NextText();
  const tdk::WString identification = fields.NextText();
  const double instrumentHeight = fields.NextNumber();
  const double temperature = fields.NextNumber();
  const double pressure = fields.NextNumber();
  CSta* const station = AddJobForOrphans() ? library_->AddSta(currentJob_, true) : nullptr;
  if (station == nullptr) {
    currentStation_ = -1;
    return Count(refused_);
  }
  station->SetNome(name);
  station->SetIden(identification);
  station->SetAltStr(instrumentHeight);
  station->SetTemper(temperature);
  station->SetPressi(pressure);
  library_->GetIndiciDiSta(station, currentJob_, currentStation_);
}

void Jb2Reader::ReadPolarPoint(FieldCursor fields) {
  PointRecord record{fields.NextText(),   fields.NextText(),   fields.NextNumber(),
                     fields.NextNumber(), fields.NextNumber(), fields.NextNumber()};
  if (record.slopeDistance == 0) record.slopeDistance = UndefinedValue;
  StorePoint(record);
}

void Jb2Reader::ReadReducedPoint(FieldCursor fields) {
  PointRecord record{
      fields.NextText(), fields.NextText(), fields.NextNumber(), fields.NextNumber(), 0, 0};
  const double heightDifference = fields.NextNumber();
  const double horizontalDistance = fields.NextNumber();
  record.zenith = ZenithFromReduced(heightDifference, horizontalDistance);
  // A zero distance stays 0 here, unlike that of a polar record.
  record.slopeDistance =
      std::sqrt(heightDifference * heightDifference + horizontalDistance * horizontalDistance);
  StorePoint(record);
}

void Jb2Reader::StorePoint(const PointRecord& record) {
  CPun* const point =
      HaveStation() ? library_->AddPun(currentJob_, currentStation_, true) : nullptr;
  if (point == nullptr) return Count(refused_);
  point->SetNome(record.name);
  point->SetCode(record.code);
  point->SetAltPri(record.prismHeight);
  point->SetDtIntAng(record.slopeDistance, record.zenith, record.horizontal, 0);
}

// A point before any station gets one without a name. False when the host refuses it.
bool Jb2Reader::HaveStation() {
  if (currentStation_ >= 0) return true;
  if (!AddJobForOrphans()) return false;
  CSta* const station = library_->AddSta(currentJob_, true);
  return station != nullptr && library_->GetIndiciDiSta(station, currentJob_, currentStation_);
}

// A station before any job gets one without labels. False when the host refuses it.
bool Jb2Reader::AddJobForOrphans() {
  if (currentJob_ >= 0) return true;
  if (library_->AddJob(true) == nullptr) return false;
  currentJob_ = 0;
  return true;
}

void Jb2Reader::Count(LeftOut& what) const {
  if (what.count++ == 0) what.firstLine = line_;
}

void Jb2Reader::TellLeftOut(const LeftOut& what, const char* pattern) const {
  if (what.count == 0 || parent_ == nullptr || parent_->GetViews() == nullptr) return;
  parent_->GetViews()->TakeNote(
      {path_, what.firstLine, Fill(Xlate(pattern), {Number(what.count), Number(what.firstLine)})});
}

}  // namespace jb2
