#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "tests/soak/data_set.h"
#include "tests/soak/soak.h"
#include "tests/support/program_driver.h"

namespace kvez::soak {

/// What the program is busy with when it is killed.
class Work {
 public:
  virtual ~Work() = default;
  /// Brings a loaded program to the moment before; false when it cannot.
  virtual bool Prepare(std::optional<test::Program>& program) = 0;
  /// The last key or click; returns at once.
  virtual void Begin(std::optional<test::Program>& program) = 0;
  /// Whether the work is over.
  virtual bool IsDone(const test::Program& program) = 0;
  /// What the kill has damaged outside of the program's folder; empty when nothing.
  virtual std::string Damage() { return {}; }
  /// Whether the work can still be done after all the kills.
  virtual bool StillWorks(std::optional<test::Program>&) { return true; }
  /// Where something may be left behind, beside the program's folder.
  virtual std::vector<std::filesystem::path> Places() const { return {}; }
};

/// Kills the program in its folder `times` times while it does the work, each time at a random moment between its begin
/// and a little after its end, and looks at what is there then and at what the next start makes of it.
void KillDuring(const std::string& name, Work& work, const std::filesystem::path& folder,
                const std::vector<DataSet>& sets, int times, Soak& soak);

}  // namespace kvez::soak
