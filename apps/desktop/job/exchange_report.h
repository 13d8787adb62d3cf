// What an exchange did, for people.
#pragma once

#include <QString>
#include <optional>
#include <vector>

#include "apps/desktop/job/job_node.h"

struct ReportLine {
  QString text;
  bool isWarning = false;
  std::optional<JobNode> object;  ///< what it is about, where that is known
};

struct ExchangeReport {
  QString title;
  std::vector<ReportLine> lines;

  void Tell(const QString& text, std::optional<JobNode> object = {}) {
    lines.push_back({text, false, object});
  }
  /// Looks for the object that the text names in quotation marks.
  void Warn(const std::string& text, HostDocument& document);
  /// `about`: the name of the object, as the job has it.
  void Warn(const std::string& text, const std::string& about, HostDocument& document);
  QString AsText() const;
};
