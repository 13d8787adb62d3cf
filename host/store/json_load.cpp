// The job as a JSON document, read.
#include <nlohmann/json.hpp>

#include "host/store/file_trouble_catcher.h"
#include "host/store/json_job.h"
#include "host/store/json_reader.h"
#include "host/store/text_iterator.h"

namespace {

using Json = nlohmann::json;

/// The reader, with what the parser wants besides.
class Events : public JsonJobReader {
 public:
  Events(const std::string& path, const platform::TextReader& file, HostDocument& document,
         const JobProgress& progress)
      : JsonJobReader(path, file, document, progress), path_(path) {}

  bool binary(const Json::binary_t& /*value*/) { return false; }  // JSON text has none

  // The library says "[its name for the error] parse error at line 3, column 5: what is wrong".
  bool parse_error(std::size_t /*position*/, const std::string& token,
                   const Json::exception& error) {
    constexpr int kNumberOutOfRange = 406;
    if (error.id == kNumberOutOfRange) FailAtLargeNumber(token);
    constexpr std::string_view kBeforeLine = "line ";
    constexpr std::size_t kLongest = 200;
    const std::string_view text = error.what();
    const std::size_t place = text.find(kBeforeLine);
    std::string complaint = path_ + ": ";
    if (place == std::string_view::npos) throw JobError(complaint + "this is no JSON");
    throw JobError(complaint.append(text.substr(place, kLongest)));
  }

 private:
  const std::string& path_;
};

}  // namespace

void LoadJsonJob(const std::string& path, HostDocument& document, const JobProgress& progress) {
  const FileTroubleCatcher trouble;
  platform::TextReader file;
  if (!file.Open(path)) throw JobError(path + ": " + trouble.Reason());
  Events events(path, file, document, progress);
  try {
    Json::sax_parse(TextIterator(file), TextIterator(), &events);
  } catch (const JobError&) {
    // A file that cannot be read ends too early, and looks like bad JSON.
    if (trouble.HasTrouble()) throw JobError(path + ": " + trouble.Reason());
    throw;
  }
}
