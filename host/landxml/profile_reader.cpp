#include "host/landxml/profile_reader.h"

#include <cmath>

#include "services/translate.h"

namespace landxml_load {
namespace {

// A vertex of the file, metres.
struct Vertex {
  const XmlElement* element;
  double station;
  double height;
};

std::vector<Vertex> VerticesOf(const XmlElement& profile, LoadContext& context) {
  std::vector<Vertex> vertices;
  for (const XmlElement& element : profile.children) {
    const auto numbers = Numbers(element.text);
    if (numbers && numbers->size() == 2) {
      vertices.push_back(
          {&element, (*numbers)[0] * context.units.metres, (*numbers)[1] * context.units.metres});
    } else {
      context.remarks.Add(element.line, Fill(Xlate("{1} is left out: {2}"),
                                             {tdk::WString(element.name),
                                              Xlate("it is no station and elevation")}));
    }
  }
  return vertices;
}

double Grade(const Vertex& from, const Vertex& to) {
  const double run = to.station - from.station;
  return run == 0 ? 0 : (to.height - from.height) / run;
}

// Length and sign of its attributes cannot be trusted; radius and grades can.
std::optional<TRaccVert> CircularCurve(const Vertex& vertex, double gradeIn, double gradeOut,
                                       const Units& units) {
  const auto radius = LengthOf(*vertex.element, "radius", units);
  if (!radius) return std::nullopt;
  const double in = std::atan(gradeIn);
  const double out = std::atan(gradeOut);
  const double tangent = std::abs(*radius) * std::tan(std::abs(out - in) / 2);
  return TRaccVert{vertex.station - tangent * std::cos(in),
                   vertex.station + tangent * std::cos(out)};
}

// Nothing for a plain vertex.
std::optional<TRaccVert> CurveAt(const std::vector<Vertex>& vertices, std::size_t i,
                                 LoadContext& context) {
  const Vertex& vertex = vertices[i];
  const XmlElement& element = *vertex.element;
  if (element.name == "PVI") return std::nullopt;
  if (i == 0 || i + 1 == vertices.size()) {
    context.remarks.Add(element.line,
                        Xlate("a vertical curve at the end of a profile is a plain vertex"));
    return std::nullopt;
  }
  std::optional<TRaccVert> curve;
  if (element.name == "ParaCurve") {
    if (const auto length = LengthOf(element, "length", context.units)) {
      curve = TRaccVert{vertex.station - *length / 2, vertex.station + *length / 2};
    }
  } else if (element.name == "UnsymParaCurve") {
    const auto in = LengthOf(element, "lengthIn", context.units);
    const auto out = LengthOf(element, "lengthOut", context.units);
    if (in && out) curve = TRaccVert{vertex.station - *in, vertex.station + *out};
  } else if (element.name == "CircCurve") {
    curve = CircularCurve(vertex, Grade(vertices[i - 1], vertex), Grade(vertex, vertices[i + 1]),
                          context.units);
    context.remarks.Add(element.line,
                        Xlate("a circular vertical curve becomes a parabola with the same ends"));
  }
  if (!curve || !(curve->end >= curve->start)) {
    curve.reset();
    context.remarks.Add(element.line, Fill(Xlate("{1} has no length, so it is a plain vertex"),
                                           {tdk::WString(element.name)}));
  }
  return curve;
}

}  // namespace

void ReadProfile(const XmlElement& profile, CRoad& road, LoadContext& context) {
  const std::vector<Vertex> vertices = VerticesOf(profile, context);
  if (vertices.empty()) return;
  CProfileAlti& line = road.GetRoadProfile()->MakeMainPrjAlti();
  for (std::size_t i = 0; i < vertices.size(); ++i) {
    line.AddVrt({vertices[i].station, vertices[i].height, /*isPrincipal=*/true,
                 CurveAt(vertices, i, context)});
  }
}

}  // namespace landxml_load
