#include "frame/exchanges.h"
#include "frame/file_exchange.h"
#include "platform/code_page.h"
#include "services/cts_out_dat_string.h"

namespace frame {
namespace {

// Of a year with more than two characters, what comes after the first two; then the number that the
// survey is filed under.
tdk::WString InitialName(const CCts& cadastre) {
  constexpr std::size_t kCentury = 2;
  const tdk::WString year = cadastre.GetAnno();
  std::string_view rest = year.ToUtf8();
  if (year.Length() > kCentury) {
    for (std::size_t i = 0; i < kCentury; ++i) platform::TakeCodePoint(rest);
  }
  return tdk::WString(rest) + cadastre.GetProt();
}

}  // namespace

int ExportDat(CWnd* parent, ExchangeContext& document) {
  CCts* const cadastre = document.GetCts();
  CLibCmp* const surveys = document.GetLibCmp();
  CLibGps* const gps = document.GetLibGps();
  if (cadastre == nullptr || surveys == nullptr || gps == nullptr) return 0;
  // The one title that is the same in every language.
  const auto path =
      AskForFile(parent, "Esporta file Pregeo", "dat", Direction::kExport, InitialName(*cadastre));
  if (!path) return 0;
  CCtsOutDatString(parent->GetSafeHwnd(), cadastre, surveys, gps).WriteFileText(*path);
  return 1;
}

}  // namespace frame
