// What a layout makes of a text or CSV file, before it is imported.
#pragma once

#include "apps/desktop/dialogs/qt_views.h"
#include "module.h"

/// Lets the module read the beginning of the file into a job of its own.
class TextPreview : public PreviewSource {
 public:
  /// Not owned. `views` knows which dialogs are open.
  TextPreview(const Module& module, const QtViews& views) : module_(module), views_(views) {}

  std::optional<PointPreview> Preview(std::string_view dialog, const DialogState& layout) override;

 private:
  const Module& module_;
  const QtViews& views_;
};
