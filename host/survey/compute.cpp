#include "host/survey/compute.h"

#include "host/survey/point_placing.h"
#include "host/survey/residuals.h"
#include "host/survey/solution.h"
#include "model/change_event_scope.h"
#include "services/ini_file.h"
#include "services/number_text.h"

namespace survey {

namespace {

constexpr const char* kSection = "Calcolo";

SetUpResult ResultOf(const Network& net, const Solution& solution, int setUp) {
  SetUpResult result;
  static_cast<SetUpFix&>(result) = solution.StateOf(setUp);
  result.station = setUp;
  result.name = net.SetUps()[static_cast<std::size_t>(setUp)].station->NameUtf8();
  result.residuals = ResidualsOf(net, solution, setUp);
  return result;
}

JobResult ComputeJob(const CLibCmp& library, int job, const KnownPlaces& known,
                     const ComputationSettings& settings) {
  Network net(library, job, known);
  Solution solution(net, settings);
  solution.Run();
  JobResult result;
  result.job = job;
  result.name = library.GetJobAt(job)->GetNome().ToUtf8();
  result.isAssumed = solution.IsAssumed();
  for (int i = 0; i < static_cast<int>(net.SetUps().size()); ++i) {
    result.setUps.push_back(ResultOf(net, solution, i));
  }
  net.AddRepeatedNames();  // the set-ups did not need all of them
  PlacePointsOf(net, settings, result);
  return result;
}

}  // namespace

ComputationSettings ReadComputationSettings() {
  const CIniFile settings;
  ComputationSettings result;
  result.reduction.isCurved = settings.ReadBool(kSection, "CurvaturaRifrazione", false);
  const tdk::WString refraction = settings.ReadString(kSection, "CoeffRifrazione", "");
  if (!refraction.IsEmpty()) result.reduction.refraction = DoubleDaString(refraction);
  result.addPrismOffset = settings.ReadBool(kSection, "CostantePrisma", false);
  return result;
}

SurveyResult ComputeCoordinates(CLibCmp& library, const CLibPnt& known,
                                const ComputationSettings& settings) {
  SurveyResult result;
  if (library.GetJobArSize() == 0) return result;
  const ChangeEventScope scope(library.GetCmpContext());
  const KnownPlaces places(known, library);
  result.clashes = places.Clashes();
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    result.jobs.push_back(ComputeJob(library, job, places, settings));
  }
  return result;
}

}  // namespace survey
