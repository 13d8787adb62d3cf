// The host's wait indicator.
#pragma once

class CWnd;
class HostViews;

class CWaitThread {
 public:
  static CWaitThread* GetInstance();

  /// Shows the indicator over `parent` until EndWait; calls may nest and only the outermost shows.
  /// The second word is for hosts with several indicators and is not used here.
  void StartWait(CWnd* parent, int indicator);
  void EndWait();

 private:
  HostViews* views_ = nullptr;
  int depth_ = 0;
};
