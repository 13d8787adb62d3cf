// The dialog in which the reference system of the job's GPS groups is set.
#pragma once

#include "model/gps.h"
#include "services/dialog.h"

/// The reference system that was set for the job, for groups that have none of their own: it is one
/// of the job's settings. Empty: none.
tdk::WString KeptReferenceSystem();
void KeepReferenceSystem(const tdk::WString& crs);

/// Named "reference-system", with the key crs: AUTHORITY:CODE, as "EPSG:32632". OK refuses what is
/// no reference system of plane coordinates; an empty one is none.
class ReferenceSystemDialog : public Dialog {
 public:
  /// Starts with the system of the first group that has one, else with the one that is kept.
  ReferenceSystemDialog(CWnd* parent, const CLibGps& library);
  const tdk::WString& Crs() const { return crs_; }

  std::string_view Name() const override { return "reference-system"; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override { return {"OK", "Cancel"}; }
  std::optional<int> Press(std::string_view button) override;

 private:
  CWnd* parent_;
  tdk::WString crs_;
};
