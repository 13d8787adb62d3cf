// Writes JB2 job files.
#pragma once

#include "model/point_count.h"
#include "services/progress.h"
#include "services/text_file_sink.h"

namespace jb2 {

/// Writes a whole total-station library, in its order. Lives for one export.
class Jb2Writer {
 public:
  /// `library` is not owned.
  explicit Jb2Writer(const CLibCmp* library) : library_(library), progress_(PointCount(*library)) {}

  /// Writes the file; when it cannot be created or completed an older one stays as it was, and
  /// nothing is said here (see platform/file_trouble.h).
  void Write(const tdk::WString& path);

 private:
  void WriteJob(int job);
  void WriteStation(int job, int station);
  void WritePoint(const CPun& point);

  void Field(const tdk::WString& text);
  void Field(double value, int decimals);

  const CLibCmp* library_;
  TextFileSink sink_;
  ProgressSteps progress_;
};

}  // namespace jb2
