// Small JB2 files for whole-program tests.
#pragma once

#include <string>

/// Turns "¦" into the separator.
inline std::string Jb2Text(std::string text) {
  const std::string shown = "¦";
  for (std::size_t at = text.find(shown); at != std::string::npos; at = text.find(shown, at)) {
    text.replace(at, shown.size(), "\x1d");
  }
  return text;
}

inline std::string SmallJob() {
  return Jb2Text(
      "L|¦WALL¦Conti¦TS¦ ¦05-03-2026¦\n"
      "S|¦100¦first¦1.560¦18.5¦1013¦ ¦ ¦ ¦ ¦\n"
      "P|¦1001¦MURO¦1.500¦81.2321¦100.4599¦23.513¦\n"
      "P|¦1002¦CIGLIO¦1.500¦92.0450¦98.1000¦18.204¦\n");
}
