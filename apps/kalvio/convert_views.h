// A user interface that answers the dialogs of one exchange by itself.
#pragma once

#include <string>
#include <vector>

#include "drawing_options.h"
#include "landxml_parts.h"
#include "progress_line.h"
#include "services/dialog.h"
#include "services/window.h"
#include "text_options.h"

class ConvertViews : public HostViews {
 public:
  /// `path` is the file to exchange (absolute). The others are not owned.
  ConvertViews(std::string path, const TextOptions& options, const OutputOptions& output,
               ProgressLine& progress)
      : path_(std::move(path)), options_(options), output_(output), progress_(progress) {}

  int ShowDialog(Dialog& dialog) override;
  int ShowMessage(const tdk::WString& caption, const tdk::WString& text, unsigned flags) override;
  void StartWait() override {}
  void EndWait() override {}
  void ShowProgress(std::uint64_t done, std::uint64_t total) override {
    progress_.Show(done, total);
  }
  void TakeNote(const ExchangeNote& note) override { notes_.push_back(note.text.ToUtf8()); }

  /// What the exchange left out, in words.
  const std::vector<std::string>& Notes() const { return notes_; }
  /// A dialog wrote the file itself; the exchange then says that it was cancelled.
  bool HasWritten() const { return hasWritten_; }
  /// What it said in message boxes.
  const std::vector<std::string>& Messages() const { return messages_; }

 private:
  bool Fill(Dialog& dialog) const;
  bool CheckChosen(Dialog& dialog) const;

  std::string path_;
  const TextOptions& options_;
  const OutputOptions& output_;
  ProgressLine& progress_;
  bool hasWritten_ = false;
  bool asksToReplace_ = false;  // the last dialog was one whose only question is that
  std::vector<std::string> notes_;
  std::vector<std::string> messages_;
};
