#include "formats/landxml/landxml_document.h"
#include "formats/landxml/record_counts.h"
#include "formats/landxml/xml_print.h"
#include "services/progress.h"

namespace landxml {
namespace {

bool HasPlace(const CEgn& point) { return point.HasPlane() && IsDefined(point.GetCoordZ()); }

// `tabs` and `element` with name, description and, northing first, the place; nothing when that is
// not defined.
void PrintPlace(platform::OutputFile& file, std::string_view tabs, std::string_view element,
                const CEgn& point) {
  if (!HasPlace(point)) return;
  PrintLine(file, tabs, "<", element, " name=\"", point.GetNome(), "\" desc=\"", point.GetSecScri(),
            "\">", point.GetCoordY(), " ", point.GetCoordX(), " ", point.GetCoordZ(), "</", element,
            ">");
}

void PrintMeasure(platform::OutputFile& file, std::string_view attribute, double value) {
  if (IsDefined(value)) Print(file, attribute, "=\"", value, "\" ");
}

// Angles go out as the job holds them, in gon.
void WriteObservation(platform::OutputFile& file, int position, const CPun& point) {
  // The set-up is named by the point's position, not by the station's: that is what readers of
  // these files know.
  Print(file, "\t\t\t<RawObservation setupID=\"Setup", position, "\" ");
  PrintMeasure(file, "targetHeight", point.GetAltPri());
  PrintMeasure(file, "horizAngle", point.GetDato2());
  PrintMeasure(file, "slopeDistance", point.GetDato0());
  PrintMeasure(file, "zenithAngle", point.GetDato1());
  PrintLine(file, ">");
  PrintPlace(file, "\t\t\t\t", "TargetPoint", point);
  PrintLine(file, "\t\t\t</RawObservation>");
}

void WriteSetup(platform::OutputFile& file, const CLibCmp& library, int position,
                const CSta& station, ProgressSteps& progress) {
  PrintLine(file, "\t\t<InstrumentSetup id=\"Setup", position, "\" stationName=\"",
            station.GetNome(), "\" instrumentHeight=\"", station.GetAltStr(), "\">");
  PrintPlace(file, "\t\t\t", "InstrumentPoint", station);
  int job = 0;
  int index = 0;
  if (library.GetIndiciDiSta(&station, job, index)) {
    for (int i = 0; i < library.GetPunArSize(job, index); ++i) {
      WriteObservation(file, i, *library.GetPunAt(job, index, i));
      progress.Step();
    }
  }
  PrintLine(file, "\t\t</InstrumentSetup>");
}

}  // namespace

void WriteTsSurvey(platform::OutputFile& file, const CLibCmp& library, const CJob& job) {
  PrintLine(file, "\t<Survey desc=\"", job.GetNome(), "\">");
  PrintLine(file, "\t\t<SurveyHeader name=\"", job.GetNome(), "\" />");
  int index = 0;
  if (library.GetIndiciDiJob(&job, index)) {
    ProgressSteps progress(RecordCount(library, job));
    for (int i = 0; i < library.GetStaArSize(index); ++i) {
      WriteSetup(file, library, i, *library.GetStaAt(index, i), progress);
    }
  }
  PrintLine(file, "\t</Survey>");
}

}  // namespace landxml
