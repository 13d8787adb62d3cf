// The known and control points of a job by their names.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "host/survey/name_keys.h"
#include "model/known_points.h"
#include "model/polar.h"

namespace survey {

/// Two places more than a millimetre apart under one name; the first one holds.
struct KnownClash {
  std::string name;
  Place used;
  Place other;
};

/// Points without a name or without easting and northing are left out; the elevation may be
/// undefined. Names are the points' own, which must outlive this.
class KnownPlaces {
 public:
  KnownPlaces(const CLibPnt& known, const CLibConOri& control);

  /// Null when the name is not known.
  const Place* Find(std::string_view name) const;
  /// False for nearly all names that are not known, without a search; `key` is from KeyOf.
  bool MayKnow(std::uint64_t key) const { return !places_.empty() && names_.Has(key); }
  const std::vector<KnownClash>& Clashes() const { return clashes_; }

 private:
  void Add(const CEgn& point);

  std::unordered_map<std::string_view, Place> places_;
  KeyFilter names_;
  std::vector<KnownClash> clashes_;
};

}  // namespace survey
