#include "host/landxml/load.h"

#include "host/landxml/landxml_reader.h"
#include "services/translate.h"

std::vector<std::string> LoadLandXml(const std::string& path, HostDocument& document,
                                     const landxml_load::LoadProgress& progress) {
  using namespace landxml_load;
  LoadContext context{document, {}, {}, path};
  XmlStream stream(path, progress);
  LandXmlReader reader(stream, context);
  stream.Read(reader);
  reader.Finish();
  if (stream.IsGuessedEncoding()) {
    context.remarks.Add(Xlate("the file is not in UTF-8 as it says; Windows-1252 is assumed"));
  }
  return std::move(context.remarks.All());
}
