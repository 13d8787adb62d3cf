// The formats, one row each.
#pragma once

#include <span>
#include <string>

#include "counts.h"

/// Whether this version exchanges a format in one direction.
enum class Exchanged {
  kNow,
  kNotYet,
  kNever  ///< no version reads it
};

struct FormatRow {
  const char* extension;
  const char* name;
  Exchanged read;
  Exchanged written;
  const char* importFunction;  ///< null when the module never reads it
  const char* exportFunction;
  Carried carried;           ///< what of a job such a file holds
  bool isPointList = false;  ///< it holds points of one kind, laid out by options
  /// Its export says by message box alone that it failed.
  bool messageIsFailure = false;
};

std::span<const FormatRow> FormatTable();

/// The format of a path by its extension, letter case ignored; null for an unknown one.
const FormatRow* FindFormat(const std::string& path);
/// Throws Failure (bad usage), which names the known formats, for an unknown one.
const FormatRow& FormatOf(const std::string& path);
/// Throws Failure for a path that is neither a known format nor there: a name that is not there is
/// told as such before its extension is looked at.
void CheckThere(const std::string& path);
/// Each throws Failure when this version cannot do that.
void CheckReadable(const std::string& path);
void CheckWritable(const std::string& path);
