// LandXML documents for the tests of the loader: written into a file, loaded, and what came of it.
#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <charconv>
#include <cmath>
#include <initializer_list>
#include <string>
#include <string_view>
#include <vector>

#include "host/document/host_document.h"
#include "host/landxml/load.h"
#include "tests/support/exchange_files.h"

namespace landxml_test {

inline const std::string kMetres = R"(<Units><Metric linearUnit="meter"/></Units>)";
inline const std::string kFeet = R"(<Units><Imperial linearUnit="foot"/></Units>)";

/// A document whose `content` begins on line 2.
inline std::string Document(const std::string& content, const std::string& units = kMetres) {
  return "<LandXML>" + units + '\n' + content + "\n</LandXML>\n";
}

/// One road "A" with its elements from line 3 on.
inline std::string Alignment(const std::string& elements, const std::string& attributes = "",
                             const std::string& more = "") {
  return "<Alignments><Alignment name=\"A\" " + attributes + "><CoordGeom>\n" + elements +
         "\n</CoordGeom>" + more + "</Alignment></Alignments>";
}

/// A straight of that road: north and east of its ends.
inline std::string Line(const std::string& start, const std::string& end,
                        const std::string& attributes = "") {
  return "<Line " + attributes + "><Start>" + start + "</Start><End>" + end + "</End></Line>";
}

/// The shortest text that reads back to the same number.
inline std::string Text(double number) {
  std::array<char, 40> text{};
  return {text.data(), std::to_chars(text.data(), text.data() + text.size(), number).ptr};
}

/// "northing easting".
inline std::string Text(const tdk::geom::PNT_2D& place) {
  return Text(place.getY()) + ' ' + Text(place.getX());
}

class LandXmlLoad : public testing::Test {
 protected:
  /// Loads these bytes as a file. Throws what the loader throws.
  void LoadBytes(std::string_view bytes) {
    exchange_test::WriteFile(Path(), bytes);
    remarks = LoadLandXml(Path(), document);
  }
  void Load(const std::string& content, const std::string& units = kMetres) {
    LoadBytes(Document(content, units));
  }
  /// Loads a file that is refused; the refusal without the file's name.
  std::string Refusal(std::string_view bytes) {
    try {
      LoadBytes(bytes);
    } catch (const landxml_load::LoadError& error) {
      const std::string text = error.what();
      if (text.starts_with(Path() + ": ")) return text.substr(Path().size() + 2);
      return "without the file's name: " + text;
    }
    return "not refused";
  }
  std::string Path() const { return folder.Path("in.xml"); }

  /// Whether one remark holds all these parts.
  testing::AssertionResult Told(std::initializer_list<std::string_view> parts) const {
    for (const std::string& remark : remarks) {
      bool hasAll = true;
      for (const std::string_view part : parts) hasAll = hasAll && remark.find(part) != remark.npos;
      if (hasAll) return testing::AssertionSuccess() << remark;
    }
    return testing::AssertionFailure() << "told: " << testing::PrintToString(remarks);
  }

  int RoadCount() { return document.GetLibRoad()->GetRoadArSize(); }
  CRoad& Road(int road = 0) { return *document.GetLibRoad()->GetRoadAt(road); }
  std::vector<const CPlaniElem*> Elements(int road = 0) {
    std::vector<const CPlaniElem*> elements;
    if (road < RoadCount()) Road(road).RetrieveLinkedPlaniElems(elements);
    return elements;
  }
  /// The types of a road's elements: straight, arc, clothoid, other.
  std::string Kinds(int road = 0) {
    std::string kinds;
    for (const CPlaniElem* const element : Elements(road)) {
      kinds += "SACO"[static_cast<std::size_t>(element->GetType())];
    }
    return kinds;
  }

  /// The only element of the first road; a failure and a straight when there is none of that kind.
  const CPlaniElem& Only(char kind) {
    static const CLinePlaniElem kNone(0, {0, 0}, {1, 0});
    EXPECT_EQ(Kinds(), std::string(1, kind));
    return Elements().empty() ? kNone : *Elements()[0];
  }

  int SurfaceCount() { return document.GetLibDtm()->GetPrjArSize(); }
  CDtmPrj& Surface(int surface = 0) { return *document.GetLibDtm()->GetPrjAt(surface); }

  CLibCmp& Jobs() { return *document.GetLibCmp(); }
  CLibGps& Gps() { return *document.GetLibGps(); }
  CLibPnt& Known() { return *document.GetLibPnt(); }

  exchange_test::TempFolder folder;
  HostDocument document;
  std::vector<std::string> remarks;
};

inline void ExpectAt(const tdk::geom::PNT_2D& place, double east, double north,
                     double near = 1e-9) {
  EXPECT_NEAR(place.getX(), east, near);
  EXPECT_NEAR(place.getY(), north, near);
}
inline void ExpectAt(const tdk::geom::PNT_3D& place, double east, double north, double elevation,
                     double near = 1e-9) {
  EXPECT_NEAR(place.getX(), east, near);
  EXPECT_NEAR(place.getY(), north, near);
  EXPECT_NEAR(place.getZ(), elevation, near);
}
inline void ExpectAt(const CEgn& point, double east, double north, double elevation,
                     double near = 1e-9) {
  EXPECT_NEAR(point.GetCoordX(), east, near);
  EXPECT_NEAR(point.GetCoordY(), north, near);
  EXPECT_NEAR(point.GetCoordZ(), elevation, near);
}
/// `angle`: radians, counter-clockwise from east.
inline void ExpectDirection(const tdk::geom::VECTOR_2D& tangent, double angle) {
  EXPECT_NEAR(tangent.getX(), std::cos(angle), 1e-9);
  EXPECT_NEAR(tangent.getY(), std::sin(angle), 1e-9);
}

inline tdk::geom::PNT_2D EndOf(const CPlaniElem& element) {
  tdk::geom::PNT_2D end(-1, -1);
  element.GetEndPnt(end);
  return end;
}
inline tdk::geom::VECTOR_2D TangentOf(const CPlaniElem& element, double s) {
  tdk::geom::VECTOR_2D tangent(-1, -1);
  element.GetTg(s, tangent);
  return tangent;
}

}  // namespace landxml_test
