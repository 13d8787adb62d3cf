#include <cmath>
#include <string>
#include <string_view>
#include <unordered_set>

#include "model/point_count.h"
#include "services/display/displays.h"
#include "services/number_text.h"
#include "services/progress.h"
#include "services/translate.h"

namespace {

using display::TargetLayers;

constexpr int kHeightDecimals = 2;

cad::Point PlaceOf(const CEgn& point) {
  const double z = point.GetCoordZ();
  return {point.GetCoordX(), point.GetCoordY(), IsDefined(z) ? z : 0};
}

std::string HeightText(const CEgn& point) {
  return StringDaDouble(point.GetCoordZ(), 0, kHeightDecimals).ToUtf8();
}

// Texts stand at whole millimetres, whatever digits their points have.
double Millimetres(double metres) { return std::round(metres * 1000) / 1000; }

cad::TextShape Text(const CEgn& point, const display::TextPlace& place, std::string text) {
  const cad::Point at = PlaceOf(point);
  return {{Millimetres(at.getX() + place.right * display::kSymbolSize),
           Millimetres(at.getY() + place.up * display::kSymbolSize), at.getZ()},
          display::kTextHeight,
          0,
          std::move(text)};
}

// Calls `visit` with each point, its symbol and its layers, library by library.
template <class Visit>
void ForEachTotalStationPoint(const CLibCmp& library, CTcadEng& engine, Visit visit) {
  ProgressSteps progress(PointCount(library));
  for (int job = 0; job < library.GetJobArSize(); ++job) {
    const CJob& object = *library.GetJobAt(job);
    const TargetLayers layers(
        engine, display::TargetOf(object.GetTargetDrawing(), library.GetTargetDrawing()),
        object.GetNome());
    for (int sta = 0; sta < library.GetStaArSize(job); ++sta) {
      visit(*library.GetStaAt(job, sta), Symbol::kStation, layers);
      for (const CPun* const point : library.PointsOf(job, sta)) {
        visit(*point, Symbol::kPoint, layers);
        progress.Step();
      }
    }
  }
  const TargetLayers layers(engine, library.GetTargetDrawing(), Xlate("CONTROL"));
  for (int i = 0; i < library.GetOriArSize(); ++i) {
    visit(*library.GetOriAt(i), Symbol::kKnownPoint, layers);
  }
}

template <class Visit>
void ForEachGpsPoint(const CLibGps& library, CTcadEng& engine, Visit visit) {
  ProgressSteps progress(PointCount(library));
  for (int grp = 0; grp < library.GetGrpArSize(); ++grp) {
    const CGrpGps& group = *library.GetGrpAt(grp);
    const TargetLayers layers(
        engine, display::TargetOf(group.GetTargetDrawing(), library.GetTargetDrawing()),
        group.GetNomeGrp());
    visit(group, Symbol::kGpsBase, layers);
    for (int i = 0; i < library.GetPunArSize(grp); ++i) {
      visit(*library.GetPunAt(grp, i), Symbol::kGpsPoint, layers);
      progress.Step();
    }
  }
}

template <class Visit>
void ForEachKnownPoint(const CLibPnt& library, CTcadEng& engine, Visit visit) {
  ProgressSteps progress(PointCount(library));
  for (int grp = 0; grp < library.GetGrpArSize(); ++grp) {
    const CGrpPnt& group = *library.GetGrpAt(grp);
    const TargetLayers layers(
        engine, display::TargetOf(group.GetTargetDrawing(), library.GetTargetDrawing()),
        group.GetNome());
    for (int i = 0; i < library.GetPtnArSize(grp); ++i) {
      visit(*library.GetPtnAt(grp, i), Symbol::kKnownPoint, layers);
      progress.Step();
    }
  }
}

template <class Visit>
void ForEachCadastralPoint(const CCts& cadastre, CTcadEng& engine, Visit visit) {
  const TargetLayers layers(engine, cadastre.GetTargetDrawing(), Xlate("CADASTRE"));
  for (const cadastre::Fiducial& fiducial : cadastre.Survey().fiducials) {
    CEgn point;
    point.SetNomCoord(tdk::WString(fiducial.name), tdk::WString(fiducial.description),
                      fiducial.east, fiducial.north, UndefinedValue);
    visit(point, Symbol::kKnownPoint, layers);
  }
}

// The names of all stations and known points: who sights one of them orients himself. They are
// those of the libraries, and nobody is asked for without a job.
std::unordered_set<std::string_view> ReferenceNames(ExchangeContext& document) {
  std::unordered_set<std::string_view> names;
  const CLibCmp& jobs = *document.GetLibCmp();
  if (jobs.GetJobArSize() == 0) return names;
  for (int job = 0; job < jobs.GetJobArSize(); ++job) {
    for (int sta = 0; sta < jobs.GetStaArSize(job); ++sta) {
      names.emplace(jobs.GetStaAt(job, sta)->NameUtf8());
    }
  }
  const CLibPnt* const known = document.GetLibPnt();
  for (int grp = 0; known != nullptr && grp < known->GetGrpArSize(); ++grp) {
    for (int i = 0; i < known->GetPtnArSize(grp); ++i) {
      names.emplace(known->GetPtnAt(grp, i)->NameUtf8());
    }
  }
  names.erase("");
  return names;
}

const char* PartOf(Symbol symbol) {
  return symbol == Symbol::kStation || symbol == Symbol::kGpsBase ? ToXlate("STATIONS")
                                                                  : ToXlate("POINTS");
}

}  // namespace

CDisPtNome::CDisPtNome(CTcadEng* engine, CDocSymbolManager* /*symbols*/, ExchangeContext* document)
    : engine_(engine), document_(document) {}

void CDisPtNome::AddAllNames(bool explode) {
  if (!explode) return;
  const auto add = [&](const CEgn& point, Symbol /*symbol*/, const TargetLayers& layers) {
    if (!point.HasPlane() || point.NameUtf8().empty()) return;
    engine_->Add({layers.Of(ToXlate("NAMES")), cad::kByLayer, false, cad::Origin::kPointNames,
                  Text(point, display::kNamePlace, std::string(point.NameUtf8()))});
  };
  const CLibCmp* const jobs = document_->GetLibCmp();
  const CLibGps* const gps = document_->GetLibGps();
  const CLibPnt* const known = document_->GetLibPnt();
  const auto countOf = [](const auto* library) { return library ? PointCount(*library) : 0; };
  ProgressParts progress(countOf(jobs) + countOf(gps) + countOf(known));
  progress.Begin(countOf(jobs));
  if (jobs != nullptr) ForEachTotalStationPoint(*jobs, *engine_, add);
  progress.Begin(countOf(gps));
  if (gps != nullptr) ForEachGpsPoint(*gps, *engine_, add);
  progress.Begin(countOf(known));
  if (known != nullptr) ForEachKnownPoint(*known, *engine_, add);
  if (const CCts* const cadastre = document_->GetCts()) {
    ForEachCadastralPoint(*cadastre, *engine_, add);
  }
}

void PointDisplay::Add(int drawing, cad::Shape shape) {
  engine_.Add({drawing, cad::kByLayer, false, origin_, std::move(shape)});
}

void PointDisplay::Draw(const CEgn& point, Symbol symbol, const TargetLayers& layers,
                        bool explode) {
  if (!point.HasPlane()) {
    if (!point.NameUtf8().empty()) ++notDrawn_;
    return;
  }
  if (explode) {
    DrawPlain(point, symbol, layers);
    return;
  }
  cad::InsertShape insert;
  insert.block = symbols_.BlockOf(symbol);
  insert.at = PlaceOf(point);
  insert.scale = {display::kSymbolSize, display::kSymbolSize, display::kSymbolSize};
  insert.attributes = {{"NAME", std::string(point.NameUtf8())},
                       {"CODE", point.GetSecScri().ToUtf8()},
                       {"HEIGHT", HeightText(point)}};
  Add(layers.Of(PartOf(symbol)), std::move(insert));
}

void PointDisplay::DrawPlain(const CEgn& point, Symbol symbol, const TargetLayers& layers) {
  const cad::Point at = PlaceOf(point);
  const int drawing = layers.Of(PartOf(symbol));
  Add(drawing, cad::PointShape{at});
  for (cad::PolylineShape& line : display::SymbolLines(symbol)) {
    for (cad::Point& vertex : line.points) {
      vertex = {at.getX() + vertex.getX() * display::kSymbolSize,
                at.getY() + vertex.getY() * display::kSymbolSize, at.getZ()};
    }
    Add(drawing, std::move(line));
  }
  if (std::string code = point.GetSecScri().ToUtf8(); !code.empty()) {
    Add(layers.Of(ToXlate("CODES")), Text(point, display::kCodePlace, std::move(code)));
  }
  if (IsDefined(point.GetCoordZ())) {
    Add(layers.Of(ToXlate("HEIGHTS")), Text(point, display::kHeightPlace, HeightText(point)));
  }
}

void PointDisplay::DrawSight(const CEgn& from, const CEgn& to, const TargetLayers& layers) {
  if (!from.HasPlane() || !to.HasPlane()) return;
  Add(layers.Of(ToXlate("ORIENTATIONS")), cad::LineShape{PlaceOf(from), PlaceOf(to)});
}

void PointDisplay::DeleteAll() {
  engine_.RemoveIf([this](const cad::Entity& entity) { return entity.origin == origin_; });
}

CDisLibCmp::CDisLibCmp(CTcadEng* engine, CDocSymbolManager* symbols, ExchangeContext* document,
                       bool /*all*/)
    : PointDisplay(engine, symbols, cad::Origin::kTotalStation), document_(*document) {}

void CDisLibCmp::AddAllLibCmp(bool explode) {
  if (document_.GetLibCmp() == nullptr) return;
  const std::unordered_set<std::string_view> references = ReferenceNames(document_);
  const CEgn* station = nullptr;
  ForEachTotalStationPoint(
      *document_.GetLibCmp(), engine_,
      [&](const CEgn& point, Symbol symbol, const TargetLayers& layers) {
        Draw(point, symbol, layers, explode);
        if (symbol == Symbol::kStation) station = &point;
        if (symbol == Symbol::kPoint && references.contains(point.NameUtf8())) {
          DrawSight(*station, point, layers);
        }
      });
}

CDisLibGps::CDisLibGps(CTcadEng* engine, CDocSymbolManager* symbols, CLibGps* library, bool /*all*/)
    : PointDisplay(engine, symbols, cad::Origin::kGps), library_(library) {}

void CDisLibGps::AddAllLibGps(bool explode) {
  if (library_ == nullptr) return;
  ForEachGpsPoint(*library_, engine_,
                  [&](const CEgn& point, Symbol symbol, const TargetLayers& layers) {
                    Draw(point, symbol, layers, explode);
                  });
}

CDisLibPnt::CDisLibPnt(CTcadEng* engine, CDocSymbolManager* symbols, CLibPnt* library, bool /*all*/)
    : PointDisplay(engine, symbols, cad::Origin::kKnownPoints), library_(library) {}

void CDisLibPnt::AddAllLibPnt(bool explode) {
  if (library_ == nullptr) return;
  ForEachKnownPoint(*library_, engine_,
                    [&](const CEgn& point, Symbol symbol, const TargetLayers& layers) {
                      Draw(point, symbol, layers, explode);
                    });
}

CDisCts::CDisCts(CTcadEng* engine, CDocSymbolManager* symbols, CCts* cadastre)
    : PointDisplay(engine, symbols, cad::Origin::kCadastre), cadastre_(cadastre) {}

void CDisCts::CreaTutto(bool explode) {
  if (cadastre_ == nullptr) return;
  ForEachCadastralPoint(*cadastre_, engine_,
                        [&](const CEgn& point, Symbol symbol, const TargetLayers& layers) {
                          Draw(point, symbol, layers, explode);
                        });
}
