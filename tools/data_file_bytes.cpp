#include "tools/data_file_bytes.h"

#include "platform/portable/szdd.h"
#include "text/windows1250.h"
#include "tools/tool.h"

namespace kvez {
namespace {

void AppendNumber(Bytes& bytes, std::uint32_t value, unsigned width) {
  for (unsigned i = 0; i < width; ++i) bytes.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendText(Bytes& bytes, const std::wstring& text) {
  const std::string letters = ToWindows1250(text);
  AppendNumber(bytes, static_cast<std::uint32_t>(letters.size()), 2);
  bytes.insert(bytes.end(), letters.begin(), letters.end());
}

Bytes MunicipalityBytes(const std::vector<MunicipalityRow>& rows) {
  Bytes bytes;
  for (const MunicipalityRow& row : rows) {
    AppendNumber(bytes, static_cast<std::uint32_t>(row.code), 4);
    AppendText(bytes, row.name);
    AppendText(bytes, row.district);
  }
  return bytes;
}

Bytes PostOfficeBytes(const std::vector<PostOfficeRow>& rows) {
  Bytes bytes;
  for (const PostOfficeRow& row : rows) {
    AppendNumber(bytes, static_cast<std::uint32_t>(row.code), 4);
    AppendText(bytes, row.name);
  }
  return bytes;
}

Bytes DistrictBytes(const std::vector<DistrictRow>& rows) {
  Bytes bytes;
  for (const DistrictRow& row : rows) {
    // The other two files begin with 32 bits; this one has 16, with a sign.
    AppendNumber(bytes, static_cast<std::uint16_t>(row.code), 2);
    AppendText(bytes, row.name);
  }
  return bytes;
}

NewFile Compressed(const std::filesystem::path& path, Bytes plain) {
  // The last letter of "vd1.bin".
  Bytes file = CompressSzdd(plain, 'n');
  return {path, std::move(file), [path, plain = std::move(plain)](const Bytes& back) {
            if (ExpandSzdd(back).bytes != plain) throw ToolError(Shown(path) + " does not expand to what went into it");
          }};
}

}  // namespace

std::vector<NewFile> DataFiles(const Tables& tables, const std::filesystem::path& folder) {
  return {Compressed(folder / "vd1.kl_", MunicipalityBytes(tables.municipalities)),
          Compressed(folder / "vd2.kl_", PostOfficeBytes(tables.postOffices)),
          Compressed(folder / "vd3.kl_", DistrictBytes(tables.districts))};
}

}  // namespace kvez
