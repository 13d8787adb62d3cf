// Height lines: a road's longitudinal profile and its cross sections.
#pragma once

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

#include "model/compact_text.h"
#include "model/library_base.h"
#include "model/undefined.h"
#include "tdk/wstring.h"

class CLibProfile;
class CProfile;

/// Where a vertical curve starts and ends, chainages in metres.
struct TRaccVert {
  double start = 0;
  double end = 0;
};

/// One vertex of a height line: its distance (a chainage in a longitudinal profile, an offset in a
/// section) and height, metres.
struct TAltiVrt {
  double distance = UndefinedValue;
  double height = UndefinedValue;
  bool isPrincipal = true;
  std::optional<TRaccVert> curve = std::nullopt;
};

/// Whether a vertex was designed, and is not one that was put in between.
bool IsPrincAltiVrt(const TAltiVrt& vertex);
bool IsRaccVertAltiVrt(const TAltiVrt& vertex);

/// A height line, of the design or the terrain.
class CProfileAlti {
 public:
  CProfileAlti(const CProfile* profile, int code, bool terrain)
      : profile_(profile), code_(code), terrain_(terrain) {}

  bool IsEmpty() const { return vertices_.empty(); }
  int GetNumVrts() const { return static_cast<int>(vertices_.size()); }
  const TAltiVrt& GetVrt(int i) const { return vertices_[static_cast<std::size_t>(i)]; }
  /// The index of the next principal vertex after `i`, -1 to begin; -1 when there is none.
  int FindNextPrincVrt(int i) const;
  bool IsTerr() const { return terrain_; }
  int GetCode() const { return code_; }
  void SetKind(int code, bool terrain) {
    code_ = code;
    terrain_ = terrain;
  }
  const CProfile* GetProfile() const { return profile_; }

  void AddVrt(const TAltiVrt& vertex) { vertices_.push_back(vertex); }

 private:
  const CProfile* profile_;
  int code_;
  bool terrain_;
  std::vector<TAltiVrt> vertices_;
};

/// The height of a height line at a chainage, metres: linear between principal vertices, the
/// parabola inside a vertical curve. Before the first vertex, past the last or without two of them
/// `ok` is false and the height 0.
double CalcQuoteAtAltiProg(const CProfileAlti& line, double prog, bool& ok);

/// A longitudinal profile with its sections, or one section.
class CProfile {
 public:
  explicit CProfile(const CLibProfile* library) : library_(library) {}

  tdk::WString GetName() const { return tdk::WString(name_.View()); }
  void SetName(const tdk::WString& name) { name_.Set(name.ToUtf8()); }
  const CLibProfile* GetLibProfile() const { return library_; }

  /// The main height line of a longitudinal profile; null when there is none.
  CProfileAlti* GetMainPrjAlti() const { return main_.get(); }
  CProfileAlti& MakeMainPrjAlti();

  bool IsSectionPresent() const { return !sections_.empty(); }
  int GetNumSections() const { return static_cast<int>(sections_.size()); }
  CProfile& GetSection(int i) const { return *sections_[static_cast<std::size_t>(i)]; }
  CProfile& AddSection();

  /// Chainage of a section, metres.
  double GetSectionProg() const { return prog_; }
  void SetSectionProg(double prog) { prog_ = prog; }

  /// The terrain under a section: vertices by index.
  int GetNumTerrVrts() const { return static_cast<int>(terrain_.size()); }
  const TAltiVrt& GetTerrVrt(int i) const { return terrain_[static_cast<std::size_t>(i)]; }
  void AddTerrVrt(const TAltiVrt& vertex) { terrain_.push_back(vertex); }

  /// The height lines of a section.
  int GetNumProfileAlti() const { return static_cast<int>(lines_.size()); }
  CProfileAlti& GetProfileAlti(int i) const { return *lines_[static_cast<std::size_t>(i)]; }
  CProfileAlti& AddProfileAlti(int code, bool terrain);

 private:
  const CLibProfile* library_;
  CompactText name_;
  double prog_ = 0;
  std::unique_ptr<CProfileAlti> main_;
  std::vector<std::unique_ptr<CProfile>> sections_;
  std::vector<TAltiVrt> terrain_;
  std::vector<std::unique_ptr<CProfileAlti>> lines_;
};

/// What a code of section lines stands for.
struct TProfileAltiCode {
  int code = 0;
  tdk::WString name;
};

/// The catalogue of section line codes, and the library of profiles that a host shows.
class CLibProfile : public TargetDrawingHolder {
 public:
  /// Null when the catalogue does not hold the code.
  const TProfileAltiCode* FindSectionAltiCode(int code) const;
  /// The first of a code holds.
  void AddSectionAltiCode(int code, const tdk::WString& name);
  const std::vector<TProfileAltiCode>& Codes() const { return codes_; }

 private:
  std::vector<TProfileAltiCode> codes_;
  std::unordered_map<int, std::size_t> positions_;  // of codes
};
