#include "model/gis.h"

#include <algorithm>
#include <string>

#include "platform/letters.h"
#include "platform/numbers.h"

namespace gis {
namespace {

// Names become file names, and those of "A" and "a" are one file on many systems.
bool SameName(const tdk::WString& a, const tdk::WString& b) {
  return platform::AreSameInAnyLetters(a.ToUtf8(), b.ToUtf8());
}

template <class List>
auto Find(const List& list, const tdk::WString& name) {
  const auto found =
      std::ranges::find_if(list, [&](const auto& each) { return SameName(each->GetName(), name); });
  return found == list.end() ? nullptr : found->get();
}

template <class List>
auto At(const List& list, int position) -> decltype(list[0].get()) {
  if (position < 0 || static_cast<std::size_t>(position) >= list.size()) return nullptr;
  return list[static_cast<std::size_t>(position)].get();
}

template <class List, class Element>
Element* Take(List& list, std::unique_ptr<Element> element, bool may) {
  if (!may || Find(list, element->GetName()) != nullptr) return nullptr;
  return list.emplace_back(std::move(element)).get();
}

}  // namespace

CLibGis::CLibGis() = default;
CLibGis::~CLibGis() = default;

CTheme* CLibGis::GetTheme(int theme) const { return At(themes_, theme); }
CTheme* CLibGis::FindTheme(const tdk::WString& name) const { return Find(themes_, name); }
CTheme* CLibGis::AddTheme(std::unique_ptr<CTheme> theme, bool /*notify*/) {
  return Take(themes_, std::move(theme), MayAdd(AddedKind::kGisTheme, themes_.size()));
}

CTable* CLibGis::GetTable(int table) const { return At(tables_, table); }
CTable* CLibGis::FindTable(const tdk::WString& name) const { return Find(tables_, name); }
CTable* CLibGis::AddTable(std::unique_ptr<CTable> table, bool /*notify*/) {
  return Take(tables_, std::move(table), MayAdd(AddedKind::kGisTable, tables_.size()));
}
void CLibGis::RemoveTheme(const CTheme* theme) {
  std::erase_if(themes_, [theme](const auto& each) { return each.get() == theme; });
}
void CLibGis::RemoveTable(const CTable* table) {
  std::erase_if(tables_, [table](const auto& each) { return each.get() == table; });
}

IGisMerger::~IGisMerger() = default;
ILinkImportedEnt::~ILinkImportedEnt() = default;
CGisMerger::~CGisMerger() = default;

bool CGisMerger::OnBeforeLoadTable(tdk::WString& name) {
  const std::string wanted = name.ToUtf8();
  for (std::int64_t i = 1; library_->FindTable(name) != nullptr; ++i) {
    std::string free = wanted + "_";
    platform::AppendWhole(free, i);
    name = tdk::WString(std::move(free));
  }
  return true;
}

bool CGisMerger::OnAfterLoadTable(std::unique_ptr<CTable> table) {
  return library_->AddTable(std::move(table), false) != nullptr;
}

CTable* CGisMerger::GetTable(const tdk::WString& name) { return library_->FindTable(name); }

bool CGisMerger::OnLoadTheme(tdk::WString& name) { return library_->FindTheme(name) == nullptr; }

}  // namespace gis

IExportFileCallback::~IExportFileCallback() = default;
