// A small reader of the land agency's text, for what the composer wrote. It knows the layouts of
// the records and nothing of the composer.
#pragma once

#include <gtest/gtest.h>

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/numbers.h"

namespace dat_reader {

using Fields = std::vector<std::string>;

struct Observation {
  std::string point;
  double direction = 0;
  std::optional<double> zenith;  // none: the distance is horizontal
  double distance = 0;
  double prismHeight = 0;
  std::string note;
};

struct Baseline {
  std::string point;
  std::vector<double> difference;
  std::vector<double> covariance;
  std::string pdop;
  double poleHeight = 0;
  std::string note;
};

/// A set-up, or a GPS base, which has a position.
struct Station {
  std::string name;
  double height = 0;
  std::string note;
  std::vector<double> position;
  Fields session;
  std::vector<Observation> observations;
  std::vector<Baseline> baselines;
};

struct File {
  Fields heading;
  Fields values;
  std::vector<Station> stations;
  std::vector<Fields> traverses;
  std::vector<Fields> contours;
  std::vector<Fields> fiducials;
};

inline Fields Split(std::string_view text, char separator) {
  Fields fields(1);
  for (const char c : text) {
    if (c == separator) {
      fields.emplace_back();
    } else {
      fields.back() += c;
    }
  }
  return fields;
}

inline double Number(const std::string& text) {
  std::string_view rest = text;
  const auto number = platform::TakeDecimal(rest);
  EXPECT_TRUE(number && rest.empty()) << '"' << text << '"';
  return number.value_or(0);
}

inline std::vector<double> Numbers(const std::string& text) {
  std::vector<double> numbers;
  for (const std::string& part : Split(text, ',')) numbers.push_back(Number(part));
  return numbers;
}

inline Station StationOf(const Fields& fields) {
  EXPECT_TRUE(fields.size() == 3 || fields.size() == 4);
  const bool isBase = fields.size() == 4;
  Station station{fields[0], Number(fields[isBase ? 2 : 1]), fields.back(), {}, {}, {}, {}};
  if (isBase) station.position = Numbers(fields[1]);
  return station;
}

inline void TakeMeasurement(const Fields& fields, Station& station) {
  if (fields.size() == 6 && fields[1].find(',') != std::string::npos) {
    station.baselines.push_back({fields[0], Numbers(fields[1]), Numbers(fields[2]), fields[3],
                                 Number(fields[4]), fields[5]});
  } else if (fields.size() == 6) {
    station.observations.push_back({fields[0], Number(fields[1]), Number(fields[2]),
                                    Number(fields[3]), Number(fields[4]), fields[5]});
  } else {
    ASSERT_EQ(fields.size(), 4U);
    station.observations.push_back(
        {fields[0], Number(fields[1]), std::nullopt, Number(fields[2]), 0, fields[3]});
  }
}

// One that goes on has no number of vertices and the type of its first line.
inline void TakeContour(const Fields& fields, File& file) {
  ASSERT_GE(fields.size(), 2U);
  if (fields[0] != "0") return file.contours.push_back(fields);
  ASSERT_FALSE(file.contours.empty());
  Fields& begun = file.contours.back();
  EXPECT_EQ(begun.back(), fields.back());
  begun.insert(begun.end() - 1, fields.begin() + 1, fields.end() - 1);
}

inline void Take(char type, const Fields& fields, File& file) {
  if (type == '1') return file.stations.push_back(StationOf(fields));
  if (type == '3') return file.traverses.push_back(fields);
  if (type == '7') return TakeContour(fields, file);
  if (type == '8') return file.fiducials.push_back(fields);
  if (type == '0') file.heading = fields;
  if (type == '9') file.values = fields;
  if (type == '0' || type == '9') return;
  ASSERT_FALSE(file.stations.empty()) << "a record " << type << " before any station";
  if (type == '6') {
    file.stations.back().session = fields;
  } else {
    ASSERT_EQ(type, '2');
    TakeMeasurement(fields, file.stations.back());
  }
}

/// Every line must be a record as the page of the format has it.
inline File Read(std::string_view bytes) {
  File file;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find("\r\n");
    EXPECT_NE(end, std::string_view::npos) << "a line without its end";
    const std::string_view line = bytes.substr(0, end);
    EXPECT_TRUE(line.size() > 2 && line[1] == '|' && line.back() == '|') << line;
    Fields fields = Split(line.substr(2, line.size() - 3), '|');
    Take(line[0], fields, file);
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 2);
  }
  return file;
}

}  // namespace dat_reader
