#include "word_list.h"

std::vector<std::string> WordList(std::string_view text) {
  std::vector<std::string> words;
  while (!text.empty()) {
    std::string_view word = text.substr(0, text.find(','));
    text.remove_prefix(std::min(text.size(), word.size() + 1));
    const std::size_t first = word.find_first_not_of(' ');
    if (first == std::string_view::npos) continue;
    words.emplace_back(word.substr(first, word.find_last_not_of(' ') - first + 1));
  }
  return words;
}

std::vector<std::string> WordList(const std::vector<std::string>& values) {
  std::vector<std::string> words;
  for (const std::string& value : values) {
    const std::vector<std::string> more = WordList(std::string_view(value));
    words.insert(words.end(), more.begin(), more.end());
  }
  return words;
}
