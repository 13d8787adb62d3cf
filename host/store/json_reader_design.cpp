// What becomes of the terrain models and roads of a JSON job.
#include <cmath>

#include "host/store/json_reader.h"
#include "platform/numbers.h"

using tdk::geom::PNT_3D;

void JsonJobReader::BeginModel() {
  openModel_ = Added(document_.GetLibDtm()->AddPrj(false));
  terrain_ = {};
  triangles_.clear();
}

void JsonJobReader::EndModel() {
  openModel_->SetName(tdk::WString(std::string_view(terrain_.name)));
  for (std::size_t i = 0; i < triangles_.size(); ++i) {
    const auto& [a, b, c] = triangles_[i];
    if (openModel_->GetTris().AddTri(a, b, c)) continue;
    std::string place = "triangles[";
    platform::AppendWhole(place, static_cast<std::int64_t>(i));
    place_.SetKey(place + "]");
    Fail("expected three positions of vertices");
  }
}

void JsonJobReader::BeginOuter() { openContour_ = &openModel_->GetOuterCnts().AddCnt(); }
void JsonJobReader::BeginIsland() { openContour_ = &openModel_->GetIslandCnts().AddCnt(); }
void JsonJobReader::EndContourVertex() { openContour_->AddVrt({row_[0], row_[1], row_[2]}); }

void JsonJobReader::EndBreaklinePoint() {
  if (breakline_.size() == 2) Fail("a breakline has two points");
  breakline_.emplace_back(row_[0], row_[1], row_[2]);
}

void JsonJobReader::EndBreakline() {
  if (breakline_.size() != 2) Fail("a breakline has two points");
  openModel_->GetVncs().AddVnc({breakline_[0], breakline_[1]});
  breakline_.clear();
}

void JsonJobReader::EndTerrainVertex() {
  openModel_->GetTris().AddTriVrt({row_[0], row_[1], row_[2]});
  CountPoint();
}

void JsonJobReader::EndTriangle() {
  std::array<int, 3> triangle{};
  for (std::size_t i = 0; i < triangle.size(); ++i) {
    constexpr double kMost = std::numeric_limits<int>::max();
    if (std::trunc(row_[i]) != row_[i] || row_[i] < 0 || row_[i] > kMost) {
      Fail("expected three positions of vertices");
    }
    triangle[i] = static_cast<int>(row_[i]);
  }
  triangles_.push_back(triangle);
  CountPoint();
}

void JsonJobReader::BeginRoad() {
  openRoad_ = Added(document_.GetLibRoad()->AddRoad(false));
  road_ = {};
}

void JsonJobReader::EndRoad() { Store(road_, *openRoad_); }

void JsonJobReader::EndElement() {
  std::unique_ptr<CPlaniElem> element = MakeElement(element_);
  if (element == nullptr) {
    place_.SetKey("type");
    Fail("expected \"line\", \"arc\", \"clothoid\" or \"other\"");
  }
  openRoad_->AddElement(std::move(element));
}

void JsonJobReader::BeginMainLine() { openLine_ = &openRoad_->GetRoadProfile()->MakeMainPrjAlti(); }

void JsonJobReader::EndCode() {
  openRoad_->ProfileCodes().AddSectionAltiCode(code_.code,
                                               tdk::WString(std::string_view(code_.name)));
}

void JsonJobReader::BeginRoadSection() {
  openSection_ = &openRoad_->GetRoadProfile()->AddSection();
  section_ = {};
}

void JsonJobReader::EndRoadSection() { Store(section_, *openSection_); }

void JsonJobReader::EndSectionVertex() { openSection_->AddTerrVrt({row_[0], row_[1]}); }

void JsonJobReader::BeginLine() {
  openLine_ = &openSection_->AddProfileAlti(0, false);
  line_ = {};
}

void JsonJobReader::EndLine() { openLine_->SetKind(line_.code, line_.terrain); }

void JsonJobReader::BeginVertex() {
  vertex_ = {};
  curve_.reset();
}

void JsonJobReader::EndVertex() { openLine_->AddVrt(VertexOf(vertex_, curve_)); }
