// A LandXML document with something of everything in it.
#pragma once

#include <string>

namespace landxml_test {

/// Each part `times` times; once is about 3.5 kB.
inline std::string FullDocument(int times) {
  static const std::string kHead =
      "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
      "<!-- everything --><LandXML xmlns=\"http://www.landxml.org/schema/LandXML-1.2\">\n"
      "<Units><Metric linearUnit=\"meter\" angularUnit=\"grads\"/></Units>\n"
      "<Project name=\"p\"/><Application name=\"a\" manufacturer=\"b\"/>\n";
  static const std::string kPoints = R"(<CgPoints name="Città &amp; co"><CgPoint name="p">10 20 30
</CgPoint><CgPoint name="q" code="c" desc="d">15 25</CgPoint><CgPoints name="in">
<CgPoint name="r" pntRef="p"/></CgPoints></CgPoints>
)";
  static const std::string kSurface = R"(<Surface name="hill"><SourceData><Boundaries>
<Boundary bndType="outer"><PntList3D>0 0 1 0 9 2 9 9 3</PntList3D></Boundary>
<Boundary bndType="void"><PntList2D>1 1 1 2 2 2</PntList2D></Boundary></Boundaries>
<Breaklines><Breakline><PntList3D>0 0 1 0 9 2 9 9 3</PntList3D></Breakline></Breaklines>
</SourceData><Definition surfType="TIN"><Pnts><P id="7">0 0 1</P><P id="3">0 9 2</P>
<P id="4">9 9 3</P><P id="5">9 0</P></Pnts><Faces><F>7 3 4</F><F i="1">7 4 5</F><F>7 3 4 5</F>
<F>7 3 99</F></Faces></Definition></Surface>
)";
  static const std::string kRoad = R"(<Alignment name="A" length="400" staStart="100">
<Start>0 0</Start><CoordGeom><Line dir="1"><Start pntRef="p"/><End>0 100</End></Line>
<Curve rot="ccw" radius="100"><Start>0 100</Start><Center>0 0</Center><End>100 0</End></Curve>
<Curve rot="cw" radius="100" length="471.2"><Start>0 100</Start><End>100 0</End></Curve>
<Spiral length="30" radiusStart="INF" radiusEnd="120" rot="ccw" spiType="clothoid"><Start>0 0
</Start><PI>0 20.016</PI><End>1.248605604106 29.953158896196</End></Spiral>
<Spiral length="30" radiusStart="120" radiusEnd="INF" rot="ccw" spiType="clothoid"><Start>0 0
</Start><End>2.495538531745 29.875123953751</End></Spiral>
<Spiral length="50" radiusStart="200" radiusEnd="100" rot="ccw" spiType="clothoid"><Start>0 0
</Start><End>8.243527226098 49.017044175534</End></Spiral>
<Spiral length="50" radiusStart="INF" radiusEnd="100" rot="cw" spiType="bloss"><Start>0 0</Start>
<End>8 49</End></Spiral><IrregularLine><Start>0 0</Start><PntList2D>1 1 2 0</PntList2D>
<End>3 3</End></IrregularLine><Chain>p q r</Chain></CoordGeom>
<Profile><ProfSurf><PntList2D>0 1 9 2</PntList2D></ProfSurf><ProfAlign name="p"><PVI>0 10</PVI>
<ParaCurve length="60">150 25</ParaCurve><UnsymParaCurve lengthIn="20" lengthOut="30">200 20
</UnsymParaCurve><CircCurve length="9" radius="-300">300 25</CircCurve><PVI>400 10</PVI>
</ProfAlign></Profile><CrossSects><CrossSect sta="125" name="S1"><CrossSectSurf name="GROUND">
<PntList2D>-5 10 5 11</PntList2D><PntList2D>6 7 8 9</PntList2D></CrossSectSurf>
<DesignCrossSectSurf name="Base"><CrossSectPnt>-3 10</CrossSectPnt><CrossSectPnt
 dataFormat="Slope Distance">0.02 3</CrossSectPnt></DesignCrossSectSurf></CrossSect></CrossSects>
<StaEquation staInternal="105" staBack="NaN" staAhead="500"/></Alignment>
)";
  static const std::string kSurvey = R"(<Survey><SurveyHeader name="J"/>
<InstrumentSetup id="s" stationName="100" instrumentHeight="1.55"><InstrumentPoint pntRef="p"/>
<RawObservation targetHeight="1.7" horizAngle="0" slopeDistance="50.25" zenithAngle="100">
<TargetPoint name="1" desc="c">11 22 33</TargetPoint></RawObservation></InstrumentSetup>
<ObservationGroup setupID="s"><RawObservation horizAngle="1"/></ObservationGroup>
<GPSSetup id="B" antennaHeight="1.5" stationName="BASE"><GPSPosition wgsLatitude="45"
 wgsLongitude="9" wgsHeight="150.5"><TargetPoint>1 2 3</TargetPoint></GPSPosition></GPSSetup>
<GPSPosition wgsLatitude="45" wgsLongitude="9" wgsHeight="1"><TargetPoint name="2">1 2 3
</TargetPoint><GPSQCInfoLevel2 GPSSolnType="Fixed" covarianceXX="1.5" nbrSatellites="7"/>
</GPSPosition></Survey>
)";
  const auto repeated = [times](const std::string& part) {
    std::string text;
    for (int i = 0; i < times; ++i) text += part;
    return text;
  };
  return kHead + repeated(kPoints) + "<Surfaces>\n" + repeated(kSurface) + "</Surfaces>\n" +
         "<Alignments>\n" + repeated(kRoad) + "</Alignments>\n" + repeated(kSurvey) +
         "</LandXML>\n";
}

}  // namespace landxml_test
