// A DXF document with something of everything in it, as "CODE VALUE" lines.
#pragma once

#include <string>

#include "tests/support/dxf_reading.h"

namespace dxf_test {

inline const std::string kFullTables =
    "0 TABLE\n2 LTYPE\n70 1\n0 LTYPE\n2 CONTINUOUS\n70 0\n3 Solid line\n72 65\n73 0\n40 0\n0 "
    "ENDTAB\n"
    "0 TABLE\n2 LAYER\n70 3\n0 LAYER\n5 2F\n102 {ACAD_REACTORS\n330 2\n102 }\n330 2\n"
    "100 AcDbSymbolTableRecord\n100 AcDbLayerTableRecord\n2 Walls\n70 0\n62 3\n6 CONTINUOUS\n"
    "0 LAYER\n2 Off\n70 4\n62 -5\n290 0\n370 -3\n0 LAYER\n2 Cit\\U+00E0\n70 1\n62 7\n0 ENDTAB\n";

inline const std::string kFullBlocks =
    "0 BLOCK\n8 0\n2 *Model_Space\n70 0\n10 0\n20 0\n30 0\n3 *Model_Space\n0 ENDBLK\n8 0\n"
    "0 BLOCK\n67 1\n8 0\n2 *Paper_Space\n70 0\n10 0\n20 0\n30 0\n0 POINT\n67 1\n8 0\n10 1\n20 2\n"
    "0 ENDBLK\n67 1\n8 0\n"
    "0 BLOCK\n8 0\n2 Tree\n70 2\n10 1\n20 2\n30 0\n0 CIRCLE\n8 0\n62 0\n10 0\n20 0\n40 2\n"
    "0 ATTDEF\n8 0\n10 1\n20 2\n40 2.5\n1 none\n3 Number\n2 NUM\n70 0\n0 ATTDEF\n8 0\n10 1\n20 3\n"
    "40 1\n1 same\n2 C\n70 2\n0 INSERT\n8 0\n2 Leaf\n10 1\n20 1\n0 INSERT\n8 0\n2 Tree\n10 1\n"
    "0 ENDBLK\n8 0\n0 BLOCK\n8 0\n2 Leaf\n70 0\n10 0\n20 0\n30 0\n0 SOLID\n8 0\n10 0\n20 0\n11 1\n"
    "21 0\n12 0\n22 1\n0 ENDBLK\n8 0\n";

inline const std::string kFullEntities =
    "0 POINT\n5 31\n330 1F\n100 AcDbEntity\n8 Walls\n100 AcDbPoint\n10 1.5\n20 2.5\n30 3.5\n"
    "1001 APP\n1000 text\n1010 1\n1020 2\n1030 3\n1040 1.5\n1070 7\n1071 70000\n1004 00FF\n"
    "0 LINE\n8 Off\n62 5\n10 0\n20 0\n30 0\n11 10\n21 5\n31 1\n"
    "0 LWPOLYLINE\n8 Walls\n90 3\n70 1\n38 7\n43 0.1\n10 0\n20 0\n42 0.5\n10 10\n20 0\n10 5\n20 5\n"
    "210 0\n220 0\n230 -1\n"
    "0 POLYLINE\n8 0\n66 1\n10 0\n20 0\n30 2\n70 0\n0 VERTEX\n8 0\n10 1\n20 2\n42 1\n0 VERTEX\n8 "
    "0\n"
    "10 3\n20 4\n0 SEQEND\n8 0\n"
    "0 POLYLINE\n8 0\n66 1\n70 8\n0 VERTEX\n10 1\n20 2\n30 3\n70 32\n0 VERTEX\n10 4\n20 5\n30 6\n"
    "70 32\n0 SEQEND\n"
    "0 POLYLINE\n8 0\n66 1\n70 16\n71 2\n72 2\n0 VERTEX\n10 0\n20 0\n70 64\n0 VERTEX\n10 0\n20 1\n"
    "70 64\n0 VERTEX\n10 1\n20 0\n70 64\n0 VERTEX\n10 1\n20 1\n70 64\n0 SEQEND\n"
    "0 POLYLINE\n8 0\n66 1\n70 64\n71 3\n72 1\n0 VERTEX\n10 0\n20 0\n70 192\n0 VERTEX\n10 0\n20 1\n"
    "70 192\n0 VERTEX\n10 1\n20 0\n70 192\n0 VERTEX\n70 128\n71 1\n72 -2\n73 3\n0 SEQEND\n"
    "0 CIRCLE\n8 0\n10 1\n20 2\n40 3\n210 0\n220 -1\n230 0\n0 CIRCLE\n8 0\n10 1\n20 2\n40 3\n"
    "0 ARC\n8 0\n10 1\n20 2\n40 3\n50 10\n51 100\n210 0\n220 0\n230 -1\n"
    "0 ELLIPSE\n8 0\n10 1\n20 2\n30 0\n11 3\n21 0\n31 0\n40 0.5\n41 0\n42 3\n"
    "0 TEXT\n8 Cit\\U+00E0\n10 1\n20 2\n40 2.5\n1 45%%d ^ \\U+00E0\n50 30\n72 1\n11 3\n21 4\n73 2\n"
    "0 MTEXT\n8 0\n10 1\n20 2\n40 2.5\n71 1\n3 {\\fArial;one}\n1 \\Ptwo \\S1/2;\n11 1\n21 1\n44 1\n"
    "101 Embedded Object\n10 5\n"
    "0 3DFACE\n8 0\n10 0\n20 0\n11 1\n21 0\n12 1\n22 1\n13 0\n23 1\n70 1\n"
    "0 SOLID\n8 0\n10 0\n20 0\n11 1\n21 0\n12 0\n22 1\n13 1\n23 1\n"
    "0 TRACE\n8 0\n10 0\n20 0\n11 1\n21 0\n12 0\n22 1\n13 1\n23 1\n"
    "0 INSERT\n8 0\n66 1\n2 Tree\n10 5\n20 6\n41 2\n42 2\n43 2\n50 45\n70 2\n71 2\n44 10\n45 10\n"
    "0 ATTRIB\n8 0\n10 1\n20 2\n40 2.5\n1 seven\n2 NUM\n70 0\n0 SEQEND\n8 0\n"
    "0 INSERT\n8 0\n2 nothing\n10 5\n20 6\n"
    "0 SPLINE\n8 0\n70 8\n71 2\n72 6\n73 3\n74 0\n40 0\n40 0\n40 0\n40 1\n40 1\n40 1\n10 0\n20 0\n"
    "10 1\n20 2\n10 2\n20 0\n0 SPLINE\n8 0\n71 3\n11 0\n21 0\n31 0\n11 1\n21 1\n31 1\n"
    "0 HATCH\n8 0\n10 0\n2 SOLID\n91 1\n160 5\n290 1\n420 5\n0 POINT\n67 1\n8 0\n10 1\n"
    "0 POINT\n60 1\n8 0\n10 1\n";

/// All of it, with `header` at its beginning.
inline std::string FullDocument(const std::string& header = Header("AC1015", "ANSI_1252")) {
  return header + Section("CLASSES", "0 CLASS\n1 X\n2 Y\n90 0\n280 1\n") +
         Section("TABLES", kFullTables) + Section("BLOCKS", kFullBlocks) +
         Section("ENTITIES", kFullEntities) +
         Section("OBJECTS", "0 DICTIONARY\n5 C\n330 0\n281 1\n310 00FF\n") + kEnd;
}

}  // namespace dxf_test
