#include "cadastral_report.h"

#include "console.h"
#include "host/cadastre/compose.h"
#include "host/store/cadastre_records.h"
#include "layout.h"
#include "platform/numbers.h"
#include "services/number_text.h"
#include "services/translate.h"
#include "table.h"

namespace {

constexpr std::size_t kIndent = 2;
using Align = Table::Align;

std::string Text(const tdk::WString& text) { return text.ToUtf8(); }

std::string Metres(double value) {
  return IsDefined(value) ? Text(StringDaDouble(value, 0, 3)) : "–";
}

std::string Value(const std::string& text) { return Printable(text); }
std::string Value(std::int32_t number) {
  std::string text;
  if (number != 0) platform::AppendWhole(text, number);
  return text;
}
std::string Value(double number) {
  std::string text;
  if (IsDefined(number) && number != 0) platform::AppendShortest(text, number);
  return text;
}

std::string Joined(const std::vector<std::string>& texts) {
  std::string joined;
  for (const std::string& text : texts) joined.append(joined.empty() ? "" : ", ").append(text);
  return Printable(joined);
}

// By the keys that set them, which are the same in every language.
void ReportHeading(const cadastre::Survey& survey) {
  Table table({}, kIndent);
  const auto add = [&](std::string_view key, const std::string& value) {
    if (!value.empty()) table.Add({std::string(key), value});
  };
  const CadastreRecord record{survey.heading};
  ForEachField<CadastreRecord>(
      [&](const auto& field) { add(field.key, Value(record.*field.member)); });
  add("parcels", Joined(survey.parcels));
  for (const auto& traverse : survey.traverses) add("traverses", Joined(traverse));
  for (const cadastre::Contour& contour : survey.contours) {
    add("contours", Printable(contour.type) + ": " + Joined(contour.points));
  }
  console::Out(Text(Xlate("Cadastral data")) + "\n" + table.Text());
}

void ReportFiducials(const std::vector<cadastre::Fiducial>& fiducials) {
  if (fiducials.empty()) return;
  Table table({Align::kLeft, Align::kRight, Align::kRight, Align::kRight}, kIndent);
  table.Add({Text(Xlate("fiducial point")), Text(Xlate("north")), Text(Xlate("east")),
             Text(Xlate("reliability")), Text(Xlate("description"))});
  for (const cadastre::Fiducial& point : fiducials) {
    table.Add({Printable(point.name), Metres(point.north), Metres(point.east),
               Value(point.reliability), Printable(point.description)});
  }
  console::Out(table.Text());
}

}  // namespace

void ReportCadastre(const CCts& cadastre) {
  if (cadastre.Survey() == cadastre::Survey{}) {
    console::Out(Text(Xlate("no cadastral data")) + "\n");
    return;
  }
  ReportHeading(cadastre.Survey());
  ReportFiducials(cadastre.Survey().fiducials);
}

void ReportDatFaults(HostDocument& document) {
  const dat::DatText text =
      dat::Compose(*document.GetCts(), *document.GetLibCmp(), *document.GetLibGps());
  if (text.faults.empty()) {
    console::Out(Text(Xlate("Nothing that a DAT file needs is missing.")) + "\n");
    return;
  }
  console::Out(Text(Xlate("Before a DAT file can be written:")) + "\n");
  for (const tdk::WString& fault : text.faults) {
    console::Out(std::string(kIndent, ' ') + Printable(fault.ToUtf8()) + "\n");
  }
}
