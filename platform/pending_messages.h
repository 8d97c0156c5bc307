#pragma once

namespace kvez {

/// Lets the windows catch up in the middle of a long operation.
class PendingMessages {
 public:
  virtual ~PendingMessages() = default;

  /// Handles the window messages that wait now and returns.
  virtual void Process() = 0;
};

}  // namespace kvez
