// The commands. Each returns the exit status, or throws Failure or JobError.
#pragma once

#include "arguments.h"

int RunCadastral(const Arguments& arguments);
int RunCall(const Arguments& arguments);
int RunCompute(const Arguments& arguments);
int RunConvert(const Arguments& arguments);
int RunPlot(const Arguments& arguments);
int RunShow(const Arguments& arguments);
int RunTerrain(const Arguments& arguments);
int RunFormats();
