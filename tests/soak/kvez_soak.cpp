// The program under what ten years in an office bring: wrong servers, another program in its folder, kills at its work,
// days of searching, hits at random.
//
//   kvez_soak KVEZ_FOLDER WORK_FOLDER SHARE [SEED]
//
// SHARE is the part of it that is done, 1 for all. What was lost, what was left behind and what grew is printed beside
// its limit; the status is 1 when a limit was missed.

#include <windows.h>

#include <cstdio>
#include <cstdlib>
#include <exception>
#include <random>

#include "tests/soak/long_runs.h"
#include "tests/soak/two_programs.h"
#include "tests/soak/works.h"
#include "tests/soak/wrong_servers.h"
#include "tests/support/program_folder.h"

int wmain(int count, wchar_t** arguments) {
  using namespace kvez;
  if (count < 4 || count > 5 || std::wcstod(arguments[3], nullptr) <= 0) {
    std::fprintf(stderr, "usage: kvez_soak KVEZ_FOLDER WORK_FOLDER SHARE [SEED]\n");
    return 2;
  }
  try {
    soak::Soak soak;
    soak.program = std::filesystem::absolute(arguments[1]);
    soak.work = std::filesystem::absolute(arguments[2]);
    soak.share = std::wcstod(arguments[3], nullptr);
    soak.seed = count == 5 ? static_cast<unsigned>(std::wcstoul(arguments[4], nullptr, 10)) : std::random_device{}();
    std::printf("seed %u\n", soak.seed);
    test::ClearSettings();
    soak::UpdateFromWrongServers(soak);
    soak::RunTwoPrograms(soak);
    soak::KillEverywhere(soak);
    soak::SearchLong(soak);
    soak::SendRandomEvents(soak);
    test::ClearSettings();
    return soak.limits.Finish();
  } catch (const std::exception& error) {
    std::fprintf(stderr, "kvez_soak: %s\n", error.what());
    return 1;
  }
}
