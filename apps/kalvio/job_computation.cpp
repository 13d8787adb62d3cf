#include "job_computation.h"

#include "failure.h"
#include "host/survey/compute.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace {

constexpr double kLargestRefraction = 5;

double RefractionOf(const std::string& text) {
  const double value = platform::ParseDecimalPrefix(text, UndefinedValue);
  const bool isNumber = text.find_first_not_of("+-.0123456789") == std::string::npos &&
                        text.find_first_of("0123456789") != std::string::npos;
  if (isNumber && value >= -kLargestRefraction && value <= kLargestRefraction) return value;
  throw BadUsage(
      Fill(Xlate("--refraction must be a number, such as 0.13, not \"{1}\""), {tdk::WString(text)})
          .ToUtf8());
}

}  // namespace

survey::ComputationSettings ComputationOptions(const Arguments& arguments) {
  survey::ComputationSettings settings = survey::ReadComputationSettings();
  settings.isAnew = arguments.Has("--again");
  if (arguments.Has("--add-prism-constant")) settings.addPrismOffset = true;
  if (const auto refraction = arguments.Value("--refraction")) {
    settings.reduction = {true, RefractionOf(*refraction)};
  }
  return settings;
}

tdk::WString ReferenceSystemOption(const Arguments& arguments) {
  tdk::WString crs(arguments.Value("--crs").value_or(""));
  IGeodesy* const geodesy = IGeodesy::Current();
  if (crs.IsEmpty() || (geodesy != nullptr && geodesy->TransformOf(crs) != nullptr)) return crs;
  throw Failed("--crs " + crs.ToUtf8(),
               Xlate("this is no reference system of plane coordinates that is known").ToUtf8());
}

ComputationReport ComputeJob(HostDocument& document, const survey::ComputationSettings& settings) {
  ComputationReport report;
  report.survey =
      survey::ComputeCoordinates(*document.GetLibCmp(), *document.GetLibPnt(), settings);
  report.gps = PlanePositions(*document.GetLibGps());
  return report;
}
