#include "model/known_points.h"

CPunPnt::~CPunPnt() = default;
COri::~COri() = default;

void CGrpPnt::GetLabels(tdk::WString& first, tdk::WString& second, tdk::WString& third,
                        tdk::WString& fourth) const {
  first = tdk::WString(labels_[0].View());
  second = tdk::WString(labels_[1].View());
  third = tdk::WString(labels_[2].View());
  fourth = tdk::WString(labels_[3].View());
}

void CGrpPnt::SetLabels(const tdk::WString& first, const tdk::WString& second,
                        const tdk::WString& third, const tdk::WString& fourth) {
  labels_[0].Set(first.ToUtf8());
  labels_[1].Set(second.ToUtf8());
  labels_[2].Set(third.ToUtf8());
  labels_[3].Set(fourth.ToUtf8());
}

int CLibPnt::GetPtnArSize(int grp) const {
  const CGrpPnt* const parent = GetGrpAt(grp);
  return parent == nullptr ? 0 : CountOf(parent->points_);
}

CPunPnt* CLibPnt::GetPtnAt(int grp, int ptn) const {
  const CGrpPnt* const parent = GetGrpAt(grp);
  return parent == nullptr ? nullptr : ElementAt(parent->points_, ptn);
}

CGrpPnt* CLibPnt::AddGrp(bool /*notify*/) {
  if (!MayAdd(AddedKind::kKnownGroup, groups_.Size())) return nullptr;
  return &groups_.Append(GetGrpArSize());
}

CPunPnt* CLibPnt::AddPtn(int grp, bool /*notify*/) {
  CGrpPnt* const parent = GetGrpAt(grp);
  if (parent == nullptr || !MayAdd(AddedKind::kKnownPoint, parent->points_.Size())) return nullptr;
  return &parent->points_.Append();
}

bool CLibPnt::GetIndiciDiGrp(const CGrpPnt* group, int& grp) const {
  if (group == nullptr || GetGrpAt(group->index_) != group) return false;
  grp = group->index_;
  return true;
}

COri* CLibConOri::AddOri(bool /*notify*/) {
  if (!MayAdd(AddedKind::kControlRecord, records_.Size())) return nullptr;
  return &records_.Append();
}
