// Looks at DXF files with programs of others.
#pragma once

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>
#include <string>

#include "run_kalvio.h"

namespace dxf_writer_test {

// Tells what an independent library finds in a drawing: its errors and repairs, how many entities
// there are of each kind on each layer, and the texts. Names are made whole where it leaves
// escapes.
inline constexpr const char* kAuditProgram = R"(
import collections, json, re, sys
import ezdxf
from ezdxf import recover
def whole(text):
    units = re.sub(r'\\U\+([0-9A-F]{4})', lambda m: chr(int(m[1], 16)), text)
    return units.encode('utf-16-le', 'surrogatepass').decode('utf-16-le')
found = {}
doc, tolerant = recover.readfile(sys.argv[1])
audits = [tolerant, doc.audit()]
if sys.argv[2] == 'strict':
    audits.append(ezdxf.readfile(sys.argv[1]).audit())
found['errors'] = [e.message for a in audits for e in a.errors]
# It takes the end of a sequence in a block of R12 for stray, in its own files as well.
known = re.compile(r'Deleted SEQEND\(#\w+\) entity with invalid owner handle #None\.')
found['fixes'] = [e.message for a in audits for e in a.fixes
                  if doc.dxfversion != 'AC1009' or not known.fullmatch(e.message)]
space = doc.modelspace()
found['kinds'] = collections.Counter(e.dxftype() + ' ' + whole(e.dxf.layer) for e in space)
found['texts'] = [whole(e.dxf.text) for e in space.query('TEXT')]
found['multiline'] = [whole(e.plain_text()) for e in space.query('MTEXT')]
found['attributes'] = [[a.dxf.tag, a.dxf.text, list(a.dxf.insert)]
                       for e in space.query('INSERT') for a in e.attribs]
found['layers'] = {whole(l.dxf.name): [l.dxf.color, l.is_off(), l.is_locked()] for l in doc.layers
                   if l.dxf.name != 'Defpoints'}  # the library's own
found['blocks'] = [whole(b.name) for b in doc.blocks if not b.is_any_layout]
print(json.dumps(found))
)";

// The interpreter that has the library: a second one may stand before it in the path.
inline const std::string& Python() {
  static const std::string python = [] {
    for (const char* const name : {"python3", "/usr/bin/python3"}) {
      if (e2e::RunProgram("sh", {"-c", std::string(name) + " -c 'import ezdxf'"}).status == 0) {
        return std::string(name);
      }
    }
    return std::string();
  }();
  return python;
}

inline bool HasGeometryReader() {
  static const bool has = e2e::RunProgram("sh", {"-c", "command -v ogrinfo"}).status == 0;
  return has;
}

/// What the library finds, which must be neither errors nor repairs. `how`: "strict" or "tolerant";
/// the strict way knows no escapes in names of layers.
inline nlohmann::json Audit(const std::string& path, const std::string& how) {
  const e2e::Outcome run = e2e::RunProgram(Python(), {"-c", kAuditProgram, path, how});
  EXPECT_EQ(run.status, 0) << run.err;
  nlohmann::json found = nlohmann::json::parse(run.out, nullptr, /*allow_exceptions=*/false);
  EXPECT_TRUE(found.is_object()) << run.out;
  if (!found.is_object()) return {};
  EXPECT_EQ(found["errors"], nlohmann::json::array());
  EXPECT_EQ(found["fixes"], nlohmann::json::array());
  return found;
}

}  // namespace dxf_writer_test
