#include "formats/jb2/jb2_writer.h"

#include "formats/jb2/jb2_records.h"

namespace jb2 {
namespace {

// Fields after the pressure that readers of other versions look for.
constexpr int kUnusedStationFields = 4;

const tdk::WString kSeparatorText(std::string_view(&kSeparator, 1));
const tdk::WString kUnused(" ");

tdk::WString Prefix(char letter) {
  const char text[] = {letter, '|'};
  return tdk::WString(std::string_view(text, sizeof text));
}

const tdk::WString kJobPrefix = Prefix(kJobLetter);
const tdk::WString kStationPrefix = Prefix(kStationLetter);
const tdk::WString kPolarPrefix = Prefix(kPolarLetter);

}  // namespace

void Jb2Writer::Write(const tdk::WString& path) {
  if (!sink_.Open(path, /*deleteOnClose=*/false, TextFileSink::kPlainText)) return;
  for (int job = 0; job < library_->GetJobArSize(); ++job) {
    WriteJob(job);
    for (int station = 0; station < library_->GetStaArSize(job); ++station) {
      WriteStation(job, station);
    }
  }
  sink_.Close();
}

void Jb2Writer::WriteJob(int job) {
  const CJob& labels = *library_->GetJobAt(job);
  Field(kJobPrefix);
  Field(labels.GetNome());
  Field(labels.GetOper());
  Field(labels.GetStrum());
  Field(kUnused);
  Field(labels.GetData());
  sink_.WriteLine({});
}

void Jb2Writer::WriteStation(int job, int station) {
  const CSta& setUp = *library_->GetStaAt(job, station);
  Field(kStationPrefix);
  Field(setUp.GetNome());
  Field(setUp.GetIden());
  Field(setUp.GetAltStr(), kHeightDecimals);
  Field(setUp.GetTemper(), kTemperatureDecimals);
  Field(setUp.GetPressi(), kPressureDecimals);
  for (int i = 0; i < kUnusedStationFields; ++i) Field(kUnused);
  sink_.WriteLine({});
  progress_.Step();
  // The library is asked again before each point, so the loop follows it as it stands.
  for (int point = 0; point < library_->GetPunArSize(job, station); ++point) {
    WritePoint(*library_->GetPunAt(job, station, point));
    progress_.Step();
  }
}

void Jb2Writer::WritePoint(const CPun& point) {
  Field(kPolarPrefix);
  Field(point.GetNome());
  Field(point.GetCode());
  Field(point.GetAltPri(), kHeightDecimals);
  Field(point.GetDato2(), kAngleDecimals);
  Field(point.GetDato1(), kAngleDecimals);
  Field(point.GetDato0(), kDistanceDecimals);
  sink_.WriteLine({});
}

void Jb2Writer::Field(const tdk::WString& text) {
  sink_.WriteText(text);
  sink_.WriteText(kSeparatorText);
}

void Jb2Writer::Field(double value, int decimals) {
  sink_.WriteNumber(value, decimals);
  sink_.WriteText(kSeparatorText);
}

}  // namespace jb2
