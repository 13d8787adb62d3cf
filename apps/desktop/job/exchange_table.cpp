#include "apps/desktop/job/exchange_table.h"

#include <array>

#include "platform/paths.h"
#include "services/translate.h"

std::span<const ExchangeCommand> ExchangeTable() {
  static constexpr std::array kTable = std::to_array<ExchangeCommand>({
      {ToXlate("JB2 file import"), "FImportJB2File", "jb2", true},
      {ToXlate("JB3 file import"), "FImportJB3File", "jb3", true},
      {ToXlate("Text file import"), "FImportTXTFile", "txt", true},
      {ToXlate("Csv file import"), "FImportCSVFile", "csv", true},
      {ToXlate("LandXML file import"), nullptr, "xml", true},
      {ToXlate("Dxf/Dwg file import"), "FImportDXFDWGFile", "dxf;dwg", true},
      {ToXlate("Import of Shape file"), "FImportEntFromFileShape", "shp", true},
      {ToXlate("Image import"), "FImportImageFile", "bmp;tif;tiff;png;jpg;jpeg;jfif", true},
      {ToXlate("JB2 file export"), "FExportJB2File", "jb2", false},
      {ToXlate("JB3 file export"), "FExportJB3File", "jb3", false},
      {ToXlate("Text file export"), "FExportTXTFile", "txt", false},
      {ToXlate("Csv file export"), "FExportCSVFile", "csv", false},
      {ToXlate("LandXML file export"), "FExportLandXMLFile", "xml", false},
      {ToXlate("Dxf/Dwg file export"), "FExportDXFDWGFile", "dxf;dwg", false},
      {ToXlate("Export to Shape file"), "FExportEntInFileShape", "shp", false},
      {ToXlate("Cadastral DAT file export"), "FExportDATFile", "dat", false},
  });
  return kTable;
}

const ExchangeCommand* ImportOf(const std::string& path) {
  const std::string wanted = ';' + platform::Extension(path) + ';';
  if (wanted.size() == 2) return nullptr;
  for (const ExchangeCommand& command : ExchangeTable()) {
    const std::string known = ';' + std::string(command.extensions) + ';';
    if (command.isImport && known.find(wanted) != std::string::npos) return &command;
  }
  return nullptr;
}
