// The pages on which the user chooses what goes into a LandXML file.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "formats/landxml/landxml_selection.h"
#include "model/exchange_context.h"
#include "services/dialog.h"
#include "ui/check_list.h"

namespace ui {

/// One page: lists of items with check boxes.
class LandXmlPage : public Dialog {
 public:
  static constexpr int kBack = 100;
  static constexpr int kForward = 101;

  /// `name` for scripts, `title` untranslated.
  LandXmlPage(std::string name, const char* title, std::vector<CheckList> lists);

  const CheckList& List(std::size_t position) const { return lists_[position]; }

  std::string_view Name() const override { return name_; }
  tdk::WString Title() const override;
  DialogState State() const override;
  DialogSet Set(std::string_view key, const DialogState& value) override;
  std::vector<std::string_view> Buttons() const override;
  std::optional<int> Press(std::string_view button) override;

 private:
  std::string name_;
  const char* title_;
  std::vector<CheckList> lists_;
};

/// The pages "Survey", "Triangulation" and "Road Projects", in this order.
class LandXmlWizard {
 public:
  /// Lists what `document` holds; it must outlive the wizard.
  explicit LandXmlWizard(ExchangeContext& document);

  /// Shows the pages until one ends the wizard, which is what "Cancel" does: the choice then stands
  /// as it is.
  void Run(CWnd* parent);

  /// Libraries and checked items; the path is left empty.
  landxml::LandXmlSelection Selection() const;

 private:
  ExchangeContext& document_;
  std::array<LandXmlPage, 3> pages_;
};

}  // namespace ui
