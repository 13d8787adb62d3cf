// Angles as text, in the unit that the job's settings choose.
#pragma once

#include "tdk/wstring.h"

enum class AngleUnit { kGon = 0, kDecimalDegrees = 1, kSexagesimal = 2 };

/// Total-station angles. The unit is the setting "UnitaAngoli" of section "Misure"; a value out of
/// its range is gon.
class CMeasureSystem {
 public:
  static AngleUnit GetAngleUnit();

  /// An angle in gon as text: gon with 4 decimals, degrees with 5, or degrees, minutes and seconds
  /// with 1. An undefined angle gives empty text.
  static tdk::WString GetTsAngleString(double gon);
  /// The reverse; empty text gives an undefined angle.
  static double GetTsAngleValueCent(const tdk::WString& text);
};

/// An angle in degrees as "gg°mm'ss.s": the seconds are rounded first, and a full minute or degree
/// is carried on.
tdk::WString SexagesimalText(double degrees, int decimals);
