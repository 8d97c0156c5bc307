#include "database/record_layout.h"

namespace kvez {
namespace {

void AppendNumber(std::vector<std::uint8_t>& file, std::uint32_t value, unsigned bytes) {
  for (unsigned i = 0; i < bytes; ++i) file.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

void AppendText(std::vector<std::uint8_t>& file, std::string_view text) {
  AppendNumber(file, static_cast<std::uint32_t>(text.size()), 2);
  file.insert(file.end(), text.begin(), text.end());
}

}  // namespace

void ReadField(FieldReader& reader, Field field, RecordFields& record) {
  switch (field) {
    case Field::Code32:
      record.code = reader.Int32();
      break;
    case Field::Code16:
      record.code = reader.Int16();
      break;
    case Field::Name:
      record.name = reader.CountedText();
      break;
    case Field::District:
      record.district = reader.CountedText();
      break;
  }
}

RecordFields ReadRecord(FieldReader& reader, RecordLayout layout) {
  RecordFields record;
  for (const Field field : layout) ReadField(reader, field, record);
  return record;
}

void AppendRecord(std::vector<std::uint8_t>& file, RecordLayout layout, const RecordFields& record) {
  for (const Field field : layout) {
    switch (field) {
      case Field::Code32:
        AppendNumber(file, static_cast<std::uint32_t>(record.code), 4);
        break;
      case Field::Code16:
        AppendNumber(file, static_cast<std::uint32_t>(record.code), 2);
        break;
      case Field::Name:
        AppendText(file, record.name);
        break;
      case Field::District:
        AppendText(file, record.district);
        break;
    }
  }
}

}  // namespace kvez
