// What becomes of the objects of a JSON job when their members are known.
#include "host/store/json_reader.h"

namespace {

int Last(int size) { return size - 1; }

}  // namespace

// An object that holds lists is added before them, so that their elements have a place to go to,
// and gets its own members when all of them have been read.
void JsonJobReader::BeginJob() {
  Added(document_.GetLibCmp()->AddJob(false));
  job_ = {};
}

void JsonJobReader::EndJob() {
  const CLibCmp& surveys = *document_.GetLibCmp();
  Store(job_, *surveys.GetJobAt(Last(surveys.GetJobArSize())));
}

void JsonJobReader::BeginStation() {
  CLibCmp& surveys = *document_.GetLibCmp();
  openStation_ = Added(surveys.AddSta(Last(surveys.GetJobArSize()), false));
  station_ = {};
}

void JsonJobReader::EndStation() { Store(station_, *openStation_); }

void JsonJobReader::EndObservation() {
  Store(observation_, *Added(document_.GetLibCmp()->AddPun(openStation_, false)));
  CountPoint();
}

void JsonJobReader::BeginGpsGroup() {
  Added(document_.GetLibGps()->AddGrp(false));
  gpsGroup_ = {};
}

void JsonJobReader::EndGpsGroup() {
  const CLibGps& gps = *document_.GetLibGps();
  Store(gpsGroup_, *gps.GetGrpAt(Last(gps.GetGrpArSize())));
}

void JsonJobReader::EndGpsPoint() {
  CLibGps& gps = *document_.GetLibGps();
  Store(gpsPoint_, *Added(gps.AddPun(Last(gps.GetGrpArSize()), false)));
  CountPoint();
}

void JsonJobReader::BeginKnownGroup() {
  Added(document_.GetLibPnt()->AddGrp(false));
  knownGroup_ = {};
}

void JsonJobReader::EndKnownGroup() {
  const CLibPnt& known = *document_.GetLibPnt();
  Store(knownGroup_, *known.GetGrpAt(Last(known.GetGrpArSize())));
}

void JsonJobReader::EndKnownPoint() {
  CLibPnt& known = *document_.GetLibPnt();
  Store(point_, *Added(known.AddPtn(Last(known.GetGrpArSize()), false)));
  CountPoint();
}

void JsonJobReader::EndControl() {
  Store(point_, *Added(document_.GetLibCmp()->AddOri(false)));
  CountPoint();
}

void JsonJobReader::EndTargets() { Store(targets_, document_); }

// Only now are all stations, groups, layers and blocks there.
void JsonJobReader::EndDocument() {
  FinishDrawing();
  place_.SetKey("current.station");
  if (selectsStation_ && !SelectStation(current_.station, document_))
    Fail("there is no such station");
  place_.SetKey("current.gpsGroup");
  if (selectsGpsGroup_ && !SelectGpsGroup(current_.gpsGroup, document_))
    Fail("there is no such group");
}

void JsonJobReader::CountPoint() {
  if (progress_.IsDue()) progress_.Tell(file_.Position(), file_.Size());
}
