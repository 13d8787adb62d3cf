// The land agency's text while it is being composed.
#pragma once

#include <cstdint>
#include <map>
#include <set>
#include <string>
#include <string_view>
#include <vector>

#include "host/cadastre/dat_text.h"
#include "tdk/wstring.h"

namespace dat {

/// Composed record by record. Nothing of it is written before all of it is there and sound.
struct DatDraft {
  std::string bytes;                  ///< the records so far, in the file's code page
  std::vector<tdk::WString> faults;   ///< what a file must not be written with
  std::vector<tdk::WString> remarks;  ///< what was left out or put otherwise
  std::set<std::string> surveyed;     ///< names of the points that have a set-up or an observation
  std::vector<std::string> named;     ///< names that later records join or locate
  std::map<std::string, std::string> names;  ///< of all points: what each is in the job
  std::set<std::string> clashes;             ///< those that several points would have
  TextChanges changes;

  /// A point's name as it is in the file. A fault when another point's is the same there.
  std::string NameText(std::string_view utf8);

  /// Texts translated already.
  void Fault(tdk::WString text) { faults.push_back(std::move(text)); }
  void Remark(tdk::WString text) { remarks.push_back(std::move(text)); }
  /// With the number in place of {1}; nothing when there is none.
  void RemarkOf(std::uint64_t count, const tdk::WString& pattern);
};

/// One record: its type, its fields, each with the separator behind it, and the end of the line.
class DatLine {
 public:
  /// `draft` is not owned; the record is there when the line ends.
  DatLine(DatDraft& draft, char type) : draft_(draft), line_(1, type) { End(); }
  ~DatLine() { draft_.bytes += line_ + "\r\n"; }
  DatLine(const DatLine&) = delete;
  DatLine& operator=(const DatLine&) = delete;

  DatLine& Text(std::string_view utf8) { return Put(FieldText(utf8, draft_.changes)); }
  DatLine& Heading(std::string_view utf8) { return Put(HeadingText(utf8, draft_.changes)); }
  DatLine& Note(std::string_view utf8) { return Put(NoteText(utf8, draft_.changes)); }
  /// ASCII text as it is.
  DatLine& Put(std::string_view field);
  DatLine& Whole(std::int64_t value);
  /// An undefined value is 0.
  DatLine& Fixed(double value, int decimals);
  /// Numbers in one field, with commas between.
  DatLine& List(const std::vector<double>& values, int decimals);
  /// A direction (gon) within a full circle, also after rounding.
  DatLine& Direction(double gon);

  /// A point that is surveyed here.
  DatLine& Surveyed(std::string_view name);
  /// A point that must be surveyed elsewhere in the file.
  DatLine& Named(std::string_view name);

 private:
  DatLine& End();
  void Append(double value, int decimals);

  DatDraft& draft_;
  std::string line_;
};

}  // namespace dat
