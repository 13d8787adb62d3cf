// How windows look on a handheld.
#pragma once

#include <QWidget>

#include "apps/desktop/dialogs/dialog_shape.h"

/// Makes the controls of a window high enough for a finger, and the window as large as the screen.
/// Nothing on a desktop.
void DressForHandheld(QWidget& window, const DialogShape& shape);
