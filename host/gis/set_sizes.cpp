#include "host/gis/set_sizes.h"

#include "model/shape_files.h"
#include "services/translate.h"

namespace shape {
namespace {

bool IsTooLarge(std::uint64_t size, const char* extension, Remarks& remarks) {
  if (size > kLargestFile) {
    Remark(remarks, ToXlate("a {1} file of more than 4 GB cannot be"), {extension});
    return true;
  }
  if (size > kLargestCommonFile) {
    Remark(remarks, ToXlate("its {1} file has more than 2 GB, which many programs cannot read"),
           {extension});
  }
  return false;
}

}  // namespace

int CheckSizes(const SetSizes& sizes, Remarks& remarks) {
  int tooLarge = 0;
  if (IsTooLarge(sizes.shp, ".shp", remarks)) tooLarge |= kShapeFileFailed;
  if (IsTooLarge(sizes.dbf, ".dbf", remarks)) tooLarge |= kShapeTableFailed;
  if (sizes.mostVertices > kMostCommonVertices) {
    Remark(remarks, ToXlate("a shape has more than 50 million vertices, which many programs "
                            "cannot read"));
  }
  return tooLarge;
}

}  // namespace shape
