// Pictures of every window.
#pragma once

#include <QStringList>

/// Of every dialog, of the main window, and of the main window with each of the jobs, by their
/// paths. Writes them as PNG files into a folder that is made; 0, or 1 when a picture cannot be
/// written.
int TakeScreenshots(const QString& folder, const QStringList& jobs);
