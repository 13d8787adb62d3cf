// Texts in the user's language.
#pragma once

#include <initializer_list>
#include <string_view>
#include <vector>

#include "tdk/wstring.h"

/// Chooses the language of Xlate: "en" or "it", or a locale's name that begins so ("it_IT.UTF-8").
/// Anything else is English. False when it is no language that there is.
bool SetLanguage(std::string_view name);
std::string_view Language();
/// The languages there are.
std::vector<std::string_view> Languages();

/// The text in the chosen language; the text itself where the catalogue has no entry.
tdk::WString Xlate(const char* text);
tdk::WString Xlate(const tdk::WString& text);

/// Marks a text that Xlate gets later, out of a table or a parameter, so that the catalogues have
/// it.
constexpr const char* ToXlate(const char* text) { return text; }

/// `pattern` with {1}, {2}, … replaced by the arguments in their order.
tdk::WString Fill(const tdk::WString& pattern, std::initializer_list<tdk::WString> arguments);
