// The exchange module as a host loads it.
#pragma once

#include <dlfcn.h>
#include <gtest/gtest.h>

#include "frame/exports.h"

namespace exchange_test {

/// The module, loaded for as long as this lives.
class LoadedModule {
 public:
  LoadedModule() : handle_(::dlopen(KALVIO_MODULE_PATH, RTLD_NOW | RTLD_LOCAL)) {
    if (handle_ == nullptr) ADD_FAILURE() << ::dlerror();
  }
  ~LoadedModule() {
    if (handle_ != nullptr) ::dlclose(handle_);
  }
  LoadedModule(const LoadedModule&) = delete;
  LoadedModule& operator=(const LoadedModule&) = delete;

  bool IsLoaded() const { return handle_ != nullptr; }

  /// The exported function of that name; null, and a failure of the test, when there is none.
  template <class Function>
  Function* Find(const char* name) const {
    void* const symbol = handle_ == nullptr ? nullptr : ::dlsym(handle_, name);
    if (symbol == nullptr) ADD_FAILURE() << "the module does not export " << name;
    return reinterpret_cast<Function*>(symbol);
  }

  /// Whether the module is in this process now.
  static bool IsInMemory() {
    void* const handle = ::dlopen(KALVIO_MODULE_PATH, RTLD_NOW | RTLD_NOLOAD);
    if (handle != nullptr) ::dlclose(handle);
    return handle != nullptr;
  }

 private:
  void* handle_;
};

/// The sixteen functions.
struct Exports {
  explicit Exports(const LoadedModule& module)
      : importImage(module.Find<decltype(FImportImageFile)>("FImportImageFile")),
        importJb2(module.Find<decltype(FImportJB2File)>("FImportJB2File")),
        importJb3(module.Find<decltype(FImportJB3File)>("FImportJB3File")),
        importTxt(module.Find<decltype(FImportTXTFile)>("FImportTXTFile")),
        importCsv(module.Find<decltype(FImportCSVFile)>("FImportCSVFile")),
        importDrawing(module.Find<decltype(FImportDXFDWGFile)>("FImportDXFDWGFile")),
        exportJb2(module.Find<decltype(FExportJB2File)>("FExportJB2File")),
        exportJb3(module.Find<decltype(FExportJB3File)>("FExportJB3File")),
        exportTxt(module.Find<decltype(FExportTXTFile)>("FExportTXTFile")),
        exportCsv(module.Find<decltype(FExportCSVFile)>("FExportCSVFile")),
        exportDrawing(module.Find<decltype(FExportDXFDWGFile)>("FExportDXFDWGFile")),
        exportDat(module.Find<decltype(FExportDATFile)>("FExportDATFile")),
        exportShape(module.Find<decltype(FExportEntInFileShape)>("FExportEntInFileShape")),
        importShape(module.Find<decltype(FImportEntFromFileShape)>("FImportEntFromFileShape")),
        exportLandXml(module.Find<decltype(FExportLandXMLFile)>("FExportLandXMLFile")),
        dummy(module.Find<decltype(DummyVexa4modExport)>("DummyVexa4modExport")) {}

  decltype(&FImportImageFile) importImage;
  decltype(&FImportJB2File) importJb2;
  decltype(&FImportJB3File) importJb3;
  decltype(&FImportTXTFile) importTxt;
  decltype(&FImportCSVFile) importCsv;
  decltype(&FImportDXFDWGFile) importDrawing;
  decltype(&FExportJB2File) exportJb2;
  decltype(&FExportJB3File) exportJb3;
  decltype(&FExportTXTFile) exportTxt;
  decltype(&FExportCSVFile) exportCsv;
  decltype(&FExportDXFDWGFile) exportDrawing;
  decltype(&FExportDATFile) exportDat;
  decltype(&FExportEntInFileShape) exportShape;
  decltype(&FImportEntFromFileShape) importShape;
  decltype(&FExportLandXMLFile) exportLandXml;
  decltype(&DummyVexa4modExport) dummy;
};

}  // namespace exchange_test
