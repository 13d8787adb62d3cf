// Points and texts as DXF the plain way: what the DXF writer and reader are measured against.
#pragma once

#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <string>
#include <string_view>
#include <vector>

#include "folder.h"
#include "plain_file.h"

namespace bench {

/// A point of a drawing, or a text.
struct PlainMark {
  std::string_view layer;
  double x;
  double y;
  double z;
  std::string_view text;  ///< empty: a point
};

class PlainDxf {
 public:
  explicit PlainDxf(const std::string& path) : file_(path) {}

  void Text(std::string_view text) { file_.Text(text); }
  void EndRecord() { file_.EndRecord(); }
  void Close() { file_.Close(); }

  void Mark(const PlainMark& mark, std::uint64_t handle, double height) {
    const bool isPoint = mark.text.empty();
    file_.Text(isPoint ? "0\nPOINT\n5\n" : "0\nTEXT\n5\n");
    Hexadecimal(handle);
    file_.Text("\n330\n11\n100\nAcDbEntity\n8\n");
    file_.Text(mark.layer);
    file_.Text(isPoint ? "\n100\nAcDbPoint\n10\n" : "\n100\nAcDbText\n10\n");
    Real(mark.x);
    file_.Text("20\n");
    Real(mark.y);
    file_.Text("30\n");
    Real(mark.z);
    if (isPoint) return;
    file_.Text("40\n");
    Real(height);
    file_.Text("1\n");
    file_.Text(mark.text);
    file_.Text("\n100\nAcDbText\n");
  }

 private:
  void Real(double value) {
    file_.Shortest(value);
    file_.Text(value == std::trunc(value) ? ".0\n" : "\n");
  }
  void Hexadecimal(std::uint64_t value) {
    char digits[16];
    char* at = std::end(digits);
    for (; value != 0; value >>= 4) *--at = "0123456789ABCDEF"[value & 0xF];
    file_.Text({at, static_cast<std::size_t>(std::end(digits) - at)});
  }

  PlainFile file_;
};

/// Reads pairs of lines, converts the code of each, and the value where the code says that it is a
/// real or a whole number; the sum of these.
inline double ReadPairsPlainly(const std::string& path) {
  std::FILE* const file = std::fopen(path.c_str(), "r");
  if (file == nullptr) Die("no " + path);
  double sum = 0;
  char code[256];
  char value[256];
  while (std::fgets(code, sizeof code, file) != nullptr &&
         std::fgets(value, sizeof value, file) != nullptr) {
    const std::string_view text(value);
    int number = 0;
    std::from_chars(code, code + 4, number);
    double real = 0;
    if (number >= 10 && number < 60) std::from_chars(text.begin(), text.end(), real);
    int whole = 0;
    if (number >= 60 && number < 80) std::from_chars(text.begin(), text.end(), whole);
    sum += real + whole;
  }
  std::fclose(file);
  return sum;
}

}  // namespace bench
