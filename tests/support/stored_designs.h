// Terrain models and roads for the tests of the store.
#pragma once

#include <memory>

#include "support/random.h"
#include "support/stored_jobs.h"

namespace stored_designs {

/// Terrain models and roads with everything that they can hold.
inline constexpr std::string_view kDesign = R"(  "terrain": [
    {
      "name": "Hill",
      "outer": [
        [
          [1, 2, 3],
          [4.5, 5.5, null],
          [7, 8, 9]
        ],
        [
          [10, 20, 30]
        ]
      ],
      "islands": [
        [
          [11, 12, 13],
          [14, 15, 16]
        ]
      ],
      "breaklines": [
        [
          [1, 2, 3],
          [4, 5, 6]
        ],
        [
          [4, 5, 6],
          [7, 8, -0.0]
        ]
      ],
      "vertices": [
        [0, 0, 1],
        [10, 0, 2],
        [10, 10, null],
        [null, null, null],
        [0, 10, 4]
      ],
      "triangles": [
        [4, 0, 2],
        [0, 1, 2]
      ]
    },
    {
      "name": "Empty",
      "outer": [],
      "islands": [],
      "breaklines": [],
      "vertices": [],
      "triangles": []
    }
  ],
  "roads": [
    {
      "name": "Via Roma",
      "start": 100,
      "end": 350.5,
      "empty": false,
      "targetDrawing": 3,
      "elements": [
        {"type": "line", "prog": 100, "start": [1000, 2000], "end": [1100, 2000]},
        {"type": "clothoid", "prog": 200, "start": [1100, 2000], "tangent": [1, 0], "length": 50, "a": 60, "entrance": true, "ccw": false},
        {"type": "arc", "prog": 250, "start": [1150, 1990], "tangent": [0.8, -0.6], "radius": 72, "angle": 0.5, "ccw": true},
        {"type": "other", "prog": 300, "start": [1180, 1980], "end": [1190, 1970]}
      ],
      "profile": {
        "main": {
          "vertices": [
            {"distance": 100, "height": 10, "principal": true},
            {"distance": 150, "height": 12.5, "principal": true, "curve": {"start": 120, "end": 180}},
            {"distance": 170, "height": null, "principal": false},
            {"distance": 350.5, "height": 9, "principal": true}
          ]
        },
        "codes": [
          {"code": 7, "name": "Pavement"},
          {"code": -2, "name": "Ditch"}
        ],
        "sections": [
          {
            "name": "S1",
            "prog": 125,
            "terrain": [
              [-10, 9],
              [-5, null],
              [null, null],
              [5, 11]
            ],
            "lines": [
              {
                "code": 7,
                "terrain": false,
                "vertices": [
                  {"distance": -3.5, "height": 10, "principal": true},
                  {"distance": null, "height": 10.25, "principal": false}
                ]
              },
              {
                "code": 1,
                "terrain": true,
                "vertices": []
              }
            ]
          },
          {
            "name": "S2",
            "prog": 110,
            "terrain": [],
            "lines": []
          }
        ]
      }
    },
    {
      "name": "called empty",
      "start": 0,
      "end": 0,
      "empty": true,
      "targetDrawing": 0,
      "elements": [
        {"type": "line", "prog": 0, "start": [0, 0], "end": [3, 4]}
      ],
      "profile": {
        "codes": [],
        "sections": []
      }
    },
    {
      "name": "main line without vertices",
      "start": 0,
      "end": 0,
      "empty": false,
      "targetDrawing": 0,
      "elements": [],
      "profile": {
        "main": {
          "vertices": []
        },
        "codes": [],
        "sections": []
      }
    }
  ],
)";

inline tdk::geom::PNT_3D AnyPoint(Random& random) {
  return {stored_jobs::AnyNumber(random), stored_jobs::AnyNumber(random),
          stored_jobs::AnyNumber(random)};
}
inline tdk::geom::PNT_2D AnyPlace(Random& random) {
  return {random.Real(-1e7, 1e7), random.Real(-1e7, 1e7)};
}

inline void FillContours(CCnts& contours, Random& random) {
  for (int contour = random.Whole(0, 3); contour > 0; --contour) {
    CCnt& added = contours.AddCnt();
    for (int vertex = random.Whole(0, 5); vertex > 0; --vertex) added.AddVrt(AnyPoint(random));
  }
}

inline void FillModel(CDtmPrj& model, Random& random) {
  model.SetName(stored_jobs::AnyText(random));
  FillContours(model.GetOuterCnts(), random);
  FillContours(model.GetIslandCnts(), random);
  for (int line = random.Whole(0, 3); line > 0; --line) {
    model.GetVncs().AddVnc({AnyPoint(random), AnyPoint(random)});
  }
  CTris& triangulation = model.GetTris();
  for (int vertex = random.Whole(1, 9); vertex > 0; --vertex) {
    triangulation.AddTriVrt(AnyPoint(random));
  }
  const int last = triangulation.GetNoTriVrts() - 1;
  for (int triangle = random.Whole(0, 9); triangle > 0; --triangle) {
    EXPECT_TRUE(
        triangulation.AddTri(random.Whole(0, last), random.Whole(0, last), random.Whole(0, last)));
  }
}

inline std::unique_ptr<CPlaniElem> AnyElement(Random& random) {
  const double prog = stored_jobs::AnyNumber(random);
  const tdk::geom::PNT_2D start = AnyPlace(random);
  const tdk::geom::VECTOR_2D tangent(random.Real(-1, 1), random.Real(-1, 1));
  const double size = random.Real(1, 1000);
  const bool ccw = random.OneIn(2);
  switch (random.Whole(0, 3)) {
    case 0: return std::make_unique<CLinePlaniElem>(prog, start, AnyPlace(random));
    case 1:
      return std::make_unique<CArcPlaniElem>(prog, start, tangent, size, random.Real(0, 6), ccw);
    case 2:
      return std::make_unique<CClotPlaniElem>(prog, start, tangent, size, random.Real(1, 1000),
                                              random.OneIn(2), ccw);
    default: return std::make_unique<COtherPlaniElem>(prog, start, AnyPlace(random));
  }
}

inline TAltiVrt AnyVertex(Random& random) {
  TAltiVrt vertex{stored_jobs::AnyNumber(random), stored_jobs::AnyNumber(random), random.OneIn(2)};
  if (random.OneIn(2)) vertex.curve = TRaccVert{random.Real(0, 1000), random.Real(0, 1000)};
  return vertex;
}

inline void FillLine(CProfileAlti& line, Random& random) {
  for (int vertex = random.Whole(0, 4); vertex > 0; --vertex) line.AddVrt(AnyVertex(random));
}

inline void FillRoad(CRoad& road, Random& random) {
  road.SetName(stored_jobs::AnyText(random));
  road.SetProgs(stored_jobs::AnyNumber(random), stored_jobs::AnyNumber(random));
  road.MarkEmpty(random.OneIn(2));
  road.SetTargetDrawing(random.Whole(0, 9));
  for (int i = random.Whole(0, 5); i > 0; --i) road.AddElement(AnyElement(random));
  for (int i = random.Whole(0, 3); i > 0; --i) {
    road.ProfileCodes().AddSectionAltiCode(random.Whole(-9, 9), stored_jobs::AnyText(random));
  }
  CProfile& profile = *road.GetRoadProfile();
  if (random.OneIn(2)) FillLine(profile.MakeMainPrjAlti(), random);
  for (int i = random.Whole(0, 3); i > 0; --i) {
    CProfile& section = profile.AddSection();
    section.SetName(stored_jobs::AnyText(random));
    section.SetSectionProg(stored_jobs::AnyNumber(random));
    for (int vertex = random.Whole(0, 4); vertex > 0; --vertex) {
      section.AddTerrVrt({stored_jobs::AnyNumber(random), stored_jobs::AnyNumber(random)});
    }
    for (int line = random.Whole(0, 3); line > 0; --line) {
      FillLine(section.AddProfileAlti(random.Whole(-9, 9), random.OneIn(2)), random);
    }
  }
}

inline void FillAtRandom(HostDocument& document, Random& random) {
  for (int i = random.Whole(0, 3); i > 0; --i) {
    FillModel(*document.GetLibDtm()->AddPrj(true), random);
  }
  for (int i = random.Whole(0, 3); i > 0; --i) {
    FillRoad(*document.GetLibRoad()->AddRoad(true), random);
  }
}

}  // namespace stored_designs
