#include "formats/landxml/alignment_parts.h"
#include "formats/landxml/xml_print.h"

namespace landxml {

void WriteProfile(platform::OutputFile& file, const CProfileAlti& line, const tdk::WString& name) {
  PrintLine(file, "\t\t\t<Profile>");
  PrintLine(file, "\t\t\t\t<ProfAlign name=\"Profile_", name, "\" state=\"existing\">");
  for (int i = 0; i < line.GetNumVrts(); ++i) {
    const TAltiVrt& vertex = line.GetVrt(i);
    if (!IsPrincAltiVrt(vertex)) continue;
    if (IsRaccVertAltiVrt(vertex)) {
      PrintLine(file, "\t\t\t\t\t<ParaCurve length=\"", vertex.curve->end - vertex.curve->start,
                "\">", vertex.distance, " ", vertex.height, "</ParaCurve>");
    } else {
      PrintLine(file, "\t\t\t\t\t<PVI>", vertex.distance, " ", vertex.height, "</PVI>");
    }
  }
  PrintLine(file, "\t\t\t\t</ProfAlign>");
  PrintLine(file, "\t\t\t</Profile>");
}

}  // namespace landxml
