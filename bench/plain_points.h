// Lines "name;east;north;elev;code" the plain way: what the text reader and writer are measured
// against.
#pragma once

#include <charconv>
#include <cstdio>
#include <random>
#include <string>
#include <string_view>
#include <vector>

#include "folder.h"
#include "plain_file.h"
#include "plain_job.h"

namespace bench {

struct PlainPlace {
  Letters<7> name;
  Letters<8> code;
  double east;
  double north;
  double elev;
};

/// So many places, always the same ones.
inline std::vector<PlainPlace> MakePlaces(std::size_t count) {
  std::mt19937_64 random(1);
  std::vector<PlainPlace> places(count);
  for (std::size_t i = 0; i < count; ++i) {
    PlainPlace& place = places[i];
    place.name[0] = static_cast<char>('A' + i / 1'000'000 % 26);
    std::size_t number = i;
    for (std::size_t at = place.name.size(); --at > 0; number /= 10) {
      place.name[at] = static_cast<char>('0' + number % 10);
    }
    kCodes[random() % kCodes.size()].copy(place.code.data(), place.code.size());
    place.east = static_cast<double>(600'000'000 + random() % 100'000'000) / 1e3;
    place.north = static_cast<double>(4'900'000'000 + random() % 100'000'000) / 1e3;
    place.elev = static_cast<double>(random() % 1'000'000) / 1e3;
  }
  return places;
}

/// With the separator that the module's writer puts after the sixth, empty column.
inline void WritePlacesPlainly(const std::string& path, const std::vector<PlainPlace>& places) {
  PlainFile file(path);
  for (const PlainPlace& place : places) {
    file.Text(View(place.name));
    file.Text(";");
    for (const double value : {place.east, place.north, place.elev}) {
      file.Fixed(value, 3);
      file.Text(";");
    }
    file.Text(View(place.code));
    file.Text(";;\n");
    file.EndRecord();
  }
  file.Close();
}

/// Reads lines, cuts their columns and converts the numbers; the sum of these.
inline double ReadPlacesPlainly(const std::string& path) {
  constexpr std::size_t kColumns = 5;
  std::FILE* const file = std::fopen(path.c_str(), "r");
  if (file == nullptr) Die("no " + path);
  double sum = 0;
  std::array<char, 255> line;
  while (std::fgets(line.data(), line.size(), file) != nullptr) {
    const std::string_view text(line.data());
    std::array<std::string_view, kColumns> columns;
    std::size_t start = 0;
    for (std::string_view& column : columns) {
      const std::size_t end = text.find(';', start);
      if (end == std::string_view::npos) break;
      column = text.substr(start, end - start);
      start = end + 1;
    }
    for (std::size_t i = 1; i < kColumns - 1; ++i) {
      double value = 0;
      std::from_chars(columns[i].begin(), columns[i].end(), value);
      sum += value;
    }
  }
  std::fclose(file);
  return sum;
}

}  // namespace bench
