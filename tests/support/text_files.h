// Text and CSV files of the exchange tests.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "formats/text/text_layouts.h"
#include "formats/text/text_readers.h"
#include "formats/text/text_writers.h"
#include "host/document/host_document.h"
#include "tests/support/current_settings.h"
#include "tests/support/exchange_files.h"
#include "tests/support/exchange_views.h"

namespace exchange_test {

class TextTest : public testing::Test {
 protected:
  TextTest() {
    settings.filePath = tdk::WString(folder.Path("points.txt"));
    settings.fieldCode = {text::kName, text::kEast,  text::kNorth,
                          text::kElev, text::kDescr, text::kNothing};
    settings.separator = u';';
    settings.jobIndex = settings.unitIndex = text::kAllUnits;
  }

  std::string Delimited() {
    text::WriteDelimited(&parent, libraries, settings);
    return ReadFile(settings.filePath.ToUtf8());
  }
  std::string FixedLength() {
    text::WriteFixedLength(&parent, libraries, settings);
    return ReadFile(settings.filePath.ToUtf8());
  }
  void ReadDelimited(std::string_view bytes) {
    WriteFile(settings.filePath.ToUtf8(), bytes);
    text::ReadDelimited(&parent, libraries, settings);
  }
  void ReadFixedLength(std::string_view bytes) {
    WriteFile(settings.filePath.ToUtf8(), bytes);
    text::ReadFixedLength(&parent, libraries, settings);
  }

  /// Adds a known point to the first group, which is made when there is none.
  void AddKnown(const char* name, double east, double north, double elev, const char* descr = "") {
    if (Known().GetGrpArSize() == 0) Known().AddGrp(true);
    Known().AddPtn(0, true)->SetNomCoord(name, descr, east, north, elev);
  }
  /// Name, easting, northing, elevation and description of every point of the last group.
  std::vector<std::string> KnownPoints() {
    std::vector<std::string> points;
    const int group = Known().GetGrpArSize() - 1;
    for (int i = 0; i < Known().GetPtnArSize(group); ++i) {
      const CPunPnt& point = *Known().GetPtnAt(group, i);
      points.push_back(point.GetNome().ToUtf8() + "|" + Short(point.GetCoordX()) + "|" +
                       Short(point.GetCoordY()) + "|" + Short(point.GetCoordZ()) + "|" +
                       point.GetSecScri().ToUtf8());
    }
    return points;
  }
  static std::string Short(double value) {
    std::ostringstream text;
    text.imbue(std::locale::classic());
    text << value;
    return text.str();
  }

  CLibCmp& Jobs() { return *document.GetLibCmp(); }
  CLibGps& Gps() { return *document.GetLibGps(); }
  CLibPnt& Known() { return *document.GetLibPnt(); }

  using Lines = std::vector<std::string>;

  CurrentSettings current;
  TempFolder folder;
  ScriptedViews views;
  CWnd parent{&views};
  HostDocument document;
  text::Libraries libraries{document.GetLibCmp(), document.GetLibGps(), document.GetLibPnt()};
  text::TextExchangeSettings settings;
};

}  // namespace exchange_test
