#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "settings/clszastupce.h"
#include "text/error.h"

namespace kvez::test {

/// A settings store in memory; every write is noted as "key=value".
class FakeSettingsStore : public SettingsStore {
 public:
  std::wstring Get(std::wstring_view application, std::wstring_view section, std::wstring_view key,
                   std::wstring_view defaultValue) override {
    const auto found = values.find(Path(application, section, key));
    return found == values.end() ? std::wstring(defaultValue) : found->second;
  }
  void Save(std::wstring_view application, std::wstring_view section, std::wstring_view key,
            std::wstring_view value) override {
    if (key == refusedKey) throw Error(L"Nastavení se nepodařilo uložit.", "RegSetValueExW", 5);
    values[Path(application, section, key)] = value;
    writes.push_back(std::wstring(key).append(L"=").append(value));
  }
  static std::wstring Path(std::wstring_view application, std::wstring_view section, std::wstring_view key) {
    return std::wstring(application).append(L"/").append(section).append(L"/").append(key);
  }

  std::map<std::wstring, std::wstring> values;
  std::vector<std::wstring> writes;
  std::wstring refusedKey;
};

/// A desktop of which only the existence of files is known.
class FakeShell : public Shell {
 public:
  std::wstring SpecialFolder(std::int32_t folder) override {
    folders.push_back(folder);
    return desktop;
  }
  std::intptr_t FindFile(const std::wstring& path) override {
    searches.push_back(path);
    return existing.contains(path) ? 4711 : -1;
  }
  std::int32_t FileOperation(std::int32_t operation, const std::wstring& from, const std::wstring& to,
                             std::uint16_t flags) override {
    operations.push_back(std::to_wstring(operation) + L"|" + from + L"|" + to + L"|" + std::to_wstring(flags));
    return 0;
  }
  bool IsSpelt(const std::wstring& path) override { return path.find(L'日') == std::wstring::npos; }
  bool SaveLink(const ShellLink& link) override {
    links.push_back(link);
    return true;
  }

  std::wstring desktop = L"C:\\Plocha";
  std::set<std::wstring> existing;
  std::vector<std::int32_t> folders;
  std::vector<std::wstring> searches;
  std::vector<std::wstring> operations;
  std::vector<ShellLink> links;
};

/// Notes every step of making a shortcut; the steps named in `refused` fail.
class FakeAutomation : public Automation {
 public:
  std::unique_ptr<AutomationObject> Create(const std::wstring& name) override {
    return Take(L"create " + name, name) ? std::make_unique<Object>(*this) : nullptr;
  }

  std::set<std::wstring> refused;
  std::vector<std::wstring> steps;

 private:
  class Object : public AutomationObject {
   public:
    explicit Object(FakeAutomation& owner) : m_owner(owner) {}
    std::unique_ptr<AutomationObject> CallForObject(const std::wstring& method, const std::wstring& argument) override {
      return m_owner.Take(method + L"(" + argument + L")", method) ? std::make_unique<Object>(m_owner) : nullptr;
    }
    bool Call(const std::wstring& method) override { return m_owner.Take(method + L"()", method); }
    bool SetText(const std::wstring& property, const std::wstring& value) override {
      return m_owner.Take(property + L"=\"" + value + L"\"", property);
    }
    bool SetInteger(const std::wstring& property, std::int16_t value) override {
      return m_owner.Take(property + L"=" + std::to_wstring(value), property);
    }

   private:
    FakeAutomation& m_owner;
  };

  bool Take(const std::wstring& step, const std::wstring& name) {
    steps.push_back(step);
    return !refused.contains(name);
  }
};

}  // namespace kvez::test
