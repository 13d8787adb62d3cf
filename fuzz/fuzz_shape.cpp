// Whatever a set of Shape files holds, it is loaded whole or refused whole, and what was loaded can
// be written and read again with as many features and fields.
#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>
#include <string_view>

#include "host/gis/link_points.h"
#include "host/gis/shape_files.h"

namespace {

// A folder in memory, where there is one; the same for all inputs.
class Folder {
 public:
  Folder() {
    std::string pattern =
        std::filesystem::exists("/dev/shm") ? "/dev/shm/fuzz-XXXXXX" : "/tmp/fuzz-XXXXXX";
    if (mkdtemp(pattern.data()) == nullptr) std::abort();
    path_ = pattern;
    std::filesystem::create_directory(File("out"));
  }
  ~Folder() { std::filesystem::remove_all(path_); }
  std::string File(std::string_view name) const { return path_ + "/" + std::string(name); }
  void Write(std::string_view name, std::string_view bytes) const {
    std::ofstream(File(name), std::ios::binary)
        .write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
  }

 private:
  std::string path_;
};

// An input is three files: how long the first two are stands in its first four bytes.
struct Parts {
  std::string_view shp;
  std::string_view dbf;
  std::string_view shx;

  explicit Parts(std::string_view input) {
    const auto byte = [&](std::size_t i) {
      return i < input.size() ? static_cast<unsigned char>(input[i]) : std::size_t{0};
    };
    const std::size_t first = byte(0) | byte(1) << 8;
    const std::size_t second = byte(2) | byte(3) << 8;
    input.remove_prefix(std::min<std::size_t>(4, input.size()));
    shp = input.substr(0, first);
    input.remove_prefix(shp.size());
    dbf = input.substr(0, second);
    shx = input.substr(dbf.size());
  }
};

bool Import(ShapeFiles& files, const std::string& path, gis::CLibGis& library,
            gis::ILinkImportedEnt* link) {
  return files.Import({&library, tdk::WString(path), link, nullptr, {true, 0, 1}}).isDone;
}

void WriteAndReadAgain(ShapeFiles& files, const Folder& folder, const gis::CTheme& theme) {
  struct Yes : IExportFileCallback {
    bool OnOverwriteFile(const tdk::WString&) override { return true; }
  } yes;
  if (!files.Export({&theme, tdk::WString(folder.File("out/")), 254, kShapeAsTheme, &yes}).isDone) {
    return;  // too many fields
  }
  gis::CLibGis again;
  if (!Import(files, folder.File("out/in.shp"), again, nullptr)) std::abort();
  const gis::CTheme& copy = *again.GetTheme(0);
  if (copy.GetNumFeatures() != theme.GetNumFeatures()) std::abort();
  if (copy.GetNumVertices() < theme.GetNumVertices()) std::abort();
  const int fields = theme.GetTable()->GetNumFields();
  if (copy.GetTable()->GetNumFields() != std::max(1, fields)) std::abort();
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const Folder folder;
  const Parts parts(std::string_view(reinterpret_cast<const char*>(data), size));
  folder.Write("in.shp", parts.shp);
  folder.Write("in.dbf", parts.dbf);
  folder.Write("in.shx", parts.shx);
  ShapeFiles files;
  gis::CLibGis library;
  CLibPnt known;
  KnownPointLink link(known);
  if (Import(files, folder.File("in.shp"), library, &link)) {
    WriteAndReadAgain(files, folder, *library.GetTheme(0));
  } else if (library.GetNumThemes() != 0 || library.GetNumTables() != 0) {
    std::abort();
  }
  return 0;
}
