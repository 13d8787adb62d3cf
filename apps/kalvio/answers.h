// The script that answers dialogs and questions.
#pragma once

#include <deque>
#include <nlohmann/json.hpp>
#include <string>

struct Answer {
  std::string where;  ///< "FILE:LINE", for complaints about it
  bool isDialog;      ///< for a dialog of that name, else for a message of that text
  std::string what;
  nlohmann::ordered_json set = nlohmann::ordered_json::object();
  std::string press;
};

/// Answers in the order in which they are given. Throws Failure (bad usage), with file and line,
/// for a file that cannot be read, is no list of answers, or has a key that does not belong there.
std::deque<Answer> ReadAnswers(const std::string& path);
