// Message boxes of the host.
#pragma once

#include "services/window.h"

inline constexpr unsigned kBoxYesNo = 4;
inline constexpr unsigned kBoxExclamation = 48;
inline constexpr unsigned kBoxInformation = 64;

inline constexpr int kAnswerOk = 1;
inline constexpr int kAnswerYes = 6;
inline constexpr int kAnswerNo = 7;

/// Shows a message box over `parent`; caption and text as they are to be read (already translated).
/// Returns the code of the button: kAnswerOk, or kAnswerYes or kAnswerNo when `flags` has
/// kBoxYesNo. Without views nothing is shown, and a question is answered No.
int CreateMessageBox(CWnd* parent, const tdk::WString& caption, const tdk::WString& text,
                     unsigned flags);
