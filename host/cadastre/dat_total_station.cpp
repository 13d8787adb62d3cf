#include "host/cadastre/dat_total_station.h"

#include "host/cadastre/dat_notes.h"
#include "services/ini_file.h"
#include "services/translate.h"

namespace dat {
namespace {

constexpr int kAngleDecimals = 4;
constexpr int kLengthDecimals = 3;
constexpr double kHalfTurn = 200;
constexpr double kFullTurn = 400;

class TotalStationWriter {
 public:
  explicit TotalStationWriter(DatDraft& draft) : draft_(draft) {
    how_.addPrismOffset = CIniFile().ReadBool("Calcolo", "CostantePrisma", false);
  }

  void WriteStation(const CSta& station, std::span<CPun* const> points) {
    if (IsNameless(station.NameUtf8())) draft_.Fault(Xlate("a station has no name"));
    DatLine(draft_, '1')
        .Surveyed(station.NameUtf8())
        .Fixed(station.GetAltStr(), kLengthDecimals)
        .Note(NotesOf(station));
    bool isEmpty = true;
    for (const CPun* const point : points) {
      if (WritePoint(*point, station)) isEmpty = false;
    }
    if (isEmpty) ++empty_;
  }

  void TellLeftOut() {
    draft_.RemarkOf(unmeasured_,
                    Xlate("observations without a distance or a direction are left out ({1})"));
    draft_.RemarkOf(empty_, Xlate("stations have no observations in the file ({1})"));
  }

 private:
  // False for one that is left out.
  bool WritePoint(const CPun& point, const CSta& station) {
    const Observation observation = point.ObservationToUse(how_);
    if (!(observation.slopeDistance > 0) || !IsDefined(observation.slopeDistance) ||
        !IsDefined(observation.horizontal)) {
      ++unmeasured_;
      return false;
    }
    if (IsNameless(point.NameUtf8())) {
      draft_.Fault(Fill(Xlate("a point that was observed from station {1} has no name"),
                        {station.GetNome()}));
    }
    if (IsDefined(observation.zenith)) {
      WriteInSpace(point, observation);
    } else {
      WriteFlat(point, observation);
    }
    return true;
  }

  // An observation in face two is turned into that of face one, as which every reader takes it.
  void WriteInSpace(const CPun& point, const Observation& observation) {
    const double zenith = FullCircle(observation.zenith);
    const bool isFaceTwo = zenith > kHalfTurn;
    DatLine(draft_, '2')
        .Surveyed(point.NameUtf8())
        .Direction(observation.horizontal + (isFaceTwo ? kHalfTurn : 0))
        .Fixed(isFaceTwo ? kFullTurn - zenith : zenith, kAngleDecimals)
        .Fixed(observation.slopeDistance, kLengthDecimals)
        .Fixed(point.GetAltPri(), kLengthDecimals)
        .Note(NotesOf(point));
  }

  // Without a zenith angle, the distance is a horizontal one.
  void WriteFlat(const CPun& point, const Observation& observation) {
    DatLine(draft_, '2')
        .Surveyed(point.NameUtf8())
        .Direction(observation.horizontal)
        .Fixed(observation.slopeDistance, kLengthDecimals)
        .Note(NotesOf(point));
  }

  DatDraft& draft_;
  CCalcDsOr how_;
  std::uint64_t unmeasured_ = 0;
  std::uint64_t empty_ = 0;
};

}  // namespace

void WriteTotalStation(const CLibCmp& library, DatDraft& draft) {
  TotalStationWriter writer(draft);
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
      writer.WriteStation(*library.GetStaAt(job, sta), library.PointsOf(job, sta));
    }
  }
  writer.TellLeftOut();
}

}  // namespace dat
