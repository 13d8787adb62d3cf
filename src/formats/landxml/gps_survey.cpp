#include "formats/landxml/landxml_document.h"
#include "formats/landxml/record_counts.h"
#include "formats/landxml/xml_print.h"
#include "services/progress.h"

namespace landxml {
namespace {

std::string_view SolutionWord(int quality) {
  switch (quality) {
    case 2:
    case 6: return "Code";
    case 3:
    case 7: return "Float";
    case 4:
    case 8: return "Fixed";
    default: return "Unknown";
  }
}

void WriteBase(platform::OutputFile& file, const CGrpGps& group) {
  const tdk::WString base = group.GetNome();
  const RadiansAsDegrees lat{group.GetBaseLat()};
  const RadiansAsDegrees lon{group.GetBaseLong()};
  PrintLine(file, "\t\t<Equipment>");
  PrintLine(file, "\t\t\t<GPSAntennaDetails id=\"", base, "\" latitude=\"", lat, "\" longitude=\"",
            lon, "\" altitude=\"", group.GetBaseElev(), "\" />");
  PrintLine(file, "\t\t</Equipment>");
  PrintLine(file, "\t\t<GPSSetup id=\"", base, "\" antennaHeight=\"", group.GetBaseAltAnt(),
            "\" stationName=\"", base, "\" >");
  PrintLine(file, "\t\t\t<GPSPosition wgsHeight=\"", group.GetBaseElev(), "\" wgsLatitude=\"", lat,
            "\" wgsLongitude=\"", lon, "\">");
  PrintLine(file, "\t\t\t\t<TargetPoint>", group.GetCoordY(), " ", group.GetCoordX(), " ",
            group.GetCoordZ(), "</TargetPoint>");
  PrintLine(file, "\t\t\t</GPSPosition>");
  PrintLine(file, "\t\t</GPSSetup>");
}

void WriteQuality(platform::OutputFile& file, const CPunGps& point) {
  const auto covariance = [&](std::string_view term, float value) {
    Print(file, " covariance", term, "=\"", static_cast<double>(value), "\"");
  };
  Print(file, "\t\t\t<GPSQCInfoLevel2 GPSSolnType=\"", SolutionWord(point.GetQua()), "\"");
  covariance("XX", point.GetPosCov_xx());
  covariance("XY", point.GetPosCov_xy());
  covariance("XZ", point.GetPosCov_xz());
  covariance("YY", point.GetPosCov_yy());
  covariance("YZ", point.GetPosCov_yz());
  covariance("ZZ", point.GetPosCov_zz());
  PrintLine(file, " nbrSatellites=\"", point.GetNuGloUsed() + point.GetNuGpsUsed(), "\" />");
}

void WriteRover(platform::OutputFile& file, const tdk::WString& base, const CPunGps& point) {
  PrintLine(file, "\t\t<GPSPosition setupID=\"", base, "\" wgsHeight=\"", point.GetElev(),
            "\" wgsLatitude=\"", RadiansAsDegrees{point.GetLat()}, "\" wgsLongitude=\"",
            RadiansAsDegrees{point.GetLong()}, "\">");
  PrintLine(file, "\t\t\t<TargetPoint name=\"", point.GetNome(), "\" desc=\"", point.GetSecScri(),
            "\">", point.GetCoordY(), " ", point.GetCoordX(), " ", point.GetCoordZ(),
            "</TargetPoint>");
  WriteQuality(file, point);
  PrintLine(file, "\t\t</GPSPosition>");
}

}  // namespace

void WriteGpsSurvey(platform::OutputFile& file, const CLibGps& library, const CGrpGps& group) {
  PrintLine(file, "\t<Survey>");
  PrintLine(file, "\t\t<SurveyHeader name=\"", group.GetNomeGrp(), "\" />");
  WriteBase(file, group);
  int index = 0;
  if (library.GetIndiciDiGrp(&group, index)) {
    ProgressSteps progress(RecordCount(library, group));
    for (int i = 0; i < library.GetPunArSize(index); ++i) {
      WriteRover(file, group.GetNome(), *library.GetPunAt(index, i));
      progress.Step();
    }
  }
  PrintLine(file, "\t</Survey>");
}

}  // namespace landxml
