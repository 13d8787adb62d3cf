// The shapes that dialogs take on screens of different sizes.
#pragma once

#include <QSize>

/// What a dialog is laid out for: how big its controls are and how its parts stand.
struct DialogShape {
  bool isHandheld = false;  ///< fills the screen, and its contents scroll
  bool isUpright = false;   ///< higher than wide: buttons stand below, not at the side
  int finger = 0;           ///< pixels that a control is high at least; 0: as the desktop has it
  int text = 0;             ///< pixels of the letters; 0: as the desktop has it
  QSize screen;             ///< of a handheld, pixels

  /// The same with its buttons below, for windows that have little else.
  DialogShape WithButtonsBelow() const;
};

/// The host's way to tell devices apart.
class CPalmDevice {
 public:
  /// The shape for a screen of so many pixels: one for each of 240 × 320, 320 × 240, 480 × 640 and
  /// 640 × 480 and what is about as big, and the desktop's for all larger ones.
  static DialogShape SelectIdDlgStd(QSize screen);
};
