// How windows look on a handheld.
#pragma once

#include <QBoxLayout>
#include <QDialog>

#include "apps/desktop/dialogs/dialog_shape.h"

/// Makes all windows of the program look as the screen needs it: on a handheld every control is
/// high enough for a finger; on a desktop they are as its own style has them. To be called before
/// the windows are made.
void UseStyleFor(const DialogShape& shape);

/// On a handheld: makes a dialog as large as the screen and puts its title, for which there is no
/// frame, above all else in its layout. Nothing on a desktop.
void FillScreen(QDialog& dialog, QBoxLayout& layout, const DialogShape& shape);
