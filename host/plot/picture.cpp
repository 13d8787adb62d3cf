#include "host/plot/picture.h"

#include <cairo/cairo-pdf.h>
#include <cairo/cairo-svg.h>

#include <cmath>
#include <cstdint>

#include "host/plot/nice_numbers.h"

namespace plot {
namespace {

constexpr double kPointsPerMillimetre = 72 / 25.4;
constexpr double kDegreesPerRadian = 57.29577951308232;

cairo_status_t Append(void* bytes, const unsigned char* data, unsigned length) {
  static_cast<std::string*>(bytes)->append(reinterpret_cast<const char*>(data), length);
  return CAIRO_STATUS_SUCCESS;
}

cairo_surface_t* MakeSurface(PictureKind kind, const Sheet& sheet, const Place& pixels,
                             std::string& bytes) {
  const double width = sheet.width * kPointsPerMillimetre;
  const double height = sheet.height * kPointsPerMillimetre;
  if (kind == PictureKind::kSvg) {
    cairo_surface_t* const surface =
        cairo_svg_surface_create_for_stream(&Append, &bytes, width, height);
    cairo_svg_surface_set_document_unit(surface, CAIRO_SVG_UNIT_PT);
    return surface;
  }
  if (kind == PictureKind::kPdf) {
    return cairo_pdf_surface_create_for_stream(&Append, &bytes, width, height);
  }
  return cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(pixels.x),
                                    static_cast<int>(pixels.y));
}

std::string Escaped(const std::string& text) {
  std::string escaped;
  for (const char c : text) {
    if (c == '&') {
      escaped += "&amp;";
    } else if (c == '<') {
      escaped += "&lt;";
    } else if (c == '>') {
      escaped += "&gt;";
    } else {
      escaped += c;
    }
  }
  return escaped;
}

std::string TextLayer(const std::vector<DrawnText>& texts) {
  std::string layer =
      "<g id=\"texts\" font-family=\"sans-serif\" fill-opacity=\"0\" transform=\"scale(" +
      FixedText(kPointsPerMillimetre, 6) + ")\">\n";
  for (const DrawnText& text : texts) {
    const std::string x = FixedText(text.start.x, 2);
    const std::string y = FixedText(text.start.y, 2);
    layer.append("<text x=\"").append(x).append("\" y=\"").append(y).append("\"");
    if (text.angle != 0) {
      const std::string degrees = FixedText(text.angle * kDegreesPerRadian, 2);
      layer.append(" transform=\"rotate(").append(degrees);
      layer.append(" ").append(x).append(" ").append(y).append(")\"");
    }
    layer.append(" font-size=\"" + FixedText(text.size, 2) + "\">");
    layer.append(Escaped(text.text)).append("</text>\n");
  }
  return layer + "</g>\n";
}

void AddTexts(const std::string& title, const std::vector<DrawnText>& texts, std::string& svg) {
  const std::size_t end = svg.rfind("</svg>");
  if (end != std::string::npos) svg.insert(end, TextLayer(texts));
  const std::size_t root = svg.find("<svg ");
  const std::size_t first = root == std::string::npos ? root : svg.find('>', root);
  if (first != std::string::npos) {
    svg.insert(first + 1, "\n<title>" + Escaped(title) + "</title>");
  }
}

void AppendBigEndian(std::string& bytes, std::uint32_t value) {
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>((value >> shift) & 0xFF);
}

std::uint32_t Checksum(const std::string& bytes) {
  std::uint32_t sum = 0xFFFFFFFF;
  for (const char byte : bytes) {
    sum ^= static_cast<unsigned char>(byte);
    for (int bit = 0; bit < 8; ++bit) sum = (sum >> 1) ^ ((sum & 1) != 0 ? 0xEDB88320 : 0);
  }
  return ~sum;
}

// How large the picture is on paper: programs print it to scale then.
void AddResolution(std::string& png) {
  constexpr std::size_t kAfterHeader = 33;  // signature and first chunk
  const auto pixelsPerMetre = static_cast<std::uint32_t>(std::lround(kPixelsPerMillimetre * 1000));
  std::string content = "pHYs";
  AppendBigEndian(content, pixelsPerMetre);
  AppendBigEndian(content, pixelsPerMetre);
  content += '\1';  // pixels a metre
  std::string chunk;
  AppendBigEndian(chunk, static_cast<std::uint32_t>(content.size() - 4));
  chunk += content;
  AppendBigEndian(chunk, Checksum(content));
  if (png.size() > kAfterHeader) png.insert(kAfterHeader, chunk);
}

}  // namespace

Picture::Picture(PictureKind kind, const Sheet& sheet, const Place& pixels,
                 const std::string& title)
    : kind_(kind),
      title_(title),
      surface_(MakeSurface(kind, sheet, pixels, bytes_), &cairo_surface_destroy),
      context_(cairo_create(surface_.get()), &cairo_destroy) {
  if (kind == PictureKind::kPdf) {
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_TITLE, title.c_str());
    cairo_pdf_surface_set_metadata(surface_.get(), CAIRO_PDF_METADATA_CREATOR, "kalvio");
  }
  const double scale = kind == PictureKind::kPng ? kPixelsPerMillimetre : kPointsPerMillimetre;
  cairo_set_source_rgb(context_.get(), 1, 1, 1);
  cairo_paint(context_.get());
  cairo_scale(context_.get(), scale, scale);
}

std::optional<std::string> Picture::Finish(const std::vector<DrawnText>& texts) {
  if (cairo_status(context_.get()) != CAIRO_STATUS_SUCCESS) return std::nullopt;
  if (kind_ == PictureKind::kPng) {
    if (cairo_surface_write_to_png_stream(surface_.get(), &Append, &bytes_) !=
        CAIRO_STATUS_SUCCESS) {
      return std::nullopt;
    }
    AddResolution(bytes_);
    return std::move(bytes_);
  }
  cairo_surface_finish(surface_.get());
  if (cairo_surface_status(surface_.get()) != CAIRO_STATUS_SUCCESS) return std::nullopt;
  if (kind_ == PictureKind::kSvg) AddTexts(title_, texts, bytes_);
  return std::move(bytes_);
}

}  // namespace plot
