// Angles in the notations that full exports offer.
#pragma once

#include "tdk/wstring.h"

double AngRadiFromCent(double gon);

/// Radians in decimal degrees, and in gon.
double AngSesdFromRadi(double radians);
double AngCentFromRadi(double radians);
/// Radians as gg.mmss…: two digits of minutes and two of seconds follow the point.
double AngSesgVertoFromRadi(double radians);
/// Radians as gg.pp…: two digits of minutes follow the point, then their decimals.
double AngGraPriDcPFromRadi(double radians);

/// Radians as gg°mm'ss.s, and as "gg mm ss.s", with that many decimals of a second. An undefined
/// angle gives empty text.
tdk::WString StrAngSesgFromRadi(double radians, int decimals);
tdk::WString StrAngSesgNoSmbFromRadi(double radians, int decimals);
