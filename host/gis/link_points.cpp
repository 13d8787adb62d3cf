#include "host/gis/link_points.h"

#include <string>

#include "platform/numbers.h"
#include "services/translate.h"

namespace shape {
namespace {

class PointLinker {
 public:
  PointLinker(const gis::CTheme& theme, const TOpzImportShape& options, gis::ILinkImportedEnt& link)
      : theme_(theme), link_(link) {
    // Fields are chosen for points only; vertices of lines are numbered.
    if (theme.GetType() != gis::EntityType::kPoint) return;
    nameField_ = Checked(options.nameField);
    codeField_ = Checked(options.codeField);
  }

  void Run() {
    for (int feature = 0; feature < theme_.GetNumFeatures(); ++feature) {
      for (int part = 0; part < theme_.GetNumParts(feature); ++part) LinkPart(feature, part);
    }
  }

  std::uint64_t Refused() const { return refused_; }

 private:
  int Checked(int field) const {
    const gis::CTable* const table = theme_.GetTable();
    return table != nullptr && field >= 0 && field < table->GetNumFields() ? field : -1;
  }

  void LinkPart(int feature, int part) {
    const gis::VertexRange vertices = theme_.GetPart(feature, part);
    std::size_t last = vertices.last;
    if (theme_.GetType() == gis::EntityType::kPolygon && vertices.Size() > 1) --last;
    for (std::size_t v = vertices.first; v < last; ++v) LinkVertex(feature, v);
  }

  void LinkVertex(int feature, std::size_t vertex) {
    ++number_;
    name_.clear();
    code_.clear();
    if (nameField_ >= 0) {
      AppendText(name_, theme_.GetTable()->GetValue(feature, nameField_));
    } else {
      platform::AppendWhole(name_, number_);
    }
    if (codeField_ >= 0) AppendText(code_, theme_.GetTable()->GetValue(feature, codeField_));
    if (!link_.OnLinkPoint(feature, theme_.GetPoint(vertex), name_, code_)) ++refused_;
  }

  const gis::CTheme& theme_;
  gis::ILinkImportedEnt& link_;
  int nameField_ = -1;
  int codeField_ = -1;
  std::int64_t number_ = 0;
  std::uint64_t refused_ = 0;
  std::string name_;
  std::string code_;
};

void AppendDate(std::string& text, const gis::Date& date) {
  constexpr std::int64_t kBeyond = 100000000;  // a digit more, so that leading zeros stay
  std::string digits;
  platform::AppendWhole(digits, kBeyond + date.year * 10000 + date.month * 100 + date.day);
  text.append(digits, 1, 4).append("-").append(digits, 5, 2).append("-").append(digits, 7, 2);
}

}  // namespace

void AppendText(std::string& text, const gis::Value& value) {
  if (const auto* given = std::get_if<std::string_view>(&value)) text += *given;
  if (const auto* whole = std::get_if<std::int64_t>(&value)) platform::AppendWhole(text, *whole);
  if (const auto* real = std::get_if<double>(&value)) platform::AppendShortest(text, *real);
  if (const auto* date = std::get_if<gis::Date>(&value)) AppendDate(text, *date);
  if (const auto* flag = std::get_if<bool>(&value)) text += *flag ? "T" : "F";
}

void LinkPointsOf(const gis::CTheme& theme, const tdk::WString& fileName,
                  const TOpzImportShape& options, gis::ILinkImportedEnt& link, Remarks& remarks) {
  link.OnBeginLink(theme, fileName);
  PointLinker linker(theme, options, link);
  linker.Run();
  link.OnEndLink();
  RemarkCount(remarks, ToXlate("points that the host refused: {1}"), linker.Refused());
}

}  // namespace shape

void KnownPointLink::OnBeginLink(const gis::CTheme& /*theme*/, const tdk::WString& fileName) {
  CGrpPnt* const group = library_.AddGrp(true);
  group_ = group == nullptr ? -1 : library_.GetGrpArSize() - 1;
  if (group != nullptr) group->SetLabels(fileName, {}, {}, {});
}

bool KnownPointLink::OnLinkPoint(int /*feature*/, const tdk::geom::PNT_3D& place,
                                 std::string_view name, std::string_view code) {
  CPunPnt* const point = group_ < 0 ? nullptr : library_.AddPtn(group_, true);
  if (point == nullptr) return false;
  point->SetNomCoord(tdk::WString(name), tdk::WString(code), place.getX(), place.getY(),
                     place.getZ());
  return true;
}
