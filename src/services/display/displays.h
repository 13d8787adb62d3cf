// The host's display objects: each draws one library of a job into a drawing engine.
#pragma once

#include <cstdint>
#include <vector>

#include "model/exchange_context.h"
#include "services/display/symbols.h"
#include "services/display/target_layers.h"

/// Names of points. Where symbols are blocks, their attributes carry the names and nothing is
/// drawn here.
class CDisPtNome {
 public:
  CDisPtNome(CTcadEng* engine, CDocSymbolManager* symbols, ExchangeContext* document);
  void AddAllNames(bool explode);

 private:
  CTcadEng* engine_;
  ExchangeContext* document_;
};

/// What the display objects of points have in common. `bool` arguments of the constructors say that
/// all is drawn at once, without telling views.
class PointDisplay {
 public:
  PointDisplay(CTcadEng* engine, CDocSymbolManager* symbols, cad::Origin origin)
      : engine_(*engine), symbols_(*symbols), origin_(origin) {}

  /// How many named points could not be drawn, because they have no plane coordinates.
  std::uint64_t NotDrawn() const { return notDrawn_; }

 protected:
  /// A symbol with the point's texts, as a block or as plain entities.
  void Draw(const CEgn& point, Symbol symbol, const display::TargetLayers& layers, bool explode);
  void DeleteAll();
  void DrawSight(const CEgn& from, const CEgn& to, const display::TargetLayers& layers);

 private:
  void DrawPlain(const CEgn& point, Symbol symbol, const display::TargetLayers& layers);
  void Add(int drawing, cad::Shape shape);

  std::uint64_t notDrawn_ = 0;

 protected:
  CTcadEng& engine_;
  CDocSymbolManager& symbols_;
  cad::Origin origin_;
};

/// Total-station jobs: stations, observed points, lines to the stations and known points that were
/// sighted.
class CDisLibCmp : public PointDisplay {
 public:
  CDisLibCmp(CTcadEng* engine, CDocSymbolManager* symbols, ExchangeContext* document, bool all);
  void AddAllLibCmp(bool explode);
  void DelAllLibCmp() { DeleteAll(); }

 private:
  ExchangeContext& document_;
};

class CDisLibGps : public PointDisplay {
 public:
  CDisLibGps(CTcadEng* engine, CDocSymbolManager* symbols, CLibGps* library, bool all);
  void AddAllLibGps(bool explode);
  void DelAllLibGps() { DeleteAll(); }

 private:
  CLibGps* library_;
};

class CDisLibPnt : public PointDisplay {
 public:
  CDisLibPnt(CTcadEng* engine, CDocSymbolManager* symbols, CLibPnt* library, bool all);
  void AddAllLibPnt(bool explode);
  void DelAllLibPnt() { DeleteAll(); }

 private:
  CLibPnt* library_;
};

/// The fiducial points of a cadastral survey. What its contours join are points of the other
/// libraries.
class CDisCts : public PointDisplay {
 public:
  CDisCts(CTcadEng* engine, CDocSymbolManager* symbols, CCts* cadastre);
  void CreaTutto(bool explode);
  void DelTutto() { DeleteAll(); }

 private:
  CCts* cadastre_;
};

/// Terrain models: triangles as faces, breaklines and contours as polylines in space.
class CDisLibDtm {
 public:
  CDisLibDtm(CTcadEng* engine, CDocSymbolManager* symbols, CLibDtm* library, bool all);
  void AddAllDtm();

 private:
  CTcadEng* engine_;
  CLibDtm* library_;
};

/// Axes of roads: lines, arcs, and clothoids as dense polylines.
class CDisRoad {
 public:
  CDisRoad(CTcadEng* engine, CDocSymbolManager* symbols, CLibRoad* library, bool all);
  void AddAllRoads();

 private:
  CTcadEng* engine_;
  CLibRoad* library_;
};

/// Profiles and cross sections, to the right of everything else.
class CDisLibProfile {
 public:
  CDisLibProfile(CTcadEng* engine, CDocSymbolManager* symbols, CLibProfile* library,
                 CLibRoad* roads, bool all);
  void AddAllProfiles();

 private:
  CTcadEng* engine_;
  CLibProfile* library_;
  CLibRoad* roads_;
};

/// GIS themes: points, lines and the rings of polygons, each theme on a layer of its own.
class CDisLibGis {
 public:
  CDisLibGis(CTcadEng* engine, CDocSymbolManager* symbols, gis::CLibGis* library, bool all);
  /// Draws all of them anew.
  void RiCreaTutto();
  void AnnullaTutto();

 private:
  CTcadEng* engine_;
  gis::CLibGis* library_;
};

namespace display {

/// Takes all survey, cadastral and GIS entities out of the document's own engine, and draws those
/// that were there again at its end.
class OwnDisplaysAside {
 public:
  /// Not owned.
  explicit OwnDisplaysAside(ExchangeContext& document);
  ~OwnDisplaysAside();
  OwnDisplaysAside(const OwnDisplaysAside&) = delete;
  OwnDisplaysAside& operator=(const OwnDisplaysAside&) = delete;

  const CDocSymbolManager& Symbols() const { return symbols_; }

 private:
  void DrawAgain();

  ExchangeContext& document_;
  CDocSymbolManager symbols_;
  std::vector<cad::Origin> shown_;
};

/// Makes the target drawing of each kind of data current, one after the other.
void MakeTargetsCurrent(ExchangeContext& document, CTcadEng& engine);

/// Draws every library of the document into an engine. Returns how many points could not be drawn,
/// because they have no plane coordinates.
std::uint64_t DrawAll(ExchangeContext& document, CTcadEng& engine, CDocSymbolManager& symbols,
                      bool explode);

}  // namespace display
