#include "formats/landxml/landxml_document.h"
#include "formats/landxml/record_counts.h"
#include "formats/landxml/xml_print.h"
#include "platform/output_file.h"
#include "services/progress.h"

namespace landxml {
namespace {

constexpr std::string_view kNamespace = "http://www.landxml.org/schema/LandXML-1.0";
constexpr std::string_view kSchemaInstance = "http://www.w3.org/2001/XMLSchema-instance";
constexpr std::string_view kManufacturer = "Kalvio";
constexpr std::string_view kManufacturerVersion = "2012";
constexpr std::string_view kManufacturerUrl = "https://www.kalvio.example";

// Every file carries this date and time, whenever it was written: readers tell our files by them,
// and two exports of the same job stay equal.
constexpr std::string_view kDate = "2009-10-27";
constexpr std::string_view kTime = "09:30:22";

}  // namespace

void WriteLandXmlHeader(platform::OutputFile& file, const tdk::WString& path) {
  PrintLine(file, R"(<?xml version="1.0" encoding="UTF-8" ?>)");
  PrintLine(file, R"(<LandXML xmlns=")", kNamespace, R"(" xmlns:xsi=")", kSchemaInstance,
            R"(" xsi:schemaLocation=")", kNamespace, " ", kNamespace,
            R"(/LandXML-1.0.xsd" version="1.0" date=")", kDate, R"(" time=")", kTime,
            R"(" readOnly="false" language="English">)");
  PrintLine(file, "\t<Project name=\"", path, "\"/>");
  PrintLine(file, "\t<Units>");
  PrintLine(file, "\t\t",
            R"(<Metric linearUnit="meter" areaUnit="squareMeter" volumeUnit="cubicMeter" )",
            R"(temperatureUnit="celsius" pressureUnit="mmHG" angularUnit="radians" )",
            R"(directionUnit="decimal degrees"/>)");
  PrintLine(file, "\t</Units>");
  PrintLine(file, "\t<Application name=\"", tdk::GetPrgName(), "\" manufacturer=\"", kManufacturer,
            "\" version=\"", kManufacturerVersion, "\" manufacturerURL=\"", kManufacturerUrl,
            "\"/>");
}

void WriteLandXmlDocument(const LandXmlSelection& selection) {
  platform::OutputFile file;
  if (!file.Open(selection.path.ToUtf8())) return;
  ProgressParts progress(RecordCount(selection));
  WriteLandXmlHeader(file, selection.path);
  // The order is fixed: alignments, surveys, point groups, surfaces.
  if (!selection.roads.empty()) {
    PrintLine(file, "\t<Alignments>");
    for (const CRoad* road : selection.roads) WriteAlignment(file, *road);
    PrintLine(file, "\t</Alignments>");
  }
  for (const CJob* job : selection.tsJobs) {
    progress.Begin(RecordCount(*selection.tsLibrary, *job));
    WriteTsSurvey(file, *selection.tsLibrary, *job);
  }
  for (const CGrpGps* group : selection.gpsGroups) {
    progress.Begin(RecordCount(*selection.gpsLibrary, *group));
    WriteGpsSurvey(file, *selection.gpsLibrary, *group);
  }
  for (const CGrpPnt* group : selection.pointGroups) {
    progress.Begin(RecordCount(*selection.pointLibrary, *group));
    WriteCgPoints(file, *selection.pointLibrary, *group);
  }
  if (!selection.surfaces.empty()) {
    PrintLine(file, "\t<Surfaces>");
    for (const CDtmPrj* surface : selection.surfaces) {
      progress.Begin(RecordCount(*surface));
      WriteSurface(file, *surface);
    }
    PrintLine(file, "\t</Surfaces>");
  }
  PrintLine(file, "</LandXML>");
  file.Commit();
}

void WriteCgPoints(platform::OutputFile& file, const CLibPnt& library, const CGrpPnt& group) {
  int index = 0;
  if (!library.GetIndiciDiGrp(&group, index)) return;
  PrintLine(file, "\t<CgPoints name=\"", group.GetNome(), "\">");
  ProgressSteps progress(RecordCount(library, group));
  for (int i = 0; i < library.GetPtnArSize(index); ++i) {
    const CPunPnt& point = *library.GetPtnAt(index, i);
    PrintLine(file, "\t\t<CgPoint name=\"", point.GetNome(), "\">", point.GetCoordY(), " ",
              point.GetCoordX(), " ", point.GetCoordZ(), "</CgPoint>");
    progress.Step();
  }
  PrintLine(file, "\t</CgPoints>");
}

}  // namespace landxml
