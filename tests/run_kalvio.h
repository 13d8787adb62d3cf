// Runs the program as a shell does, and what its tests have in common.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <initializer_list>
#include <map>
#include <nlohmann/json.hpp>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tests/support/temporary_folder.h"

namespace e2e {

struct Outcome {
  int status = -1;  ///< exit status; 128 more than a signal that ended it
  std::string out;
  std::string err;
};

/// Where and how the program runs.
struct Surroundings {
  std::string folder = "/";  ///< working directory
  /// Variables on top of the test's own; nothing: not there. Messages are in English unless said
  /// otherwise here, whatever the locale of the test; numbers and letters follow the test's locale.
  std::map<std::string, std::optional<std::string>> variables = {};
  std::optional<std::string> output = {};  ///< a file that standard output goes to
  bool closedOutput = false;
};

Outcome RunKalvio(const std::vector<std::string>& words, const Surroundings& where = {});

/// Runs any program.
Outcome RunProgram(const std::string& program, const std::vector<std::string>& words,
                   const Surroundings& where = {});

/// One JB2 line: letter, bar and fields, each with the separator after it, and a line end.
std::string Jb2Line(char letter, std::initializer_list<std::string_view> fields);

/// One job with two stations, S1 with two points and S2 with one. Exported again it has the same
/// bytes.
std::string SmallJb2();
/// A point that was sighted but not measured; after SmallJb2 it belongs to S2.
std::string PointWithoutDistance();
/// "1 job, 2 stations, 3 points"
inline constexpr std::string_view kSmallInWords = "1 job, 2 stations, 3 points";

/// One job with so many stations of one point each.
std::string Jb2WithStations(int count);

/// The events of a transcript. A line that is no JSON object is a failure.
std::vector<nlohmann::ordered_json> Events(const std::string& transcript);
/// The names of the events, in order.
std::vector<std::string> EventNames(const std::string& transcript);
/// The event at the end of a transcript, as text.
std::string LastEvent(const std::string& transcript);

/// A JSON list of answers to file dialogs: each is confirmed with the path.
std::string ChoosePaths(const std::vector<std::string>& paths);

std::vector<std::string> Lines(const std::string& text);

/// A module of the tests' own, which asks, waits and tells as no exchange of this version does.
std::string AskingModule();

}  // namespace e2e
