// What becomes of the cadastral survey of a JSON job.
#include "host/store/json_reader.h"

// The shape of the survey, from the inside out.
struct JsonJobReader::CadastreLevels {
  using R = JsonJobReader;

  static constexpr Level kTraverse[] = {
      {"", Form::kTexts, nullptr, &R::BeginTraverse, &R::EndTraverseVertex}};
  static constexpr Level kContour[] = {
      {"points", Form::kTexts, nullptr, nullptr, &R::EndContourLineVertex}};
};

constinit const JsonJobReader::Level JsonJobReader::kCadastre[4] = {
    {"parcels", Form::kTexts, nullptr, nullptr, &JsonJobReader::EndParcel},
    {"traverses", Form::kListOfLists, nullptr, nullptr, nullptr, CadastreLevels::kTraverse},
    {"contours", Form::kListOfObjects, &JsonJobReader::Select<&JsonJobReader::contourLine_>,
     &JsonJobReader::BeginContourLine, &JsonJobReader::EndContourLine, CadastreLevels::kContour},
    {"fiducials", Form::kListOfObjects, &JsonJobReader::Select<&JsonJobReader::fiducial_>,
     &JsonJobReader::BeginFiducial, &JsonJobReader::EndFiducial}};

void JsonJobReader::BeginContourLine() {
  contourLine_ = {};
  Cadastre().contours.emplace_back();
}
