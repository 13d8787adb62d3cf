// Pictures of every window.
#pragma once

#include <QString>

/// Writes them as PNG files into a folder that is made; 0, or 1 when a picture cannot be written.
int TakeScreenshots(const QString& folder, const QStringList& jobs);
