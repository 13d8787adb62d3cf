// Reads JB2 job files.
#pragma once

#include <cstdint>
#include <string_view>

#include "model/total_station.h"
#include "services/window.h"
#include "tdk/wstring.h"

namespace platform {
class TextReader;
}

namespace jb2 {

class FieldCursor;

/// Appends the jobs, stations and points of one file to a total-station library. Lives for one
/// import.
class Jb2Reader {
 public:
  /// `parent` (may be null) is told of progress and of what was left out. `library` is not owned.
  Jb2Reader(CWnd* parent, CLibCmp* library, tdk::WString path);

  /// True when the file was opened and read to its end, whatever it held; false, with nothing
  /// changed, when the path is empty or the file cannot be opened.
  bool Run();

 private:
  /// Lines of one sort that did not become part of the job.
  struct LeftOut {
    std::uint64_t count = 0;
    std::uint64_t firstLine = 0;
  };

  void ReadLines(platform::TextReader& file);
  void ReadPiece(std::string_view piece);
  void ReadJob(FieldCursor fields);
  void ReadStation(FieldCursor fields);
  void ReadPolarPoint(FieldCursor fields);
  void ReadReducedPoint(FieldCursor fields);

  struct PointRecord;
  void StorePoint(const PointRecord& record);
  bool HaveStation();
  bool AddJobForOrphans();

  void Count(LeftOut& what) const;
  void TellLeftOut(const LeftOut& what, const char* pattern) const;

  CWnd* parent_;
  CLibCmp* library_;
  tdk::WString path_;
  int currentJob_;           // receives stations; -1: none
  int currentStation_ = -1;  // receives points; -1: none

  std::uint64_t line_ = 1;
  bool continuesLine_ = false;  // the piece is not the first of its line
  std::uint64_t lastCutLine_ = 0;
  LeftOut noRecord_;
  LeftOut refused_;
  LeftOut cut_;
};

}  // namespace jb2
