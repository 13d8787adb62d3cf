// Runs the built program as a user does.
#pragma once

#include <sys/wait.h>
#include <unistd.h>

#include <cstdlib>
#include <string>
#include <vector>

#include "support/temporary_folder.h"

struct ProgramRun {
  int status = -1;
  std::string out;
  std::string err;
};

/// Runs `kalvio` with these words in `folder`; English unless the words or the environment say
/// otherwise.
inline ProgramRun RunProgram(const TemporaryFolder& folder, const std::vector<std::string>& words,
                             const std::string& outPath = "") {
  const std::string out = outPath.empty() ? folder.File(".stdout") : outPath;
  const std::string err = folder.File(".stderr");
  std::string command = "cd '" + folder.Path() + "' && LC_MESSAGES=C LANG=C '" KALVIO_PROGRAM "'";
  if (std::getenv("LC_ALL") != nullptr) command += " --lang en";
  for (const std::string& word : words) command += " '" + word + "'";
  command += " > '" + out + "' 2> '" + err + "' < /dev/null";
  const int result = std::system(command.c_str());
  ProgramRun run;
  run.status = WIFEXITED(result) ? WEXITSTATUS(result) : -1;
  if (outPath.empty()) run.out = ReadBytes(out);
  run.err = ReadBytes(err);
  if (outPath.empty()) unlink(out.c_str());
  unlink(err.c_str());
  return run;
}
