// Writes JB3 job documents.
#pragma once

#include "model/exchange_context.h"
#include "services/progress.h"
#include "tdk/wstring.h"

class TiXmlElement;

namespace jb3 {

/// Writes everything that the host's total-station, GPS and known-point libraries hold. The
/// document is built in memory and saved in one go. Lives for one export.
class Jb3Writer {
 public:
  explicit Jb3Writer(ExchangeContext& document);

  /// When the file cannot be created or completed an older one stays as it was, and nothing is said
  /// here (see platform/file_trouble.h).
  void Write(const tdk::WString& path, const tdk::WString& applicationName,
             const tdk::WString& applicationVersion);

 private:
  void AppendJobs(TiXmlElement& root);
  void AppendStations(TiXmlElement& job, int index);
  void AppendGpsGroups(TiXmlElement& root);
  void AppendKnownPoints(TiXmlElement& root);

  const CLibCmp* totalStation_;
  const CLibGps* gps_;
  const CLibPnt* known_;
  ProgressSteps progress_;
};

}  // namespace jb3
