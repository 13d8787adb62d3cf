// The job as a JSON document, written.
#include "host/store/json_job.h"

#include <optional>

#include "host/store/file_trouble_catcher.h"
#include "host/store/json_cadastre_writer.h"
#include "host/store/json_design_writer.h"
#include "host/store/json_drawing_writer.h"
#include "host/store/json_gis_writer.h"
#include "host/store/json_writer.h"
#include "host/store/progress.h"
#include "host/store/records.h"
#include "platform/numbers.h"
#include "platform/output_file.h"

namespace {

// A text that the settings file holds, as the value it stands for.
std::string SettingAsJson(const std::string& text) {
  if (text == "true" || text == "false") return text;
  std::string canonical;
  if (const auto whole = platform::ParseWhole(text)) platform::AppendWhole(canonical, *whole);
  if (!canonical.empty() && canonical == text) return canonical;
  std::string quoted;
  AppendJson(quoted, text);
  return quoted;
}

class JobWriter {
 public:
  JobWriter(HostDocument& document, const JsonWriter::Sink& sink, const JobProgress& progress)
      : document_(document),
        json_(sink),
        progress_(progress, progress ? CountRecords(document) : 0) {}

  void Write() {
    json_.BeginObject();
    WriteList("jobs", document_.GetLibCmp()->GetJobArSize(), [&](int job) { WriteJob(job); });
    WriteList("gpsGroups", document_.GetLibGps()->GetGrpArSize(),
              [&](int grp) { WriteGpsGroup(grp); });
    WriteList("knownGroups", document_.GetLibPnt()->GetGrpArSize(),
              [&](int grp) { WriteKnownGroup(grp); });
    const CLibConOri& controls = *document_.GetLibCmp();
    WritePoints("controlPoints", controls.GetOriArSize(),
                [&](int i) { return controls.GetOriAt(i); });
    WriteCurrent();
    JsonDesignWriter(json_, progress_).Write(document_);
    JsonGisWriter(json_, progress_, *document_.GetLibGis()).Write();
    WriteCadastreJson(json_, *document_.GetCts());
    json_.NextMember("targets");
    json_.BeginObject();
    json_.WriteMembers(TargetsOf(document_));
    json_.EndObject();
    JsonDrawingWriter(json_, progress_, *document_.GetCadEngine()).Write();
    WriteSettings();
    json_.EndObject();
    json_.Finish();
  }

 private:
  template <class WriteElement>
  void WriteList(std::string_view key, int size, const WriteElement& writeElement) {
    json_.NextMember(key);
    json_.BeginList();
    for (int i = 0; i < size; ++i) writeElement(i);
    json_.EndList();
  }

  template <class PointAt>
  void WritePoints(std::string_view key, int size, const PointAt& pointAt) {
    WriteList(key, size, [&](int i) {
      json_.WriteLine(RecordOf(*pointAt(i)));
      progress_.Step();
    });
  }

  template <class Object, class WriteRest>
  void WriteElement(const Object& object, const WriteRest& writeRest) {
    json_.NextElement();
    json_.BeginObject();
    json_.WriteMembers(RecordOf(object));
    writeRest();
    json_.EndObject();
  }

  void WriteJob(int job) {
    const CLibCmp& surveys = *document_.GetLibCmp();
    WriteElement(*surveys.GetJobAt(job), [&] {
      WriteList("stations", surveys.GetStaArSize(job), [&](int sta) { WriteStation(job, sta); });
    });
  }

  void WriteStation(int job, int sta) {
    const CLibCmp& surveys = *document_.GetLibCmp();
    WriteElement(*surveys.GetStaAt(job, sta), [&] {
      WritePoints("points", surveys.GetPunArSize(job, sta),
                  [&](int pun) { return surveys.GetPunAt(job, sta, pun); });
    });
  }

  void WriteGpsGroup(int grp) {
    const CLibGps& gps = *document_.GetLibGps();
    WriteElement(*gps.GetGrpAt(grp), [&] {
      WritePoints("points", gps.GetPunArSize(grp), [&](int pun) { return gps.GetPunAt(grp, pun); });
    });
  }

  void WriteKnownGroup(int grp) {
    const CLibPnt& known = *document_.GetLibPnt();
    WriteElement(*known.GetGrpAt(grp), [&] {
      WritePoints("points", known.GetPtnArSize(grp),
                  [&](int ptn) { return known.GetPtnAt(grp, ptn); });
    });
  }

  // Nothing selected is said by leaving the member out.
  void WriteCurrent() {
    const CurrentRecord current = CurrentOf(document_);
    json_.NextMember("current");
    json_.BeginObject();
    if (current.station[0] != CurrentRecord::kNone) json_.WriteMember("station", current.station);
    if (current.gpsGroup != CurrentRecord::kNone) json_.WriteMember("gpsGroup", current.gpsGroup);
    json_.EndObject();
  }

  void WriteSettings() {
    std::optional<std::string> open;  // the section whose object is open
    json_.NextMember("settings");
    json_.BeginObject();
    document_.Settings().ForEach(
        [&](const std::string& section, const std::string& key, const std::string& value) {
          if (open != section) {
            if (open) json_.EndObject();
            json_.NextMember(section);
            json_.BeginObject();
            open = section;
          }
          json_.WriteRawMember(key, SettingAsJson(value));
        });
    if (open) json_.EndObject();
    json_.EndObject();
  }

  HostDocument& document_;
  JsonWriter json_;
  PointProgress progress_;
};

}  // namespace

void WriteJobJson(HostDocument& document, const std::function<void(std::string_view)>& write) {
  JobWriter(document, write, {}).Write();
}

void SaveJsonJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  const FileTroubleCatcher trouble;
  platform::OutputFile file;
  if (!file.Open(path)) throw JobError(path + ": " + trouble.Reason());
  const JsonWriter::Sink sink = [&](std::string_view text) {
    file.Buffer() += text;
    file.FlushIfLarge();
  };
  JobWriter(document, sink, progress).Write();
  if (!file.Commit()) throw JobError(path + ": " + trouble.Reason());
}
