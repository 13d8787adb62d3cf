// Change notification of the host's libraries.
#pragma once

namespace tdk {

/// Told when a batch of changes begins and when it ends.
class ISourceEventListener {
 public:
  virtual ~ISourceEventListener();
  virtual void OnBeginEvent() = 0;
  virtual void OnEndEvent() = 0;
};

/// Something whose changes others watch. Between BeginEvent and EndEvent the watcher waits; batches
/// may nest.
class CSourceEvent {
 public:
  virtual ~CSourceEvent();

  void BeginEvent();
  void EndEvent();
  /// Number of batches that have begun and not ended.
  int Depth() const { return depth_; }

  /// `listener` is not owned and may be null.
  void SetListener(ISourceEventListener* listener) { listener_ = listener; }

 private:
  ISourceEventListener* listener_ = nullptr;
  int depth_ = 0;
};

}  // namespace tdk
