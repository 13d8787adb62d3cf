// What is stored of a cadastral survey: the table of its fields.
#pragma once

#include "host/store/fields.h"
#include "model/cadastre.h"

struct CadastreRecord : cadastre::Heading {
  static constexpr auto Fields() {
    using R = CadastreRecord;
    return std::tuple{Field{"year", &R::year},
                      Field{"protocol", &R::protocol},
                      Field{"date", &R::date},
                      Field{"municipality", &R::municipality},
                      Field{"sheet", &R::sheet},
                      Field{"technician", &R::technician},
                      Field{"qualification", &R::qualification},
                      Field{"province", &R::province},
                      Field{"elevation", &R::elevation},
                      Field{"linearPrecision", &R::linearPrecision},
                      Field{"angularPrecision", &R::angularPrecision},
                      Field{"meanEast", &R::meanEast},
                      Field{"version", &R::version},
                      Field{"actType", &R::actType},
                      Field{"note", &R::note}};
  }
};

struct FiducialRecord : cadastre::Fiducial {
  static constexpr auto Fields() {
    using R = FiducialRecord;
    return std::tuple{Field{"name", &R::name}, Field{"north", &R::north}, Field{"east", &R::east},
                      Field{"reliability", &R::reliability}, Field{"description", &R::description}};
  }
};

/// A contour without its points.
struct ContourLineRecord {
  std::string type;

  static constexpr auto Fields() { return std::tuple{Field{"type", &ContourLineRecord::type}}; }
};
