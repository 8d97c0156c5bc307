#include "tools/loaded_database.h"

#include "platform/portable/portable_path.h"
#include "text/utf8.h"
#include "tools/files.h"
#include "tools/tool.h"

namespace kvez {
namespace {

std::filesystem::path Absolute(const std::filesystem::path& folder) {
  std::error_code error;
  std::filesystem::path absolute = std::filesystem::absolute(folder, error);
  return error ? folder : absolute;
}

}  // namespace

void CollectedMessages::Show(std::wstring_view text, MessageIcon, std::wstring_view) {
  if (!m_texts.empty()) m_texts.push_back(L'\n');
  m_texts.append(text);
}

bool CollectedMessages::Ask(std::wstring_view text, std::wstring_view caption) {
  // Nobody is there to answer.
  Show(text, MessageIcon::Question, caption);
  return false;
}

void CollectedMessages::ThrowIfAny() const {
  if (!m_texts.empty()) throw ToolError(ToUtf8(m_texts));
}

LoadedDatabase::LoadedDatabase(const std::filesystem::path& folder)
    : m_database(DatabasePlatform{m_messages, m_settings, m_lz, m_lz, m_formats}, TextFromPath(Absolute(folder))) {
  ExpectNoReplacement(folder);
  m_database.pscNacti(m_progress);
  m_database.pscpNacti(m_progress);
  m_database.pscoNacti(m_progress);
  m_messages.ThrowIfAny();
}

}  // namespace kvez
