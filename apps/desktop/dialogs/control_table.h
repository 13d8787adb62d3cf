// What each dialog shows, control by control.
#pragma once

#include <QString>
#include <nlohmann/json.hpp>
#include <span>
#include <string_view>
#include <vector>

#include "services/dialog.h"

/// One entry of a list to choose from: its text, and what it is called by the presenter.
struct Choice {
  QString text;
  DialogState value;
};

enum class ControlKind {
  kHeading,    ///< a text alone
  kText,       ///< a line to type into
  kShown,      ///< a line to read
  kNumber,     ///< a whole number with arrows
  kCombo,      ///< a list that drops down
  kRadio,      ///< a button for each choice
  kCheck,      ///< a flag
  kList,       ///< a list of names, of which one is chosen
  kCheckList,  ///< a list of names with a check box each
  kColumns,    ///< a combo for each column of a file, and a number beside it
  kPress,      ///< presses a button of the dialog from within its contents
  kFile,       ///< a folder with its files, and a name
  kFolder,     ///< a folder with the folders in it
  kPreview     ///< the first points of the file as they would be read
};

using ChoicesOf = std::vector<Choice> (*)(const DialogState& state);
using TestOf = bool (*)(const DialogState& state);
using TextOf = const char* (*)(const DialogState& state);

/// One control. Its key is its object name and, where `sets` is null, what the user's input is put
/// into. Texts are untranslated.
struct ControlRow {
  const char* key;
  ControlKind kind;
  const char* label = "";
  const char* group = "";       ///< the frame that it stands in; rows of one stand together
  ChoicesOf choices = nullptr;  ///< what there is to choose from
  TestOf isShown = nullptr;     ///< null: always
  TestOf isEnabled = nullptr;   ///< null: always
  TextOf labelOf = nullptr;     ///< for a label that depends on the state
  const char* sets = nullptr;   ///< the key of the input, where it is another one
  int least = 0;                ///< how far the arrows of a number go
  int most = 0;
  const char* numbers = nullptr;  ///< columns: the key of the numbers beside them, if any
  const char* numberLabel = "";
  int pages = 1;  ///< columns: on how many tabs

  const char* Input() const { return sets == nullptr ? key : sets; }
};

struct DialogRow {
  std::string_view name;
  std::span<const ControlRow> controls;
};

/// The row of a dialog by its name; null for a dialog that is not known.
const DialogRow* FindDialogRow(std::string_view name);
std::span<const DialogRow> DialogTable();
