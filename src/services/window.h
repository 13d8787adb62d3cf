// What a host hands in as the parent window, and the user interface it leads to.
#pragma once

#include <cstdint>

#include "tdk/wstring.h"

class Dialog;

/// Something a reader or writer had to leave out, or do otherwise than the file says.
struct ExchangeNote {
  tdk::WString path;       ///< the file it concerns
  std::uint64_t line = 0;  ///< counted from 1; 0: no line
  tdk::WString text;       ///< in the user's language
};

/// The user interface of a host: real windows, or answers from a script. The module has none of its
/// own.
class HostViews {
 public:
  virtual ~HostViews();

  /// Shows `dialog` and drives it until it closes; returns the code it closed with.
  virtual int ShowDialog(Dialog& dialog) = 0;
  /// Shows a message box; returns the code of the button (see message_box.h).
  virtual int ShowMessage(const tdk::WString& caption, const tdk::WString& text,
                          unsigned flags) = 0;
  virtual void StartWait() = 0;
  virtual void EndWait() = 0;

  /// Told how far a long exchange has come; `total` 0: not known.
  virtual void ShowProgress(std::uint64_t done, std::uint64_t total);
  /// Told what was left out. Exchanges that say nothing by message box say it here.
  virtual void TakeNote(const ExchangeNote& note);
};

class CWnd;
/// A window's handle. In this host a window is its own.
using HWND = CWnd*;

/// The parent window of an exchange.
class CWnd {
 public:
  /// `views` is not owned and may be null: then nothing is shown and every dialog is cancelled.
  explicit CWnd(HostViews* views) : views_(views) {}
  HostViews* GetViews() const { return views_; }
  HWND GetSafeHwnd() { return this; }

 private:
  HostViews* views_;
};
