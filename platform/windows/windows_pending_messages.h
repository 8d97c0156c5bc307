#pragma once

#include <functional>
#include <utility>

#include "platform/pending_messages.h"

namespace kvez {

/// Hands the question to whoever runs the message loop.
class WindowsPendingMessages : public PendingMessages {
 public:
  explicit WindowsPendingMessages(std::function<void()> process) : m_process(std::move(process)) {}

  void Process() override { m_process(); }

 private:
  std::function<void()> m_process;
};

}  // namespace kvez
