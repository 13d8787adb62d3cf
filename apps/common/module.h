// The exchange module, loaded as any host loads it.
#pragma once

#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "model/exchange_context.h"
#include "services/window.h"

/// What some functions take besides the document.
struct CallOptions {
  tdk::WString applicationName;
  tdk::WString applicationVersion;
};

struct CallResult {
  std::optional<int> value;          ///< nothing: the function returns nothing
  std::optional<tdk::WString> path;  ///< of an image import that was confirmed
};

/// The names of the sixteen functions.
std::span<const std::string_view> ModuleFunctions();
bool IsModuleFunction(std::string_view name);

class Module {
 public:
  /// Loads the module: the file that KALVIO_MODULE names, else the one installed with this program.
  /// Throws Failure.
  Module();
  ~Module();
  Module(const Module&) = delete;
  Module& operator=(const Module&) = delete;

  /// Calls an exported function by its name.
  CallResult Call(const std::string& name, CWnd& parent, ExchangeContext& document,
                  const CallOptions& options = {}) const;

 private:
  void* library_;
};
