#include "theme_report.h"

#include <algorithm>

#include "console.h"
#include "host/gis/shape_files.h"
#include "layout.h"
#include "model/gis.h"
#include "services/translate.h"
#include "table.h"

namespace {

constexpr int kShown = 20;
constexpr std::size_t kIndent = 2;
using Align = Table::Align;

std::string Text(const tdk::WString& text) { return text.ToUtf8(); }
std::string Number(int value) { return console::Number(static_cast<std::uint64_t>(value)); }

std::string InWords(gis::EntityType type) {
  if (type == gis::EntityType::kPoint) return Text(Xlate("points"));
  return Text(type == gis::EntityType::kLine ? Xlate("lines") : Xlate("polygons"));
}

std::string InWords(gis::FieldType type) {
  switch (type) {
    case gis::FieldType::kText: return Text(Xlate("text"));
    case gis::FieldType::kInteger: return Text(Xlate("whole number"));
    case gis::FieldType::kReal: return Text(Xlate("number"));
    case gis::FieldType::kDate: return Text(Xlate("date"));
    case gis::FieldType::kBool: break;
  }
  return Text(Xlate("yes or no"));
}

// WKT begins with the kind of the system and its name in quotes.
std::string NameOf(const std::string& wkt) {
  const std::size_t first = wkt.find('"');
  const std::size_t last = first == std::string::npos ? first : wkt.find('"', first + 1);
  return last == std::string::npos ? wkt.substr(0, 60) : wkt.substr(first + 1, last - first - 1);
}

void ReportFields(const gis::CTheme& theme) {
  const gis::CTable* const table = theme.GetTable();
  const tdk::WString title = Fill(Xlate("Fields of theme {1}"), {theme.GetName()});
  if (table != nullptr && table->GetNumFields() > 0) {
    Table fields({Align::kLeft, Align::kLeft, Align::kRight, Align::kRight}, kIndent);
    fields.Add(
        {Text(Xlate("field")), Text(Xlate("kind")), Text(Xlate("width")), Text(Xlate("decimals"))});
    for (int i = 0; i < table->GetNumFields(); ++i) {
      const gis::Field& field = table->GetField(i);
      fields.Add(
          {Text(field.name), InWords(field.type), Number(field.width), Number(field.decimals)});
    }
    console::Out(Printable(Text(title)) + "\n" + fields.Text());
  }
  if (theme.GetReferenceSystem().empty()) return;
  const tdk::WString system =
      Fill(Xlate("Reference system of theme {1}: {2}"),
           {theme.GetName(), tdk::WString(NameOf(theme.GetReferenceSystem()))});
  console::Out(Printable(Text(system)) + "\n");
}

}  // namespace

void ReportThemes(const gis::CLibGis& library, bool all) {
  const int count = library.GetNumThemes();
  if (count == 0) return;
  const int shown = all ? count : std::min(count, kShown);
  Table table({Align::kLeft, Align::kLeft, Align::kRight, Align::kRight, Align::kRight}, kIndent);
  table.Add({Text(Xlate("theme")), Text(Xlate("holds")), Text(Xlate("dimensions")),
             Text(Xlate("features")), Text(Xlate("vertices"))});
  for (int i = 0; i < shown; ++i) {
    const gis::CTheme& theme = *library.GetTheme(i);
    table.Add({Text(theme.GetName()), InWords(theme.GetType()), theme.Is3D() ? "3" : "2",
               Number(theme.GetNumFeatures()), console::Number(theme.GetNumVertices())});
  }
  console::Out(Text(Xlate("Themes")) + "\n" + table.Text());
  if (shown < count) {
    console::Out(std::string(kIndent, ' ') +
                 console::Count(static_cast<std::uint64_t>(count - shown),
                                Xlate("… and {1} more theme (--all shows it)"),
                                Xlate("… and {1} more themes (--all shows them)")) +
                 "\n");
  }
  for (int i = 0; i < shown; ++i) ReportFields(*library.GetTheme(i));
}

void ReportEncoding() {
  const std::string& encoding = ShapeFiles::Install().LastEncoding();
  const tdk::WString what =
      encoding.empty() ? Xlate("not told, so UTF-8 or Windows-1252") : tdk::WString(encoding);
  console::Out(Text(Fill(Xlate("Encoding of the texts: {1}"), {what})) + "\n");
}
