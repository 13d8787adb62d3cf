// Known points in groups, and control (orientation) records.
#pragma once

#include <array>

#include "model/egn.h"
#include "model/library_base.h"
#include "model/stable_list.h"

class CPunPnt : public CEgn {
 public:
  ~CPunPnt() override;
};

/// A group of known points; its first label is its name.
class CGrpPnt : public TargetDrawingHolder {
 public:
  explicit CGrpPnt(int index) : index_(index) {}

  tdk::WString GetNome() const { return tdk::WString(labels_[0].View()); }
  void GetLabels(tdk::WString& first, tdk::WString& second, tdk::WString& third,
                 tdk::WString& fourth) const;
  void SetLabels(const tdk::WString& first, const tdk::WString& second, const tdk::WString& third,
                 const tdk::WString& fourth);

 private:
  friend class CLibPnt;
  std::array<CompactText, 4> labels_;
  StableList<CPunPnt> points_;
  int index_;
};

/// The known-point library; see CLibCmp for what its operations have in common.
class CLibPnt : public LibraryBase, public TargetDrawingHolder {
 public:
  int GetGrpArSize() const { return CountOf(groups_); }
  int GetPtnArSize(int grp) const;
  CGrpPnt* GetGrpAt(int grp) const { return ElementAt(groups_, grp); }
  CPunPnt* GetPtnAt(int grp, int ptn) const;
  CGrpPnt* AddGrp(bool notify);
  CPunPnt* AddPtn(int grp, bool notify);
  bool GetIndiciDiGrp(const CGrpPnt* group, int& grp) const;

 private:
  StableList<CGrpPnt> groups_;
};

/// A control (orientation) record.
class COri : public CEgn {
 public:
  ~COri() override;
};

/// The list of control records.
class CLibConOri : public LibraryBase {
 public:
  int GetOriArSize() const { return CountOf(records_); }
  COri* GetOriAt(int ori) const { return ElementAt(records_, ori); }
  COri* AddOri(bool notify);

 private:
  StableList<COri> records_;
};
