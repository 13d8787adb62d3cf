// Whatever a LandXML file holds, the loader takes it or refuses it by name, and of what it refuses
// no road and no survey is in the job.
#include <string_view>
#include <vector>

#include "host/document/host_document.h"
#include "host/landxml/load.h"
#include "memory_file.h"

namespace {

// Each element can be driven to its end, and is as long as it is.
void WalkRoads(HostDocument& document) {
  const CLibRoad& roads = *document.GetLibRoad();
  for (int i = 0; i < roads.GetRoadArSize(); ++i) {
    std::vector<const CPlaniElem*> elements;
    roads.GetRoadAt(i)->RetrieveLinkedPlaniElems(elements);
    for (const CPlaniElem* const element : elements) {
      tdk::geom::PNT_2D end;
      element->GetEndPnt(end);
      if (!(element->GetLength() >= 0)) std::abort();
    }
  }
}

void CheckTriangles(HostDocument& document) {
  const CLibDtm& models = *document.GetLibDtm();
  for (int i = 0; i < models.GetPrjArSize(); ++i) {
    const CTris& triangles = models.GetPrjAt(i)->GetTris();
    for (int k = 0; k < triangles.GetNoTris(); ++k) {
      for (int corner = 0; corner < 3; ++corner) {
        const int vertex = triangles.GetTriAt(k).GetVerIndex(corner);
        if (vertex < 0 || vertex >= triangles.GetNoTriVrts()) std::abort();
      }
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const MemoryFile input;
  input.Fill(data, size);
  const std::string path = input.Path().ToUtf8();
  HostDocument document;
  try {
    LoadLandXml(path, document);
    WalkRoads(document);
  } catch (const landxml_load::LoadError& error) {
    if (!std::string_view(error.what()).starts_with(path + ": ")) std::abort();
    if (document.GetLibRoad()->GetRoadArSize() != 0) std::abort();
    if (document.GetLibCmp()->GetJobArSize() != 0) std::abort();
    if (document.GetLibGps()->GetGrpArSize() != 0) std::abort();
  }
  CheckTriangles(document);
  return 0;
}
