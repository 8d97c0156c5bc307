#include "tests/soak/data_set.h"

#include <stdexcept>

#include "platform/portable/szdd.h"
#include "tests/core/data_bytes.h"
#include "tests/program/download_base.h"

namespace kvez::soak {
namespace {

using fakes::Bytes;

Bytes Expanded(const std::string& file) {
  const auto* bytes = reinterpret_cast<const std::uint8_t*>(file.data());
  // Data files may also lie there as they are.
  return IsSzdd({bytes, file.size()}) ? ExpandSzdd({bytes, file.size()}).bytes : Bytes(bytes, bytes + file.size());
}

// Records are an integer and texts, each behind its length.
int CountRecords(const Bytes& bytes, std::size_t integer, int texts) {
  int records = 0;
  for (std::size_t at = 0; at < bytes.size(); ++records) {
    at += integer;
    for (int text = 0; text < texts; ++text) {
      if (at + 2 > bytes.size()) throw std::runtime_error("a data file is cut");
      at += 2 + static_cast<std::size_t>(bytes[at] | bytes[at + 1] << 8);
    }
  }
  return records;
}

std::string Text(const Bytes& bytes) { return {bytes.begin(), bytes.end()}; }

void Count(DataSet& set) {
  set.municipalities = CountRecords(Expanded(set.files[0]), 4, 2);
  set.districts = CountRecords(Expanded(set.files[2]), 2, 1);
}

}  // namespace

std::string DataFileName(int file) { return "vd" + std::to_string(file + 1) + ".kl_"; }

DataSet ReadDataSet(const std::filesystem::path& folder) {
  DataSet set;
  for (int file = 0; file < 3; ++file) {
    set.files[static_cast<std::size_t>(file)] = test::ReadBytes(folder / DataFileName(file));
    if (set.files[static_cast<std::size_t>(file)].empty()) throw std::runtime_error("no " + DataFileName(file));
  }
  Count(set);
  return set;
}

DataSet Enlarged(const DataSet& set) {
  Bytes municipalities = Expanded(set.files[0]);
  Bytes postOffices = Expanded(set.files[1]);
  Bytes districts = Expanded(set.files[2]);
  fakes::AppendMunicipality(municipalities, 99999, L"Žďárec u Zkoušky", L"Zkouška");
  fakes::AppendPostOffice(postOffices, 99999, L"Zkouška 1");
  fakes::AppendDistrict(districts, 9999, L"Zkouška");
  DataSet larger{{Text(municipalities), Text(postOffices), Text(districts)}};
  Count(larger);
  return larger;
}

void WriteDataSet(const DataSet& set, const std::filesystem::path& folder) {
  for (int file = 0; file < 3; ++file) {
    test::WriteBytes(folder / DataFileName(file), set.files[static_cast<std::size_t>(file)]);
  }
}

}  // namespace kvez::soak
