// What a Shape file gets of a job: its points as one theme, its themes under names of their own.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/document/host_document.h"

/// As long as it lives, the job's themes are called as the files that they go into, have a
/// reference system, and the points of the job are a theme among them.
class ShapeSet {
 public:
  /// `path`: the output ("points.shp"). `crs`: AUTHORITY:CODE for themes without a reference system
  /// of their own; empty for none.
  ShapeSet(HostDocument& document, const std::string& path, const tdk::WString& crs);
  ~ShapeSet();
  ShapeSet(const ShapeSet&) = delete;
  ShapeSet& operator=(const ShapeSet&) = delete;

  bool IsEmpty() const { return document_.GetLibGis()->GetNumThemes() == 0; }
  /// The ".shp" files, native paths.
  const std::vector<std::string>& Files() const { return files_; }
  /// What a Shape file of this job lacks.
  const std::vector<std::string>& Remarks() const { return remarks_; }

 private:
  void NameThemes(const std::string& stem, bool isPrefix);
  void GiveReferenceSystem(const tdk::WString& crs);

  HostDocument& document_;
  std::vector<std::pair<gis::CTheme*, tdk::WString>> names_;  // what the themes are called else
  std::vector<gis::CTheme*> withoutSystem_;
  gis::CTheme* points_ = nullptr;
  std::vector<std::string> files_;
  std::vector<std::string> remarks_;
};
