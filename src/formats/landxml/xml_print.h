// Formatted prints into a LandXML file. Nothing is escaped: names go out as they are.
#pragma once

#include <string_view>

#include "platform/numbers.h"
#include "platform/output_file.h"
#include "tdk/wstring.h"

namespace landxml {

/// A GPS latitude or longitude in radians; printed in degrees with nine decimals.
struct RadiansAsDegrees {
  double value;
};

inline constexpr int kRealDecimals = 6;
inline constexpr int kDegreeDecimals = 9;
inline constexpr double kDegreesPerRadian = 57.29577951308232;

inline void Append(std::string& text, std::string_view more) { text += more; }
inline void Append(std::string& text, const char* more) { text += more; }
inline void Append(std::string& text, const tdk::WString& more) { text += more.ToUtf8(); }
inline void Append(std::string& text, int number) { platform::AppendWhole(text, number); }
inline void Append(std::string& text, double number) {
  platform::AppendFixed(text, number, kRealDecimals);
}
inline void Append(std::string& text, RadiansAsDegrees angle) {
  platform::AppendFixed(text, angle.value * kDegreesPerRadian, kDegreeDecimals);
}

/// Appends the parts one after the other: texts as they are, whole numbers, reals with six
/// decimals.
template <class... Parts>
void Print(platform::OutputFile& file, const Parts&... parts) {
  (Append(file.Buffer(), parts), ...);
}

/// The same, and the line end.
template <class... Parts>
void PrintLine(platform::OutputFile& file, const Parts&... parts) {
  Print(file, parts...);
  file.Buffer() += '\n';
  file.FlushIfLarge();
}

}  // namespace landxml
