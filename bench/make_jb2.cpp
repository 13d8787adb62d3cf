// kalvio-make-jb2: writes JB2 files of any size, the same bytes for the same seed.
#include <CLI/CLI.hpp>
#include <string>

#include "plain_jb2.h"

int main(int argc, char** argv) {
  CLI::App app("Writes a JB2 file with made-up jobs.");
  bench::JobShape shape;
  std::string path;
  app.add_option("--points", shape.points, "Points in all")->capture_default_str();
  app.add_option("--stations", shape.stations, "Stations in all, which share the points evenly")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--jobs", shape.jobs, "Jobs, which share the stations evenly")
      ->capture_default_str()
      ->check(CLI::PositiveNumber);
  app.add_option("--seed", shape.seed, "The same seed gives the same file")->capture_default_str();
  app.add_option("OUTPUT", path, "The file to write")->required();
  CLI11_PARSE(app, argc, argv);

  try {
    bench::MakeJb2File(path, shape);
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kalvio-make-jb2: %s\n", error.what());
    return 1;
  }
}
