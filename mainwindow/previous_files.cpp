#include "mainwindow/previous_files.h"

#include <array>
#include <utility>

#include "database/data_files.h"

namespace kvez {
namespace {

// The copy of the municipalities stands for the whole set: it is the last to be made and to be put back, and the first
// to go.
constexpr std::array<const DataFile*, 3> kFiles = {&kDistrictFile, &kPostOfficeFile, &kMunicipalityFile};

std::wstring Kept(const std::wstring& path) { return path + L".old"; }

}  // namespace

PreviousFiles::PreviousFiles(FileOperations& files, std::wstring folder)
    : m_files(files), m_folder(std::move(folder)) {}

bool PreviousFiles::Keep() {
  if (AreKept()) return true;
  Forget();
  for (const DataFile* file : kFiles) {
    const std::wstring path = m_folder + std::wstring(file->compressed);
    if (!m_files.Exists(path) || m_files.Copy(path, Kept(path))) continue;
    Forget();
    return false;
  }
  return true;
}

bool PreviousFiles::AreKept() { return m_files.Exists(Kept(m_folder + std::wstring(kMunicipalityFile.compressed))); }

bool PreviousFiles::PutBack() {
  for (const DataFile* file : kFiles) {
    const std::wstring path = m_folder + std::wstring(file->compressed);
    if (m_files.Exists(Kept(path)) && !m_files.Move(Kept(path), path)) return false;
  }
  return true;
}

void PreviousFiles::Forget() {
  for (auto file = kFiles.rbegin(); file != kFiles.rend(); ++file) {
    m_files.Remove(Kept(m_folder + std::wstring((*file)->compressed)));
  }
}

}  // namespace kvez
