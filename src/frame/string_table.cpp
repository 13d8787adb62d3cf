#include "frame/string_table.h"

#include <array>

#include "services/translate.h"

namespace frame {

std::span<const tdk::StringEntry> StringTable() {
  static constexpr std::array kTable = std::to_array<tdk::StringEntry>({
      {kTextWarning, ToXlate("Warning")},
      {kTextShapeFile, ToXlate("Shape file")},
      {kTextShapeImported, ToXlate("File imported successfully")},
      {kTextShapeTableRenamed, ToXlate("The table has been renamed in \"{1}\"")},
      {kTextShapeNotFound, ToXlate("Impossible to read data\r\nFile {1} not found")},
      {kTextShapeInconsistent,
       ToXlate("Unable to read file!\r\nThe file contains inconsistent data")},
      {kTextShapeTablePresent,
       ToXlate("Impossible to read data!\r\nTable already present in the GIS data.")},
      // Italian at its beginning, as it has always been.
      {kTextShapeThemePresent,
       ToXlate("Impossibile leggere i dati!\r\nTheme already present in the GIS data.")},
      {kTextError, ToXlate("Error !")},
      // Versions of drawing files.
      {1801, ToXlate("DWG AutoCAD 2000(*.DWG)")},
      {1802, ToXlate("DWG AutoCAD R14(*.DWG)")},
      {1803, ToXlate("DXF AutoCAD 2000(*.DXF)")},
      {1804, ToXlate("DXF AutoCAD R12/LT2(*.DXF)")},
      // Fields of a full GPS export, by their codes; angle formats; fields of a full total-station
      // export. Spelled as they have always been.
      {1808, ToXlate("Name")},
      {1809, ToXlate("Descr.")},
      {1810, ToXlate("Comment")},
      {1811, ToXlate("Latitude")},
      {1812, ToXlate("Longitude")},
      {1813, ToXlate("Ellips. Height")},
      {1814, ToXlate("Geoc. X Ground Meas.")},
      {1815, ToXlate("Geoc. Y Ground Meas.")},
      {1816, ToXlate("Geoc. Z Ground Meas.")},
      {1817, ToXlate("Antenna Height")},
      {1818, ToXlate("Geoc. X Ground WGS84")},
      {1819, ToXlate("Geoc. Y Ground WGS84")},
      {1820, ToXlate("Geoc. Z Ground WGS84")},
      {1821, ToXlate("Quality")},
      {1822, ToXlate("North")},
      {1823, ToXlate("East")},
      {1824, ToXlate("Elev.")},
      {1825, ToXlate("RMS Horiz.")},
      {1826, ToXlate("RMS Vert.")},
      {1827, ToXlate("Date")},
      {1828, ToXlate("Day seconds")},
      {1829, "-----"},
      {1836, ToXlate("Sexagesimal ( gg°mm'ss.ddddd )")},
      {1837, ToXlate("Sexagesimal ( gg mm ss.ddddd  )")},
      {1838, ToXlate("Sexagesimal ( gg.mmssddddd ) - Verto")},
      {1839, ToXlate("Sessadecimali ( gg.ddddddddd )")},
      {1840, ToXlate("Grads ( gg.ddddddddd )")},
      {1841, ToXlate("Degrees Minutes Decimals (gg.ppddddddd)")},
      {1870, ToXlate("Name")},
      {1871, ToXlate("Descr.")},
      {1872, ToXlate("Comment")},
      {1873, ToXlate("Horiz. Angle")},
      {1874, ToXlate("Vert. Angle")},
      {1875, ToXlate("Slope Dist.")},
      {1876, ToXlate("Horiz. Dist.")},
      {1877, ToXlate("Difference in level")},
      {1878, ToXlate("Reflector height")},
      {1879, ToXlate("C.North - Comp.")},
      {1880, ToXlate("C.East - Comp.")},
      {1881, ToXlate("Elev. - Comp.")},
      {1882, ToXlate("C.Noth - Sing.Pt")},
      {1883, ToXlate("C.East - Sing.Pt")},
      {1884, ToXlate("Elev. - Sing.Pt")},
      {1885, ToXlate("Date - DD-MM-YYYY")},
      {1886, ToXlate("Date - DD/MM/YYYY")},
      {1887, ToXlate("Time - HH-MM-SS")},
      {1888, ToXlate("Time - HH:MM:SS")},
      {1889, ToXlate("Time - Day seconds")},
      {1890, ToXlate("Reflect. const.")},
      {1891, "-----"},
  });
  return kTable;
}

}  // namespace frame
