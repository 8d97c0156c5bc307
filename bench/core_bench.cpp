// Measures the core on the real list, each pair in turn in one run, and prints every figure beside its limit. The best
// round of each counts, because noise only ever adds.
//
//   kvez_bench DATAFOLDER    the folder of vd1.kl_, vd2.kl_, vd3.kl_

#include <malloc.h>
#include <sqlite3.h>

#include <algorithm>
#include <array>
#include <cstdio>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "bench/limits.h"
#include "bench/measure.h"
#include "bench/mspack_memory.h"
#include "bench/output_bench.h"
#include "platform/portable/szdd.h"
#include "tests/core/fakes.h"
#include "text/windows1250.h"
#include "tools/loaded_database.h"

namespace {

using namespace kvez;
using bench::BestOf;
using bench::BestOfUnequal;
using bench::Limits;
using bench::Pair;
using bench::Seconds;
using fakes::Bytes;

std::string Microseconds(double seconds) { return std::to_string(static_cast<int>(seconds * 1e6 + 0.5)) + " us"; }

// A list box that keeps nothing: what it costs is the system's, not the core's.
class CountingList : public ListBox {
 public:
  void Clear() override { rows = 0; }
  void BeginFill(std::size_t, std::size_t) override {}
  void EndFill() override {}
  void AddRow(std::wstring_view, std::int32_t) override { ++rows; }
  int TextWidth(std::wstring_view text) override { return static_cast<int>(text.size()); }
  void SetHorizontalExtent(int) override {}

  std::size_t rows = 0;
};

class AllNames : public CountingList {
 public:
  void AddRow(std::wstring_view text, std::int32_t) override { names.emplace_back(text); }
  std::vector<std::wstring> names;
};

std::string Utf8(const std::wstring& text) {
  std::string bytes;
  for (const wchar_t character : text) {
    const auto code = static_cast<unsigned>(character);
    if (code < 0x80) {
      bytes += static_cast<char>(code);
    } else {
      bytes += static_cast<char>(0xC0 | (code >> 6));
      bytes += static_cast<char>(0x80 | (code & 0x3F));
    }
  }
  return bytes;
}

// SQLite with the same rows in memory, a prepared LIKE over their names.
class LikeSearch {
 public:
  explicit LikeSearch(const std::vector<std::wstring>& names) {
    sqlite3_open(":memory:", &m_database);
    sqlite3_exec(m_database, "CREATE TABLE obce(id INTEGER PRIMARY KEY, obec TEXT); BEGIN", nullptr, nullptr, nullptr);
    sqlite3_stmt* insert = nullptr;
    sqlite3_prepare_v2(m_database, "INSERT INTO obce(obec) VALUES(?)", -1, &insert, nullptr);
    for (const std::wstring& name : names) {
      const std::string bytes = Utf8(name);
      sqlite3_bind_text(insert, 1, bytes.data(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
      sqlite3_step(insert);
      sqlite3_reset(insert);
    }
    sqlite3_finalize(insert);
    sqlite3_exec(m_database, "COMMIT", nullptr, nullptr, nullptr);
    sqlite3_prepare_v2(m_database, "SELECT id, obec FROM obce WHERE obec LIKE ?", -1, &m_select, nullptr);
  }
  LikeSearch(const LikeSearch&) = delete;
  LikeSearch& operator=(const LikeSearch&) = delete;
  ~LikeSearch() {
    sqlite3_finalize(m_select);
    sqlite3_close(m_database);
  }

  std::size_t Count(const std::string& pattern) {
    sqlite3_bind_text(m_select, 1, pattern.data(), static_cast<int>(pattern.size()), SQLITE_TRANSIENT);
    std::size_t rows = 0;
    while (sqlite3_step(m_select) == SQLITE_ROW) rows += sqlite3_column_bytes(m_select, 1) > 0 ? 1 : 0;
    sqlite3_reset(m_select);
    return rows;
  }

 private:
  sqlite3* m_database = nullptr;
  sqlite3_stmt* m_select = nullptr;
};

void MeasureNameSearch(PostalDatabase& database, const std::vector<std::wstring>& names, Limits& limits) {
  LikeSearch like(names);
  CountingList list;
  std::wstring description;
  struct Search {
    const wchar_t* ours;
    const char* theirs;
  };
  for (const Search& search : {Search{L"Lhota", "Lhota"}, Search{L"Praha*", "Praha%"}, Search{L"Lednic*", "Lednic%"},
                               Search{L"*hov", "%hov"}, Search{L"*mlýn*", "%mlýn%"}, Search{L"Nov*Ves", "Nov%Ves"}}) {
    std::size_t found = 0;
    const Pair best = BestOf(
        50, [&] { database.pscVyberPostu(search.ours, list, description); },
        [&] { found = like.Count(search.theirs); });
    const std::string what = "name search " + Utf8(search.ours) + " (" + std::to_string(list.rows) + " rows, LIKE " +
                             std::to_string(found) + ")";
    limits.AtLeast(what, best.second / best.first, 10, "x");
  }
}

void MeasureExpansion(const Bytes& compressed, Limits& limits) {
  std::size_t ours = 0;
  std::size_t theirs = 0;
  const Pair best = BestOf(
      30, [&] { ours = ExpandSzdd(compressed).bytes.size(); }, [&] { theirs = bench::ExpandWithMspack(compressed); });
  if (ours != theirs) {
    limits.Fail("the two expansions differ: " + std::to_string(ours) + " and " + std::to_string(theirs) + " bytes");
  }
  limits.AtLeast("expansion of vd1.kl_ against libmspack", best.second / best.first, 3, "x");
}

// The list of all municipalities `times` over, on a machine in memory.
struct Multiplied {
  Multiplied(const Bytes& municipalities, int times) {
    Bytes& file = machine.disk.files[L"\\vd1.kl_"];
    for (int i = 0; i < times; ++i) file.insert(file.end(), municipalities.begin(), municipalities.end());
  }
  double Load() {
    database.pscUvolni();
    return Seconds([&] { database.pscNacti(progress); });
  }
  double Search(const wchar_t* text) {
    return Seconds([&] { database.pscVyberPostu(text, list, description); });
  }

  fakes::Machine machine;
  fakes::ProgressWindowFake progress;
  CountingList list;
  std::wstring description;
  PostalDatabase database{machine.Platform(), L""};
};

// Reads as much as no cache of one processor holds. The million names never come from there, and the real ones would
// only because nobody else has worked between two rounds.
void WorkOnSomethingElse() {
  static const std::vector<unsigned char> other(8 << 20, 1);
  volatile unsigned sum = 0;
  for (std::size_t i = 0; i < other.size(); i += 64) sum = sum + other[i];
}

void MeasureGrowth(const Bytes& municipalities, std::size_t rows, Limits& limits) {
  const int times = static_cast<int>(1000000 / rows) + 1;
  Multiplied real(municipalities, 1);
  Multiplied million(municipalities, times);
  const Pair load = BestOfUnequal(
      5, times, [&] { return real.Load(); }, [&] { return million.Load(); });
  std::printf("a list of %zu municipalities: loading %.0f ms\n", rows * static_cast<std::size_t>(times),
              load.second * 1e3);
  limits.AtMost("loading per record, a million against the real list", load.second / load.first / times, 1.5, "x");
  // Each mode reads the names in its own way, and one that keeps the limit says nothing about the others.
  // Nobody repeats one search fifty times: the others in between keep the processor from learning the short list by
  // heart.
  const std::array<const wchar_t*, 5> texts = {L"Lhota", L"Lednic*", L"*ves", L"*mlýn*", L"Nov*Ves"};
  for (const wchar_t* text : texts) {
    const auto searchReal = [&] {
      for (const wchar_t* other : texts) real.Search(other);
      WorkOnSomethingElse();
      return real.Search(text);
    };
    const Pair search = BestOfUnequal(5, times, searchReal, [&] { return million.Search(text); });
    const std::string what = "searching per record, " + Utf8(text) + " (" + Microseconds(search.first) + ", " +
                             Microseconds(search.second) + ")";
    limits.AtMost(what, search.second / search.first / times, 1.5, "x");
  }
}

}  // namespace

int main(int count, char** arguments) {
  if (count != 2) {
    std::fprintf(stderr, "usage: kvez_bench DATAFOLDER\n");
    return 1;
  }
  // Memory once taken stays the process's: the rounds after the first measure the core and not the kernel's paging.
  mallopt(M_MMAP_THRESHOLD, 1 << 30);
  mallopt(M_TRIM_THRESHOLD, 1 << 30);
  const std::filesystem::path folder = arguments[1];
  const auto compressed = PortableFiles().Read((folder / "vd1.kl_").wstring());
  if (!compressed) {
    std::fprintf(stderr, "There is no vd1.kl_ in %s.\n", arguments[1]);
    return 1;
  }
  const Bytes municipalities = ExpandSzdd(*compressed).bytes;

  const auto before = mallinfo2().uordblks;
  auto loaded = std::make_unique<LoadedDatabase>(folder);
  const double mebibytes = static_cast<double>(mallinfo2().uordblks - before) / 1024 / 1024;
  AllNames all;
  fakes::ProgressWindowFake progress;
  loaded->Database().pscVyberVse(all, progress);
  std::printf("%zu municipalities\n", all.names.size());

  Limits limits;
  MeasureNameSearch(loaded->Database(), all.names, limits);
  MeasureExpansion(*compressed, limits);
  double reading = 1e9;
  for (int round = 0; round < 20; ++round) {
    reading = std::min(reading, Seconds([&] { loaded = std::make_unique<LoadedDatabase>(folder); }));
  }
  limits.AtMost("reading all three files", reading * 1e3, 5, "ms");
  MeasureGrowth(municipalities, all.names.size(), limits);
  bench::MeasureListText(loaded->Database(), limits);
  limits.AtMost("memory of the loaded database", mebibytes, 10, "MiB");
  return limits.Finish();
}
