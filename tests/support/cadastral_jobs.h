// Cadastral surveys for tests.
#pragma once

#include <string>
#include <vector>

#include "host/cadastre/compose.h"
#include "support/stored_jobs.h"

namespace cadastral_jobs {

/// A survey with nothing missing, and nothing in it but its heading.
inline void FillHeading(CCts& cadastre) {
  cadastre::Heading& heading = cadastre.Survey().heading;
  heading.year = "2025";
  heading.protocol = "12";
  heading.date = "20112025";
  heading.municipality = "H223";
  heading.sheet = "17";
  heading.technician = "ROSSI MARIO";
  heading.qualification = "GEOMETRA";
  heading.province = "MODENA";
  heading.version = "10.00-G";
  heading.actType = "FR";
  cadastre.Survey().parcels = {"64"};
}

/// The job of tests/cadastral/libretto.json.
inline void LoadExample(HostDocument& document) {
  LoadJob(KALVIO_TEST_DATA "/cadastral/libretto.json", document);
}

inline dat::DatText Compose(HostDocument& document) {
  return dat::Compose(*document.GetCts(), *document.GetLibCmp(), *document.GetLibGps());
}

/// The records of that type, without their line ends.
inline std::vector<std::string> Records(const std::string& bytes, char type) {
  std::vector<std::string> records;
  for (std::size_t start = 0; start < bytes.size();) {
    const std::size_t end = std::min(bytes.find("\r\n", start), bytes.size());
    if (bytes[start] == type) records.push_back(bytes.substr(start, end - start));
    start = end + 2;
  }
  return records;
}

inline std::vector<std::string> Texts(const std::vector<tdk::WString>& texts) {
  std::vector<std::string> plain;
  for (const tdk::WString& text : texts) plain.push_back(text.ToUtf8());
  return plain;
}

}  // namespace cadastral_jobs
