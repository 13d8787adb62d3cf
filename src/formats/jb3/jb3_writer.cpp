#include "formats/jb3/jb3_writer.h"

#include <tinyxml.h>

#include "formats/jb3/jb3_build.h"
#include "formats/jb3/jb3_schema.h"
#include "model/point_count.h"
#include "services/text_file_sink.h"

namespace jb3 {
namespace {

constexpr char kManufacturer[] = "Kalvio";
constexpr char kManufacturerUrl[] = "https://www.kalvio.example";

void AppendApplication(TiXmlElement& root, const tdk::WString& name, const tdk::WString& version) {
  TiXmlElement& application = AppendElement(root, element::kApplication);
  SetName(application, name);
  SetText(application, attribute::kVersion, version);
  application.SetAttribute(attribute::kManufacturer, kManufacturer);
  application.SetAttribute(attribute::kManufacturerUrl, kManufacturerUrl);
}

}  // namespace

Jb3Writer::Jb3Writer(ExchangeContext& document)
    : totalStation_(document.GetLibCmp()),
      gps_(document.GetLibGps()),
      known_(document.GetLibPnt()),
      progress_(PointCount(*totalStation_) + PointCount(*gps_) + PointCount(*known_)) {}

void Jb3Writer::Write(const tdk::WString& path, const tdk::WString& applicationName,
                      const tdk::WString& applicationVersion) {
  TextFileSink sink;
  if (!sink.Open(path, /*deleteOnClose=*/false, TextFileSink::kPlainText)) return;
  TiXmlDocument document;
  document.LinkEndChild(new TiXmlDeclaration("1.0", "ISO-8859-1", ""));
  TiXmlElement& root = AppendElement(document, element::kRoot);
  AppendApplication(root, applicationName, applicationVersion);
  AppendJobs(root);
  AppendGpsGroups(root);
  AppendKnownPoints(root);
  Save(document, sink);
  sink.Close();
}

void Jb3Writer::AppendJobs(TiXmlElement& root) {
  for (int i = 0; i < totalStation_->GetJobArSize(); ++i) {
    TiXmlElement& job = AppendElement(root, element::kJob);
    SetJobLabels(job, *totalStation_->GetJobAt(i));
    AppendStations(job, i);
  }
}

void Jb3Writer::AppendStations(TiXmlElement& job, int index) {
  for (int j = 0; j < totalStation_->GetStaArSize(index); ++j) {
    TiXmlElement& station = AppendElement(job, element::kStation);
    BuildStation(station, *totalStation_->GetStaAt(index, j));
    progress_.Step();
    TiXmlElement& points = AppendElement(station, element::kPoints);
    for (int k = 0; k < totalStation_->GetPunArSize(index, j); ++k) {
      BuildPoint(AppendElement(points, element::kPoint), *totalStation_->GetPunAt(index, j, k));
      progress_.Step();
    }
  }
}

void Jb3Writer::AppendGpsGroups(TiXmlElement& root) {
  if (gps_->GetGrpArSize() == 0) return;
  TiXmlElement& job = AppendElement(root, element::kJob);
  job.SetAttribute(attribute::kName, kGpsJobName);
  for (int g = 0; g < gps_->GetGrpArSize(); ++g) {
    TiXmlElement& base = AppendElement(job, element::kGpsBase);
    BuildGpsBase(base, *gps_, g);
    progress_.Step();
    TiXmlElement& points = AppendElement(base, element::kGpsPoints);
    for (int k = 0; k < gps_->GetPunArSize(g); ++k) {
      BuildGpsPoint(AppendElement(points, element::kGpsPoint), *gps_->GetPunAt(g, k));
      progress_.Step();
    }
  }
}

void Jb3Writer::AppendKnownPoints(TiXmlElement& root) {
  const int groups = known_->GetGrpArSize();
  const int records = totalStation_->GetOriArSize();
  if (groups == 0 && records == 0) return;
  TiXmlElement& points = AppendElement(root, element::kKnownPoints);
  for (int g = 0; g < groups; ++g) {
    for (int i = 0; i < known_->GetPtnArSize(g); ++i) {
      BuildKnownPoint(AppendElement(points, element::kKnownPoint), *known_->GetPtnAt(g, i),
                      kGenericPoint);
      progress_.Step();
    }
  }
  for (int i = 0; i < records; ++i) {
    BuildKnownPoint(AppendElement(points, element::kKnownPoint), *totalStation_->GetOriAt(i),
                    kControlPoint);
    progress_.Step();
  }
}

}  // namespace jb3
