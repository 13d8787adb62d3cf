#include "host/cad/dxf/read_fields.h"

#include <algorithm>
#include <limits>

namespace dxf_reader {

int Fields::Narrowed(std::int64_t number) {
  constexpr std::int64_t kMost = std::numeric_limits<int>::max();
  return static_cast<int>(std::clamp(number, -kMost, kMost));
}

cad_reader::LostLooks Fields::Looks() const {
  cad_reader::LostLooks looks = looks_;
  looks.TakeExtent(Real(kThickness));
  return looks;
}

void Fields::Begin(PairStream& pairs) {
  pairs_ = &pairs;
  for (const int code : {1, 2, 3, 8}) {
    if (Has(code)) texts_[Index(code)].clear();
  }
  has_ = {};
  extrusion_ = {0, 0, 1};
  looks_ = {};
  hasExtrusion_ = isInGroup_ = isOver_ = false;
}

// "{...": a group up to "}"; another object inside this one: all that follows.
void Fields::LookAtMark() {
  if (pairs_->Code() == 102) {
    isInGroup_ = pairs_->Text().starts_with('{');
  } else if (pairs_->Code() == 101 || pairs_->Text() == "AcDbXrecord") {
    isOver_ = true;
  }
}

void Fields::Store() {
  const int code = pairs_->Code();
  if (code >= kFirstReal && code < kFirstWhole) {
    MarkAs(code);
    reals_[Index(code - kFirstReal)] = pairs_->Real();
  } else if (code >= kFirstWhole && code < kEnd) {
    MarkAs(code);
    wholes_[Index(code - kFirstWhole)] = Narrowed(pairs_->Whole());
  } else if ((code >= 1 && code <= 3) || code == static_cast<int>(kLayerCode)) {
    StoreText(Index(code));
  } else if (code == 210 || code == 220 || code == 230) {
    StoreExtrusion(code);
  } else {
    LookAtLooks(code);
  }
}

void Fields::LookAtLooks(int code) {
  constexpr int kLineType = 6;
  constexpr int kTextStyle = 7;
  constexpr int kLineWeight = 370;
  constexpr int kTrueColor = 420;
  constexpr int kTransparency = 440;
  if (code == kLineType) {
    looks_.TakeLineType(pairs_->Text());
  } else if (code == kTextStyle) {
    looks_.TakeTextStyle(pairs_->Text());
  } else if (code == kLineWeight) {
    looks_.TakeLineWeight(pairs_->Whole());
  } else if (code == kTrueColor || (code == kTransparency && pairs_->Whole() > 0)) {
    looks_.TakeTrueColor();
  }
}

void Fields::StoreText(std::size_t code) {
  MarkAs(static_cast<int>(code));
  texts_[code] = code == 1 ? pairs_->RawText() : pairs_->Text();
}

void Fields::StoreExtrusion(int code) {
  const double value = pairs_->Real();
  hasExtrusion_ = true;
  extrusion_ = {code == 210 ? value : extrusion_.getX(), code == 220 ? value : extrusion_.getY(),
                code == 230 ? value : extrusion_.getZ()};
}

}  // namespace dxf_reader
