// Shape files for tests of the module: what they hold, and what was asked of them.
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "model/shape_files.h"

class FakeShapeFiles : public IShapeFiles {
 public:
  static ShapeOutcome Outcome(bool isDone, int result, const char* name = "") {
    ShapeOutcome made;
    made.isDone = isDone;
    made.result = result;
    made.name = name;
    return made;
  }

  FakeShapeFiles() : previous_(Current()) { SetCurrent(this); }
  ~FakeShapeFiles() override { SetCurrent(previous_); }

  int EntityTypeOf(const tdk::WString& path) override {
    asked.push_back(path.ToUtf8());
    return entityType;
  }
  bool FieldsOf(const tdk::WString& dbfPath, std::vector<tdk::WString>& names) override {
    asked.push_back(dbfPath.ToUtf8());
    if (!hasTable) return false;
    for (const char* field : fields) names.emplace_back(field);
    return true;
  }
  ShapeOutcome Import(const ShapeImport& what) override {
    imports.push_back(what);
    if (onImport) onImport(what);
    return outcome;
  }
  ShapeOutcome Export(const ShapeExport& what) override {
    exports.push_back(what);
    if (!overwrites.IsEmpty()) answers.push_back(what.callback->OnOverwriteFile(overwrites));
    return outcome;
  }

  int entityType = 1;
  bool hasTable = true;
  std::vector<const char*> fields = {"NAME", "CODE", "HEIGHT"};
  ShapeOutcome outcome = Outcome(true, 0);
  std::function<void(const ShapeImport&)> onImport;
  tdk::WString overwrites;  ///< an export asks first whether it may replace this path; empty: none

  std::vector<std::string> asked;  ///< paths, in the order of the questions
  std::vector<ShapeImport> imports;
  std::vector<ShapeExport> exports;
  std::vector<bool> answers;

 private:
  IShapeFiles* previous_;
};
