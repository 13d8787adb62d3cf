// A screen of its own, and the program on it, worked by keys and the pointer as a user does.
#pragma once

#include <QGuiApplication>
#include <QImage>
#include <QProcess>
#include <QStringList>
#include <functional>

namespace desktop_test {

/// Starts an X server without hardware and makes it the one that this process shows on. Throws
/// std::runtime_error when it does not come up.
class Screen {
 public:
  Screen();
  ~Screen();
  Screen(const Screen&) = delete;
  Screen& operator=(const Screen&) = delete;

 private:
  QProcess server_;
};

/// A program with windows, on the screen.
class Shown {
 public:
  /// `folder`: its working directory and its user's settings.
  Shown(const QString& program, const QString& folder);
  ~Shown();
  Shown(const Shown&) = delete;
  Shown& operator=(const Shown&) = delete;

  /// Waits for a window with that title, other than the one that was waited for last, and makes it
  /// the one that keys go to. Throws std::runtime_error when it does not come.
  void Await(const QString& title);
  /// Keys by their names: "alt+i", "Return".
  void Press(const QStringList& keys);
  void Type(const QString& text);
  /// Pixels of the screen.
  void Click(int x, int y);
  /// What the program has put on the clipboard, once `isThere` says that it is what is waited for.
  QString Clipboard(const std::function<bool(const QString&)>& isThere);

 private:
  QStringList Windows(const QString& title);

  QProcess program_;
  QString window_;
};

/// What is on the screen.
QImage Photograph();
/// How many of its pixels have about that colour, 0xRRGGBB.
int CountOf(const QImage& picture, const QRect& part, QRgb color);

}  // namespace desktop_test
