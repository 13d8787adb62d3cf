// Cadastral survey data: what the land agency wants to know besides the observations.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "model/library_base.h"
#include "model/undefined.h"
#include "tdk/wstring.h"

namespace cadastre {

/// What there is once for a survey. Texts are UTF-8; an empty one was not given.
struct Heading {
  std::string year;          ///< of the survey, with two or four digits
  std::string protocol;      ///< the number it is filed under
  std::string date;          ///< DDMMYYYY
  std::string municipality;  ///< the cadastre's code: a letter and three digits
  std::string sheet;         ///< of the map: its number, or three characters and the annex
  std::string technician;    ///< surname and first name
  std::string qualification;
  std::string province;  ///< its name
  double elevation = 0;  ///< mean, metres; 0: not given
  std::int32_t linearPrecision = 0;
  std::int32_t angularPrecision = 0;
  double meanEast = 0;  ///< metres; 0: not given
  std::string version;  ///< of the agency's program that the file is for
  std::string actType;
  std::string note;

  bool operator==(const Heading&) const = default;
};

/// Points in the order in which they are joined. The type says how the line is drawn.
struct Contour {
  std::vector<std::string> points;
  std::string type;

  bool operator==(const Contour&) const = default;
};

/// A point of known place, metres. The reliability is a class from 1 to 12.
struct Fiducial {
  std::string name;
  double north = UndefinedValue;
  double east = UndefinedValue;
  std::int32_t reliability = 0;
  std::string description;

  bool operator==(const Fiducial&) const = default;
};

struct Survey {
  Heading heading;
  std::vector<std::string> parcels;
  std::vector<std::vector<std::string>> traverses;  ///< names of their vertices
  std::vector<Contour> contours;
  std::vector<Fiducial> fiducials;

  bool operator==(const Survey&) const = default;
};

}  // namespace cadastre

/// The cadastral survey of a job. Nothing in it at first.
class CCts : public TargetDrawingHolder {
 public:
  tdk::WString GetAnno() const { return tdk::WString(survey_.heading.year); }
  void SetAnno(const tdk::WString& year) { survey_.heading.year = year.ToUtf8(); }
  tdk::WString GetProt() const { return tdk::WString(survey_.heading.protocol); }
  void SetProt(const tdk::WString& number) { survey_.heading.protocol = number.ToUtf8(); }

  const cadastre::Survey& Survey() const { return survey_; }
  cadastre::Survey& Survey() { return survey_; }
  bool IsEmpty() const { return survey_ == cadastre::Survey{}; }

 private:
  cadastre::Survey survey_;
};
