#include "cadastral_report.h"
#include "cadastral_settings.h"
#include "commands.h"
#include "failure.h"
#include "job_session.h"
#include "services/translate.h"

int RunCadastral(const Arguments& arguments) {
  const std::string& path = arguments.words.front();
  const CadastralSettings settings(arguments.All("--set"));  // before anything is read
  const auto save = arguments.Value("--save");
  if (!settings.IsEmpty() && !save && IsJsonJob(path)) {
    throw BadUsage(Xlate("only a job folder keeps the data; --save says where to").ToUtf8());
  }
  JobSession session(path);
  CCts& cadastre = *session.Document().GetCts();
  settings.Apply(cadastre.Survey());
  ReportCadastre(cadastre);
  ReportDatFaults(session.Document());
  session.Keep(save, /*succeeded=*/!settings.IsEmpty());
  return exit_status::kRan;
}
