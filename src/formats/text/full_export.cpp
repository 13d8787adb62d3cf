#include <functional>

#include "formats/text/column_text.h"
#include "formats/text/text_writers.h"
#include "model/polar.h"
#include "platform/output_file.h"
#include "platform/paths.h"
#include "services/angle_format.h"
#include "services/date_time.h"
#include "services/number_text.h"
#include "services/progress.h"

namespace text {
namespace {

constexpr double kMillisecondsPerSecond = 1000;

// One column of one point: where it is written and how.
struct Column {
  std::string& text;
  const FullLayout& layout;
  int decimals;

  void Text(const tdk::WString& value) const {
    if (layout.quoteNames) text += '"';
    text += value.ToUtf8();
    if (layout.quoteNames) text += '"';
  }
  void Number(double value) const { AppendCStringDaDouble(text, value, decimals); }
  void Angle(double radians) const { text += AngleText(radians).ToUtf8(); }
  void Date(int day, int month, int year, char divider) const {
    AppendTwoDigitParts(text, {day, month, year}, divider);
  }

 private:
  tdk::WString AngleText(double radians) const {
    switch (layout.angleFormat) {
      case 0: return StrAngSesgFromRadi(radians, decimals);
      case 1: return StrAngSesgNoSmbFromRadi(radians, decimals);
      case 2: return StringDaDouble(AngSesgVertoFromRadi(radians), 0, decimals);
      case 3: return StringDaDouble(AngSesdFromRadi(radians), 0, decimals);
      case 4: return StringDaDouble(AngCentFromRadi(radians), 0, decimals);
      default: return StringDaDouble(AngGraPriDcPFromRadi(radians), 0, decimals);
    }
  }
};

// Part of the file, so in no other language.
const char* QualityWord(int quality) {
  switch (quality) {
    case -1: return "Comp.";
    case 0: return "No Sol.";
    case 1: return "Autonomus";
    case 2: return "Code";
    case 3: return "Float";
    case 4: return "Fixed";
    default: return "";
  }
}

void AppendGpsColumn(const Column& column, int field, const CPunGps& point) {
  double ground[3];
  switch (field) {
    case 0: return column.Text(point.GetNome());
    case 1: return column.Text(point.GetCode());
    case 2: return column.Text(point.GetTerScri());
    case 3: return column.Angle(point.GetLat());
    case 4: return column.Angle(point.GetLong());
    case 5: return column.Number(point.GetElev());
    case 6:
    case 7:
    case 8:
      point.GetGeocTerrMis(ground[0], ground[1], ground[2]);
      return column.Number(ground[field - 6]);
    case 9: return column.Number(point.GetAltAnt());
    case 10:
    case 11:
    case 12:
      point.GetGeocTerrWgs84(ground[0], ground[1], ground[2]);
      return column.Number(ground[field - 10]);
    case 13: column.text += QualityWord(point.GetQua()); return;
    case 14: return column.Number(point.GetCoordY());
    case 15: return column.Number(point.GetCoordX());
    case 16: return column.Number(point.GetCoordZ());
    case 17: return column.Number(point.GetHposRms());
    case 18: return column.Number(point.GetVposRms());
    case 19:
      if (HasDate(point)) column.Date(point.GetDay(), point.GetMonth(), point.GetYear(), '-');
      return;
    case 20:
      if (HasTime(point)) {
        column.Number(static_cast<double>(point.GetTod()) / kMillisecondsPerSecond);
      }
      return;
    default: return;
  }
}

// Where the one observation leads to from its station, as that stands.
Place SinglePlace(const CPun& point) {
  if (point.GetSta() == nullptr) return {};
  return Locate(InstrumentOf(*point.GetSta()),
                {point.GetDato0(), point.GetDato1(), point.GetDato2()}, point.GetAltPri(),
                CCalcDsOr().orientation);
}

void AppendMoment(const Column& column, int field, std::uint64_t moment) {
  if (moment == 0) return;
  const UtcTime time = FUtcMsToUtcTime(moment);
  const double seconds = time.hour * 3600 + time.minute * 60 + time.second;
  switch (field) {
    case 15: return column.Date(time.day, time.month, time.year, '-');
    case 16: return column.Date(time.day, time.month, time.year, '/');
    case 17: return AppendTwoDigitParts(column.text, {time.hour, time.minute, time.second}, '-');
    case 18: return AppendTwoDigitParts(column.text, {time.hour, time.minute, time.second}, ':');
    default: return column.Number(seconds);
  }
}

void AppendTotalStationColumn(const Column& column, int field, const CPun& point) {
  switch (field) {
    case 0: return column.Text(point.GetNome());
    case 1: return column.Text(point.GetCode());
    case 2: return column.Text(point.GetTerScri());
    case 3: return column.Angle(AngRadiFromCent(point.GetDato2()));
    case 4: return column.Angle(AngRadiFromCent(point.GetDato1()));
    case 5: return column.Number(point.GetDato0());
    case 6: return column.Number(point.GetDiOr());
    case 7: return column.Number(point.GetDfQu());
    case 8: return column.Number(point.GetAltPri());
    case 9: return column.Number(point.GetCoordY());
    case 10: return column.Number(point.GetCoordX());
    case 11: return column.Number(point.GetCoordZ());
    case 12: return column.Number(SinglePlace(point).y);
    case 13: return column.Number(SinglePlace(point).x);
    case 14: return column.Number(SinglePlace(point).z);
    case 15:
    case 16:
    case 17:
    case 18:
    case 19: return AppendMoment(column, field, point.GetDateTime());
    case 20: return column.Number(point.GetPrismOffset());
    default: return;
  }
}

// A separator stands only before a column that holds something.
template <class Point, class AppendColumn>
void AppendLine(std::string& line, const FullLayout& layout, const Point& point,
                AppendColumn append) {
  const char separator = kFullSeparators[static_cast<std::size_t>(layout.separator)];
  for (std::size_t i = 0; i < kFullColumns; ++i) {
    append(Column{line, layout, layout.decimals[i]}, layout.fields[i], point);
    if (i + 1 < kFullColumns && layout.fields[i + 1] != kFullNothing) line += separator;
  }
  line += '\n';
}

template <class Point, class AppendColumn>
void WriteFull(const Libraries& from, int kind, const FullLayout& layout, const tdk::WString& path,
               AppendColumn append) {
  platform::OutputFile file;
  const std::string target = platform::IsAbsolutePath(path.ToUtf8())
                                 ? path.ToUtf8()
                                 : platform::FolderOfCode(&kFullSeparators) + path.ToUtf8();
  if (!file.Open(target)) return;
  StoreLastFullExport(path);
  ProgressSteps progress(PointCount(from, kind));
  ForEachUnit(from, kind, [&](int job, int unit) {
    ForEachPointOfUnit(from, kind, job, unit, [&](const CEgn& point) {
      AppendLine(file.Buffer(), layout, static_cast<const Point&>(point), append);
      file.FlushIfLarge();
      progress.Step();
    });
  });
  file.Commit();
}

}  // namespace

void WriteFullGps(const Libraries& from, const FullLayout& layout, const tdk::WString& path) {
  WriteFull<CPunGps>(from, kGpsGroups, layout, path, AppendGpsColumn);
}

void WriteFullTotalStation(const Libraries& from, const FullLayout& layout,
                           const tdk::WString& path) {
  WriteFull<CPun>(from, kTotalStation, layout, path, AppendTotalStationColumn);
}

}  // namespace text
