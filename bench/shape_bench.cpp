// kalvio-bench-shape: a million points with five fields into Shape files and out of them, against
// the Shape library's own passes over the same, with files as fast as ours.
#include <array>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <memory>
#include <random>

#include "child.h"
#include "folder.h"
#include "host/gis/shape_files.h"
#include "host/gis/streams.h"
#include "measure.h"
#include "platform/numbers.h"

namespace bench {
namespace {

constexpr std::size_t kPoints = 1'000'000;
constexpr int kRounds = 5;
constexpr double kWriteLimit = 1.5;
constexpr double kReadLimit = 1.5;
constexpr double kTimesAsFast = 4;
constexpr double kNanoseconds = 1e9;
constexpr double kMegabyte = 1e6;

struct Point {
  std::string name;
  std::string code;
  double x;
  double y;
  double z;
  std::int64_t number;
  double height;
  gis::Date date;
};

template <class Visit>
void ForEachPoint(const Visit& visit) {
  std::mt19937 random(20'261'121);
  std::uniform_real_distribution<double> beside(0, 1000);
  for (std::size_t i = 0; i < kPoints; ++i) {
    visit(Point{"P" + std::to_string(i),
                i % 3 == 0 ? "EDGE" : "TREE",
                1'520'000 + beside(random),
                5'010'000 + beside(random),
                beside(random) / 10,
                static_cast<std::int64_t>(i % 1000),
                beside(random) / 100,
                {2024, static_cast<int>(i % 12) + 1, static_cast<int>(i % 28) + 1}});
  }
}

std::vector<Point> MakePoints() {
  std::vector<Point> points;
  points.reserve(kPoints);
  ForEachPoint([&](const Point& point) { points.push_back(point); });
  return points;
}

void FillLibrary(const std::vector<Point>& points, gis::CLibGis& library) {
  auto table = std::make_unique<gis::CTable>("points");
  table->AddField({"NAME", gis::FieldType::kText, 12, 0});
  table->AddField({"CODE", gis::FieldType::kText, 8, 0});
  table->AddField({"NUMBER", gis::FieldType::kInteger, 6, 0});
  table->AddField({"HEIGHT", gis::FieldType::kReal, 10, 3});
  table->AddField({"DAY", gis::FieldType::kDate, 8, 0});
  auto theme = std::make_unique<gis::CTheme>("points", gis::EntityType::kPoint, true, false);
  theme->Reserve(points.size(), points.size(), points.size());
  table->Reserve(points.size());
  for (const Point& point : points) {
    theme->AddFeature();
    theme->AddPart();
    theme->AddVertex({point.x, point.y, point.z});
    const std::array<gis::Value, 5> row = {std::string_view(point.name),
                                           std::string_view(point.code), point.number, point.height,
                                           point.date};
    table->AddRow(row);
  }
  theme->SetTable(library.AddTable(std::move(table), false));
  library.AddTheme(std::move(theme), false);
}

struct Yes : IExportFileCallback {
  bool OnOverwriteFile(const tdk::WString&) override { return true; }
};

double ExportOurs(const gis::CLibGis& library, const std::string& folder) {
  ShapeFiles files;
  Yes yes;
  return SecondsOf([&] {
    if (!files.Export({library.GetTheme(0), tdk::WString(folder), 250, kShapeAsTheme, &yes})
             .isDone) {
      Die("the set cannot be written");
    }
  });
}

double ImportOurs(const std::string& path) {
  ShapeFiles files;
  gis::CLibGis library;
  return SecondsOf([&] {
    if (!files.Import({&library, tdk::WString(path), nullptr, nullptr, {}}).isDone) {
      Die("the set cannot be read");
    }
  });
}

// The library's own way: an object a point, a value at a time, with hooks that cost as little as
// ours and the mark of the end written once.
double ExportPlainly(const std::vector<Point>& points, const std::string& base) {
  return SecondsOf([&] {
    std::array<platform::OutputFile, 4> files;
    const std::array<const char*, 4> extensions = {".shp", ".shx", ".dbf", ".cpg"};
    for (std::size_t i = 0; i < files.size(); ++i) files[i].Open(base + extensions[i]);
    shape::OutputStream shp(files[0]);
    shape::OutputStream shx(files[1]);
    shape::OutputStream dbf(files[2]);
    shape::OutputStream cpg(files[3]);
    shape::StreamSet streams;
    streams.Add("shp", shp);
    streams.Add("shx", shx);
    streams.Add("dbf", dbf);
    streams.Add("cpg", cpg);
    SAHooks hooks = streams.Hooks();
    SHPHandle shapes = SHPCreateLL("set.shp", SHPT_POINTZ, &hooks);
    DBFHandle table = DBFCreateLL("set.dbf", "UTF-8", &hooks);
    DBFSetWriteEndOfFileChar(table, 0);
    DBFAddField(table, "NAME", FTString, 12, 0);
    DBFAddField(table, "CODE", FTString, 8, 0);
    DBFAddField(table, "NUMBER", FTInteger, 6, 0);
    DBFAddField(table, "HEIGHT", FTDouble, 10, 3);
    DBFAddNativeFieldType(table, "DAY", 'D', 8, 0);
    int row = 0;
    for (const Point& point : points) {
      const double none = 0;
      SHPObject* object = SHPCreateObject(SHPT_POINTZ, -1, 0, nullptr, nullptr, 1, &point.x,
                                          &point.y, &point.z, &none);
      SHPWriteObject(shapes, -1, object);
      SHPDestroyObject(object);
      std::string day;
      platform::AppendWhole(day, point.date.year * 10000 + point.date.month * 100 + point.date.day);
      DBFWriteStringAttribute(table, row, 0, point.name.c_str());
      DBFWriteStringAttribute(table, row, 1, point.code.c_str());
      DBFWriteIntegerAttribute(table, row, 2, static_cast<int>(point.number));
      DBFWriteDoubleAttribute(table, row, 3, point.height);
      DBFWriteStringAttribute(table, row, 4, day.c_str());
      ++row;
    }
    SHPClose(shapes);
    DBFClose(table);
    for (shape::OutputStream* stream : {&shp, &shx, &dbf, &cpg}) stream->Finish();
    for (platform::OutputFile& file : files) file.Commit();
  });
}

double ImportPlainly(const std::string& base) {
  double sum = 0;
  const double seconds = SecondsOf([&] {
    SHPHandle shapes = SHPOpen((base + ".shp").c_str(), "rb");
    DBFHandle table = DBFOpen((base + ".dbf").c_str(), "rb");
    if (shapes == nullptr || table == nullptr) Die("the library cannot read the set");
    for (int i = 0; i < static_cast<int>(kPoints); ++i) {
      SHPObject* object = SHPReadObject(shapes, i);
      sum += object->padfX[0] + object->padfZ[0];
      SHPDestroyObject(object);
      sum += DBFReadStringAttribute(table, i, 0)[0];
      sum += DBFReadStringAttribute(table, i, 1)[0];
      sum += DBFReadIntegerAttribute(table, i, 2);
      sum += DBFReadDoubleAttribute(table, i, 3);
      sum += DBFReadStringAttribute(table, i, 4)[0];
    }
    SHPClose(shapes);
    DBFClose(table);
  });
  if (sum == 0) Die("nothing was read");
  return seconds;
}

bool TellAgainst(const std::string& what, const Runs& ours, const Runs& bare, double limit) {
  const double ratio = ours.Minimum() / bare.Minimum();
  const bool kept = ratio <= limit;
  const double each = kNanoseconds / static_cast<double>(kPoints);
  PrintRow({what, Figure(ours, each, 0, "ns/point"), Figure(bare, each, 0, "ns/point"),
            Number(ratio, 2), Number(limit, 1), kept});
  return kept;
}

bool MeasureLibrary(const Folder& folder) {
  const std::vector<Point> points = MakePoints();
  gis::CLibGis library;
  FillLibrary(points, library);
  ExportOurs(library, folder.File(""));
  const std::vector<Runs> runs =
      Interleaved(kRounds, {[&] { return ExportOurs(library, folder.File("")); },
                            [&] { return ExportPlainly(points, folder.File("plain")); },
                            [&] { return ImportOurs(folder.File("points.shp")); },
                            [&] { return ImportPlainly(folder.File("points")); }});
  const std::string size =
      ", " + Grouped(kPoints) + " points with five fields; bare: the library's own";
  const bool isQuick = TellAgainst("Shape export" + size, runs[0], runs[1], kWriteLimit);
  return TellAgainst("Shape import" + size, runs[2], runs[3], kReadLimit) && isQuick;
}

void WriteCsv(const std::string& ours, const std::string& theirs) {
  std::ofstream plain(ours, std::ios::binary);
  std::ofstream withHead(theirs, std::ios::binary);
  withHead << "name,x,y,z,code\n";
  std::string line;
  ForEachPoint([&](const Point& point) {
    line.clear();
    const auto append = [&](char separator) {
      line += point.name;
      for (const double number : {point.x, point.y, point.z}) {
        line += separator;
        platform::AppendFixed(line, number, 3);
      }
      line += separator;
      line += point.code + "\n";
    };
    append(';');
    plain << line;
    line.clear();
    append(',');
    withHead << line;
  });
}

bool MeasureProgram(const std::string& program, const Folder& folder) {
  const std::string ours = folder.File("ours.csv");
  const std::string theirs = folder.File("theirs.csv");
  WriteCsv(ours, theirs);
  ChildUse use;
  ChildUse other;
  const auto run = [](const std::vector<std::string>& command, ChildUse& told) {
    told = RunChild(command);
    if (!told.succeeded) Die("a program failed: " + command.front());
    return told.processorSeconds;
  };
  const std::vector<Runs> runs = Interleaved(
      3, {[&] {
            return run({program, "convert", "--quiet", ours, folder.File("out.shp")}, use);
          },
          [&] {
            std::filesystem::remove(folder.File("other.shp"));
            return run({"ogr2ogr", "-overwrite", "-f", "ESRI Shapefile", folder.File("other.shp"),
                        theirs, "-oo", "X_POSSIBLE_NAMES=x", "-oo", "Y_POSSIBLE_NAMES=y", "-oo",
                        "Z_POSSIBLE_NAMES=z", "-oo", "KEEP_GEOM_COLUMNS=NO"},
                       other);
          }});
  const double ratio = runs[0].Minimum() / runs[1].Minimum();
  const bool kept = ratio <= 1 / kTimesAsFast;
  const std::string what = "kalvio convert, CSV to Shape; bare: ogr2ogr, ";
  PrintRow({what + "time", Figure(runs[0], 1, 2, "s"), Figure(runs[1], 1, 2, "s"), Number(ratio, 2),
            Number(1 / kTimesAsFast, 2), kept});
  PrintRow({what + "peak memory", Number(use.peakResidentBytes / kMegabyte, 0) + " MB",
            Number(other.peakResidentBytes / kMegabyte, 0) + " MB"});
  return kept;
}

int Run(const char* program) {
  const Folder folder;
  // The memory of a child cannot be measured below what this process had, so it comes first.
  const bool isProgramQuick = MeasureProgram(program, folder);
  return MeasureLibrary(folder) && isProgramQuick ? 0 : 1;
}

}  // namespace
}  // namespace bench

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "Usage: kalvio-bench-shape KALVIO\n");
    return 2;
  }
  try {
    return bench::Run(argv[1]);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-bench-shape: %s\n", error.what());
    return 2;
  }
}
