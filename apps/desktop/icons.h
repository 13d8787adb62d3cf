// The program's own icons: line drawings in the colours of the user's desktop.
#pragma once

#include <QIcon>

enum class Picture {
  kNew,
  kOpen,
  kSave,
  kImport,
  kExport,
  kUndo,
  kCompute,
  kFit,
  kZoomIn,
  kZoomOut,
  kTree,
  kTable,
  kPlan,
  kLayers,
  kBook,
  kGroup,
  kTerrain,
  kRoad,
  kTheme
};

/// Drawn at any size, in the colour of texts.
QIcon IconOf(Picture picture);

/// The program's own: that of the desktop's theme when the program is installed.
QIcon ProgramIcon();
