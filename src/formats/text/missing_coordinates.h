// Points whose coordinates a file gets as the undefined value.
#pragma once

#include <cstdint>

#include "formats/text/text_fields.h"
#include "model/egn.h"
#include "platform/numbers.h"
#include "services/window.h"

namespace text {

class MissingCoordinates {
 public:
  explicit MissingCoordinates(const TextExchangeSettings& settings) : path_(settings.filePath) {
    for (const int field : settings.fieldCode) {
      if (IsCoordinate(field)) wanted_[static_cast<std::size_t>(field)] = true;
    }
  }

  void Look(const CEgn& point) {
    const bool isMissing = (wanted_[kNorth] && !IsDefined(point.GetCoordY())) ||
                           (wanted_[kEast] && !IsDefined(point.GetCoordX())) ||
                           (wanted_[kElev] && !IsDefined(point.GetCoordZ()));
    if (isMissing) ++count_;
  }

  void Tell(CWnd* parent) const {
    if (count_ == 0 || parent == nullptr || parent->GetViews() == nullptr) return;
    std::string number;
    platform::AppendWhole(number, count_);
    parent->GetViews()->TakeNote(
        {path_, 0,
         Fill(Xlate("points without coordinates, written as the undefined value in full: {1}"),
              {tdk::WString(number)})});
  }

 private:
  tdk::WString path_;
  std::array<bool, kBasicFieldCount> wanted_{};
  std::int64_t count_ = 0;
};

}  // namespace text
