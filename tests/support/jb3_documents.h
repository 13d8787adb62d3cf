// JB3 documents as texts, read into a job and written from one.
#pragma once

#include <gtest/gtest.h>

#include <string>

#include "formats/jb3/jb3_reader.h"
#include "formats/jb3/jb3_writer.h"
#include "host/document/host_document.h"
#include "tests/support/exchange_files.h"
#include "tests/support/exchange_views.h"

namespace exchange_test {

inline const std::string kJb3Declaration = "<?xml version=\"1.0\" encoding=\"ISO-8859-1\" ?>\n";

class Jb3Test : public testing::Test {
 protected:
  /// Reads a whole file; what the reader returned.
  bool ReadBytes(std::string_view bytes) {
    WriteFile(folder.Path("in.jb3"), bytes);
    return jb3::Jb3Reader(&parent, document, tdk::WString(folder.Path("in.jb3"))).Read();
  }
  /// Reads a document with this between the root's tags.
  void Read(const std::string& body) {
    EXPECT_TRUE(ReadBytes(kJb3Declaration + "<JB3>" + body + "</JB3>"));
  }
  /// The one observed point of a job, made of these children.
  CPun& ReadPoint(const std::string& children) {
    Read("<Job name=\"J\"><Station name=\"S\"><Pnts><Pnt name=\"P\">" + children +
         "</Pnt></Pnts></Station></Job>");
    return *Jobs().GetPunAt(Jobs().GetJobArSize() - 1, 0, 0);
  }
  /// The one point of a GPS group, with these attributes and children.
  CPunGps& ReadGpsPoint(const std::string& attributes, const std::string& children = "") {
    Read("<Job name=\"GPS\"><GpsBase name=\"B\"><GpsPnts><GpsPnt " + attributes + ">" + children +
         "</GpsPnt></GpsPnts></GpsBase></Job>");
    return *Gps().GetPunAt(Gps().GetGrpArSize() - 1, 0);
  }

  /// The whole file that the job is written to.
  std::string Written() {
    const std::string path = folder.Path("out.jb3");
    jb3::Jb3Writer(document).Write(tdk::WString(path), "Field", "7.1");
    return ReadFile(path);
  }
  bool IsWritten(const std::string& text) { return Written().find(text) != std::string::npos; }
  /// The value of the first attribute of that name after `element`; "(none)" without one.
  std::string WrittenValue(const std::string& element, const std::string& attribute) {
    const std::string text = Written();
    const std::size_t tag = text.find("<" + element + " ");
    if (tag == std::string::npos) return "(none)";
    const std::string inside = text.substr(tag, text.find('>', tag) - tag);
    const std::size_t start = inside.find(" " + attribute + "=\"");
    if (start == std::string::npos) return "(none)";
    const std::size_t value = start + attribute.size() + 3;
    return inside.substr(value, inside.find('"', value) - value);
  }

  CPun& AddPoint() {
    if (Jobs().GetJobArSize() == 0) Jobs().AddJob(true);
    if (Jobs().GetStaArSize(0) == 0) Jobs().AddSta(0, true);
    return *Jobs().AddPun(0, 0, true);
  }
  CPunGps& AddGpsPoint() {
    if (Gps().GetGrpArSize() == 0) Gps().AddGrp(true);
    return *Gps().AddPun(0, true);
  }

  CLibCmp& Jobs() { return *document.GetLibCmp(); }
  CLibGps& Gps() { return *document.GetLibGps(); }
  CLibPnt& Known() { return *document.GetLibPnt(); }

  TempFolder folder;
  ScriptedViews views;
  CWnd parent{&views};
  HostDocument document;
};

}  // namespace exchange_test
