#include "host/store/folder_cadastre.h"

#include "host/store/folder_rows.h"

namespace {

using Names = std::vector<std::string>;

// A list of points is a row, with how many they are, and its points are in a table of their own.
void WriteNames(const Names& names, int list, Inserter<NameRecord>& rows) {
  for (const std::string& name : names) rows.Add({name}, list);
}

Names TakeNames(RowCursor<NameRecord>& rows, int list) {
  Names names;
  for (; rows.IsOf(list); rows.Next()) names.push_back(rows.Row().name);
  return names;
}

void WriteTraverses(const Database& database, const std::vector<Names>& traverses) {
  Inserter rows(database, kTraverseTable);
  Inserter vertices(database, kTraverseVertexTable);
  int position = 0;
  for (const Names& traverse : traverses) {
    rows.Add({static_cast<int>(traverse.size())});
    WriteNames(traverse, position++, vertices);
  }
}

void WriteContours(const Database& database, const std::vector<cadastre::Contour>& contours) {
  Inserter rows(database, kContourLineTable);
  Inserter vertices(database, kContourVertexTable);
  int position = 0;
  for (const cadastre::Contour& contour : contours) {
    rows.Add({contour.type});
    WriteNames(contour.points, position++, vertices);
  }
}

class CadastreReader {
 public:
  explicit CadastreReader(const Database& database)
      : database_(database),
        traverseVertices_(database, kTraverseVertexTable),
        contourVertices_(database, kContourVertexTable) {}

  cadastre::Survey Read() {
    cadastre::Survey survey;
    ForEachRow(database_, kCadastreTable,
               [&](const auto& row, const RowParents&) { survey.heading = row; });
    ForEachRow(database_, kParcelTable,
               [&](const auto& row, const RowParents&) { survey.parcels.push_back(row.name); });
    ReadLines(survey);
    ForEachRow(database_, kFiducialTable,
               [&](const auto& row, const RowParents&) { survey.fiducials.push_back(row); });
    return survey;
  }

 private:
  void ReadLines(cadastre::Survey& survey) {
    int traverse = 0;
    ForEachRow(database_, kTraverseTable, [&](const auto& row, const RowParents&) {
      survey.traverses.push_back(TakeNames(traverseVertices_, traverse++));
      Require(survey.traverses.back().size() == static_cast<std::size_t>(row.vertices));
    });
    int contour = 0;
    ForEachRow(database_, kContourLineTable, [&](const auto& row, const RowParents&) {
      survey.contours.push_back({TakeNames(contourVertices_, contour++), row.type});
    });
    Require(traverseVertices_.IsAtEnd() && contourVertices_.IsAtEnd());
  }

  void Require(bool isSound) const {
    if (!isSound) database_.Fail("the job is damaged: a cadastral record does not fit there");
  }

  const Database& database_;
  RowCursor<NameRecord> traverseVertices_;
  RowCursor<NameRecord> contourVertices_;
};

}  // namespace

void WriteCadastre(const Database& database, const CCts& cadastre) {
  const cadastre::Survey& survey = cadastre.Survey();
  Inserter(database, kCadastreTable).Add(CadastreRecord{survey.heading});
  Inserter parcels(database, kParcelTable);
  for (const std::string& parcel : survey.parcels) parcels.Add({parcel});
  WriteTraverses(database, survey.traverses);
  WriteContours(database, survey.contours);
  Inserter fiducials(database, kFiducialTable);
  for (const cadastre::Fiducial& point : survey.fiducials) fiducials.Add(FiducialRecord{point});
}

void ReadCadastre(const Database& database, CCts& cadastre) {
  if (HoldsTable(database, kCadastreTable.name)) {
    cadastre.Survey() = CadastreReader(database).Read();
  }
}
