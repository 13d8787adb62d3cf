// LandXML texts: a section or a whole document as one string.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "formats/landxml/landxml_document.h"
#include "model/gps.h"
#include "model/known_points.h"
#include "model/total_station.h"
#include "platform/output_file.h"
#include "tests/support/exchange_files.h"
#include "tests/support/exchange_numbers.h"

namespace exchange_test {

/// What `write(file)` puts into a file.
template <class Writer>
std::string SectionText(Writer write) {
  const TempFolder folder;
  platform::OutputFile file;
  EXPECT_TRUE(file.Open(folder.Path("section.xml")));
  write(file);
  EXPECT_TRUE(file.Commit());
  return ReadFile(folder.Path("section.xml"));
}

inline std::string TsSurveyText(const CLibCmp& library, const CJob& job) {
  return SectionText(
      [&](platform::OutputFile& file) { landxml::WriteTsSurvey(file, library, job); });
}
inline std::string GpsSurveyText(const CLibGps& library, const CGrpGps& group) {
  return SectionText(
      [&](platform::OutputFile& file) { landxml::WriteGpsSurvey(file, library, group); });
}
inline std::string CgPointsText(const CLibPnt& library, const CGrpPnt& group) {
  return SectionText(
      [&](platform::OutputFile& file) { landxml::WriteCgPoints(file, library, group); });
}

inline std::string SurfaceText(const CDtmPrj& model) {
  return SectionText([&](platform::OutputFile& file) { landxml::WriteSurface(file, model); });
}
inline std::string AlignmentText(const CRoad& road) {
  return SectionText([&](platform::OutputFile& file) { landxml::WriteAlignment(file, road); });
}

/// How often `part` stands in `text`.
inline int CountOf(std::string_view text, std::string_view part) {
  int count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + part.size())) ++count;
  return count;
}

/// The line of `text` that begins with `beginning`, with its line end; empty when there is none.
inline std::string LineThatBegins(const std::string& text, const std::string& beginning) {
  const auto at = ('\n' + text).find('\n' + beginning);
  if (at == std::string::npos) return {};
  return text.substr(at, text.find('\n', at) + 1 - at);
}

}  // namespace exchange_test
