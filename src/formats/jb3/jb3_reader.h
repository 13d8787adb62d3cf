// Reads JB3 job documents.
#pragma once

#include <string>

#include "model/exchange_context.h"
#include "services/progress.h"
#include "services/window.h"
#include "tdk/wstring.h"

class TiXmlDocument;
class TiXmlElement;

namespace jb3 {

/// Appends the jobs, GPS groups and known points of one document to the host's libraries. It looks
/// nothing up by name and takes nothing back. Lives for one import.
class Jb3Reader {
 public:
  /// `parent` (may be null) is told what was left out. `document` leads to the three libraries.
  Jb3Reader(CWnd* parent, ExchangeContext& document, tdk::WString path);

  /// False, with nothing changed, when the file is no JB3 document. True otherwise, also when the
  /// path is empty or the file cannot be opened: then nothing is imported.
  bool Read();

 private:
  bool ReadText(std::string& text) const;
  bool ReadDocument(const TiXmlDocument& document);
  void ReadJob(const TiXmlElement& job);
  void ReadStation(const TiXmlElement& station);
  void ReadPoints(const TiXmlElement& points);
  void ReadGpsGroup(const TiXmlElement& base);
  void ReadGpsPoints(const TiXmlElement& points);
  void ReadKnownPoints(const TiXmlElement& points);
  CEgn* AddKnownPoint(std::string_view type, bool& groupMade);
  CEgn* AddGenericPoint(bool& groupMade);
  void TellDamage(const TiXmlDocument& document, int line) const;
  void Tell(const tdk::WString& text, int line) const;

  CWnd* parent_;
  CLibCmp* totalStation_;
  CLibGps* gps_;
  CLibPnt* known_;
  tdk::WString path_;
  int currentJob_;
  int currentStation_ = -1;
  ProgressSteps progress_{0};
  int currentGroup_;  // of GPS groups and of known-point groups alike: one counter
};

}  // namespace jb3
