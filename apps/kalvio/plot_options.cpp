#include "plot_options.h"

#include "failure.h"
#include "platform/numbers.h"
#include "services/translate.h"

namespace {

constexpr double kMostScale = 1e9;

struct Size {
  double width;
  double height;
};

bool TakeSign(std::string_view& text, char sign) {
  if (!text.starts_with(sign)) return false;
  text.remove_prefix(1);
  return true;
}

// A number without a sign or blanks before it; nothing when there is none.
std::optional<double> TakeLength(std::string_view& text) {
  const auto isDigit = [](char c) { return c >= '0' && c <= '9'; };
  std::size_t size = 0;
  while (size < text.size() && (isDigit(text[size]) || text[size] == '.')) ++size;
  std::string_view number = text.substr(0, size);
  const auto value = platform::TakeDecimal(number);
  if (!value || !number.empty()) return std::nullopt;
  text.remove_prefix(size);
  return value;
}

std::optional<Size> ParseSize(std::string_view text) {
  const auto width = TakeLength(text);
  if (!width || !(TakeSign(text, 'x') || TakeSign(text, 'X'))) return std::nullopt;
  const auto height = TakeLength(text);
  if (!height || !text.empty()) return std::nullopt;
  return Size{*width, *height};
}

bool IsSheet(const Size& size) {
  const auto fits = [](double side) { return side >= plot::kLeastSide && side <= plot::kMostSide; };
  return fits(size.width) && fits(size.height);
}

bool IsPicture(const Size& size) {
  const auto fits = [](double side) {
    return side >= plot::kLeastPixels && side <= plot::kMostPixels &&
           side == static_cast<double>(static_cast<int>(side));
  };
  return fits(size.width) && fits(size.height) &&
         size.width * size.height <= plot::kMostPixelsInAll;
}

void ReadSize(const std::string& text, plot::PlanOptions& options) {
  const auto size = ParseSize(text);
  const bool isPng = options.kind == plot::PictureKind::kPng;
  if (!size || !(isPng ? IsPicture(*size) : IsSheet(*size))) {
    const auto pattern =
        isPng ? Xlate(
                    "--size: \"{1}\" is no width and height in pixels of 400 to 20000, such as "
                    "3000x2000")
              : Xlate(
                    "--size: \"{1}\" is no width and height in millimetres of 60 to 5000, such "
                    "as 420x297");
    throw BadUsage(Fill(pattern, {tdk::WString(text)}).ToUtf8());
  }
  options.width = size->width;
  options.height = size->height;
}

double ReadScale(const std::string& text) {
  std::string_view rest = text;
  const auto one = TakeLength(rest);
  if (one == 1 && TakeSign(rest, ':')) {
    const auto scale = TakeLength(rest);
    if (scale && *scale > 0 && *scale <= kMostScale && rest.empty()) return *scale;
  }
  throw BadUsage(
      Fill(Xlate("--scale: \"{1}\" is no scale, such as 1:500"), {tdk::WString(text)}).ToUtf8());
}

}  // namespace

plot::PlanOptions ReadPlanOptions(const Arguments& arguments, const std::string& output) {
  const auto kind = plot::PictureKindOf(output);
  if (!kind) {
    throw BadUsage(
        output + ": " +
        Xlate("the extension says no kind of picture; known are svg, pdf, png").ToUtf8());
  }
  plot::PlanOptions options;
  options.kind = *kind;
  if (const auto size = arguments.Value("--size")) ReadSize(*size, options);
  if (const auto scale = arguments.Value("--scale")) options.scale = ReadScale(*scale);
  options.names = !arguments.Has("--no-names");
  options.codes = !arguments.Has("--no-codes");
  options.terrain = !arguments.Has("--no-terrain");
  return options;
}
