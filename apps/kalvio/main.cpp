#include <clocale>

#include "commands.h"
#include "console.h"
#include "failure.h"
#include "help.h"
#include "host/cad/cad_files.h"
#include "host/geodesy/lazy_geodesy.h"
#include "host/gis/shape_files.h"
#include "host/store/job_store.h"
#include "language.h"
#include "pages.h"
#include "services/translate.h"

namespace {

int RunCommand(const Arguments& arguments) {
  const std::string_view name = arguments.command->name;
  if (name == "call") return RunCall(arguments);
  if (name == "convert") return RunConvert(arguments);
  if (name == "compute") return RunCompute(arguments);
  if (name == "show") return RunShow(arguments);
  if (name == "terrain") return RunTerrain(arguments);
  if (name == "plot") return RunPlot(arguments);
  if (name == "cadastral") return RunCadastral(arguments);
  return RunFormats();
}

int Run(const std::vector<std::string>& words) {
  StartLanguage(ChosenLanguage(words));
  const Arguments arguments = ParseArguments(words);
  if (arguments.Has("--help")) {
    console::Out(arguments.command == nullptr ? ProgramHelp() : CommandHelp(*arguments.command));
  } else if (arguments.Has("--version")) {
    console::Out("kalvio " KALVIO_VERSION "\n");
  } else if (const auto kind = arguments.Value("--generate")) {
    console::Out(*kind == "man" ? ManPage() : BashCompletion());
  } else if (arguments.command == nullptr) {
    throw BadUsage(Xlate("no command; kalvio --help lists them").ToUtf8());
  } else {
    return RunCommand(arguments);
  }
  return exit_status::kRan;
}

int RunToStatus(const std::vector<std::string>& words) {
  try {
    const int status = Run(words);
    if (console::FinishOutput()) return status;
    console::Complain(console::OutputTrouble());
  } catch (const Failure& failure) {
    console::Complain(failure.what());
    return failure.Status();
  } catch (const JobKeyError& error) {
    console::Complain(error.what());
    return exit_status::kBadUsage;
  } catch (const std::exception& error) {
    console::Complain(error.what());
  }
  return exit_status::kFailed;
}

}  // namespace

int main(int argc, char** argv) {
  console::SecureStreams();
  std::setlocale(LC_ALL, "");
  LazyGeodesy::Install();
  CadFiles::Install();
  ShapeFiles::Install();
  const int status = RunToStatus({argv + (argc > 0 ? 1 : 0), argv + argc});
  console::FinishOutput();  // what was said before a failure; the failure itself has been told
  return status;
}
