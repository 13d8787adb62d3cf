// Texts between the host and Qt.
#pragma once

#include <QString>
#include <cstdint>
#include <string>
#include <string_view>

#include "services/translate.h"
#include "tdk/wstring.h"

inline QString ToQt(std::string_view utf8) {
  return QString::fromUtf8(utf8.data(), static_cast<qsizetype>(utf8.size()));
}
inline QString ToQt(const tdk::WString& text) { return ToQt(std::string_view(text.ToUtf8())); }
inline std::string ToUtf8(const QString& text) { return text.toStdString(); }

/// The text in the user's language.
inline QString Translated(const char* text) { return ToQt(Xlate(text)); }
/// The same with {1} and so on filled in.
inline QString Translated(const char* text, std::initializer_list<tdk::WString> arguments) {
  return ToQt(Fill(Xlate(text), arguments));
}
