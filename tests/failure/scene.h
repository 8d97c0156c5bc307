#pragma once

#include <algorithm>
#include <string>

#include "tests/core/loaded_database.h"
#include "tests/failure/faulty_platform.h"
#include "text/utf8.h"

namespace kvez::test {

inline constexpr std::int32_t kMunicipalities = 30;
inline constexpr std::int32_t kOffices = 6;
inline constexpr std::int32_t kDistricts = 3;

/// A database on a machine whose calls may fail, over lists that are long enough to need their memory piece by piece.
struct Scene {
  Scene() {
    fakes::Bytes municipalities;
    for (std::int32_t i = 0; i < kMunicipalities; ++i) {
      // No digits: what stands behind one is not compared.
      const std::wstring letters = {static_cast<wchar_t>(L'a' + i / 26), static_cast<wchar_t>(L'a' + i % 26)};
      fakes::AppendMunicipality(municipalities, 11000 + i % kOffices,
                                L"Obec s dlouhým názvem " + letters + L" nad řekou",
                                L"Okres s dlouhým názvem " + std::to_wstring(i % kDistricts));
    }
    fakes::Bytes offices;
    for (std::int32_t i = 0; i < kOffices; ++i)
      fakes::AppendPostOffice(offices, 11000 + i, L"Pošta s názvem " + std::to_wstring(i));
    fakes::Bytes districts;
    for (std::int32_t i = 0; i < kDistricts; ++i) {
      fakes::AppendDistrict(districts, 3100 + i, L"Okres s dlouhým názvem " + std::to_wstring(i));
    }
    machine.real.disk.files = {{fakes::kFolder + L"\\vd1.kl_", municipalities},
                               {fakes::kFolder + L"\\vd2.kl_", offices},
                               {fakes::kFolder + L"\\vd3.kl_", districts}};
    machine.real.disk.written[fakes::kFolder + L"\\vd1.kl_"] = {2026, 11, 16, 0, 50, 0};
    machine.real.output.printer.heightPerPoint = 1;  // 24 rows a page
  }

  void Load() {
    database.pscNacti(machine.window);
    database.pscpNacti(machine.window);
    database.pscoNacti(machine.window);
  }

  /// What an earlier run has shown and handed out.
  void ForgetOutput() {
    fakes::Machine& real = machine.real;
    real.log.clear();
    real.messages.messages.clear();
    real.output.textFiles.texts.clear();
    real.output.clipboard.texts.clear();
    real.output.mail.sent.clear();
    real.output.folders.answers = {L"C:\\Data"};
    real.output.printer.texts.clear();
    real.output.printer.rules.clear();
    real.output.printer.changes.clear();
    real.output.printer.pages = 0;
    real.output.printer.documents = 0;
    real.output.printer.discarded = 0;
    real.output.printer.uses = 0;
    machine.realWindow.growing.clear();
    machine.realWindow.shrinking.clear();
  }

  FaultyMachine machine;
  clspsc database{machine.Platform(), fakes::kFolder};
  std::wstring description;
  std::wstring answer;  // of what returns a text
};

/// Everything that a user or a caller could see.
inline std::wstring Seen(Scene& scene) {
  std::wstring seen;
  const auto add = [&seen](const std::wstring& text) { seen += text + L"\n"; };
  clspsc& database = scene.database;
  add(scene.description);
  add(scene.answer);
  for (const std::wstring& text :
       {database.pscVybran(), database.pscoVybran(), database.pVybran(), database.pscPSC(), database.pscObec(),
        database.pscOkres(), database.pscDodavaci(), database.pscPSCObec(), std::to_wstring(database.pscPozice()),
        std::to_wstring(database.pscNalezen()), std::to_wstring(database.PostOffices().size())}) {
    add(text);
  }
  const MunicipalityList& municipalities = database.Municipalities();
  for (std::size_t i = 0; i < municipalities.size(); ++i) {
    const tclspsc record = municipalities[i];
    add(std::to_wstring(record.tpscPSC()) + record.tpscObec() + record.tpscOkres());
  }
  for (const tclsdodavaci& office : database.PostOffices()) add(std::to_wstring(office.tpPSC()) + office.tpDodavaci());
  for (const tclsokresy& district : database.Districts())
    add(std::to_wstring(district.tpscoKod()) + district.tpscoOkres());
  const FaultyMachine& machine = scene.machine;
  add(std::to_wstring(machine.realList.extent) + L" " + std::to_wstring(machine.realList.openFillings));
  for (const auto& row : machine.realList.rows) add(row.text + std::to_wstring(row.data));
  for (const auto& [path, bytes] : machine.real.disk.files) add(path + std::to_wstring(bytes.size()));
  for (const auto& message : machine.real.messages.messages) add(message.text + message.caption);
  for (const auto& [path, text] : machine.real.output.textFiles.texts) add(path + text);
  for (const auto& text : machine.real.output.clipboard.texts) add(text);
  for (const auto& mail : machine.real.output.mail.sent) add(mail.files + mail.displayNames);
  for (const auto& text : machine.real.output.printer.texts) add(std::to_wstring(text.page) + text.text);
  add(std::to_wstring(machine.real.output.printer.documents));
  for (const float fraction : machine.realWindow.growing) add(std::to_wstring(fraction));
  add(std::to_wstring(machine.real.lz.OpenHandles()));
  return seen;
}

/// The first line in which two texts differ, nothing when they are equal.
inline std::string Difference(const std::wstring& a, const std::wstring& b) {
  if (a == b) return {};
  const auto place = std::mismatch(a.begin(), a.end(), b.begin(), b.end()).first - a.begin();
  const std::size_t line = a.rfind(L'\n', static_cast<std::size_t>(place)) + 1;
  const auto from = [line](const std::wstring& text) {
    return ToUtf8(text.substr(line, text.find(L'\n', line) - line));
  };
  return "'" + from(a) + "' instead of '" + from(b) + "'";
}

}  // namespace kvez::test
