#include "bench/output_bench.h"

#include <set>
#include <string>

#include "bench/measure.h"
#include "postal/clspsc.h"
#include "tests/core/data_bytes.h"
#include "tests/core/fakes.h"

namespace kvez::bench {
namespace {

// The real rows, under codes that all begin with 1: the search for that finds every one of them.
struct Files {
  explicit Files(PostalDatabase& source) {
    std::set<std::int32_t> served;
    for (std::int32_t i = 1; i <= source.pscCelkem(); ++i) {
      source.pscDetail(i);
      const std::wstring text = source.pscPSC();
      const std::int32_t code = 10000 + std::stoi(text.substr(1, 2) + text.substr(4));
      fakes::AppendMunicipality(municipalities, code, source.pscObec(), source.pscOkres());
      if (served.insert(code).second) fakes::AppendPostOffice(postOffices, code, source.pscDodavaci());
    }
  }

  fakes::Bytes municipalities;
  fakes::Bytes postOffices;
};

// All municipalities `times` over as the current result, on a machine in memory.
class Listed {
 public:
  Listed(const Files& files, int times) {
    fakes::Bytes& file = m_machine.disk.files[L"\\vd1.kl_"];
    for (int i = 0; i < times; ++i) {
      file.insert(file.end(), files.municipalities.begin(), files.municipalities.end());
    }
    m_machine.disk.files[L"\\vd2.kl_"] = files.postOffices;
    fakes::ProgressWindowFake progress;
    m_database.pscNacti(progress);
    m_database.pscpNacti(progress);
    fakes::ListBoxFake list;
    std::wstring description;
    m_database.pscNajdiPSC(false, L"1", list, description);
  }

  std::size_t Rows() const { return static_cast<std::size_t>(m_database.pCelkem()); }
  double Copy() {
    m_machine.output.clipboard.texts.clear();
    return Seconds([this] { m_database.pClipboard(L"Seznam"); });
  }

 private:
  fakes::Machine m_machine;
  clspsc m_database{m_machine.Platform(), L""};
};

}  // namespace

void MeasureListText(PostalDatabase& source, Limits& limits) {
  constexpr int kTimes = 10;
  const Files files(source);
  Listed real(files, 1);
  Listed tenfold(files, kTimes);
  const Pair best = BestOfUnequal(
      10, kTimes, [&] { return real.Copy(); }, [&] { return tenfold.Copy(); });
  const std::string what = "list text of " + std::to_string(real.Rows()) + " rows";
  limits.AtMost(what, best.first * 1e3, 50, "ms");
  limits.AtMost("list text per row, ten times the rows", best.second / best.first / kTimes, 1.5, "x");
}

}  // namespace kvez::bench
