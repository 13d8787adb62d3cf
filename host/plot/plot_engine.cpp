#include <cerrno>
#include <cmath>

#include "host/plot/margin_painter.h"
#include "host/plot/nice_numbers.h"
#include "host/plot/picture.h"
#include "host/plot/plan_painter.h"
#include "host/plot/plan_words.h"
#include "platform/output_file.h"

namespace plot {
namespace {

// Texts are measured before there is a picture.
class Measure {
 public:
  Measure()
      : surface_(cairo_image_surface_create(CAIRO_FORMAT_A8, 1, 1), &cairo_surface_destroy),
        context_(cairo_create(surface_.get()), &cairo_destroy),
        canvas_(context_.get()) {}
  double operator()(std::string_view text, TextKind kind) {
    return canvas_.WidthOf(text, TextSize(kind), StyleOf(kind).isBold);
  }

 private:
  std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface_;
  std::unique_ptr<cairo_t, decltype(&cairo_destroy)> context_;
  Canvas canvas_;
};

// On paper a scale is true; on a screen only where it was asked for.
MarginTexts TextsOf(const PlanContent& content, const PlanOptions& options, double scale) {
  MarginTexts texts;
  texts.title = DrawableText(options.title);
  texts.counts = CountsInWords(content);
  texts.extent = ExtentInWords(content);
  if (options.kind != PictureKind::kPng || options.scale > 0) {
    texts.scale = "1:" + ScaleText(scale);
  }
  return texts;
}

bool Write(const std::string& path, const std::optional<std::string>& bytes) {
  if (!bytes) {
    platform::ReportFileTrouble(platform::FileTrouble::Action::kWrite, path, ENOMEM);
    return false;
  }
  platform::OutputFile file;
  if (!file.Open(path)) return false;
  file.Buffer() = *bytes;
  return file.Commit();
}

PlanReport ReportOf(const PlanContent& content, const Scene& scene, const PlanOptions& options) {
  const bool isPng = options.kind == PictureKind::kPng;
  const auto asAskedFor = [&](double side) {
    return isPng ? std::round(side * kPixelsPerMillimetre) : std::round(side * 1000) / 1000;
  };
  PlanReport report;
  report.width = asAskedFor(scene.sheet.width);
  report.height = asAskedFor(scene.sheet.height);
  report.scale = scene.sheet.scale;
  report.withoutPlace = content.withoutPlace;
  report.beyondSheet = scene.symbols.beyondSheet;
  report.points = content.marks.size() - report.beyondSheet;
  report.models = content.models.size();
  report.roads = content.roads.size();
  report.themes = content.themes.size();
  report.entities = EntityCount(content);
  for (const WorkOnSheet& drawing : scene.drawings) report.smallTexts += drawing.smallTexts;
  for (std::size_t i = 0; i < scene.terrain.size(); ++i) {
    if (scene.terrain[i].isTooFine) {
      report.fineModels.push_back(content.models[i]->GetName().ToUtf8());
    }
  }
  return report;
}

class Engine : public IPlotter {
 public:
  PlanReport Draw(HostDocument& document, const PlanOptions& options,
                  const std::string& path) override {
    PlanContent content = ContentOf(document, options.terrain);
    std::erase_if(content.drawings, [](const LineWork& layer) { return !layer.isVisible; });
    PlanReport report;
    report.withoutPlace = content.withoutPlace;
    if (content.IsEmpty()) return report;
    Measure measure;
    const TextWidth width = [&](std::string_view text, TextKind kind) {
      return measure(text, kind);
    };
    const Scene scene = SceneOf(content, options, width);
    report = ReportOf(content, scene, options);
    const MarginTexts texts = TextsOf(content, options, scene.sheet.scale);
    Picture picture(options.kind, scene.sheet, {report.width, report.height}, texts.title);
    Canvas canvas(picture.Context());
    PaintPlan(scene, canvas);
    PaintMargins(scene, texts, canvas);
    report.outcome = Write(path, picture.Finish(canvas.Texts())) ? PlanReport::Outcome::kDrawn
                                                                 : PlanReport::Outcome::kNotWritten;
    return report;
  }
};

}  // namespace
}  // namespace plot

extern "C" plot::IPlotter* KalvioMakePlotter() { return new plot::Engine; }
