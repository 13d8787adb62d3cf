#include "apps/desktop/dialogs/control.h"

PreviewSource::~PreviewSource() = default;
ControlHost::~ControlHost() = default;
Control::~Control() = default;

std::unique_ptr<Control> MakeControl(const ControlRow& row, ControlHost& host) {
  using enum ControlKind;
  switch (row.kind) {
    case kCombo:
    case kRadio:
    case kCheck: return MakeChoiceControl(row, host);
    case kList:
    case kCheckList: return MakeListControl(row, host);
    case kColumns: return MakeColumnControl(row, host);
    case kFile:
    case kFolder: return MakeFileControl(row, host);
    case kPreview: return MakePreviewControl(row, host);
    default: return MakeSimpleControl(row, host);
  }
}
