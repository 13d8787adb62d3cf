// Random numbers whose seed is told, so that a failure can be run again with KALVIO_TEST_SEED.
#pragma once

#include <cstdint>
#include <cstdlib>
#include <iostream>
#include <random>
#include <string>
#include <string_view>

class Random {
 public:
  Random() : seed_(ChooseSeed()), engine_(seed_) {
    std::cout << "[   seed   ] KALVIO_TEST_SEED=" << seed_ << '\n';
  }

  std::uint64_t Bits() { return engine_(); }

  /// A number within least..most.
  template <class Number>
  Number Whole(Number least, Number most) {
    return std::uniform_int_distribution<Number>(least, most)(engine_);
  }

  /// A number within least..most, not `most` itself.
  double Real(double least, double most) {
    return std::uniform_real_distribution<double>(least, most)(engine_);
  }

  bool OneIn(unsigned chances) { return Whole(1U, chances) == 1; }

  /// A text of `length` characters out of `alphabet`.
  std::string Text(std::string_view alphabet, std::size_t length) {
    std::string text(length, '\0');
    for (char& c : text) c = alphabet[Whole<std::size_t>(0, alphabet.size() - 1)];
    return text;
  }

 private:
  static std::uint64_t ChooseSeed() {
    const char* const given = std::getenv("KALVIO_TEST_SEED");
    return given != nullptr ? std::strtoull(given, nullptr, 10) : std::random_device{}();
  }

  std::uint64_t seed_;
  std::mt19937_64 engine_;
};
